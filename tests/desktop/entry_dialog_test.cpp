#include "desktop/editor/entry_dialog.h"

#include "billing/new_entry.h"
#include "desktop/desktop_fixture.h"
#include "desktop/editor/times_dialog.h"
#include "desktop/note/note_editor.h"
#include "platform/qt/qt_text.h"
#include "store/save.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <QTimeEdit>
#include <QTreeWidget>

namespace hourwright::desktop {
namespace {

using resources::StringId;

constexpr platform::SystemTime monday{.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16};

class EntryDialogTest : public test::DesktopFixture {
protected:
    EntryDialogTest() {
        change([&](platform::Transaction& t) {
            addClient(t, u"Acme", u"Web", {u"Design", u"Coding"}, u"Ann", 8000);
            addClient(t, u"Berta", u"Web", {u"Coding"}, u"Bob", 9000);
        });
    }

    void addClient(platform::Transaction& t, std::u16string_view name, std::u16string_view project,
                   std::initializer_list<std::u16string_view> tasks, std::u16string_view contact, std::int32_t rate) {
        const auto id = store::addClient(t, stores(), name);
        for (const auto task : tasks)
            EXPECT_TRUE(store::addProjectTask(t, stores(), id, project, task));
        EXPECT_TRUE(store::addContact(t, stores(), id, contact));
        store::RateRecord record{.clientId = id, .description = u"Standard", .rate = rate};
        EXPECT_TRUE(store::writeRate(t, stores(), record));
    }

    static store::TimeEntry blank() {
        store::TimeEntry last;
        last.client = u"Acme";
        last.project = u"Web";
        return billing::newTimeEntry({.billable = true, .currency = u"USD"}, monday, &last);
    }

    static store::TimeEntry filled() {
        store::TimeEntry entry = blank();
        entry.task = u"Design";
        entry.duration = 150;
        entry.billTo = u"Ann";
        entry.rate = 8000;
        return entry;
    }

    EntryDialog& open(store::TimeEntry entry) {
        dialog_ = std::make_unique<EntryDialog>(workspace(), std::move(entry), nullptr);
        dialog_->show();
        dialog_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
        return *dialog_;
    }

    // The field that a label of the dialog belongs to; its line when it is a combo box.
    static QWidget* field(QWidget& dialog, const QString& label) {
        for (auto* widget : dialog.findChildren<QLabel*>())
            if (widget->text().remove('&') == label && widget->buddy() != nullptr)
                return lineOf(widget->buddy());
        for (auto* combo : dialog.findChildren<QComboBox*>())
            if (combo->accessibleName() == label)
                return lineOf(combo);
        ADD_FAILURE() << "no field " << label.toStdString();
        return nullptr;
    }

    static QWidget* lineOf(QWidget* widget) {
        const auto* combo = qobject_cast<QComboBox*>(widget);
        return combo != nullptr && combo->isEditable() ? combo->lineEdit() : widget;
    }

    static QString text(QWidget& dialog, const QString& label) {
        return qobject_cast<QLineEdit*>(field(dialog, label))->text();
    }

    // Keys go where they really go: to the proposals while these are shown, else to the field with the focus.
    static void press(QWidget& dialog, Qt::Key key) {
        QWidget* list = QApplication::activePopupWidget();
        QTest::keyClick(list != nullptr ? list : dialog.focusWidget(), key);
    }

    static void press(QWidget& dialog, const QString& text) {
        for (const QChar c : text) {
            QWidget* list = QApplication::activePopupWidget();
            QTest::keyClicks(list != nullptr ? list : dialog.focusWidget(), c);
        }
    }

    // Types over a field and leaves it.
    static void type(QWidget& dialog, const QString& label, const QString& text) {
        auto* line = qobject_cast<QLineEdit*>(field(dialog, label));
        ASSERT_NE(line, nullptr);
        line->setFocus();
        line->selectAll();
        press(dialog, Qt::Key_Delete);
        press(dialog, text);
        press(dialog, Qt::Key_Tab);
    }

    static QLineEdit* rateLine(QWidget& dialog) {
        for (auto* line : dialog.findChildren<QLineEdit*>())
            if (line->accessibleName() == "Rate")
                return line;
        return nullptr;
    }

    static QTabWidget& tabs(QWidget& dialog) { return *dialog.findChild<QTabWidget*>(); }

    [[nodiscard]] bool hasFocus(const QWidget* widget) const {
        const QWidget* focused = dialog_->focusWidget();
        return focused == widget || (focused != nullptr && lineOf(dialog_->focusWidget()) == widget);
    }

    std::unique_ptr<EntryDialog> dialog_;
};

TEST_F(EntryDialogTest, RecordsAnEntryByKeyboardAlone) {
    EntryDialog& dialog = open(blank());
    dialog.suggestRates();
    QSignalSpy saved(&dialog, &EntryDialog::saved);
    ASSERT_TRUE(hasFocus(field(dialog, "Task:")));
    press(dialog, "Design");
    press(dialog, Qt::Key_Tab);
    ASSERT_TRUE(hasFocus(field(dialog, "Duration:")));
    press(dialog, "1.5");
    EXPECT_NE(QApplication::activePopupWidget(), nullptr); // Enter saves although proposals are shown
    press(dialog, Qt::Key_Return);
    QTest::qWait(10);
    ASSERT_EQ(entries().size(), 1U);
    const store::TimeEntry entry = entries().front();
    EXPECT_EQ(entry.client, u"Acme");
    EXPECT_EQ(entry.project, u"Web");
    EXPECT_EQ(entry.task, u"Design");
    EXPECT_EQ(entry.duration, 150);
    EXPECT_EQ(entry.rate, 8000);
    EXPECT_EQ(entry.modified, clock().now());
    EXPECT_EQ(saved.size(), 1);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(messages().shown.empty());
}

TEST_F(EntryDialogTest, StoresEveryField) {
    EntryDialog& dialog = open(blank());
    type(dialog, "Client:", "Berta");
    type(dialog, "Project:", "Print");
    type(dialog, "Phase:", "Two");
    type(dialog, "Task:", "Proof reading");
    type(dialog, "Duration:", "2.25");
    QTest::keyClick(&dialog, Qt::Key_Tab, Qt::ControlModifier);
    ASSERT_EQ(tabs(dialog).currentIndex(), 1);
    qobject_cast<QComboBox*>(field(dialog, "Status:"))->setCurrentIndex(2);
    type(dialog, "Bill To:", "Bob");
    type(dialog, "Currency:", "EUR");
    rateLine(dialog)->selectAll();
    QTest::keyClicks(rateLine(dialog), "75.5");
    EXPECT_EQ(tabs(dialog).currentWidget()->findChildren<QLabel*>().last()->text(), "169.88 EUR");
    tabs(dialog).setCurrentIndex(3);
    for (int i = 1; i <= 3; ++i)
        type(dialog, QString("Custom %1:").arg(i), QString("c%1").arg(i));
    dialog.accept();
    ASSERT_EQ(entries().size(), 1U);
    store::TimeEntry expected = blank();
    expected.client = u"Berta";
    expected.project = u"Print";
    expected.phase = u"Two";
    expected.task = u"Proof reading";
    expected.duration = 225;
    expected.status = store::EntryStatus::billed;
    expected.billTo = u"Bob";
    expected.currency = u"EUR";
    expected.rate = 7550;
    expected.custom1 = u"c1";
    expected.custom2 = u"c2";
    expected.custom3 = u"c3";
    store::TimeEntry entry = entries().front();
    expected.id = entry.id;
    expected.modified = entry.modified;
    expected.flags = entry.flags;
    EXPECT_EQ(entry, expected);
}

struct RefusalCase {
    QString task, duration, rate;
    StringId message;
    int page;
    QString field;
};

TEST_F(EntryDialogTest, RefusesInOrderAndGoesToTheField) {
    const RefusalCase cases[] = {
        {"", "x", "x", StringId::taskMissing, 0, "Task:"},
        {"Design", "1h", "x", StringId::numericOnly, 0, "Duration:"},
        {"Design", "", "x", StringId::durationMissing, 0, "Duration:"},
        {"Design", "1", "1e2", StringId::rateInvalid, 1, ""},
    };
    for (const RefusalCase& row : cases) {
        SCOPED_TRACE(row.task.toStdString() + '|' + row.duration.toStdString());
        EntryDialog& dialog = open(blank());
        messages().shown.clear();
        type(dialog, "Task:", row.task);
        type(dialog, "Duration:", row.duration);
        rateLine(dialog)->selectAll();
        QTest::keyClicks(rateLine(dialog), row.rate);
        dialog.accept();
        EXPECT_EQ(messages().ids(), std::vector{row.message});
        EXPECT_EQ(tabs(dialog).currentIndex(), row.page);
        EXPECT_TRUE(hasFocus(row.field.isEmpty() ? rateLine(dialog) : field(dialog, row.field)));
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(entries().empty());
    }
}

TEST_F(EntryDialogTest, StaysOnAPageThatIsRefused) {
    EntryDialog& dialog = open(blank());
    QTest::keyClick(&dialog, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tabs(dialog).currentIndex(), 0);
    EXPECT_EQ(messages().ids(), std::vector{StringId::taskMissing});
    type(dialog, "Task:", "Design");
    type(dialog, "Duration:", "1");
    QTest::keyClick(&dialog, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(tabs(dialog).currentIndex(), 3);
}

TEST_F(EntryDialogTest, NarrowsToTheClientAndKeepsWhatFits) {
    store::TimeEntry entry = filled();
    entry.phase = u"One";
    EntryDialog& dialog = open(entry);
    type(dialog, "Client:", "Berta");
    EXPECT_EQ(text(dialog, "Project:"), "Web");
    EXPECT_EQ(text(dialog, "Phase:"), "One");
    EXPECT_EQ(text(dialog, "Task:"), "");
    EXPECT_EQ(text(dialog, "Bill To:"), "");
    EXPECT_EQ(rateLine(dialog)->text(), "90.00");
    auto* task = qobject_cast<QComboBox*>(field(dialog, "Task:")->parentWidget());
    EXPECT_EQ(task->count(), 1);
    EXPECT_EQ(task->itemText(0), "Coding");
}

TEST_F(EntryDialogTest, LeavesUntouchedNumbersAlone) {
    store::TimeEntry entry = filled();
    entry.duration = 33;
    entry.breakTime = 29;
    entry.rate = 2901;
    entry.id = add(entry);
    entry = entries().front();
    settings().styleFlags.set(app::StyleFlag::granularity, true);
    EntryDialog& dialog = open(entry);
    EXPECT_FALSE(dialog.isChanged());
    type(dialog, "Task:", "Coding");
    dialog.accept();
    EXPECT_EQ(entries().front().task, u"Coding");
    EXPECT_EQ(entries().front().duration, 33);
    EXPECT_EQ(entries().front().breakTime, 29);
    EXPECT_EQ(entries().front().rate, 2901);
}

TEST_F(EntryDialogTest, EscapeAsksOnlyAfterAChange) {
    EntryDialog& untouched = open(filled());
    QTest::keyClick(&untouched, Qt::Key_Escape);
    EXPECT_FALSE(untouched.isVisible());
    EXPECT_TRUE(messages().shown.empty());

    EntryDialog& changed = open(filled());
    type(changed, "Phase:", "x");
    messages().script = {platform::Answer::no, platform::Answer::yes};
    QTest::keyClick(&changed, Qt::Key_Escape);
    EXPECT_TRUE(changed.isVisible());
    QTest::keyClick(&changed, Qt::Key_Escape);
    EXPECT_FALSE(changed.isVisible());
    EXPECT_EQ(messages().ids(), (std::vector{StringId::discardChanges, StringId::discardChanges}));
    EXPECT_TRUE(entries().empty());
}

TEST_F(EntryDialogTest, AsksBeforeOverwritingAnothersChange) {
    for (const bool overwrite : {false, true}) {
        store::TimeEntry entry = filled();
        entry.id = add(entry);
        entry = entries().back();
        EntryDialog& dialog = open(entry);
        type(dialog, "Phase:", "mine");
        entry.phase = u"theirs";
        change([&](auto& t) { EXPECT_TRUE(store::saveTimeEntry(t, stores(), entry)); });
        messages().script = {overwrite ? platform::Answer::yes : platform::Answer::no};
        dialog.accept();
        EXPECT_EQ(messages().shown.back().id, StringId::recordChangedMeanwhile);
        EXPECT_EQ(dialog.isVisible(), !overwrite);
        EXPECT_EQ(entries().back().phase, overwrite ? u"mine" : u"theirs");
    }
    EXPECT_EQ(entries().size(), 2U);
}

TEST_F(EntryDialogTest, SavesADeletedEntryAsANewOne) {
    store::TimeEntry entry = filled();
    entry.id = add(entry);
    EntryDialog& dialog = open(entries().front());
    type(dialog, "Phase:", "mine");
    change([&](auto& t) {
        EXPECT_NE(stores().entries().seek(platform::Seek::toId(entry.id)), store::RecordId::none);
        EXPECT_TRUE(stores().entries().deleteCurrent(t));
    });
    messages().script = {platform::Answer::yes};
    dialog.accept();
    EXPECT_EQ(messages().ids(), std::vector{StringId::recordDeletedMeanwhile});
    ASSERT_EQ(entries().size(), 1U);
    EXPECT_EQ(entries().front().phase, u"mine");
    EXPECT_NE(entries().front().id, entry.id);
}

TEST_F(EntryDialogTest, TakesTimesWithoutLosingAHundredth) {
    settings().styleFlags.set(app::StyleFlag::preciseMinutes, true);
    EntryDialog& dialog = open(filled());
    for (auto* button : dialog.findChildren<QPushButton*>())
        if (button->text().contains("Break"))
            button->click();
    auto* opened = dialog.findChild<TimesDialog*>();
    ASSERT_NE(opened, nullptr);
    QApplication::setActiveWindow(opened);
    field(*opened, "End time:")->setFocus();
    const auto click = [&](const QString& text) {
        for (auto* button : opened->findChildren<QPushButton*>())
            if (button->text() == text)
                button->click();
    };
    click("&Now"); // 9:00, as the start
    click(":20");
    EXPECT_EQ(qobject_cast<QTimeEdit*>(field(*opened, "Start time:"))->time(), QTime(9, 0));
    EXPECT_EQ(qobject_cast<QTimeEdit*>(field(*opened, "End time:"))->time(), QTime(9, 20));
    opened->accept();
    EXPECT_TRUE(messages().shown.empty());
    EXPECT_EQ(text(dialog, "Duration:"), "0.34");
    dialog.accept();
    ASSERT_EQ(entries().size(), 1U);
    const store::TimeEntry entry = entries().front();
    EXPECT_EQ(entry.duration, 34);
    EXPECT_TRUE(store::hasStart(entry));
    EXPECT_EQ(platform::toSystemTime(entry.date)->hour, 9);
}

TEST_F(EntryDialogTest, RefusesABreakThatIsNoNumber) {
    TimesDialog times(workspace(), filled(), nullptr);
    times.show();
    times.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&times));
    type(times, "Break time:", "half"); // Tab leaves the field
    EXPECT_EQ(messages().ids(), std::vector{StringId::numericOnly});
    EXPECT_EQ(times.focusWidget(), field(times, "Break time:"));
    QTest::keyClick(field(times, "Break time:"), Qt::Key_Return);
    EXPECT_EQ(messages().shown.size(), 2U);
    EXPECT_TRUE(times.isVisible());
}

TEST_F(EntryDialogTest, RefusesANoteThatIsTooLarge) {
    EntryDialog& dialog = open(filled());
    tabs(dialog).setCurrentIndex(2);
    const QString text(66000, 'n');
    dialog.findChild<QTextEdit*>()->insertPlainText(text);
    tabs(dialog).setCurrentIndex(2);
    dialog.accept();
    EXPECT_EQ(messages().ids(), std::vector{StringId::noteTooLarge});
    EXPECT_EQ(tabs(dialog).currentIndex(), 2);
    EXPECT_TRUE(entries().empty());
}

} // namespace
} // namespace hourwright::desktop
