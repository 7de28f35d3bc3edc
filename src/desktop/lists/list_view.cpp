#include "desktop/lists/list_view.h"

#include "desktop/lists/record_delegate.h"
#include "desktop/lists/record_model.h"
#include "desktop/lists/record_tree.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/lists.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QHeaderView>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>
#include <numeric>
#include <unordered_set>

namespace hourwright::desktop {

namespace {

using platform::toQString;

/// Records in the first step of loading, which the first paint waits for, and in each further one.
constexpr std::size_t firstStep = 2'000;
constexpr std::size_t furtherStep = 5'000;

constexpr int saveDelay = 400; // milliseconds

QFont fontOf(const app::FontDescription& description) {
    QFont font(toQString(description.face));
    // The columns' widths are made for a narrow face.
    if (!QFontDatabase::hasFamily(font.family())) {
        font.setFamilies(QApplication::font().families());
        font.setStretch(QFont::SemiCondensed);
    }
    font.setPointSizeF(description.tenthsOfPoint / 10.0);
    font.setBold(description.weight >= 700);
    return font;
}

} // namespace

ListView::ListView(Workspace& workspace, app::ListStyle style, QWidget* parent)
    : RecordView(parent), workspace_(workspace), style_(style), model_(new RecordModel(workspace, style, this)),
      tree_(new RecordTree(workspace, *model_, this)),
      delegate_(style == app::ListStyle::simple ? new SimpleDelegate(workspace, *model_, this)
                                                : new CellDelegate(workspace, *model_, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tree_);
    setFocusProxy(tree_);
    tree_->setAccessibleName(toQString(resources::lists::listName));
    tree_->setItemDelegate(delegate_);
    tree_->setItemsExpandable(style == app::ListStyle::tree);
    tree_->setTreePosition(-1);
    setUpHeader();
    connectTree();
    loading_.setInterval(0);
    connect(&loading_, &QTimer::timeout, this, &ListView::loadStep);
    saving_.setSingleShot(true);
    saving_.setInterval(saveDelay);
    connect(&saving_, &QTimer::timeout, this, &ListView::storeLayout);
}

ListView::~ListView() {
    if (saving_.isActive())
        storeLayout();
}

void ListView::setUpHeader() {
    QHeaderView* header = tree_->header();
    header->setVisible(style_ != app::ListStyle::simple);
    header->setStretchLastSection(style_ == app::ListStyle::simple);
    if (style_ == app::ListStyle::simple)
        return;
    header->setSectionsMovable(true);
    header->setFirstSectionMovable(true);
    header->setSectionsClickable(true);
    header->setHighlightSections(false);
    header->setMinimumSectionSize(16);
    header->setTextElideMode(Qt::ElideRight);
    connect(header, &QHeaderView::sectionMoved, this, &ListView::layoutChanged);
    connect(header, &QHeaderView::sectionResized, this, &ListView::layoutChanged);
    connect(header, &QHeaderView::sectionClicked, this, &ListView::arrangeByColumn);
}

void ListView::connectTree() {
    connect(tree_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &RecordView::selectionChanged);
    connect(tree_, &RecordTree::opened, this, [this](const QModelIndex& index) {
        if (const auto row = model_->position(index))
            emit activated(model_->rows()->id(*row));
    });
    connect(tree_, &RecordTree::menuRequested, this, &RecordView::contextMenuRequested);
    connect(tree_, &RecordTree::typed, this, [this](const QString& text, bool further) {
        constexpr std::size_t rowsWhileTyping = 5'000;
        const auto current = model_->position(tree_->currentIndex());
        static_cast<void>(findFrom(current ? *current + (further ? 0 : 1) : 0, rowsWhileTyping, text));
    });
}

app::ColumnList ListView::list() const {
    return model_->records() == app::RecordKind::entries ? app::ColumnList::entries : app::ColumnList::expenses;
}

app::ListQuery ListView::query() const {
    const auto& view = workspace_.view();
    return {.records = view.records(),
            .range = view.period().dateRange(),
            .entryFilter = workspace_.entryFilter(),
            .expenseFilter = workspace_.expenseFilter(),
            .arrangedBy = view.arrangedBy(),
            .groupsDescending =
                style_ == app::ListStyle::tree && !workspace_.settings().treeOptions.has(app::TreeOption::ascending)};
}

void ListView::makeRows() {
    loading_.stop();
    if (saving_.isActive())
        storeLayout();
    applying_ = true;
    model_->setRows(app::makeListRows(workspace_.stores(), workspace_.locale(), workspace_.timeRules(), query()),
                    workspace_.view().records(), workspace_.view().arrangedBy() == 0 && style_ != app::ListStyle::tree);
    applyLook();
    applyLayout();
}

void ListView::showView() {
    makeRows();
    if (model_->loadMore(firstStep))
        loading_.start();
    else
        expandGroups({});
    tree_->scrollToTop();
    emit selectionChanged();
}

void ListView::loadStep() {
    if (!model_->loadMore(furtherStep)) {
        loading_.stop();
        expandGroups({});
    }
    emit totalsChanged();
}

void ListView::loadRest() {
    if (!loading_.isActive())
        return;
    loading_.stop();
    model_->loadMore(std::numeric_limits<std::size_t>::max());
    expandGroups({});
    emit totalsChanged();
}

void ListView::reload() {
    const Place before = place();
    const bool blocked = tree_->selectionModel()->blockSignals(true);
    makeRows();
    model_->loadMore(std::numeric_limits<std::size_t>::max());
    restore(before);
    tree_->selectionModel()->blockSignals(blocked);
    emit selectionChanged();
}

void ListView::applyLook() {
    tree_->setFont(fontOf(workspace_.settings().createListFont(0, false)));
    delegate_->forgetIcons();
    QHeaderView* header = tree_->header();
    QFont titles = tree_->font();
    titles.setBold(false);
    header->setFont(titles);
    int sorted = -1;
    for (std::size_t column = 0; style_ != app::ListStyle::simple && column < model_->rows()->columnCount(); ++column)
        if (app::arrangementOf(model_->records(), model_->rows()->column(column).name) ==
            workspace_.view().arrangedBy())
            sorted = static_cast<int>(column);
    header->setSortIndicatorShown(sorted >= 0 && workspace_.view().arrangedBy() != 0);
    header->setSortIndicator(sorted, Qt::AscendingOrder);
}

void ListView::arrangeByColumn(int column) {
    const auto name = model_->rows()->column(static_cast<std::size_t>(column)).name;
    if (const auto choice = app::arrangementOf(model_->records(), name)) {
        workspace_.view().arrangeBy(*choice);
        workspace_.saveSettings();
    }
}

void ListView::applyLayout() {
    if (style_ == app::ListStyle::simple)
        return;
    const auto layout = app::loadColumnLayout(workspace_.registry(), list(), static_cast<std::uint32_t>(logicalDpiX()));
    applying_ = true;
    QHeaderView* header = tree_->header();
    for (std::size_t place = 0; place < layout.order.size(); ++place)
        header->moveSection(header->visualIndex(static_cast<int>(layout.order[place])), static_cast<int>(place));
    for (std::size_t column = 0; column < layout.widths.size(); ++column) {
        const int width = static_cast<int>(std::min<std::uint32_t>(layout.widths[column], 10'000));
        header->setSectionHidden(static_cast<int>(column), width == 0);
        if (width > 0)
            header->resizeSection(static_cast<int>(column), width);
    }
    applying_ = false;
    updateIconColumn();
}

void ListView::layoutChanged() {
    if (applying_)
        return;
    updateIconColumn();
    saving_.start();
}

void ListView::updateIconColumn() {
    const QHeaderView* header = tree_->header();
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        if (header->isSectionHidden(column))
            continue;
        delegate_->setIconColumn(column);
        break;
    }
    tree_->viewport()->update();
}

void ListView::storeLayout() {
    saving_.stop();
    if (style_ == app::ListStyle::simple || model_->rows() == nullptr)
        return;
    app::ColumnLayout layout;
    const QHeaderView* header = tree_->header();
    for (int place = 0; place < header->count(); ++place) {
        layout.order.push_back(static_cast<std::uint32_t>(header->logicalIndex(place)));
        layout.widths.push_back(
            header->isSectionHidden(place) ? 0 : static_cast<std::uint32_t>(header->sectionSize(place)));
    }
    app::saveColumnLayout(workspace_.registry(), list(), layout); // a failure is silent
}

void ListView::expandGroups(const std::set<QString>& toggled) {
    if (style_ != app::ListStyle::tree)
        return;
    const bool open = workspace_.settings().treeOptions.has(app::TreeOption::expanded);
    if (open)
        tree_->expandAll();
    for (int row = 0; !toggled.empty() && row < model_->rowCount(); ++row) {
        const QModelIndex index = model_->index(row, 0);
        if (toggled.contains(model_->groupTitle(*model_->group(index))))
            tree_->setExpanded(index, !open);
    }
}

app::ViewTotals ListView::totals() const {
    return model_->rows() != nullptr ? model_->rows()->totals() : app::ViewTotals();
}

std::vector<std::size_t> ListView::selectedPositions() const {
    std::vector<std::size_t> positions;
    for (const QItemSelectionRange& range : tree_->selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            if (const auto position = model_->position(model_->index(row, 0, range.parent())))
                positions.push_back(*position);
    std::ranges::sort(positions);
    const auto repeated = std::ranges::unique(positions);
    positions.erase(repeated.begin(), repeated.end());
    return positions;
}

std::vector<store::RecordId> ListView::selection() const {
    std::vector<store::RecordId> ids;
    for (const std::size_t position : selectedPositions())
        ids.push_back(model_->rows()->id(position));
    return ids;
}

std::vector<std::size_t> ListView::positionsOf(std::span<const store::RecordId> ids) const {
    const std::unordered_set<store::RecordId> wanted(ids.begin(), ids.end());
    std::vector<std::size_t> positions;
    for (std::size_t row = 0; !wanted.empty() && row < model_->rowCountShown(); ++row)
        if (wanted.contains(model_->rows()->id(row)))
            positions.push_back(row);
    return positions;
}

// Neighbours become one range: a selection of many single rows is slow to paint.
void ListView::selectPositions(std::vector<std::size_t> positions) {
    QItemSelection selection;
    for (std::size_t i = 0; i < positions.size();) {
        const QModelIndex first = model_->indexOf(positions[i]);
        QModelIndex last = first;
        std::size_t next = i + 1;
        for (; next < positions.size() && positions[next] == positions[next - 1] + 1; ++next) {
            const QModelIndex index = model_->indexOf(positions[next]);
            if (index.parent() != first.parent())
                break;
            last = index;
        }
        selection.append(QItemSelectionRange(first, last));
        i = next;
    }
    tree_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ListView::select(std::span<const store::RecordId> ids) {
    loadRest();
    const auto positions = positionsOf(ids);
    if (positions.empty()) {
        tree_->clearSelection();
        return;
    }
    const QModelIndex first = model_->indexOf(positions.front());
    tree_->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectPositions(positions);
    tree_->scrollTo(first);
}

void ListView::selectAll() {
    loadRest();
    std::vector<std::size_t> all(model_->rowCountShown());
    std::iota(all.begin(), all.end(), std::size_t{0});
    selectPositions(std::move(all));
}

ListView::Place ListView::place() const {
    Place place;
    if (model_->rows() == nullptr)
        return place;
    place.selected = selection();
    if (const auto row = model_->position(tree_->currentIndex()))
        place.current = model_->rows()->id(*row);
    const QModelIndex top = tree_->indexAt(QPoint(1, 1));
    const QModelIndex record = model_->group(top) != nullptr ? tree_->indexBelow(top) : top;
    if (const auto row = model_->position(record)) {
        place.top = model_->rows()->id(*row);
        place.topOffset = tree_->visualRect(record).top();
    }
    place.horizontal = tree_->horizontalScrollBar()->value();
    const bool open = workspace_.settings().treeOptions.has(app::TreeOption::expanded);
    for (int row = 0; style_ == app::ListStyle::tree && row < model_->rowCount(); ++row)
        if (const QModelIndex index = model_->index(row, 0); tree_->isExpanded(index) != open)
            place.toggledGroups.insert(model_->groupTitle(*model_->group(index)));
    return place;
}

void ListView::restore(const Place& place) {
    expandGroups(place.toggledGroups);
    selectPositions(positionsOf(place.selected));
    if (const auto found = positionsOf({&place.current, 1}); !found.empty())
        tree_->selectionModel()->setCurrentIndex(model_->indexOf(found.front()), QItemSelectionModel::NoUpdate);
    if (const auto found = positionsOf({&place.top, 1}); !found.empty()) {
        const QModelIndex top = model_->indexOf(found.front());
        tree_->scrollTo(top, QAbstractItemView::PositionAtTop);
        auto* bar = tree_->verticalScrollBar();
        bar->setValue(bar->value() + tree_->visualRect(top).top() - place.topOffset);
    }
    tree_->horizontalScrollBar()->setValue(place.horizontal);
}

std::vector<std::size_t> ListView::shownColumns() const {
    std::vector<std::size_t> columns;
    if (style_ == app::ListStyle::simple) {
        const auto layout = app::loadColumnLayout(workspace_.registry(), list());
        for (const std::uint32_t column : layout.order)
            if (layout.widths[column] != 0)
                columns.push_back(column);
        return columns;
    }
    const QHeaderView* header = tree_->header();
    for (int place = 0; place < header->count(); ++place)
        if (const int column = header->logicalIndex(place); !header->isSectionHidden(column))
            columns.push_back(static_cast<std::size_t>(column));
    return columns;
}

QString ListView::selectedText() const {
    if (model_->rows() == nullptr)
        return {};
    std::vector<std::size_t> positions = selectedPositions();
    if (positions.empty()) {
        positions.resize(model_->rowCountShown());
        std::iota(positions.begin(), positions.end(), std::size_t{0});
    }
    std::vector<std::u16string> titles;
    for (std::size_t column = 0; column < model_->rows()->columnCount(); ++column)
        titles.push_back(platform::toU16(model_->columnTitle(column)));
    return toQString(app::copiedText(*model_->rows(), positions, shownColumns(), titles));
}

bool ListView::findNext(const QString& text) {
    loadRest();
    const auto current = model_->position(tree_->currentIndex());
    return findFrom(current ? *current + 1 : 0, model_->rowCountShown(), text);
}

bool ListView::findFrom(std::size_t first, std::size_t rows, const QString& text) {
    const std::size_t count = model_->rowCountShown();
    if (text.isEmpty() || count == 0)
        return false;
    const auto columns = shownColumns();
    for (std::size_t i = 0; i < std::min(rows, count); ++i) {
        const std::size_t row = (first + i) % count;
        if (std::ranges::any_of(columns, [&](std::size_t column) {
                return toQString(model_->rows()->cell(row, column)).contains(text, Qt::CaseInsensitive);
            })) {
            goTo(row);
            return true;
        }
    }
    return false;
}

void ListView::goTo(std::size_t position) {
    const QModelIndex index = model_->indexOf(position);
    tree_->setCurrentIndex(index);
    tree_->scrollTo(index);
}

void ListView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        delegate_->forgetIcons();
    RecordView::changeEvent(event);
}

} // namespace hourwright::desktop
