#pragma once

#include "desktop/structure/name_dialog.h"
#include "desktop/structure/structure_row.h"

#include <functional>
#include <memory>

namespace hourwright::desktop {

/// What is called with a row that was added or renamed.
using RowChanged = std::function<void(const StructureRow&)>;

/// The dialog that names a new item and stores it. Kind, client and, of a project's task, project are the item's;
/// `owner` is the name that the title says.
[[nodiscard]] std::unique_ptr<Dialog> makeAddDialog(Workspace& workspace, const billing::StructureItem& item,
                                                    const std::u16string& owner, RowChanged added, QWidget* parent);

/// The dialog that gives an item another name; its entries follow if the user wants that.
[[nodiscard]] std::unique_ptr<Dialog> makeRenameDialog(Workspace& workspace, const billing::StructureItem& item,
                                                       RowChanged renamed, QWidget* parent);

/// Deletes an item with all below it if the user agrees; a failure is shown.
void askAndDelete(Workspace& workspace, const billing::StructureItem& item);

} // namespace hourwright::desktop
