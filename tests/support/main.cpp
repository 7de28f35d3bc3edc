#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>

// The process locale is taken from the environment, as a window toolkit does it: no result may depend on it.
int main(int argc, char** argv) {
    if (std::setlocale(LC_ALL, "") == nullptr) {
        std::cerr << "The locale of the environment is not installed: tools/setup does that.\n";
        return EXIT_FAILURE;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
