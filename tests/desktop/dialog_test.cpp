#include "desktop/dialog.h"

#include "desktop/desktop_fixture.h"
#include "desktop/editor/entry_dialog.h"
#include "desktop/note/note_text_edit.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

namespace hourwright::desktop {
namespace {

class TwoFields : public Dialog {
public:
    explicit TwoFields(Workspace& workspace)
        : Dialog(workspace, "Two", "options", nullptr), first(new QLineEdit), second(new QPlainTextEdit) {
        second->setTabChangesFocus(true);
        auto* form = addForm();
        form->addRow("&First:", first);
        form->addRow("&Second:", second);
    }
    void accept() override { ++accepted; }
    [[nodiscard]] QPushButton* ok() { return buttons()->button(QDialogButtonBox::Ok); }

    QLineEdit* first;
    QPlainTextEdit* second;
    int accepted = 0;
};

class DialogTest : public test::DesktopFixture {
protected:
    static void show(QDialog& dialog) {
        dialog.show();
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
};

TEST_F(DialogTest, BeginsAtTheFirstFieldAndEndsAtItsButtons) {
    TwoFields dialog(workspace());
    show(dialog);
    EXPECT_EQ(dialog.focusWidget(), dialog.first);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(dialog.focusWidget(), dialog.second);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(dialog.focusWidget(), dialog.ok());
}

TEST_F(DialogTest, LeavesAFocusThatWasGiven) {
    TwoFields dialog(workspace());
    dialog.second->setFocus();
    show(dialog);
    EXPECT_EQ(dialog.focusWidget(), dialog.second);
}

TEST_F(DialogTest, CtrlEnterAndCtrlSAreOkFromEveryField) {
    TwoFields dialog(workspace());
    show(dialog);
    dialog.second->setFocus();
    QTest::keyClick(dialog.second, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(dialog.second, Qt::Key_Enter, Qt::ControlModifier);
    QTest::keyClick(dialog.first, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(dialog.accepted, 3);
    EXPECT_TRUE(dialog.second->toPlainText().isEmpty());
    dialog.ok()->setEnabled(false);
    QTest::keyClick(dialog.first, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(dialog.accepted, 3);
}

TEST_F(DialogTest, AnEntryIsSavedFromItsNote) {
    store::TimeEntry entry;
    entry.task = u"Review";
    entry.date = platform::toFileTime(clock().localTime()).value();
    entry.duration = 100;
    EntryDialog dialog(workspace(), entry, nullptr);
    show(dialog);
    dialog.findChild<QTabWidget*>()->setCurrentIndex(2);
    auto* text = dialog.findChild<NoteTextEdit*>();
    text->setFocus();
    QTest::keyClicks(text, "noted");
    QTest::keyClick(text, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(dialog.isVisible());
    ASSERT_EQ(entries().size(), 1U);
    EXPECT_FALSE(entries().front().note.empty());
}

} // namespace
} // namespace hourwright::desktop
