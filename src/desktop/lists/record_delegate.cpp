#include "desktop/lists/record_delegate.h"

#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QPainter>

namespace hourwright::desktop {

namespace {

using platform::toQString;

constexpr int margin = 8;

int iconSize(const QFontMetrics& metrics) {
    return std::max(16, metrics.height());
}

// A text on the left and one on the right, which is never cut.
void drawLine(QPainter& painter, const QRect& line, const QString& left, const QString& right) {
    const int rightWidth = right.isEmpty() ? 0 : painter.fontMetrics().horizontalAdvance(right);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, right);
    const QRect rest = line.adjusted(0, 0, right.isEmpty() ? 0 : -rightWidth - 2 * margin, 0);
    painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(left, Qt::ElideRight, rest.width()));
}

QFont plain(QFont font) {
    font.setBold(false);
    return font;
}

} // namespace

CellDelegate::CellDelegate(Workspace& workspace, RecordModel& model, QObject* parent)
    : QStyledItemDelegate(parent), workspace_(workspace), model_(model) {}

QIcon CellDelegate::iconOf(std::size_t row, int size, const QWidget* widget) const {
    const app::RowImage image = model_.rows()->image(row);
    return icons_.of(static_cast<store::EntryStatus>(image.icon - 1), image.noteOverlay, size,
                     widget != nullptr ? widget->devicePixelRatioF() : qApp->devicePixelRatio());
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const auto row = model_.position(index);
    if (!row)
        return;
    option->palette.setColor(QPalette::Text,
                             statusColour(model_.rows()->status(*row), workspace_.display(), option->palette));
    if (index.column() != iconColumn_ || !workspace_.display().showStatusIcon)
        return;
    const int size = iconSize(option->fontMetrics);
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->icon = iconOf(*row, size, option->widget);
    option->decorationSize = QSize(size, size);
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
    const int height = iconSize(QFontMetrics(option.font)) + 6;
    return {80, isHandheld() ? std::max(height, touchTarget) : height};
}

QSize SimpleDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
    const int height = 2 * QFontMetrics(option.font).height() + 2 * margin + 2;
    return {200, std::max(height, touchTarget)};
}

void SimpleDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto row = model_.position(index);
    if (!row)
        return;
    QStyleOptionViewItem item = option;
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, option.widget);
    painter->save();
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QColor quiet = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    const QColor status = statusColour(model_.rows()->status(*row), workspace_.display(), option.palette);
    QRect area = option.rect.adjusted(margin, margin - 1, -margin, -margin + 1);
    if (workspace_.display().showStatusIcon) {
        const int size = iconSize(option.fontMetrics) + 4;
        const QRect icon(area.left(), area.center().y() - size / 2, size, size);
        iconOf(*row, size, option.widget)
            .paint(painter, icon, Qt::AlignCenter, selected ? QIcon::Selected : QIcon::Normal);
        area.setLeft(icon.right() + margin + 1);
    }
    const app::SimpleRow texts = model_.rows()->simpleRow(*row, workspace_.display());
    const int half = area.height() / 2;
    painter->setFont(option.font);
    painter->setPen(selected ? quiet : status);
    drawLine(*painter, {area.left(), area.top(), area.width(), half}, toQString(texts.title),
             toQString(texts.titleRight));
    painter->setFont(plain(option.font));
    painter->setPen(quiet);
    painter->setOpacity(selected ? 1.0 : 0.75);
    drawLine(*painter, {area.left(), area.top() + half, area.width(), half}, toQString(texts.detail),
             toQString(texts.detailRight));
    painter->setOpacity(0.15);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->restore();
}

} // namespace hourwright::desktop
