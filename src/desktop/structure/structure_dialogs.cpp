#include "desktop/structure/structure_dialogs.h"

#include "desktop/structure/structure_names.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/structure.h"

namespace hourwright::desktop {

namespace texts = resources::structure;
using billing::StructureItem;
using platform::toQString;

namespace {

constexpr auto anchor = "clientsetup";

std::unique_ptr<NameDialog> makeNameDialog(Workspace& workspace, const StructureItem& item, const QString& title,
                                           QWidget* parent) {
    auto dialog = std::make_unique<NameDialog>(workspace, title, texts::nameLabel, anchor, parent);
    dialog->check = [&workspace, item](const std::u16string& name) {
        return billing::checkNewName(workspace.stores(), item, name);
    };
    return dialog;
}

} // namespace

std::unique_ptr<Dialog> makeAddDialog(Workspace& workspace, const StructureItem& item, const std::u16string& owner,
                                      RowChanged added, QWidget* parent) {
    const QString title = item.kind == billing::StructureKind::client
                              ? toQString(texts::newClientTitle)
                              : toQString(texts::newTitle).arg(kindText(item.kind), toQString(owner));
    auto dialog = makeNameDialog(workspace, item, title, parent);
    dialog->accepted = [&workspace, item, added = std::move(added)](const std::u16string& name) {
        StructureItem made = item;
        const auto add = [&](platform::Transaction& transaction) {
            return billing::addItem(transaction, workspace.stores(), made, name);
        };
        const bool done = workspace.change(undoText(texts::undoAdd, item.kind), add);
        if (done)
            added(made);
        return done;
    };
    return dialog;
}

std::unique_ptr<Dialog> makeRenameDialog(Workspace& workspace, const StructureItem& item, RowChanged renamed,
                                         QWidget* parent) {
    auto dialog = makeNameDialog(workspace, item, toQString(texts::renameTitle).arg(kindText(item.kind)), parent);
    dialog->setName(item.name);
    dialog->addCheckBox(texts::carry, false);
    dialog->accepted = [&workspace, item, renamed = std::move(renamed),
                        box = dialog.get()](const std::u16string& name) {
        if (name == item.name)
            return true;
        store::CarryEntries carry;
        if (box->isChecked())
            carry = workspace.clock().now();
        const auto rename = [&](platform::Transaction& transaction) {
            return billing::renameItem(transaction, workspace.stores(), item, name, carry);
        };
        if (!workspace.change(undoText(texts::undoRename, item.kind), rename))
            return false;
        StructureItem now = item;
        now.name = name;
        renamed(now);
        return true;
    };
    return dialog;
}

void askAndDelete(Workspace& workspace, const StructureItem& item) {
    const billing::StructureNode node = billing::nodeOf(item);
    if (!billing::askToDelete(workspace.messages(), node))
        return;
    workspace.change(undoText(texts::undoDelete, item.kind), [&](platform::Transaction& transaction) {
        return billing::deleteNode(transaction, workspace.stores(), node);
    });
}

} // namespace hourwright::desktop
