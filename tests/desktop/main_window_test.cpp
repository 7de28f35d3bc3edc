#include "desktop/main_window.h"

#include "desktop/desktop_fixture.h"

#include <QMenuBar>
#include <QTest>

namespace hourwright::desktop {
namespace {

class MainWindowTest : public test::DesktopFixture {};

TEST_F(MainWindowTest, MovesThroughPeriodsByKeyboard) {
    MainWindow window(workspace());
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto start = workspace().view().period().start();
    QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(workspace().view().period().start().ticks, start.ticks + 7 * platform::ticksPerDay);
    QTest::keyClick(&window, Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(workspace().view().period().start(), start);
}

TEST_F(MainWindowTest, LoadsTheDemoIntoAnEmptyStoreOnly) {
    MainWindow window(workspace());
    window.loadDemo();
    EXPECT_EQ(entries().size(), 1000U);
    EXPECT_GT(window.view().totals().items, 0U);
    window.loadDemo();
    EXPECT_EQ(entries().size(), 1000U);
    EXPECT_TRUE(messages().shown.empty());
}

} // namespace
} // namespace hourwright::desktop
