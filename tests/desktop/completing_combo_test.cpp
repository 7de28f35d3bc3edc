#include "desktop/completing_combo.h"

#include "desktop/desktop_fixture.h"

#include <QCompleter>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <array>

namespace hourwright::desktop {
namespace {

class CompletingComboTest : public test::DesktopFixture {
protected:
    CompletingComboTest() {
        auto* layout = new QVBoxLayout(&dialog);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
        layout->addWidget(combo);
        layout->addWidget(buttons);
        QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
        dialog.show();
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        combo->setFocus();
    }

    const std::array<std::u16string, 3> names{u"Acme", u"Weber", u"Bergson"};
    QDialog dialog;
    CompletingCombo* combo = new CompletingCombo;
};

TEST_F(CompletingComboTest, OffersTheLatestFirstAndFindsAnyPart) {
    combo->setLearned(names);
    EXPECT_EQ(combo->itemText(0), "Bergson");
    EXPECT_EQ(combo->itemText(2), "Acme");
    combo->completer()->setCompletionPrefix("BER");
    ASSERT_EQ(combo->completer()->completionCount(), 2);
}

TEST_F(CompletingComboTest, KeepsWhatIsTypedWhenTheProposalsChange) {
    int edits = 0;
    QTest::keyClicks(combo->lineEdit(), "Web");
    QObject::connect(combo, &QComboBox::editTextChanged, [&] { ++edits; });
    combo->setChoices(names);
    EXPECT_EQ(combo->text(), u"Web");
    combo->setLearned({});
    EXPECT_EQ(combo->text(), u"Web");
    EXPECT_EQ(edits, 0);
}

TEST_F(CompletingComboTest, LeavesEnterToTheDialogAndAddsNothing) {
    combo->setChoices(names);
    QTest::keyClicks(combo->lineEdit(), "Somebody new");
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(combo->count(), 3);
}

TEST_F(CompletingComboTest, TakesNoMoreThanAFieldDoesButCutsNothingStored) {
    QTest::keyClicks(combo->lineEdit(), QString(130, 'x'));
    EXPECT_EQ(combo->text().size(), 128U);
    const std::u16string stored(300, u'y');
    combo->setText(stored);
    EXPECT_EQ(combo->text(), stored);
}

} // namespace
} // namespace hourwright::desktop
