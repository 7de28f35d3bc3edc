#include "desktop/desktop_fixture.h"
#include "desktop/history_dialog.h"
#include "desktop/main_window.h"

#include <QTest>
#include <QTreeWidget>

namespace hourwright::desktop {
namespace {

using resources::StringId;

class HistoryTest : public test::DesktopFixture {
protected:
    // Changes the duration of the only entry, under a name.
    void setDuration(std::u16string_view name, std::int32_t duration) {
        store::TimeEntry entry = entries().front();
        entry.duration = duration;
        ASSERT_TRUE(workspace().change(name, [&](platform::Transaction& transaction) {
            return store::updateTimeEntry(transaction, stores().entries(), entry);
        }));
    }
    [[nodiscard]] std::int32_t duration() { return entries().front().duration; }

    void addOne() {
        store::TimeEntry entry;
        entry.date = clock().now();
        entry.duration = 100;
        add(entry);
    }
};

TEST_F(HistoryTest, KeysTakeAnEditBackAndMakeItAgain) {
    addOne();
    MainWindow window(workspace());
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    setDuration(u"Edit Entry", 250);
    window.actions().update();
    EXPECT_TRUE(window.actions().action(app::Command::undo)->text().contains("Edit Entry"));
    int notices = 0;
    QObject::connect(&workspace(), &Workspace::recordsChanged, &window, [&notices] { ++notices; });

    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(duration(), 100);
    EXPECT_EQ(workspace().redoName(), u"Edit Entry");
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(duration(), 250);
    EXPECT_EQ(workspace().redoName(), u"");
    EXPECT_EQ(notices, 2);
}

TEST_F(HistoryTest, ARefusalIsSaid) {
    addOne();
    EXPECT_FALSE(workspace().redo());
    setDuration(u"Edit Entry", 250);
    setDuration(u"", 300); // as another program that leaves no trace in the history
    EXPECT_FALSE(workspace().undo());
    EXPECT_EQ(duration(), 300);
    EXPECT_EQ(messages().ids(), (std::vector{StringId::nothingToRedo, StringId::undoChangedMeanwhile}));
}

TEST_F(HistoryTest, TheListGoesBackAndForthToTheSelectedChange) {
    addOne();
    for (const std::int32_t each : {200, 300, 400})
        setDuration(u"Edit Entry", each);
    HistoryDialog dialog(workspace(), nullptr);
    const auto size = dialog.list()->topLevelItemCount();
    dialog.list()->setCurrentItem(dialog.list()->topLevelItem(1));
    dialog.goToSelected();
    EXPECT_EQ(duration(), 200);
    dialog.list()->setCurrentItem(dialog.list()->topLevelItem(0));
    dialog.goToSelected();
    EXPECT_EQ(duration(), 400);
    EXPECT_EQ(dialog.list()->topLevelItemCount(), size);
}

} // namespace
} // namespace hourwright::desktop
