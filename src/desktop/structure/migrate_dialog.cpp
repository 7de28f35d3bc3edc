#include "desktop/structure/migrate_dialog.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/structure.h"
#include "store/client_tree.h"
#include "store/structure_changes.h"

#include <QComboBox>
#include <QFormLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace texts = resources::structure;
using platform::toQString;

namespace {

std::vector<std::u16string> checkedNames(const QListWidget& list) {
    std::vector<std::u16string> names;
    for (int i = 0; i < list.count(); ++i)
        if (list.item(i)->checkState() == Qt::Checked)
            names.push_back(platform::toU16(list.item(i)->text()));
    return names;
}

} // namespace

MigrateDialog::MigrateDialog(Workspace& workspace, std::uint32_t from, QWidget* parent)
    : Dialog(workspace, {}, "clientsetup", parent), from_(from), target_(new QComboBox) {
    auto& stores = workspace.stores();
    const auto client = store::findClient(stores, from);
    const auto tree = client ? store::clientTree(stores, *client) : std::nullopt;
    if (!tree)
        workspace.showStoreError();
    std::vector<std::u16string> projects;
    std::vector<std::u16string> tasks;
    if (tree) {
        setWindowTitle(toQString(texts::migrateTitle).arg(toQString(client->name)));
        for (const auto& project : tree->projects)
            projects.push_back(project.name);
        for (const auto& task : tree->tasks)
            tasks.push_back(task.name);
    }
    addForm()->addRow(toQString(texts::migrateTo), target_);
    fillTargets();
    projects_ = addList(texts::checkProjects, projects);
    tasks_ = addList(texts::checkTasks, tasks);
    auto* hint = new QLabel(toQString(texts::migrateHint));
    hint->setWordWrap(true);
    content()->addWidget(hint);
}

// Only a single other client is chosen beforehand.
void MigrateDialog::fillTargets() {
    const auto clients = store::listClients(workspace().stores());
    if (!clients)
        workspace().showStoreError();
    for (const auto& client : clients.value_or(std::vector<store::ClientRecord>{}))
        if (client.clientId != from_)
            target_->addItem(toQString(client.name), client.clientId);
    target_->setCurrentIndex(target_->count() == 1 ? 0 : -1);
    target_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    target_->setMinimumContentsLength(16);
}

QListWidget* MigrateDialog::addList(const resources::Text& label, const std::vector<std::u16string>& names) {
    auto* list = new QListWidget;
    for (const std::u16string& name : names) {
        auto* item = new QListWidgetItem(toQString(name), list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->setCurrentRow(0, QItemSelectionModel::NoUpdate);
    list->setTextElideMode(Qt::ElideMiddle);
    list->setMinimumHeight(fontMetrics().height() * 5);
    auto* caption = new QLabel(toQString(label));
    caption->setBuddy(list);
    caption->setVisible(!names.empty());
    list->setVisible(!names.empty());
    content()->addWidget(caption);
    content()->addWidget(list, 1);
    return list;
}

void MigrateDialog::accept() {
    const auto refuse = [this](resources::StringId message, QWidget* field) {
        workspace().messages().showCheck(message);
        field->setFocus();
    };
    if (target_->currentIndex() < 0)
        return refuse(resources::StringId::migrateTarget, target_);
    const auto projects = checkedNames(*projects_);
    const auto tasks = checkedNames(*tasks_);
    if (projects.empty() && tasks.empty())
        return refuse(resources::StringId::nothingToMigrate, projects_);
    const store::Migration migration{
        .from = from_, .to = target_->currentData().toUInt(), .projects = projects, .tasks = tasks};
    const auto migrate = [&](platform::Transaction& transaction) {
        return store::migrateStructure(transaction, workspace().stores(), migration);
    };
    if (workspace().change(texts::undoMigrate.text, migrate))
        QDialog::accept();
}

} // namespace hourwright::desktop
