#include "desktop/bulk/criteria_dialog.h"
#include "desktop/bulk/paid_date_dialog.h"
#include "desktop/bulk/progress_window.h"
#include "desktop/bulk/replace_dialog.h"
#include "desktop/desktop_fixture.h"
#include "desktop/main_window.h"
#include "store/client_structure.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace hourwright::desktop {
namespace {

using platform::Answer;
using resources::StringId;
using store::EntryStatus;

platform::FileTime november(std::uint16_t day) {
    return platform::toFileTime({.year = 2026, .month = 11, .day = day}).value();
}

class BulkDialogTest : public test::DesktopFixture {
protected:
    BulkDialogTest() {
        add(store::TimeEntry{.date = november(10), .client = u"Acme", .status = EntryStatus::billable});
        add(store::TimeEntry{.date = november(16), .client = u"Acme", .status = EntryStatus::billable});
        add(store::TimeEntry{.date = november(17), .client = u"Acme", .status = EntryStatus::nonBillable});
        add(store::TimeEntry{.date = november(18), .client = u"Zenith", .status = EntryStatus::billed});
        add(store::TimeEntry{.date = november(25), .client = u"Acme", .status = EntryStatus::billable});
    }
    std::vector<EntryStatus> statuses() {
        std::vector<EntryStatus> result;
        for (const store::TimeEntry& entry : entries())
            result.push_back(entry.status);
        return result;
    }
    // Runs a command, accepting each dialog that it opens.
    void run(app::Command command, int dialogs) {
        MainWindow window(workspace());
        QTimer accepter;
        QObject::connect(&accepter, &QTimer::timeout, &accepter, [&dialogs] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr && qobject_cast<ProgressWindow*>(dialog) == nullptr) {
                --dialogs;
                dialog->accept();
            }
        });
        accepter.start(1);
        window.commands().run(command);
        EXPECT_EQ(dialogs, 0);
    }
    static constexpr auto billable = EntryStatus::billable;
    static constexpr auto paid = EntryStatus::paid;
};

TEST_F(BulkDialogTest, MarksTheEntriesOfTheCriteriaPaid) {
    run(app::Command::markPaidEntries, 2);
    EXPECT_EQ(statuses(), (std::vector{billable, paid, EntryStatus::nonBillable, paid, billable}));
    EXPECT_EQ(entries()[1].paidDate, clock().now());
    ASSERT_EQ(messages().ids(), std::vector{StringId::entriesMatched});
    EXPECT_EQ(messages().shown.front().text, u"Time entries that matched: 2");
}

TEST_F(BulkDialogTest, MarksTheEntriesOfTheCriteriaBilled) {
    run(app::Command::markBilledEntries, 1);
    EXPECT_EQ(statuses(),
              (std::vector{billable, EntryStatus::billed, EntryStatus::nonBillable, EntryStatus::billed, billable}));
}

TEST_F(BulkDialogTest, MarksTheViewPaidThroughItsFilter) {
    workspace().entryFilter().client = u"Acme";
    messages().script = {Answer::no};
    run(app::Command::markViewPaid, 0);
    EXPECT_EQ(statuses()[1], billable);
    messages().script = {Answer::yes};
    run(app::Command::markViewPaid, 0);
    EXPECT_EQ(statuses(), (std::vector{billable, paid, EntryStatus::nonBillable, EntryStatus::billed, billable}));
    EXPECT_EQ(messages().shown.front().id, StringId::markAllPaid);
    EXPECT_EQ(messages().shown.front().defaultAnswer, Answer::no);
}

TEST_F(BulkDialogTest, DeletesOnlyAfterTheQuestion) {
    run(app::Command::deleteByCriteria, 1);
    EXPECT_EQ(entries().size(), 5U);
    messages().script = {Answer::ok};
    run(app::Command::deleteByCriteria, 1);
    EXPECT_EQ(entries().size(), 2U);
    EXPECT_EQ(messages().ids(),
              (std::vector{StringId::deleteByCriteria, StringId::deleteByCriteria, StringId::entriesDeleted}));
}

TEST_F(BulkDialogTest, RemovesAllDataAfterTheQuestion) {
    run(app::Command::removeAllData, 0);
    EXPECT_EQ(entries().size(), 5U);
    messages().script = {Answer::yes};
    run(app::Command::removeAllData, 0);
    EXPECT_TRUE(entries().empty());
}

TEST_F(BulkDialogTest, CriteriaTakeTextsAndStatuses) {
    CriteriaDialog dialog(workspace(), app::BulkKind::remove, nullptr);
    dialog.findChild<AnyCombo*>("client")->setText(u"Acme");
    dialog.findChild<AnyCombo*>("task")->setText(u"Survey");
    dialog.findChild<QCheckBox*>("status0")->setChecked(false);
    dialog.findChild<QDateEdit*>("lastDay")->setDate(QDate(2026, 11, 1));
    dialog.accept();
    EXPECT_EQ(messages().ids(), std::vector{StringId::periodEndBeforeStart});
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    dialog.findChild<QDateEdit*>("firstDay")->setDate(QDate(2026, 10, 31));
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.criteria().client, u"Acme");
    EXPECT_EQ(dialog.criteria().task, u"Survey");
    EXPECT_EQ(dialog.criteria().statusFlags(), 0x25U);
    EXPECT_EQ(dialog.criteria().rangeStart.month, 10);
}

TEST_F(BulkDialogTest, APaidDateOfAnotherDayIsItsMidnight) {
    PaidDateDialog dialog(workspace(), nullptr);
    EXPECT_EQ(dialog.paidDate(), clock().now());
    dialog.findChild<QDateEdit*>("paidDate")->setDate(QDate(2026, 11, 3));
    EXPECT_EQ(dialog.paidDate(), november(3));
}

TEST_F(BulkDialogTest, ReplaceRefusesInOrderAndAsksLast) {
    ReplaceDialog dialog(workspace(), nullptr);
    dialog.show();
    auto* find = dialog.findChild<CompletingCombo*>("find");
    auto* replacement = dialog.findChild<QLineEdit*>("replacement");
    dialog.accept();
    EXPECT_EQ(messages().ids(), std::vector{StringId::replaceFindMissing});
    EXPECT_EQ(dialog.focusWidget(), find);
    find->setText(u"Acme");
    dialog.accept();
    EXPECT_EQ(messages().ids().back(), StringId::replaceWithMissing);
    EXPECT_EQ(dialog.focusWidget(), replacement);
    replacement->setText("Apex");
    dialog.accept();
    EXPECT_EQ(messages().shown.back().id, StringId::replaceConfirm);
    EXPECT_EQ(messages().shown.back().defaultAnswer, Answer::no);
    EXPECT_EQ(messages().shown.size(), 3U);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(entries().front().client, u"Acme");
}

TEST_F(BulkDialogTest, ReplacesInRecordsAndFilters) {
    workspace().entryFilter().client = u"Acme";
    change(
        [&](platform::Transaction& transaction) { EXPECT_NE(store::addClient(transaction, stores(), u"Zenith"), 0U); });
    ReplaceDialog dialog(workspace(), nullptr);
    dialog.show();
    EXPECT_GE(dialog.findChild<CompletingCombo*>("find")->findText("Zenith"), 0);
    dialog.findChild<CompletingCombo*>("find")->setText(u"Acme");
    dialog.findChild<QLineEdit*>("replacement")->setText("Apex");
    messages().script = {Answer::yes};
    dialog.accept();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(entries().front().client, u"Apex");
    EXPECT_EQ(workspace().entryFilter().client, u"Apex");
    EXPECT_EQ(messages().shown.back().text, u"Records in which the text was replaced: 4");
}

TEST_F(BulkDialogTest, TheProgressWindowAppearsAfterAMomentAndClosesWithTheWorkOnly) {
    for (const bool mayCancel : {false, true}) {
        ProgressWindow progress("...", mayCancel, nullptr);
        progress.look(1, 10);
        EXPECT_FALSE(progress.isVisible());
        ASSERT_TRUE(QTest::qWaitFor([&] {
            progress.look(4, 10);
            return progress.isVisible();
        }));
        EXPECT_EQ(progress.findChild<QProgressBar*>()->value(), 4);
        progress.accept();
        EXPECT_FALSE(progress.wasCancelled());
        progress.reject();
        progress.close();
        EXPECT_TRUE(progress.isVisible());
        EXPECT_EQ(progress.wasCancelled(), mayCancel);
    }
}

} // namespace
} // namespace hourwright::desktop
