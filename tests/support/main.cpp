#include <clocale>
#include <gtest/gtest.h>

// The process locale is taken from the environment, as a window toolkit does it: no result may depend on it.
int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
