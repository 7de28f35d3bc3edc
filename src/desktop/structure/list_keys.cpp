#include "desktop/structure/list_keys.h"

namespace hourwright::desktop {

namespace {

void run(const std::unique_ptr<Dialog>& dialog) {
    if (dialog)
        dialog->exec();
}

} // namespace

bool runListKey(const ListKeys& keys, int key) {
    switch (key) {
    case Qt::Key_Insert: run(keys.add()); return true;
    case Qt::Key_F2:
    case Qt::Key_Return:
    case Qt::Key_Enter: run(keys.change()); return true;
    case Qt::Key_Delete: keys.remove(); return true;
    default: return false;
    }
}

} // namespace hourwright::desktop
