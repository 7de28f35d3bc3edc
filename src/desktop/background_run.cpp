#include "desktop/background_run.h"

#include "desktop/bulk/progress_window.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <thread>

namespace hourwright::desktop {

namespace {

constexpr int lookEvery = 30; // milliseconds

class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace

void runOnThread(const std::function<void()>& work, const std::function<void()>& look,
                 const std::function<bool()>& takesInput) {
    QEventLoop loop;
    QTimer timer;
    bool taking = takesInput();
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        look();
        if (takesInput() != taking)
            loop.quit(); // and on with the other kind of loop
    });
    timer.start(lookEvery);
    std::atomic<bool> ended{false};
    std::thread worker([&] {
        work();
        ended = true;
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    while (!ended) {
        taking = takesInput();
        loop.exec(taking ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    }
    worker.join();
}

void runInBackground(QWidget* window, const BackgroundTexts& texts,
                     const std::function<void(BackgroundProgress&)>& work) {
    const WaitCursor cursor;
    BackgroundProgress progress;
    ProgressWindow bar(texts.label, texts.mayCancel, window);
    runOnThread([&] { work(progress); },
                [&] {
                    bar.look(progress.done, progress.total);
                    if (bar.wasCancelled())
                        progress.cancelled = true;
                },
                [&] { return bar.isVisible(); });
}

} // namespace hourwright::desktop
