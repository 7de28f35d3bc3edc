#include "desktop/structure/structure_tree.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/structure.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace hourwright::desktop {

namespace texts = resources::structure;
using billing::StructureItem;
using billing::StructureKind;
using platform::toQString;
using store::RateRecord;

namespace {

constexpr int rowRole = Qt::UserRole;
constexpr int keyRole = Qt::UserRole + 1;

// The row that is selected when this one goes: the next one of its parent, the one before, or the parent.
QString neighbourOf(QTreeWidgetItem* item) {
    if (item == nullptr)
        return {};
    auto* parent = item->parent();
    const int count = parent != nullptr ? parent->childCount() : item->treeWidget()->topLevelItemCount();
    const int index = parent != nullptr ? parent->indexOfChild(item) : item->treeWidget()->indexOfTopLevelItem(item);
    const int other = index + 1 < count ? index + 1 : index - 1;
    const auto* neighbour = other < 0           ? parent
                            : parent != nullptr ? parent->child(other)
                                                : item->treeWidget()->topLevelItem(other);
    return neighbour != nullptr ? neighbour->data(0, keyRole).toString() : QString();
}

} // namespace

StructureTree::StructureTree(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(2);
    setHeaderLabels({toQString(texts::nameColumn), toQString(texts::kindColumn)});
    setAccessibleName(toQString(texts::treeName));
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    setExpandsOnDoubleClick(false);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this] { emit opened(); });
}

void StructureTree::showClients(std::span<const store::ClientTree> clients, std::span<const RateRecord> defaultRates) {
    if (topLevelItemCount() > 0) {
        expanded_.clear();
        for (int i = 0; i < topLevelItemCount(); ++i)
            remember(topLevelItem(i));
    }
    const QString neighbour = neighbourOf(currentItem());
    if (currentItem() != nullptr)
        selected_ = currentItem()->data(0, keyRole).toString();
    const QSignalBlocker quiet(this);
    clear();
    rows_.clear();
    const std::u16string defaults(resources::string(resources::StringId::defaultRates));
    auto* defaultItem = add(nullptr, StructureItem{.kind = StructureKind::client, .project = {}, .name = defaults});
    for (const RateRecord& rate : defaultRates)
        add(defaultItem, rate);
    for (const store::ClientTree& client : clients)
        addChildren(add(nullptr, StructureItem{.kind = StructureKind::client,
                                               .clientId = client.client.clientId,
                                               .project = {},
                                               .name = client.client.name,
                                               .id = client.client.id}),
                    client);
    search(searched_);
    restoreAll();
    if (currentItem() == nullptr && !neighbour.isEmpty()) {
        selected_ = neighbour;
        restoreAll();
    }
}

void StructureTree::restoreAll() {
    for (int i = 0; i < topLevelItemCount(); ++i)
        restore(topLevelItem(i));
}

QTreeWidgetItem* StructureTree::add(QTreeWidgetItem* parent, StructureRow row) {
    auto* item = parent != nullptr ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
    const bool isClient =
        std::holds_alternative<StructureItem>(row) && std::get<StructureItem>(row).kind == StructureKind::client;
    item->setText(0, rowName(row));
    item->setText(1, rowKind(row));
    item->setToolTip(0, item->text(0));
    item->setData(0, rowRole, static_cast<int>(rows_.size()));
    item->setData(0, keyRole, rowKey(row));
    if (isClient) {
        QFont bold = font();
        bold.setBold(true);
        item->setFont(0, bold);
    }
    rows_.push_back(std::move(row));
    return item;
}

void StructureTree::addChildren(QTreeWidgetItem* clientItem, const store::ClientTree& client) {
    const std::uint32_t clientId = client.client.clientId;
    for (const store::ProjectTree& project : client.projects) {
        auto* projectItem = add(
            clientItem,
            StructureItem{.kind = StructureKind::project, .clientId = clientId, .project = {}, .name = project.name});
        for (const store::ProjectRecord& task : project.tasks)
            if (!task.task.empty())
                add(projectItem, StructureItem{.kind = StructureKind::projectTask,
                                               .clientId = clientId,
                                               .project = project.name,
                                               .name = task.task,
                                               .id = task.id});
    }
    const auto addNamed = [&](StructureKind kind, const auto& records) {
        for (const auto& record : records)
            add(clientItem,
                StructureItem{.kind = kind, .clientId = clientId, .project = {}, .name = record.name, .id = record.id});
    };
    addNamed(StructureKind::task, client.tasks);
    addNamed(StructureKind::contact, client.contacts);
    for (const RateRecord& rate : client.rates)
        add(clientItem, rate);
}

void StructureTree::remember(QTreeWidgetItem* item) {
    if (item->isExpanded())
        expanded_.insert(item->data(0, keyRole).toString());
    for (int i = 0; i < item->childCount(); ++i)
        remember(item->child(i));
}

void StructureTree::restore(QTreeWidgetItem* item) {
    const QString key = item->data(0, keyRole).toString();
    if (searched_.isEmpty())
        item->setExpanded(expanded_.contains(key));
    if (key == selected_) {
        for (auto* above = item->parent(); above != nullptr; above = above->parent())
            above->setExpanded(true);
        setCurrentItem(item);
        scrollToItem(item);
    }
    for (int i = 0; i < item->childCount(); ++i)
        restore(item->child(i));
}

void StructureTree::search(const QString& text) {
    searched_ = text.trimmed();
    for (int i = 0; i < topLevelItemCount(); ++i)
        filter(topLevelItem(i), false);
}

bool StructureTree::filter(QTreeWidgetItem* item, bool aboveMatches) {
    const bool matches = item->text(0).contains(searched_, Qt::CaseInsensitive);
    bool below = false;
    for (int i = 0; i < item->childCount(); ++i)
        below = filter(item->child(i), aboveMatches || matches) || below;
    item->setHidden(!aboveMatches && !matches && !below);
    if (!searched_.isEmpty())
        item->setExpanded(below);
    return matches || below;
}

void StructureTree::selectRow(const StructureRow& row) {
    selected_ = rowKey(row);
    setCurrentItem(nullptr);
    restoreAll();
}

const StructureRow& StructureTree::rowOf(const QTreeWidgetItem* item) const {
    return rows_[static_cast<std::size_t>(item->data(0, rowRole).toInt())];
}

std::optional<StructureRow> StructureTree::current() const {
    return currentItem() != nullptr ? std::optional(rowOf(currentItem())) : std::nullopt;
}

std::optional<StructureItem> StructureTree::currentClient() const {
    const QTreeWidgetItem* item = currentItem();
    if (item == nullptr)
        return std::nullopt;
    while (item->parent() != nullptr)
        item = item->parent();
    return std::get<StructureItem>(rowOf(item));
}

std::optional<std::u16string> StructureTree::currentProject() const {
    const auto row = current();
    const auto* item = row ? std::get_if<StructureItem>(&*row) : nullptr;
    if (item != nullptr && item->kind == StructureKind::project)
        return item->name;
    if (item != nullptr && item->kind == StructureKind::projectTask)
        return item->project;
    return std::nullopt;
}

void StructureTree::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const bool plain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit opened();
    else if (plain && !text.isEmpty() && text.front().isLetterOrNumber())
        emit typed(text);
    else
        QTreeWidget::keyPressEvent(event);
}

} // namespace hourwright::desktop
