#include "desktop/application.h"

#include "app/message_loop.h"
#include "desktop/icons.h"
#include "desktop/screen_size.h"
#include "desktop/touch_style.h"
#include "platform/icu/icu_locales.h"
#include "platform/qt/qt_start.h"
#include "platform/qt/qt_text.h"

#include <QLocale>
#include <QScreen>
#include <chrono>
#include <cstdio>
#include <thread>

namespace hourwright::desktop {

Application::Application(int& argc, char** argv, const app::StartOptions& options, platform::Directories directories)
    : argc_(argc), argv_(argv), options_(options), directories_(std::move(directories)) {}

void Application::waitForOther() {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
}

void Application::refusedByOther() {
    std::fputs(
        "hourwright: the open window did not take the options: too many wait there for a question to be answered, "
        "or it is of another version.\n",
        stderr);
}

bool Application::initControls(app::ControlLibrary library) {
    switch (library) {
    case app::ControlLibrary::shellExtras:
        toolkit_ = platform::startToolkit(argc_, argv_, platform::processEnvironment);
        return toolkit_ != nullptr;
    case app::ControlLibrary::common: prepareControls(); break;
    case app::ControlLibrary::ink: break; // drawn by widgets of our own
    }
    return true;
}

void Application::prepareControls() {
    QApplication::setQuitOnLastWindowClosed(false); // the frame says when
    QApplication::setApplicationName("hourwright");
    QApplication::setDesktopFileName("hourwright");
    QApplication::setWindowIcon(applicationIcon());
    if (isHandheld())
        QApplication::setStyle(new TouchStyle);
    // Names of days and months in calendars; numbers and dates of records go through the workspace's locale.
    QLocale::setDefault(options_.locale.empty() ? QLocale::system() : QLocale(QString::fromStdString(options_.locale)));
}

void Application::initModule() {
    queue_ = std::make_unique<platform::QtEventQueue>();
}

app::WorkArea Application::workArea() {
    const QScreen& screen = *QGuiApplication::primaryScreen();
    const QRect area = screen.availableGeometry();
    return {.area = {.left = area.left(), .top = area.top(), .width = area.width(), .height = area.height()},
            .verticalDotsPerInch = qRound(screen.logicalDotsPerInchY())};
}

bool Application::createFrame(std::u16string_view title, const app::Rectangle& rectangle,
                              std::unique_ptr<platform::InstanceServer> server) {
    QApplication::setApplicationDisplayName(platform::toQString(title));
    host_ = std::make_unique<FrameHost>(options_, directories_, *queue_, std::move(server));
    return host_->create(rectangle);
}

int Application::runMessageLoop() {
    app::MessageLoop loop(host_->frame());
    return queue_->run(loop);
}

} // namespace hourwright::desktop
