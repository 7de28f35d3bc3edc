#include "desktop/lists/list_view.h"

#include "desktop/font_look.h"
#include "desktop/lists/list_columns.h"
#include "desktop/lists/row_finder.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/lists.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>
#include <unordered_set>
#include <utility>

namespace hourwright::desktop {

namespace {

using platform::toQString;

/// Records in the first step of loading, which the first paint waits for, and in each further one.
constexpr std::size_t firstStep = 2'000;
constexpr std::size_t furtherStep = 5'000;

QFont fontOf(const app::FontDescription& description) {
    QFont font(toQString(description.face));
    // The columns' widths are made for a narrow face.
    if (!QFontDatabase::hasFamily(font.family())) {
        font.setFamilies(QApplication::font().families());
        font.setStretch(QFont::SemiCondensed);
    }
    font.setPointSizeF(description.tenthsOfPoint / 10.0);
    takeLook(font, description);
    return font;
}

} // namespace

ListView::ListView(Workspace& workspace, app::ListStyle style, QWidget* parent)
    : RecordView(parent), workspace_(workspace), style_(style), model_(new RecordModel(workspace, style, this)),
      tree_(new RecordTree(workspace, *model_, this)),
      delegate_(style == app::ListStyle::simple ? new SimpleDelegate(workspace, *model_, this)
                                                : new CellDelegate(workspace, *model_, this)),
      columns_(std::make_unique<ListColumns>(workspace, *model_, *tree_, *delegate_, style)),
      finder_(new RowFinder(workspace, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tree_);
    setFocusProxy(tree_);
    tree_->setAccessibleName(toQString(resources::lists::listName));
    tree_->setItemDelegate(delegate_);
    tree_->setItemsExpandable(style == app::ListStyle::tree);
    tree_->setTreePosition(-1);
    connectTree();
    loading_.setInterval(0);
    connect(&loading_, &QTimer::timeout, this, &ListView::loadStep);
}

ListView::~ListView() = default;

void ListView::connectTree() {
    connect(tree_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &RecordView::selectionChanged);
    connect(tree_, &RecordTree::opened, this, [this](const QModelIndex& index) {
        if (const auto row = model_->position(index))
            emit activated(model_->rows()->id(*row));
    });
    connect(tree_, &RecordTree::menuRequested, this, &RecordView::contextMenuRequested);
    connect(tree_, &RecordTree::typed, this, [this](const QString& text, bool further) {
        if (const auto row = canFind(text) ? finder_->near(findRequest(text, further ? 0 : 1)) : std::nullopt)
            goTo(*row);
    });
    connect(finder_, &RowFinder::ended, this, [this](std::optional<std::size_t> row) {
        if (row)
            goTo(*row);
        emit findEnded(row.has_value());
    });
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

std::unique_ptr<app::ListRows> ListView::makeRows() const {
    return app::makeListRows(workspace_.stores(), workspace_.locale(), workspace_.timeRules(), query());
}

void ListView::setRows(std::unique_ptr<app::ListRows> rows) {
    finder_->cancel();
    finder_->forget();
    columns_->beginChange();
    tree_->setFont(fontOf(workspace_.settings().createListFont(0, app::clearTypeOn(workspace_.registry()))));
    delegate_->forgetIcons();
    model_->setRows(std::move(rows), workspace_.view().records(),
                    workspace_.view().arrangedBy() == 0 && style_ != app::ListStyle::tree);
    columns_->endChange();
}

void ListView::showView() {
    loading_.stop();
    coming_.reset();
    whenLoaded_ = nullptr;
    setRows(makeRows());
    if (model_->loadMore(firstStep))
        loading_.start();
    else
        loaded();
    tree_->scrollToTop();
    emit selectionChanged();
}

void ListView::reload() {
    coming_ = makeRows();
    if (coming_->load(firstStep))
        loading_.start();
    else
        takeComing();
}

void ListView::loadStep() {
    loading_.setInterval(workspace_.isChanging() ? RowFinder::pause : 0);
    if (workspace_.isChanging())
        return; // what cannot be read now is not missing
    if (coming_ == nullptr) {
        if (!model_->loadMore(furtherStep))
            loaded();
        emit totalsChanged();
    } else if (!coming_->load(furtherStep)) {
        takeComing();
    }
}

// The rows that were shown until now make room, with all that the user sees staying as it is.
void ListView::takeComing() {
    const Place before = place();
    const bool blocked = tree_->selectionModel()->blockSignals(true);
    setRows(std::move(coming_));
    loading_.stop();
    restore(before);
    tree_->selectionModel()->blockSignals(blocked);
    emit selectionChanged();
    if (const auto then = std::exchange(whenLoaded_, nullptr))
        then();
}

void ListView::loaded() {
    loading_.stop();
    expandGroups({});
    if (const auto then = std::exchange(whenLoaded_, nullptr))
        then();
}

// Does at once what needs all rows, or when they are there; a later wish takes the place of an earlier one.
void ListView::onceLoaded(std::function<void()> then) {
    if (loading_.isActive())
        whenLoaded_ = std::move(then);
    else
        then();
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
    onceLoaded([this, wanted = std::vector(ids.begin(), ids.end())] {
        const auto positions = positionsOf(wanted);
        if (positions.empty()) {
            tree_->clearSelection();
            return;
        }
        const QModelIndex first = model_->indexOf(positions.front());
        tree_->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        selectPositions(positions);
        tree_->scrollTo(first);
    });
}

void ListView::selectAll() {
    onceLoaded([this] {
        std::vector<std::size_t> all(model_->rowCountShown());
        std::iota(all.begin(), all.end(), std::size_t{0});
        selectPositions(std::move(all));
    });
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
    return toQString(app::copiedText(*model_->rows(), positions, columns_->shown(), titles));
}

bool ListView::canFind(const QString& text) const {
    return !text.isEmpty() && model_->rowCountShown() > 0;
}

RowFinder::Request ListView::findRequest(const QString& text, std::size_t behindCurrent) const {
    const auto current = model_->position(tree_->currentIndex());
    return {*model_->rows(), columns_->shown(), text, current ? *current + behindCurrent : 0};
}

Found ListView::findNext(const QString& text) {
    if (loading_.isActive()) {
        onceLoaded([this, text] {
            const Found found = findNow(text);
            if (found != Found::searching)
                emit findEnded(found == Found::yes);
        });
        return Found::searching;
    }
    return findNow(text);
}

Found ListView::findNow(const QString& text) {
    std::size_t row = 0;
    const Found found = canFind(text) ? finder_->next(findRequest(text, 1), row) : Found::no;
    if (found == Found::yes)
        goTo(row);
    return found;
}

void ListView::cancelFind() {
    finder_->cancel();
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
