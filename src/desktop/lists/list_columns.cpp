#include "desktop/lists/list_columns.h"

#include <QHeaderView>
#include <algorithm>

namespace hourwright::desktop {

namespace {

constexpr int saveDelay = 400; // milliseconds
constexpr std::uint32_t widest = 10'000;

} // namespace

ListColumns::ListColumns(Workspace& workspace, RecordModel& model, RecordTree& tree, CellDelegate& delegate,
                         app::ListStyle style)
    : workspace_(workspace), model_(model), tree_(tree), delegate_(delegate), style_(style) {
    saving_.setSingleShot(true);
    saving_.setInterval(saveDelay);
    connect(&saving_, &QTimer::timeout, this, &ListColumns::store);
    setUpHeader();
}

ListColumns::~ListColumns() {
    if (saving_.isActive())
        store();
}

void ListColumns::setUpHeader() {
    QHeaderView* header = tree_.header();
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
    connect(header, &QHeaderView::sectionMoved, this, &ListColumns::changed);
    connect(header, &QHeaderView::sectionResized, this, &ListColumns::changed);
    connect(header, &QHeaderView::sectionClicked, this, &ListColumns::arrangeBy);
}

app::ColumnList ListColumns::list() const {
    return model_.records() == app::RecordKind::entries ? app::ColumnList::entries : app::ColumnList::expenses;
}

void ListColumns::arrangeBy(int column) {
    const auto name = model_.rows()->column(static_cast<std::size_t>(column)).name;
    if (const auto choice = app::arrangementOf(model_.records(), name)) {
        workspace_.view().arrangeBy(*choice);
        workspace_.saveSettings();
    }
}

void ListColumns::beginChange() {
    if (saving_.isActive())
        store();
    applying_ = true;
}

void ListColumns::endChange() {
    markArranged();
    place();
    applying_ = false;
    updateIconColumn();
}

void ListColumns::markArranged() {
    QHeaderView* header = tree_.header();
    QFont titles = tree_.font();
    titles.setBold(false);
    header->setFont(titles);
    int sorted = -1;
    for (std::size_t column = 0; style_ != app::ListStyle::simple && column < model_.rows()->columnCount(); ++column)
        if (app::arrangementOf(model_.records(), model_.rows()->column(column).name) == workspace_.view().arrangedBy())
            sorted = static_cast<int>(column);
    header->setSortIndicatorShown(sorted >= 0 && workspace_.view().arrangedBy() != 0);
    header->setSortIndicator(sorted, Qt::AscendingOrder);
}

void ListColumns::place() {
    if (style_ == app::ListStyle::simple)
        return;
    const auto layout =
        app::loadColumnLayout(workspace_.registry(), list(), static_cast<std::uint32_t>(tree_.logicalDpiX()));
    QHeaderView* header = tree_.header();
    for (std::size_t place = 0; place < layout.order.size(); ++place)
        header->moveSection(header->visualIndex(static_cast<int>(layout.order[place])), static_cast<int>(place));
    for (std::size_t column = 0; column < layout.widths.size(); ++column) {
        const int width = static_cast<int>(std::min(layout.widths[column], widest));
        header->setSectionHidden(static_cast<int>(column), width == 0);
        if (width > 0)
            header->resizeSection(static_cast<int>(column), width);
    }
}

void ListColumns::changed() {
    if (applying_)
        return;
    updateIconColumn();
    saving_.start();
}

void ListColumns::updateIconColumn() {
    const QHeaderView* header = tree_.header();
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        if (header->isSectionHidden(column))
            continue;
        delegate_.setIconColumn(column);
        break;
    }
    tree_.viewport()->update();
}

void ListColumns::store() {
    saving_.stop();
    if (style_ == app::ListStyle::simple || model_.rows() == nullptr)
        return;
    app::ColumnLayout layout;
    const QHeaderView* header = tree_.header();
    for (int place = 0; place < header->count(); ++place) {
        layout.order.push_back(static_cast<std::uint32_t>(header->logicalIndex(place)));
        layout.widths.push_back(
            header->isSectionHidden(place) ? 0 : static_cast<std::uint32_t>(header->sectionSize(place)));
    }
    app::saveColumnLayout(workspace_.registry(), list(), layout); // a failure is silent
}

std::vector<std::size_t> ListColumns::shown() const {
    std::vector<std::size_t> columns;
    if (style_ == app::ListStyle::simple) {
        const auto layout = app::loadColumnLayout(workspace_.registry(), list());
        for (const std::uint32_t column : layout.order)
            if (layout.widths[column] != 0)
                columns.push_back(column);
        return columns;
    }
    const QHeaderView* header = tree_.header();
    for (int place = 0; place < header->count(); ++place)
        if (const int column = header->logicalIndex(place); !header->isSectionHidden(column))
            columns.push_back(static_cast<std::size_t>(column));
    return columns;
}

} // namespace hourwright::desktop
