#include "desktop/copies/copies_dialog.h"

#include "app/copy_notice.h"
#include "desktop/desktop_fixture.h"
#include "platform/sqlite/sqlite_store_copies.h"

#include <QTest>
#include <QTreeWidget>
#include <fstream>

namespace hourwright::desktop {
namespace {

using platform::Answer;
using resources::StringId;

class CopiesDialogTest : public test::DesktopFixture {
protected:
    CopiesDialogTest() { addTask(u"First"); }

    void addTask(const std::u16string& task) { add(store::TimeEntry{.date = clock().now(), .task = task}); }
    [[nodiscard]] platform::StoreCopyPlaces places() { return platform::copyPlaces(workspace().directories()); }

    // The columns of a row that matter here.
    static QString row(CopiesDialog& dialog, int index) {
        const auto* item = dialog.list()->topLevelItem(index);
        return item->text(0) + '|' + item->text(1) + '|' + item->text(4);
    }
};

TEST_F(CopiesDialogTest, MakesListsAndVerifies) {
    CopiesDialog dialog(workspace(), nullptr);
    dialog.show();
    EXPECT_EQ(dialog.list()->topLevelItemCount(), 0);
    dialog.makeNow();
    clock().set({.year = 2026, .month = 11, .day = 17, .hour = 8});
    addTask(u"Second");
    dialog.makeNow();
    ASSERT_EQ(dialog.list()->topLevelItemCount(), 2);
    EXPECT_TRUE(row(dialog, 0).startsWith("11/17/26 8:00")) << row(dialog, 0).toStdString();
    EXPECT_TRUE(row(dialog, 0).endsWith("Sound"));
    EXPECT_EQ(dialog.list()->currentItem(), dialog.list()->topLevelItem(0));
    EXPECT_TRUE(messages().ids().empty());

    CopiesDialog another(workspace(), nullptr);
    EXPECT_TRUE(row(another, 0).endsWith("Not verified"));
    const auto older = platform::openStoreCopies(places())->list().back().name;
    std::fstream(places().copies / older / "hourwright.db", std::ios::in | std::ios::out) << "no database";
    another.verifyAll();
    EXPECT_TRUE(row(another, 0).endsWith("Sound"));
    EXPECT_TRUE(row(another, 1).endsWith("Damaged"));
}

TEST_F(CopiesDialogTest, GoesBackAtTheNextStartWhenTheUserWants) {
    CopiesDialog dialog(workspace(), nullptr);
    dialog.makeNow();
    addTask(u"Later");
    const auto restoreAtStart = [&] {
        messages().shown.clear();
        messages().script = {};
        const auto all = platform::openStoreCopies(places());
        app::restoreWishedCopy(*all, registry(), clock().localTime(), messages());
        reopen();
        return entries().size();
    };
    dialog.restoreSelected(); // the default is No
    EXPECT_EQ(messages().ids(), std::vector{StringId::restoreQuestion});
    EXPECT_FALSE(dialog.wantsRestart());
    EXPECT_EQ(restoreAtStart(), 2U);

    messages().script = {Answer::yes};
    dialog.restoreSelected();
    EXPECT_TRUE(dialog.wantsRestart());
    app::forgetWishedCopy(registry()); // the window stayed open
    EXPECT_EQ(restoreAtStart(), 2U);

    messages().script = {Answer::yes};
    CopiesDialog again(workspace(), nullptr);
    again.restoreSelected();
    EXPECT_TRUE(again.wantsRestart());
    EXPECT_EQ(restoreAtStart(), 1U);
    EXPECT_EQ(messages().ids(), std::vector{StringId::copyRestored});
}

TEST_F(CopiesDialogTest, RefusesADamagedCopy) {
    CopiesDialog dialog(workspace(), nullptr);
    dialog.makeNow();
    const auto name = platform::openStoreCopies(places())->list().front().name;
    std::fstream(places().copies / name / "hourwright.db", std::ios::in | std::ios::out) << "no database";
    messages().script = {Answer::yes};
    dialog.restoreSelected();
    EXPECT_EQ(messages().ids(), (std::vector{StringId::restoreQuestion, StringId::copyDamaged}));
    EXPECT_FALSE(dialog.wantsRestart());
}

TEST_F(CopiesDialogTest, AFailureIsTold) {
    std::ofstream(places().copies) << "a file where the folder should be";
    CopiesDialog dialog(workspace(), nullptr);
    dialog.makeNow();
    EXPECT_EQ(messages().ids(), std::vector{StringId::copyNotMade});
    EXPECT_EQ(dialog.list()->topLevelItemCount(), 0);
}

} // namespace
} // namespace hourwright::desktop
