#pragma once

#include "desktop/workspace.h"

#include <cstddef>
#include <filesystem>
#include <span>

class QWidget;

namespace hourwright::desktop {

/// Asks for a file and its type and saves a note there. What is given is saved, that is what the editor shows.
void exportNote(Workspace& workspace, std::span<const std::byte> blob, QWidget* parent);

/// Saves a note in the format at a place of the list, counted from 1. A failure is shown.
bool saveNoteAs(Workspace& workspace, std::span<const std::byte> blob, unsigned place,
                const std::filesystem::path& path);

} // namespace hourwright::desktop
