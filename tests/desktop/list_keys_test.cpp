#include "desktop/structure/list_keys.h"

#include <gtest/gtest.h>
#include <string>

namespace hourwright::desktop {
namespace {

TEST(ListKeys, AddChangeAndDelete) {
    std::string done;
    const ListKeys keys{.add =
                            [&] {
                                done += 'a';
                                return std::unique_ptr<Dialog>();
                            },
                        .change =
                            [&] {
                                done += 'c';
                                return std::unique_ptr<Dialog>();
                            },
                        .remove = [&] { done += 'd'; }};
    for (const int key : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Delete})
        EXPECT_TRUE(runListKey(keys, key)) << key;
    EXPECT_FALSE(runListKey(keys, Qt::Key_A)) << "other keys are the list's own";
    EXPECT_EQ(done, "acccd");
}

} // namespace
} // namespace hourwright::desktop
