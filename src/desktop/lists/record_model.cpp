#include "desktop/lists/record_model.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/lists.h"

#include <QLocale>
#include <algorithm>

namespace hourwright::desktop {

namespace {

using platform::toQString;

// Rows of groups have the number 0, those of records one more than the index of their group.
constexpr quintptr ofGroup = 0;

QString dayName(platform::FileTime day, const QLocale& locale) {
    const auto date = platform::toSystemTime(day);
    const int weekday = date && date->dayOfWeek != 0 ? date->dayOfWeek : 7;
    return date ? locale.standaloneDayName(weekday, QLocale::ShortFormat) : QString();
}

} // namespace

RecordModel::RecordModel(Workspace& workspace, app::ListStyle style, QObject* parent)
    : QAbstractItemModel(parent), workspace_(workspace), style_(style) {}

void RecordModel::setRows(std::unique_ptr<app::ListRows> rows, app::RecordKind records, bool atOnce) {
    beginResetModel();
    rows_ = std::move(rows);
    records_ = records;
    atOnce_ = atOnce;
    shown_ = rows_->size();
    endResetModel();
}

bool RecordModel::loadMore(std::size_t limit) {
    const bool more = rows_->load(limit);
    if (!atOnce_) {
        if (!more) {
            beginResetModel();
            shown_ = rows_->size();
            endResetModel();
        }
        return more;
    }
    if (rows_->size() > shown_) {
        beginInsertRows({}, static_cast<int>(shown_), static_cast<int>(rows_->size()) - 1);
        shown_ = rows_->size();
        endInsertRows();
    }
    return more;
}

std::optional<std::size_t> RecordModel::position(const QModelIndex& index) const {
    if (!index.isValid())
        return std::nullopt;
    const auto row = static_cast<std::size_t>(index.row());
    if (style_ != app::ListStyle::tree)
        return row;
    if (index.internalId() == ofGroup)
        return std::nullopt;
    return rows_->groups()[index.internalId() - 1].first + row;
}

QModelIndex RecordModel::indexOf(std::size_t position, int column) const {
    if (position >= shown_)
        return {};
    if (style_ != app::ListStyle::tree)
        return index(static_cast<int>(position), column);
    const auto& groups = rows_->groups();
    const auto after = std::ranges::upper_bound(groups, position, {}, &app::RowGroup::first);
    const auto group = static_cast<std::size_t>(after - groups.begin()) - 1;
    return createIndex(static_cast<int>(position - groups[group].first), column, quintptr{group + 1});
}

const app::RowGroup* RecordModel::group(const QModelIndex& index) const {
    const bool isGroup = style_ == app::ListStyle::tree && index.isValid() && index.internalId() == ofGroup;
    return isGroup ? &rows_->groups()[static_cast<std::size_t>(index.row())] : nullptr;
}

QString RecordModel::groupTitle(const app::RowGroup& group) const {
    if (group.day)
        return dayName(*group.day, QLocale(QString::fromStdString(workspace_.locale().name()))) + ' ' +
               toQString(group.title);
    return group.title.empty() ? toQString(resources::lists::noText) : toQString(group.title);
}

QString RecordModel::groupTotals(const app::RowGroup& group) const {
    return toQString(app::groupText(group, workspace_.settings().treeOptions, records_, workspace_.locale()));
}

QModelIndex RecordModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent))
        return {};
    const quintptr group = parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : ofGroup;
    return createIndex(row, column, group);
}

QModelIndex RecordModel::parent(const QModelIndex& index) const {
    if (style_ != app::ListStyle::tree || !index.isValid() || index.internalId() == ofGroup)
        return {};
    return createIndex(static_cast<int>(index.internalId()) - 1, 0, ofGroup);
}

int RecordModel::rowCount(const QModelIndex& parent) const {
    if (rows_ == nullptr || shown_ == 0)
        return 0;
    if (style_ != app::ListStyle::tree)
        return parent.isValid() ? 0 : static_cast<int>(shown_);
    if (!parent.isValid())
        return static_cast<int>(rows_->groups().size());
    const app::RowGroup* of = parent.column() == 0 ? group(parent) : nullptr;
    return of != nullptr ? static_cast<int>(of->count) : 0;
}

int RecordModel::columnCount(const QModelIndex& /*parent*/) const {
    if (rows_ == nullptr)
        return 0;
    return style_ == app::ListStyle::simple ? 1 : static_cast<int>(rows_->columnCount());
}

// What is read aloud of a simple row is both of its lines.
QVariant RecordModel::rowText(std::size_t row, int column) const {
    if (style_ != app::ListStyle::simple)
        return toQString(rows_->cell(row, static_cast<std::size_t>(column)));
    const app::SimpleRow simple = rows_->simpleRow(row, workspace_.display());
    return QStringList{toQString(simple.title), toQString(simple.titleRight), toQString(simple.detail),
                       toQString(simple.detailRight)}
        .join(", ");
}

QVariant RecordModel::data(const QModelIndex& index, int role) const {
    const auto row = position(index);
    if (!row) {
        const app::RowGroup* of = group(index);
        if (of == nullptr || index.column() != 0 || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole))
            return {};
        return QString(groupTitle(*of) + "  " + groupTotals(*of));
    }
    switch (role) {
    case Qt::DisplayRole: return rowText(*row, index.column());
    case Qt::TextAlignmentRole:
        return style_ != app::ListStyle::simple && rows_->column(static_cast<std::size_t>(index.column())).alignRight
                   ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                   : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    default: return {};
    }
}

QString RecordModel::columnTitle(std::size_t column) const {
    using resources::StringId;
    const StringId title = rows_->column(column).title;
    const auto& settings = workspace_.settings();
    const bool entries = records_ == app::RecordKind::entries;
    std::u16string own;
    if (title == StringId::columnCustom1)
        own = entries ? settings.custom1Label.text() : settings.expenseCustom1Label.text();
    else if (title == StringId::columnCustom2)
        own = entries ? settings.custom2Label.text() : settings.expenseCustom2Label.text();
    else if (title == StringId::columnCustom3)
        own = settings.custom3Label.text();
    return own.empty() ? toQString(title) : toQString(own);
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || rows_ == nullptr || section < 0 || section >= columnCount())
        return {};
    const auto column = static_cast<std::size_t>(section);
    if (role == Qt::DisplayRole && style_ != app::ListStyle::simple)
        return columnTitle(column);
    if (role == Qt::TextAlignmentRole)
        return QVariant((rows_->column(column).alignRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags RecordModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags result = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (group(index) == nullptr)
        result |= Qt::ItemNeverHasChildren;
    return result;
}

} // namespace hourwright::desktop
