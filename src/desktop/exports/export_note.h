#pragma once

#include "desktop/workspace.h"

#include <QDialog>
#include <cstdint>
#include <filesystem>

namespace hourwright::desktop {

/// Says that an export is done and offers to open its file or folder.
class ExportNote : public QDialog {
public:
    ExportNote(Workspace& workspace, const std::filesystem::path& file, std::uint64_t records, QWidget* parent);
};

} // namespace hourwright::desktop
