#pragma once

#include "desktop/dialog.h"

#include <functional>
#include <memory>

namespace hourwright::desktop {

/// What the keys of a list that is edited do: Ins adds, F2 and Enter change, Del deletes. The dialogs are modal; a null
/// one is not opened.
struct ListKeys {
    std::function<std::unique_ptr<Dialog>()> add;
    std::function<std::unique_ptr<Dialog>()> change;
    std::function<void()> remove;
};

/// Does what a key (of `Qt::Key`) means; false for one that means nothing there.
bool runListKey(const ListKeys& keys, int key);

} // namespace hourwright::desktop
