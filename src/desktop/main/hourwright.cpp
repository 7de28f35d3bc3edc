#include "desktop/main_window.h"
#include "desktop/screen_size.h"
#include "desktop/touch_style.h"
#include "desktop/workspace.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/flock_mutex.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/system_clock.h"
#include "platform/qt/qt_file_dialog.h"
#include "platform/qt/qt_message_box.h"
#include "platform/qt/qt_shell.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "platform/sqlite/sqlite_registry.h"
#include "platform/utf.h"

#include <QApplication>

int main(int argc, char** argv) {
    using namespace hourwright;
    QApplication application(argc, argv);
    if (desktop::isHandheld())
        QApplication::setStyle(new desktop::TouchStyle);
    const auto directories = platform::userDirectories({}, platform::processEnvironment);
    static_cast<void>(platform::makeDirectories(directories));
    const auto registry = platform::openSqliteRegistry(directories.settingsFile());
    app::AppSettings settings = app::AppSettings::load(
        *registry,
        {.osMajorVersion = desktop::isHandheld() ? 5U : 4U,
         .personalFolder = platform::toUtf16(platform::documentsDirectory(platform::processEnvironment).string())});
    auto opened = platform::openSqliteObjectStore(directories.recordsFile());
    platform::QtMessageBox messages;
    if (!opened.store) {
        messages.showFailure(resources::StringId::databaseNotOpened);
        return 1;
    }
    const auto mutex = platform::makeNamedMutex(directories.runtime, store::clientIdMutexName);
    store::Stores stores(*opened.store, *mutex, *registry);
    if (!stores.open()) {
        messages.showFailure(resources::StringId::databaseNotOpened);
        return 1;
    }
    const platform::Locales locales{platform::makeIcuLocale("C"), platform::makeIcuLocale("C")};
    const platform::SystemClock clock;
    platform::PosixFiles files;
    platform::QtShell shell;
    platform::QtFileDialog fileDialogs;
    desktop::Workspace workspace({.stores = stores,
                                  .registry = *registry,
                                  .settings = settings,
                                  .locales = locales,
                                  .clock = clock,
                                  .messages = messages,
                                  .files = files,
                                  .shell = shell,
                                  .directories = directories,
                                  .variable = platform::processEnvironment,
                                  .fileDialogs = &fileDialogs});
    desktop::MainWindow window(workspace);
    if (desktop::isHandheld())
        window.showMaximized();
    else
        window.show();
    return QApplication::exec();
}
