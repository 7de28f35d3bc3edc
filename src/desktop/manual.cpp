#include "desktop/manual.h"

#include <QCoreApplication>

namespace hourwright::desktop {

std::filesystem::path manualPage() {
    // The programs of the build folder stand beside the manual like installed ones.
    const std::filesystem::path program = QCoreApplication::applicationDirPath().toStdString();
    auto page = program.parent_path() / HOURWRIGHT_MANUAL;
    std::error_code missing;
    return std::filesystem::is_regular_file(page, missing) ? page : std::filesystem::path();
}

} // namespace hourwright::desktop
