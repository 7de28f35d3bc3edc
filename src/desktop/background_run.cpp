#include "desktop/background_run.h"

#include "platform/qt/qt_text.h"
#include "resources/strings.h"
#include "resources/texts/exports.h"

#include <QApplication>
#include <QEventLoop>
#include <QProgressDialog>
#include <QTimer>
#include <limits>
#include <thread>

namespace hourwright::desktop {

namespace {

constexpr int lookEvery = 30;     // milliseconds
constexpr int showBarAfter = 400; // milliseconds

int bounded(std::size_t steps) {
    return static_cast<int>(std::min<std::size_t>(steps, std::numeric_limits<int>::max()));
}

class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace

void runInBackground(QWidget* window, const BackgroundTexts& texts,
                     const std::function<void(BackgroundProgress&)>& work) {
    const WaitCursor cursor;
    BackgroundProgress progress;
    std::atomic<bool> ended{false};
    QProgressDialog bar(texts.label, QString(), 0, bounded(texts.total), window);
    bar.setWindowTitle(platform::toQString(resources::StringId::appTitle));
    bar.setWindowModality(Qt::ApplicationModal);
    bar.setMinimumDuration(showBarAfter);
    bar.setAutoClose(false);
    bar.setAutoReset(false);
    if (texts.mayCancel)
        bar.setCancelButtonText(platform::toQString(resources::exports::cancel));
    bar.setValue(0);
    std::thread worker([&] {
        work(progress);
        ended = true;
    });
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (texts.total > 0)
            bar.setValue(bounded(std::min(progress.done.load(), texts.total)));
        progress.cancelled = bar.wasCanceled();
        if (ended)
            loop.quit();
    });
    timer.start(lookEvery);
    window->setEnabled(false);
    loop.exec();
    window->setEnabled(true);
    worker.join();
}

} // namespace hourwright::desktop
