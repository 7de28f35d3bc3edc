#include "desktop/expenses/expense_dialog.h"

#include "billing/new_entry.h"
#include "desktop/completing_combo.h"
#include "desktop/desktop_fixture.h"
#include "store/client_structure.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

namespace hourwright::desktop {
namespace {

using platform::Answer;
using resources::StringId;
using store::EntryStatus;
using store::ExpenseEntry;
using store::ExpenseType;

class ExpenseDialogTest : public test::DesktopFixture {
protected:
    ExpenseEntry blank(ExpenseType type) { return billing::newExpense(type, {}, clock().localTime()); }

    std::unique_ptr<ExpenseDialog> open(const ExpenseEntry& expense) {
        auto dialog = std::make_unique<ExpenseDialog>(workspace(), expense, nullptr);
        dialog->show();
        dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        return dialog;
    }

    /// Types into a field in place of what it has.
    static void type(ExpenseDialog& dialog, const char* name, const QString& text) {
        auto* field = dialog.findChild<QWidget*>(name);
        auto* combo = qobject_cast<QComboBox*>(field);
        auto* edit = combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit*>(field);
        ASSERT_NE(edit, nullptr) << name;
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
    }
    static QString text(ExpenseDialog& dialog, const char* name) { return dialog.findChild<QLineEdit*>(name)->text(); }

    ExpenseEntry only() {
        const auto stored = expenses();
        EXPECT_EQ(stored.size(), 1U);
        return stored.empty() ? ExpenseEntry{} : stored.front();
    }

    static constexpr platform::SystemTime day{.year = 2026, .month = 2, .day = 3};
    static ExpenseEntry full(ExpenseType type) {
        ExpenseEntry expense{.type = type,
                             .date = platform::toFileTime(day).value(),
                             .description = u"Train & bus",
                             .client = u"Acme",
                             .project = u"Bridge",
                             .status = EntryStatus::billed,
                             .currency = u"EUR",
                             .amount = 201,
                             .receipt = true,
                             .paidDate = {platform::toFileTime(day).value().ticks + 12'345},
                             .billTo = u"Ms Lind",
                             .custom1 = u"one",
                             .custom2 = u"two",
                             .note = u"First\r\nsecond"};
        if (type == ExpenseType::general)
            expense.category = u"Travel";
        else
            std::tie(expense.startOdometer, expense.distance) = std::pair(1000U, 35U);
        return expense;
    }
};

TEST_F(ExpenseDialogTest, EveryFieldTypedIsStored) {
    for (const ExpenseType kind : {ExpenseType::general, ExpenseType::mileage}) {
        const bool mileage = kind == ExpenseType::mileage;
        auto dialog = open(blank(kind));
        dialog->findChild<QDateEdit*>("date")->setDate(QDate(2026, 2, 3));
        for (const auto& [name, value] :
             std::initializer_list<std::pair<const char*, const char*>>{{"client", "Acme"},
                                                                        {"project", "Bridge"},
                                                                        {"description", "Train & bus"},
                                                                        {"amount", "12.5"},
                                                                        {"currency", "EUR"},
                                                                        {"billTo", "Ms Lind"},
                                                                        {"custom1", "one"},
                                                                        {"custom2", "two"}})
            type(*dialog, name, value);
        if (mileage) {
            type(*dialog, "startOdometer", "1000");
            type(*dialog, "endOdometer", "1035");
        } else {
            type(*dialog, "category", "Travel");
        }
        dialog->findChild<QComboBox*>("status")->setCurrentIndex(2);
        dialog->findChild<QCheckBox*>("receipt")->setChecked(true);
        dialog->findChild<QCheckBox*>("isPaid")->setChecked(true);
        dialog->findChild<QDateEdit*>("paidDate")->setDate(QDate(2026, 2, 3));
        dialog->findChild<QPlainTextEdit*>("note")->setPlainText("First\nsecond");
        dialog->accept();
        EXPECT_EQ(dialog->result(), QDialog::Accepted);
        ExpenseEntry expected = full(kind);
        expected.id = dialog->expense().id;
        expected.amount = 1250;
        expected.paidDate = expected.date;
        expected.note = u"First\nsecond";
        expected.modified = clock().now();
        EXPECT_EQ(readExpense(stores(), dialog->expense().id), expected) << mileage;
    }
}

TEST_F(ExpenseDialogTest, WhatIsNotTouchedStaysAsItIs) {
    for (const ExpenseType kind : {ExpenseType::general, ExpenseType::mileage}) {
        const store::RecordId id = add(full(kind));
        const ExpenseEntry before = readExpense(stores(), id).value();
        auto dialog = open(before);
        type(*dialog, "custom2", "other");
        dialog->accept();
        ExpenseEntry expected = before;
        expected.custom2 = u"other";
        expected.modified = clock().now();
        const ExpenseEntry after = readExpense(stores(), id).value();
        expected.flags = after.flags; // the store's own
        EXPECT_EQ(after, expected);
    }
}

TEST_F(ExpenseDialogTest, ReadingsAndAmountFollowWhileTyping) {
    ExpenseEntry expense = blank(ExpenseType::mileage);
    expense.startOdometer = 1200;
    expense.currency = u"USD";
    auto dialog = open(expense);
    EXPECT_EQ(text(*dialog, "startOdometer"), "1200");
    type(*dialog, "amount", "0.55");
    type(*dialog, "endOdometer", "1240");
    EXPECT_EQ(text(*dialog, "distance"), "40");
    EXPECT_EQ(dialog->findChild<QLabel*>("total")->text(), "22.00 USD");
    type(*dialog, "distance", "100");
    EXPECT_EQ(text(*dialog, "endOdometer"), "1300");
    EXPECT_EQ(dialog->findChild<QLabel*>("total")->text(), "55.00 USD");
    type(*dialog, "endOdometer", "1100");
    dialog->accept();
    EXPECT_EQ(messages().ids(), std::vector{StringId::odometerEndBeforeStart});
    EXPECT_EQ(dialog->focusWidget()->objectName(), "endOdometer");
    EXPECT_TRUE(expenses().empty());
}

TEST_F(ExpenseDialogTest, RefusalsKeepItOpenWithTheFocus) {
    auto dialog = open(blank(ExpenseType::general));
    type(*dialog, "amount", "12a");
    dialog->accept();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(messages().shown.size(), 1U);
    EXPECT_EQ(dialog->focusWidget()->objectName(), "amount");
    EXPECT_TRUE(expenses().empty());
}

TEST_F(ExpenseDialogTest, EscapeAsksOnlyWhenSomethingChanged) {
    auto untouched = open(blank(ExpenseType::general));
    QTest::keyClick(untouched.get(), Qt::Key_Escape);
    EXPECT_FALSE(untouched->isVisible());
    EXPECT_TRUE(messages().shown.empty());
    auto touched = open(blank(ExpenseType::general));
    type(*touched, "client", "A");
    messages().script = {Answer::no, Answer::yes};
    QTest::keyClick(touched.get(), Qt::Key_Escape);
    EXPECT_TRUE(touched->isVisible());
    QTest::keyClick(touched.get(), Qt::Key_Escape);
    EXPECT_FALSE(touched->isVisible());
    EXPECT_EQ(messages().ids(), (std::vector{StringId::discardChanges, StringId::discardChanges}));
}

TEST_F(ExpenseDialogTest, EnterSavesFromAField) {
    auto dialog = open(blank(ExpenseType::general));
    QTest::keyClicks(dialog->focusWidget(), "Acme");
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(only().client, u"Acme");
}

TEST_F(ExpenseDialogTest, WhatSomebodyElseChangedIsNotLost) {
    const store::RecordId id = add(full(ExpenseType::general));
    const ExpenseEntry opened = only();
    const auto changeMeanwhile = [&](std::u16string description) {
        change([&](auto& transaction) {
            ExpenseEntry other = only();
            other.description = std::move(description);
            ASSERT_TRUE(store::updateExpenseEntry(transaction, stores().expenses(), other));
        });
    };
    auto another = open(opened);
    type(*another, "project", "Tunnel");
    changeMeanwhile(u"Ferry");
    another->accept();
    EXPECT_EQ(only().description, u"Ferry");
    EXPECT_EQ(only().project, u"Tunnel");
    EXPECT_TRUE(messages().shown.empty());

    auto same = open(only());
    type(*same, "description", "Plane");
    changeMeanwhile(u"Bus");
    messages().script = {Answer::no, Answer::yes};
    same->accept();
    EXPECT_EQ(only().description, u"Bus");
    same->accept();
    EXPECT_EQ(only().description, u"Plane");
    EXPECT_EQ(only().id, id);
}

TEST_F(ExpenseDialogTest, ADeletedExpenseCanBeSavedAsNew) {
    const store::RecordId id = add(full(ExpenseType::general));
    auto dialog = open(only());
    type(*dialog, "project", "Tunnel");
    change([&](auto& transaction) {
        ASSERT_NE(stores().expenses().seek(platform::Seek::toId(id)), store::RecordId::none);
        ASSERT_TRUE(stores().expenses().deleteCurrent(transaction));
    });
    messages().script = {Answer::no, Answer::yes};
    dialog->accept();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(expenses().empty());
    dialog->accept();
    EXPECT_EQ(only().project, u"Tunnel");
    EXPECT_EQ(only().description, u"Train & bus");
}

TEST_F(ExpenseDialogTest, PaidBeginsWithToday) {
    auto dialog = open(blank(ExpenseType::general));
    auto* status = dialog->findChild<QComboBox*>("status");
    status->setCurrentIndex(3);
    status->setCurrentIndex(1);
    EXPECT_FALSE(dialog->findChild<QCheckBox*>("isPaid")->isChecked());
    status->setCurrentIndex(3);
    dialog->accept();
    EXPECT_EQ(only().status, EntryStatus::paid);
    EXPECT_EQ(only().paidDate, clock().now());
}

} // namespace
} // namespace hourwright::desktop
