#include "platform/qt/qt_event_queue.h"

#include "app/message_loop.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <utility>

namespace hourwright::platform {
namespace {

class Hooks : public app::MessageHooks {
public:
    bool onIdle(unsigned count) override {
        counts.push_back(count);
        if (whenIdle)
            whenIdle();
        return --wanted > 0;
    }
    bool preTranslateMessage(const QueuedEvent& event) override {
        return event.kind == EventKind::keyPress && event.key == Qt::Key_F5;
    }

    std::vector<unsigned> counts;
    std::function<void()> whenIdle;
    int wanted = 1;
};

TEST(QtEventQueue, IsIdleBeforeItWaitsAndEndsWithTheCode) {
    QtEventQueue queue;
    Hooks hooks;
    hooks.wanted = 3;
    app::MessageLoop loop(hooks);
    QTimer::singleShot(100, [&] { queue.quit(5); });
    EXPECT_EQ(queue.run(loop), 5);
    ASSERT_GE(hooks.counts.size(), 3U);
    EXPECT_EQ(hooks.counts[0], 0U);
    EXPECT_EQ(hooks.counts[2], 2U);
    EXPECT_LT(hooks.counts.size(), 20U); // waits, does not spin
}

TEST(QtEventQueue, AnIdleCallMayOpenADialogAndLoopsInsideAreNotIdle) {
    QtEventQueue queue;
    Hooks hooks;
    app::MessageLoop loop(hooks);
    QApplication::setQuitOnLastWindowClosed(false); // as the program does
    std::size_t during = 0;
    QPointer<QObject> deleted = new QObject;
    bool first = true;
    hooks.whenIdle = [&] {
        if (!std::exchange(first, false))
            return;
        const std::size_t before = hooks.counts.size();
        QDialog dialog;
        QTimer::singleShot(60, &dialog, [&] {
            during = hooks.counts.size() - before;
            dialog.accept();
        });
        dialog.exec();
        deleted->deleteLater();
        QTimer::singleShot(60, [&] { queue.quit(0); });
    };
    EXPECT_EQ(queue.run(loop), 0);
    EXPECT_EQ(during, 0U);
    EXPECT_TRUE(deleted.isNull());
    EXPECT_GE(hooks.counts.size(), 2U); // idle again after the dialog
}

TEST(QtEventQueue, KeysThatAreTakenGoNoFurther) {
    class Keys : public QWidget {
    public:
        std::vector<int> pressed;

    protected:
        void keyPressEvent(QKeyEvent* event) override { pressed.push_back(event->key()); }
    };
    QtEventQueue queue;
    Hooks hooks;
    app::MessageLoop loop(hooks);
    Keys widget;
    widget.show();
    QTimer::singleShot(0, [&] {
        QTest::keyClick(&widget, Qt::Key_F5);
        QTest::keyClick(&widget, Qt::Key_F6);
        queue.quit(0);
    });
    EXPECT_EQ(queue.run(loop), 0);
    EXPECT_EQ(widget.pressed, std::vector<int>{Qt::Key_F6});
}

} // namespace
} // namespace hourwright::platform
