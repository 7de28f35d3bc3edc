#include "desktop/drafts/draft_keeper.h"

#include "billing/new_entry.h"
#include "desktop/desktop_fixture.h"
#include "desktop/editor/entry_dialog.h"
#include "desktop/expenses/expense_dialog.h"
#include "exchange/note_document.h"
#include "store/save.h"
#include "support/memory_registry.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>

namespace hourwright::desktop {
namespace {

using platform::Answer;
using resources::StringId;

class DraftKeeperTest : public test::DesktopFixture {
protected:
    store::TimeEntry newEntry() { return billing::newTimeEntry({.billable = true}, clock().localTime()); }
    static store::TimeEntry filled() {
        store::TimeEntry entry{.client = u"Acme", .project = u"Web", .task = u"Design", .duration = 150};
        entry.note = exchange::writeNote(exchange::fromPlainText(u"as it was"));
        store::setDateAndStart(entry, {.year = 2026, .month = 11, .day = 12, .hour = 10});
        return entry;
    }

    EntryDialog& open(const store::TimeEntry& entry) {
        return show(std::make_unique<EntryDialog>(workspace(), entry, nullptr));
    }
    ExpenseDialog& open(const store::ExpenseEntry& expense) {
        return show(std::make_unique<ExpenseDialog>(workspace(), expense, nullptr));
    }
    template<typename Editor>
    Editor& show(std::unique_ptr<Editor> dialog) {
        dialog->show();
        Editor& shown = *dialog;
        dialogs_.push_back(std::move(dialog));
        return shown;
    }
    // The program ends without a word to the dialogs.
    void end() { dialogs_.clear(); }

    std::unique_ptr<DraftKeeper> start() {
        auto keeper = std::make_unique<DraftKeeper>(workspace(), journal_);
        keeper->reopen = [this](const app::KeptRecord& record) -> QDialog* {
            if (const auto* kept = std::get_if<app::KeptEntry>(&record)) {
                EntryDialog& dialog = open(kept->stored);
                dialog.restore(*kept);
                return &dialog;
            }
            const auto& kept = std::get<app::KeptExpense>(record);
            ExpenseDialog& dialog = open(kept.stored);
            dialog.restore(kept);
            return &dialog;
        };
        return keeper;
    }
    std::size_t left() { return app::DraftJournal(journal_).read().size(); }

    // Changes each field that the dialog has, in whatever way it can be changed.
    static void changeAll(QWidget& dialog) {
        int number = 0;
        for (QCheckBox* const box : dialog.findChildren<QCheckBox*>())
            box->setChecked(!box->isChecked());
        for (auto* const edit : dialog.findChildren<QDateTimeEdit*>())
            edit->setDateTime(edit->dateTime().addDays(40).addSecs(11'700));
        for (QComboBox* const combo : dialog.findChildren<QComboBox*>())
            if (!combo->isEditable())
                combo->setCurrentIndex((combo->currentIndex() + 1) % combo->count());
        for (QLineEdit* const line : dialog.findChildren<QLineEdit*>())
            if (qobject_cast<QAbstractSpinBox*>(line->parentWidget()) == nullptr) {
                line->selectAll();
                QTest::keyClicks(line, QString("7x%1").arg(number++)); // a number to no field
            }
        for (auto* const note : dialog.findChildren<QTextEdit*>())
            note->setHtml("<p>All <b>bold</b></p>"), note->document()->setModified(true);
        for (auto* const note : dialog.findChildren<QPlainTextEdit*>())
            note->setPlainText("one\ntwo");
    }
    // What stands in all fields.
    static QStringList shown(QWidget& dialog) {
        QStringList all;
        for (const QLineEdit* const line : dialog.findChildren<QLineEdit*>())
            all.append(line->text());
        for (const QCheckBox* const box : dialog.findChildren<QCheckBox*>())
            all.append(box->isChecked() ? "on" : "off");
        for (const QComboBox* const combo : dialog.findChildren<QComboBox*>())
            all.append(combo->currentText());
        for (const auto* const note : dialog.findChildren<QTextEdit*>())
            all.append(note->toPlainText());
        for (const auto* const note : dialog.findChildren<QPlainTextEdit*>())
            all.append(note->toPlainText());
        return all;
    }
    static QLineEdit& task(QWidget& dialog) {
        for (QComboBox* const combo : dialog.findChildren<QComboBox*>())
            if (combo->currentText() == "Design")
                return *combo->lineEdit();
        throw std::logic_error("no task");
    }

    test::MemoryRegistry journal_;
    std::vector<std::unique_ptr<QDialog>> dialogs_;
};

TEST_F(DraftKeeperTest, everyFieldComesBack) {
    const auto stored = add(filled());
    auto entry = entries().front();
    entry.id = stored;
    const std::vector<store::TimeEntry> timeEntries{newEntry(), entry};
    std::vector<store::ExpenseEntry> both{billing::newExpense(store::ExpenseType::general, {}, clock().localTime()),
                                          billing::newExpense(store::ExpenseType::mileage, {}, clock().localTime())};
    const auto check = [this](QDialog& dialog) {
        changeAll(dialog);
        const QStringList fields = shown(dialog);
        start()->keep();
        end();
        messages().script = {Answer::yes};
        const auto keeper = start();
        ASSERT_TRUE(keeper->offer());
        EXPECT_EQ(shown(*dialogs_.front()), fields);
        keeper->keep();
        dialogs_.front()->done(QDialog::Rejected);
        end();
        EXPECT_EQ(left(), 0U);
    };
    for (const auto& each : timeEntries)
        check(open(each));
    for (const auto& each : both)
        check(open(each));
}

TEST_F(DraftKeeperTest, whatIsStoredAfterwardsIsWhatWasTyped) {
    const auto id = add(filled());
    {
        EntryDialog& dialog = open(entries().front());
        task(dialog).setText("Review");
        start()->keep();
        end();
    }
    EXPECT_EQ(entries().front().task, u"Design");
    messages().script = {Answer::yes};
    const auto keeper = start();
    ASSERT_TRUE(keeper->offer());
    EXPECT_EQ(messages().ids(), std::vector{StringId::draftOffer});
    dynamic_cast<EntryDialog&>(*dialogs_.front()).accept();
    ASSERT_EQ(entries().size(), 1U);
    auto expected = filled();
    expected.id = id;
    expected.task = u"Review";
    expected.modified = clock().now();
    expected.flags = entries().front().flags;
    EXPECT_EQ(entries().front(), expected);
    EXPECT_EQ(left(), 0U);
    EXPECT_FALSE(start()->offer());
}

TEST_F(DraftKeeperTest, aRecordThatHasChangedSinceIsNotOverwrittenUnasked) {
    const auto id = add(filled());
    struct Case {
        const char* name;
        std::function<void(platform::Transaction&)> meanwhile;
        StringId question;
    };
    const std::vector<Case> cases{
        {"changed",
         [&](platform::Transaction& t) {
             auto other = entries().front();
             other.task = u"Something else";
             EXPECT_TRUE(store::saveTimeEntry(t, stores(), other));
         },
         StringId::recordChangedMeanwhile},
        {"deleted",
         [&](platform::Transaction& t) {
             EXPECT_EQ(stores().entries().seek(platform::Seek::toId(id)), id);
             EXPECT_TRUE(stores().entries().deleteCurrent(t));
         },
         StringId::recordDeletedMeanwhile},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        change([&](platform::Transaction& t) {
            auto first = entries().front();
            first.task = u"Design";
            EXPECT_TRUE(store::saveTimeEntry(t, stores(), first));
        });
        task(open(entries().front())).setText("Review");
        start()->keep();
        end();
        change(test.meanwhile);
        const auto before = entries();
        messages().shown.clear();
        messages().script = {Answer::yes, Answer::no};
        const auto keeper = start();
        ASSERT_TRUE(keeper->offer());
        dynamic_cast<EntryDialog&>(*dialogs_.front()).accept();
        EXPECT_EQ(messages().ids(), (std::vector{StringId::draftOffer, test.question}));
        EXPECT_EQ(entries(), before);
        EXPECT_EQ(left(), 1U); // the dialog is still open
        dialogs_.front()->done(QDialog::Rejected);
        end();
    }
}

// A kill between storing a new record and forgetting its draft must not lead to a second one.
TEST_F(DraftKeeperTest, aNewRecordThatWasStoredIsNotOfferedAgain) {
    const auto keeper = start();
    auto expense = billing::newExpense(store::ExpenseType::general, {}, clock().localTime());
    expense.description = u"Taxi";
    auto entry = filled();
    entry.id = store::RecordId::none;
    const auto storeAndKill = [&](QDialog& dialog, QLineEdit& field) {
        field.setText("An early form");
        keeper->keep();
        clock().advance(5);
        field.setText("The last form"); // after what was written down
        app::KeptDraft atTheKill;
        QObject::connect(&workspace(), &Workspace::recordsChanged, &dialog,
                         [&] { atTheKill = app::DraftJournal(journal_).read().at(0); });
        dialog.accept();
        end();
        EXPECT_EQ(left(), 0U);
        ASSERT_TRUE(app::DraftJournal(journal_).write(0, atTheKill.record, atTheKill.written));
        EXPECT_FALSE(start()->offer());
        EXPECT_TRUE(messages().ids().empty());
        EXPECT_EQ(left(), 0U);
        // The same once more, typed later, is another one.
        ASSERT_TRUE(app::DraftJournal(journal_).write(0, atTheKill.record, {clock().now().ticks + 1}));
        messages().script = {Answer::no};
        EXPECT_FALSE(start()->offer());
        EXPECT_EQ(messages().ids(), std::vector{StringId::draftOffer});
        messages().shown.clear();
    };
    EntryDialog& ofEntry = open(entry);
    storeAndKill(ofEntry, task(ofEntry));
    ExpenseDialog& ofExpense = open(expense);
    storeAndKill(ofExpense, *ofExpense.findChild<QComboBox*>("description")->lineEdit());
    EXPECT_EQ(entries().size(), 1U);
    EXPECT_EQ(expenses().size(), 1U);
}

TEST_F(DraftKeeperTest, onlyNoForgetsADraft) {
    struct Case {
        Answer answer;
        std::size_t left;
    };
    for (const Case& test : {Case{Answer::cancel, 1}, Case{Answer::ok, 1}, Case{Answer::no, 0}}) {
        open(newEntry()).findChild<QTextEdit*>()->insertPlainText("typed");
        start()->keep();
        end();
        messages().script = {test.answer};
        const auto keeper = start();
        EXPECT_FALSE(keeper->offer());
        EXPECT_EQ(left(), test.left) << static_cast<int>(test.answer);
        EXPECT_TRUE(dialogs_.empty());
        open(newEntry()).findChild<QTextEdit*>()->insertPlainText("another");
        keeper->keep();
        EXPECT_EQ(left(), test.left + 1); // beside the one that is left
        dialogs_.front()->done(QDialog::Rejected);
        end();
        EXPECT_EQ(left(), test.left);
        messages().script = {Answer::no};
        static_cast<void>(start()->offer());
    }
}

TEST_F(DraftKeeperTest, nothingIsKeptOfWhatNeedsNoKeeping) {
    const auto keeper = start();
    open(newEntry());
    open(billing::newExpense(store::ExpenseType::general, {}, clock().localTime()));
    EntryDialog& completes = open(filled());
    completes.setTimer(app::KeptTimer{1, clock().now()}); // which still has its time
    keeper->keep();
    EXPECT_EQ(left(), 0U);
    EntryDialog& part = open(filled());
    part.setTimer({}); // no timer has this time any more
    keeper->keep();
    EXPECT_EQ(left(), 1U);
    part.done(QDialog::Rejected);
    EXPECT_EQ(left(), 0U);
    task(completes).setText("Review");
    keeper->keep();
    ASSERT_EQ(left(), 1U);
    const auto kept = std::get<app::KeptEntry>(app::DraftJournal(journal_).read().front().record);
    EXPECT_EQ(kept.timer, (app::KeptTimer{1, clock().now()}));
}

} // namespace
} // namespace hourwright::desktop
