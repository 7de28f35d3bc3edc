#include "desktop/copies/copy_work.h"

#include "desktop/background_run.h"
#include "platform/qt/qt_text.h"

#include <QApplication>

namespace hourwright::desktop {

void runCopyWork(const app::CopyWork& work, const std::function<void(const platform::KeepGoing&)>& run) {
    runInBackground(QApplication::activeWindow(),
                    {.label = platform::toQString(work.label), .mayCancel = work.mayCancel},
                    [&run](BackgroundProgress& progress) { run([&progress] { return !progress.cancelled; }); });
}

} // namespace hourwright::desktop
