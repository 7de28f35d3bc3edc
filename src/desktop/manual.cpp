#include "desktop/manual.h"

#include <QCoreApplication>
#include <array>

namespace hourwright::desktop {

std::filesystem::path manualPage() {
    const std::filesystem::path program = QCoreApplication::applicationDirPath().toStdString();
    const std::array<std::filesystem::path, 2> places = {
        program.parent_path() / HOURWRIGHT_DOC_DIR / "manual.html",
        std::filesystem::path(HOURWRIGHT_SOURCE_DIR) / "docs" / "manual" / "manual.html",
    };
    for (const auto& place : places) {
        std::error_code missing;
        if (std::filesystem::is_regular_file(place, missing))
            return place;
    }
    return {};
}

} // namespace hourwright::desktop
