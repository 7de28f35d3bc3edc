#include "platform/sqlite/sqlite_object_store.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

namespace hourwright::platform {
namespace {

constexpr DatabaseDefinition definition{
    .name = u"D", .type = 1, .sortProperty = {1001, ValueType::fileTime}, .legend = {}};

class CommitNoticeTest : public testing::Test {
protected:
    // Creates a database of this type and commits, or leaves it.
    static bool write(ObjectStore& store, std::uint32_t type, bool commits = true) {
        const auto transaction = store.begin();
        DatabaseDefinition wanted = definition;
        wanted.type = type;
        return transaction && store.createDatabase(*transaction, wanted) != ObjectId::none &&
               (!commits || transaction->commit());
    }

    test::TemporaryDirectory directory_;
    std::filesystem::path file_ = directory_ / "store.db";
};

TEST_F(CommitNoticeTest, EveryCommitIsSeenAndNothingElse) {
    int commits = 0;
    const auto opened = openSqliteObjectStore(file_, {.onCommitted = [&] { ++commits; }});
    EXPECT_EQ(commits, 0);
    ASSERT_TRUE(write(*opened.store, 1));
    EXPECT_EQ(commits, 1);
    ASSERT_TRUE(write(*opened.store, 2, false));
    EXPECT_FALSE(write(*opened.store, 1)); // exists
    static_cast<void>(opened.store->databases());
    EXPECT_EQ(commits, 1);
    ASSERT_TRUE(write(*opened.store, 2));
    EXPECT_EQ(commits, 2);
}

TEST_F(CommitNoticeTest, OnlyChangesOfOthersChangeTheNumber) {
    const auto own = openSqliteObjectStore(file_);
    const auto other = openSqliteObjectStore(file_);
    const auto begin = own.store->changesByOthers();
    ASSERT_TRUE(begin);
    ASSERT_TRUE(write(*own.store, 1));
    ASSERT_TRUE(write(*other.store, 2, false));
    EXPECT_EQ(own.store->changesByOthers(), begin);
    ASSERT_TRUE(write(*other.store, 2));
    const auto changed = own.store->changesByOthers();
    EXPECT_NE(changed, begin);
    EXPECT_EQ(own.store->changesByOthers(), changed);
    EXPECT_EQ(own.store->databases().size(), 2U);
}

} // namespace
} // namespace hourwright::platform
