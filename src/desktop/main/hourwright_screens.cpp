#include "app/demo/demo_store.h"
#include "desktop/main_window.h"
#include "desktop/screen_size.h"
#include "desktop/screens/screens.h"
#include "desktop/touch_style.h"
#include "exchange/note_document.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/flock_mutex.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/system_clock.h"
#include "platform/qt/qt_file_dialog.h"
#include "platform/qt/qt_message_box.h"
#include "platform/qt/qt_shell.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "platform/sqlite/sqlite_registry.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QPalette>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QThread>
#include <cstdio>
#include <fstream>

namespace {

using namespace hourwright;

// The colours of a dark desktop; off-screen there is none to follow.
QPalette darkPalette() {
    QPalette palette(QColor(0x35, 0x37, 0x3b), QColor(0x2a, 0x2c, 0x30));
    palette.setColor(QPalette::Base, QColor(0x1f, 0x21, 0x24));
    palette.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2c, 0x30));
    palette.setColor(QPalette::Highlight, QColor(0x2d, 0x6c, 0xa8));
    palette.setColor(QPalette::PlaceholderText, QColor(0x9a, 0x9d, 0xa3));
    palette.setColor(QPalette::Link, QColor(0x6c, 0xb2, 0xf2));
    return palette;
}

struct Options {
    QString folder;
    QString only;
    QSize size{1280, 800};
    qreal scale = 1.0;
    bool dark = false;
};

// hourwright_screens FOLDER [WIDTHxHEIGHT] [dark] [scale=N] [only=NAME]
Options optionsOf(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const QString word = argv[i];
        if (word == "dark")
            options.dark = true;
        else if (word.startsWith("scale="))
            options.scale = word.mid(6).toDouble();
        else if (word.startsWith("only="))
            options.only = word.mid(5);
        else if (word.contains('x') && word.at(0).isDigit())
            options.size = QSize(word.section('x', 0, 0).toInt(), word.section('x', 1, 1).toInt());
        else
            options.folder = word;
    }
    return options;
}

// Off-screen, the size of the screen comes from a file.
void useScreen(const Options& options, const QString& folder) {
    const QString file = folder + "/screen.json";
    std::ofstream(file.toStdString()) << R"({"screens":[{"name":"screen","x":0,"y":0,"width":)" << options.size.width()
                                      << R"(,"height":)" << options.size.height()
                                      << R"(,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})";
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file).toUtf8());
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
}

// Lets timers and paints run for a moment, as a look at the real window does.
void settle() {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 150) {
        QApplication::processEvents();
        QThread::msleep(5);
    }
}

bool fillDemo(store::Stores& stores, const platform::Clock& clock) {
    const app::demo::DemoOptions options{.entries = 4000, .lastDay = clock.localTime()};
    const auto encode = [](std::u16string_view text) { return exchange::writeNote(exchange::fromPlainText(text)); };
    return app::demo::fillWithDemoHistory(stores, options, encode) == app::demo::DemoResult::done;
}

void draw(desktop::MainWindow& window, const desktop::Screen& screen, const Options& options) {
    QWidget* widget = screen.make(window);
    if (widget == nullptr)
        return;
    if (widget != &window) {
        widget->show();
        if (desktop::isHandheld())
            widget->resize(options.size);
    }
    settle();
    widget->grab().save(options.folder + '/' + screen.name + ".png");
    std::printf("%s\n", qPrintable(screen.name));
    if (widget != &window)
        delete widget;
}

} // namespace

// Draws every window with made-up records into PNG files.
int main(int argc, char** argv) {
    const Options options = optionsOf(argc, argv);
    if (options.folder.isEmpty() || !QDir().mkpath(options.folder)) {
        std::fputs("usage: hourwright_screens FOLDER [WIDTHxHEIGHT] [dark] [scale=N] [only=NAME]\n", stderr);
        return 2;
    }
    const QTemporaryDir home;
    useScreen(options, home.path());
    QApplication application(argc, argv);
    QApplication::setStyle(desktop::isHandheld() ? new desktop::TouchStyle : QStyleFactory::create("Fusion"));
    if (options.dark)
        QApplication::setPalette(darkPalette());
    const std::filesystem::path folder = home.path().toStdString();
    const auto registry = platform::openSqliteRegistry(folder / "settings.db");
    app::AppSettings settings = app::AppSettings::load(
        *registry, {.osMajorVersion = desktop::isHandheld() ? 5U : 4U, .personalFolder = folder.u16string()});
    const auto opened = platform::openSqliteObjectStore(folder / "hourwright.db");
    const auto mutex = platform::makeNamedMutex(folder, store::clientIdMutexName);
    store::Stores stores(*opened.store, *mutex, *registry);
    const platform::FixedClock clock({.year = 2026, .month = 11, .dayOfWeek = 4, .day = 19, .hour = 15, .minute = 30});
    if (!stores.open() || !fillDemo(stores, clock)) {
        std::fputs("hourwright_screens: the demo could not be made\n", stderr);
        return 1;
    }
    const platform::Locales locales{platform::makeIcuLocale("en_US"), platform::makeIcuLocale("en_US")};
    platform::QtMessageBox messages;
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
                                  .directories = {.data = folder, .config = folder, .state = folder, .runtime = folder},
                                  .variable = platform::processEnvironment,
                                  .fileDialogs = &fileDialogs});
    desktop::MainWindow window(workspace);
    window.resize(options.size);
    window.show();
    for (const desktop::Screen& screen : desktop::allScreens())
        if (options.only.isEmpty() || screen.name.contains(options.only))
            draw(window, screen, options);
    return 0;
}
