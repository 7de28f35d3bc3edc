#include "desktop/desktop_fixture.h"

#include "store/date_walk.h"
#include "store/save.h"

namespace hourwright::test {

namespace {

// The one application of the test program; it must be there before the first widget and outlive the last.
class ApplicationEnvironment : public testing::Environment {
public:
    void SetUp() override {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(argc_, argv_);
    }
    void TearDown() override { application_.reset(); }

private:
    int argc_ = 1;
    char name_[13] = "desktop_test";
    char* argv_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> application_;
};

const auto* const environment = testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

template<typename Record>
std::vector<Record> all(store::RecordStore& records) {
    std::vector<Record> result;
    store::DateWalk walk(records, {});
    for (Record record; walk.next(record) == store::ReadResult::ok;)
        result.push_back(record);
    return result;
}

} // namespace

store::RecordId DesktopFixture::add(store::TimeEntry entry) {
    change(
        [&](platform::Transaction& transaction) { EXPECT_TRUE(store::saveTimeEntry(transaction, stores(), entry)); });
    return entry.id;
}

store::RecordId DesktopFixture::add(store::ExpenseEntry expense) {
    change([&](platform::Transaction& transaction) {
        EXPECT_TRUE(store::saveExpenseEntry(transaction, stores(), expense));
    });
    return expense.id;
}

std::vector<store::TimeEntry> DesktopFixture::entries() {
    return all<store::TimeEntry>(stores().entries());
}

std::vector<store::ExpenseEntry> DesktopFixture::expenses() {
    return all<store::ExpenseEntry>(stores().expenses());
}

} // namespace hourwright::test
