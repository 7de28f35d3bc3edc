#include "platform/qt/qt_start.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace hourwright::platform {

namespace {

bool isSet(const Environment& environment, const char* name) {
    return !environment(name).value_or("").empty();
}

// A platform of the user's own choice may need no display.
bool mayHaveDisplay(int argc, char** argv, const Environment& environment) {
    for (int i = 1; i < argc; ++i)
        if (std::string_view(argv[i]).ends_with("-platform") || std::string_view(argv[i]).ends_with("-display"))
            return true;
    return isSet(environment, "QT_QPA_PLATFORM") || isSet(environment, "WAYLAND_DISPLAY") ||
           isSet(environment, "DISPLAY");
}

// The toolkit would abort, after some lines of advice for developers.
void endWhenFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
    if (type != QtFatalMsg)
        return;
    std::fputs("hourwright: the display cannot be used; the command line hwctl works without one\n", stderr);
    std::_Exit(1);
}

} // namespace

std::unique_ptr<QApplication> startToolkit(int& argc, char** argv, const Environment& environment) {
    if (!mayHaveDisplay(argc, argv, environment)) {
        std::fputs("hourwright: there is no display to show windows on; the command line hwctl works without one\n",
                   stderr);
        return nullptr;
    }
    const QtMessageHandler before = qInstallMessageHandler(endWhenFatal);
    auto application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(before);
    std::setlocale(LC_NUMERIC, "C");
    return application;
}

} // namespace hourwright::platform
