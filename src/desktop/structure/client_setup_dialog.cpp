#include "desktop/structure/client_setup_dialog.h"

#include "desktop/structure/button_column.h"
#include "desktop/structure/migrate_dialog.h"
#include "desktop/structure/rate_dialog.h"
#include "desktop/structure/structure_dialogs.h"
#include "desktop/structure/structure_tree.h"
#include "desktop/summaries/summary_dialog.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/structure.h"
#include "store/client_tree.h"

#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>

namespace hourwright::desktop {

namespace texts = resources::structure;
using billing::StructureItem;
using billing::StructureKind;
using platform::toQString;
using store::RateRecord;

namespace {

constexpr auto anchor = "clientsetup";

} // namespace

ClientSetupDialog::ClientSetupDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::setupClients), anchor, parent), search_(new QLineEdit),
      tree_(new StructureTree), addMenu_(new QMenu(this)) {
    build();
    buildMenu();
    connect(search_, &QLineEdit::textChanged, tree_, &StructureTree::search);
    connect(tree_, &StructureTree::typed, this, [this](const QString& text) {
        search_->setFocus();
        search_->insert(text);
    });
    connect(tree_, &StructureTree::opened, this, [this] { run(editDialog()); });
    connect(tree_, &QTreeWidget::currentItemChanged, this, [this] { updateButtons(); });
    connect(&workspace, &Workspace::recordsChanged, this, [this] { reload(); });
    reload();
    tree_->setFocus();
}

void ClientSetupDialog::build() {
    buttons()->setStandardButtons(QDialogButtonBox::Close | QDialogButtonBox::Help);
    for (QAbstractButton* button : buttons()->buttons())
        qobject_cast<QPushButton*>(button)->setAutoDefault(false);
    search_->setPlaceholderText(toQString(texts::search));
    search_->setAccessibleName(toQString(texts::search));
    search_->setClearButtonEnabled(true);
    content()->addWidget(search_);
    tree_->setMinimumHeight(fontMetrics().height() * 10);
    ButtonColumn column(*content(), tree_);
    addButton_ = column.add(texts::add);
    addButton_->setMenu(addMenu_);
    editButton_ = column.add(texts::edit, [this] { run(editDialog()); });
    deleteButton_ = column.add(texts::remove, [this] { deleteSelected(); });
    migrateButton_ = column.add(texts::migrate, [this] { run(migrateDialog()); });
    summaryButton_ = column.add(texts::summary, [this] { run(summaryDialog()); });
    addKey(Qt::Key_Insert, [this] { addButton_->showMenu(); });
    addKey(Qt::Key_F2, [this] { run(editDialog()); });
    addKey(Qt::Key_Delete, [this] { deleteSelected(); });
    tree_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tree_, &QWidget::customContextMenuRequested, this, [this](QPoint position) { showMenu(position); });
    resize(560, 520);
}

void ClientSetupDialog::addKey(QKeySequence key, std::function<void()> run) {
    auto* shortcut = new QShortcut(key, tree_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, std::move(run));
}

void ClientSetupDialog::buildMenu() {
    const auto add = [this](StructureKind kind, const resources::Text& text) {
        addActions_[kind] = addMenu_->addAction(toQString(text), this, [this, kind] { run(addDialog(kind)); });
    };
    add(StructureKind::client, texts::addClient);
    addMenu_->addSeparator();
    add(StructureKind::project, texts::addProject);
    add(StructureKind::projectTask, texts::addProjectTask);
    add(StructureKind::task, texts::addTask);
    add(StructureKind::contact, texts::addContact);
    addRate_ = addMenu_->addAction(toQString(texts::addRate), this, [this] { run(addRateDialog()); });
}

void ClientSetupDialog::showMenu(QPoint position) {
    QMenu menu(this);
    menu.addMenu(addMenu_)->setText(toQString(texts::add));
    const auto add = [&](QPushButton* button) {
        menu.addAction(button->text(), button, [button] { button->click(); })->setEnabled(button->isEnabled());
    };
    add(editButton_);
    add(deleteButton_);
    add(migrateButton_);
    menu.addSeparator();
    add(summaryButton_);
    menu.exec(tree_->viewport()->mapToGlobal(position));
}

void ClientSetupDialog::reload() {
    const auto clients = store::clientTrees(workspace().stores());
    const auto rates = store::recordsOf<RateRecord>(workspace().stores(), store::defaultRatesOwner);
    if (!clients || !rates)
        workspace().showStoreError();
    tree_->showClients(clients.value_or(std::vector<store::ClientTree>{}), rates.value_or(std::vector<RateRecord>{}));
    updateButtons();
}

void ClientSetupDialog::updateButtons() {
    const auto client = tree_->currentClient();
    const bool ofClient = client && client->clientId != 0;
    const auto row = tree_->current();
    const bool changeable = ofClient || (row && std::holds_alternative<RateRecord>(*row));
    for (const auto& [kind, action] : addActions_)
        action->setEnabled(ofClient || kind == StructureKind::client);
    addActions_[StructureKind::projectTask]->setEnabled(tree_->currentProject().has_value());
    addRate_->setEnabled(client.has_value());
    editButton_->setEnabled(changeable);
    deleteButton_->setEnabled(changeable);
    migrateButton_->setEnabled(ofClient);
    summaryButton_->setEnabled(row && client && scopeOf(*row, client->name));
}

std::unique_ptr<Dialog> ClientSetupDialog::addDialog(StructureKind kind) {
    const auto client = tree_->currentClient();
    const auto project = tree_->currentProject();
    const bool isClient = kind == StructureKind::client;
    const bool isProjectTask = kind == StructureKind::projectTask;
    if ((!isClient && (!client || client->clientId == 0)) || (isProjectTask && !project))
        return nullptr;
    const StructureItem item{.kind = kind,
                             .clientId = isClient ? 0 : client->clientId,
                             .project = isProjectTask ? *project : std::u16string(),
                             .name = {}};
    const std::u16string owner = isClient ? std::u16string() : isProjectTask ? *project : client->name;
    return makeAddDialog(
        workspace(), item, owner, [this](const StructureRow& row) { tree_->selectRow(row); }, this);
}

std::unique_ptr<Dialog> ClientSetupDialog::addRateDialog() {
    const auto client = tree_->currentClient();
    if (!client)
        return nullptr;
    RateRecord rate;
    rate.clientId = client->clientId;
    auto dialog = std::make_unique<RateDialog>(workspace(), rate, client->name, this);
    dialog->saved = [this](const RateRecord& added) { tree_->selectRow(added); };
    return dialog;
}

std::unique_ptr<Dialog> ClientSetupDialog::editDialog() {
    const auto row = tree_->current();
    if (!row)
        return nullptr;
    if (const auto* rate = std::get_if<RateRecord>(&*row))
        return std::make_unique<RateDialog>(workspace(), *rate, tree_->currentClient()->name, this);
    const auto& item = std::get<StructureItem>(*row);
    if (item.clientId == 0)
        return nullptr;
    return makeRenameDialog(
        workspace(), item, [this](const StructureRow& renamed) { tree_->selectRow(renamed); }, this);
}

std::unique_ptr<Dialog> ClientSetupDialog::migrateDialog() {
    const auto client = tree_->currentClient();
    if (!client || client->clientId == 0)
        return nullptr;
    return std::make_unique<MigrateDialog>(workspace(), client->clientId, this);
}

std::unique_ptr<Dialog> ClientSetupDialog::summaryDialog() {
    const auto row = tree_->current();
    const auto client = tree_->currentClient();
    const auto scope = row && client ? scopeOf(*row, client->name) : std::nullopt;
    return scope ? std::make_unique<ClientSummaryDialog>(workspace(), *scope, this) : nullptr;
}

void ClientSetupDialog::deleteSelected() {
    const auto row = tree_->current();
    if (!row)
        return;
    if (const auto* rate = std::get_if<RateRecord>(&*row))
        deleteRate(workspace(), rate->id);
    else if (const auto& item = std::get<StructureItem>(*row); item.clientId != 0)
        askAndDelete(workspace(), item);
}

void ClientSetupDialog::run(std::unique_ptr<Dialog> dialog) {
    if (dialog)
        dialog->exec();
}

} // namespace hourwright::desktop
