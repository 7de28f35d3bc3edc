#include "platform/qt/qt_shell.h"

#include <QDesktopServices>
#include <QString>
#include <QUrl>

namespace hourwright::platform {

namespace {

QUrl urlOf(const std::filesystem::path& file) {
    return QUrl::fromLocalFile(QString::fromStdU16String(file.u16string()));
}

} // namespace

bool QtShell::open(const std::filesystem::path& file) {
    return QDesktopServices::openUrl(urlOf(file));
}

bool QtShell::openPage(const std::filesystem::path& page, const std::string& anchor) {
    QUrl url = urlOf(page);
    url.setFragment(QString::fromStdString(anchor));
    return QDesktopServices::openUrl(url);
}

} // namespace hourwright::platform
