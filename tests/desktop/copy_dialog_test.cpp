#include "desktop/editor/copy_dialog.h"

#include "desktop/desktop_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QRadioButton>
#include <QTest>

namespace hourwright::desktop {
namespace {

constexpr platform::SystemTime wednesday{.year = 2026, .month = 11, .day = 18};

class CopyDialogTest : public test::DesktopFixture {
protected:
    CopyDialogTest() {
        entry_.task = u"Design";
        entry_.duration = 33;
        store::setDateWithoutStart(entry_, wednesday);
        add(entry_);
    }

    [[nodiscard]] std::vector<int> days() {
        std::vector<int> result;
        for (const store::TimeEntry& entry : entries())
            result.push_back(platform::toSystemTime(entry.date)->day);
        return result;
    }

    store::TimeEntry entry_;
};

template<typename Button>
Button* button(QWidget& dialog, const QString& text) {
    for (auto* found : dialog.findChildren<Button*>())
        if (found->text().remove('&') == text)
            return found;
    return nullptr;
}

TEST_F(CopyDialogTest, CopiesToTheRestOfTheWeek) {
    settings().styleFlags.set(app::StyleFlag::weekStartsMonday, false);
    settings().styleFlags.set(app::StyleFlag::granularity, true);
    CopyDialog dialog(workspace(), entry_, nullptr);
    button<QRadioButton>(dialog, "Rest of the week")->click();
    button<QCheckBox>(dialog, "Include weekend")->click();
    dialog.accept();
    EXPECT_EQ(days(), (std::vector{18, 19, 20, 21}));
    EXPECT_EQ(entries().back().duration, 33); // not typed, so not raised
}

TEST_F(CopyDialogTest, CopiesUntilADateWithATypedDuration) {
    CopyDialog dialog(workspace(), entry_, nullptr);
    dialog.findChildren<QDateEdit*>().last()->setDate(QDate(2026, 11, 24));
    EXPECT_TRUE(button<QRadioButton>(dialog, "Specific end date:")->isChecked());
    dialog.findChild<QComboBox*>()->setEditText("2.5");
    dialog.accept();
    EXPECT_EQ(days(), (std::vector{18, 19, 20, 23, 24}));
    EXPECT_EQ(entries().front().duration, 33);
    EXPECT_EQ(entries().back().duration, 250);
}

TEST_F(CopyDialogTest, RefusesWhatCannotBeCopied) {
    using resources::StringId;
    CopyDialog dialog(workspace(), entry_, nullptr);
    dialog.findChild<QComboBox*>()->setEditText("two");
    dialog.accept();
    EXPECT_EQ(messages().ids(), std::vector{StringId::numericOnly});
    EXPECT_EQ(dialog.focusWidget(), dialog.findChild<QComboBox*>());
    dialog.findChild<QComboBox*>()->setEditText("2");
    dialog.findChildren<QDateEdit*>().last()->setDate(QDate(2096, 11, 24));
    dialog.accept();
    EXPECT_EQ(messages().shown.back().id, StringId::copyEndTooFar);
    EXPECT_EQ(entries().size(), 1U);
}

} // namespace
} // namespace hourwright::desktop
