#include "desktop/lists/record_tree.h"

#include "desktop/screen_size.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QGestureEvent>
#include <QHeaderView>
#include <QPainter>
#include <QPointingDevice>
#include <QScroller>
#include <QStyleOptionViewItem>

namespace hourwright::desktop {

namespace {

constexpr int arrowWidth = 18;

bool isFinger(const QMouseEvent& event) {
    return isHandheld() || event.pointingDevice()->type() == QInputDevice::DeviceType::TouchScreen;
}

} // namespace

RecordTree::RecordTree(Workspace& workspace, RecordModel& model, QWidget* parent)
    : QTreeView(parent), workspace_(workspace), model_(model) {
    setModel(&model);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setExpandsOnDoubleClick(false);
    // Rows of groups are painted here and differ enough without an indentation, which would take room of the columns.
    setRootIsDecorated(false);
    setIndentation(0);
    setFrameShape(QFrame::NoFrame);
    viewport()->grabGesture(Qt::TapAndHoldGesture);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
}

void RecordTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (model_.group(index) != nullptr)
        drawGroup(*painter, option, index);
    else
        QTreeView::drawRow(painter, option, index);
}

// The row of a group takes the width that is visible, so that its totals stay in sight.
void RecordTree::drawGroup(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const app::RowGroup& group = *model_.group(index);
    QStyleOptionViewItem row = option;
    row.rect = QRect(0, option.rect.top(), viewport()->width(), option.rect.height());
    row.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    const bool selected = row.state.testFlag(QStyle::State_Selected);
    painter.save();
    painter.fillRect(row.rect, palette().color(selected ? QPalette::Highlight : QPalette::AlternateBase));
    painter.setPen(palette().color(selected ? QPalette::HighlightedText : QPalette::Text));
    QStyleOption branch;
    branch.initFrom(this);
    branch.rect = QRect(4, row.rect.top(), arrowWidth, row.rect.height());
    branch.state |= QStyle::State_Children | (isExpanded(index) ? QStyle::State_Open : QStyle::State_None);
    style()->drawPrimitive(isExpanded(index) ? QStyle::PE_IndicatorArrowDown : QStyle::PE_IndicatorArrowRight, &branch,
                           &painter, this);
    QFont font = this->font();
    font.setBold(true);
    painter.setFont(font);
    const QRect area = row.rect.adjusted(arrowWidth + 6, 0, -8, 0);
    const QString totals = model_.groupTotals(group);
    const QFontMetrics metrics = painter.fontMetrics();
    const int titleWidth = std::min(metrics.horizontalAdvance(model_.groupTitle(group)) + 4, area.width() / 2);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(model_.groupTitle(group), Qt::ElideRight, titleWidth));
    const QRect rest = area.adjusted(titleWidth + 12, 0, 0, 0);
    painter.drawText(rest, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(totals, Qt::ElideRight, rest.width()));
    if (index == currentIndex() && hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = row.rect.adjusted(1, 1, -1, -1);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
    painter.restore();
}

void RecordTree::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentIndex().isValid()) {
        if (model_.group(currentIndex()) != nullptr)
            setExpanded(currentIndex(), !isExpanded(currentIndex()));
        else
            emit opened(currentIndex());
        event->accept();
        return;
    }
    QTreeView::keyPressEvent(event);
}

void RecordTree::keyboardSearch(const QString& typed) {
    const bool further = sinceTyped_.isValid() && sinceTyped_.elapsed() < 2 * QApplication::keyboardInputInterval();
    sinceTyped_.start();
    typed_ = further ? typed_ + typed : typed;
    emit this->typed(typed_, further);
}

void RecordTree::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !index.isValid() || event->modifiers() != Qt::NoModifier)
        return;
    if (model_.group(index) != nullptr) {
        if (isFinger(*event) || event->position().x() < arrowWidth + 4)
            setExpanded(index, !isExpanded(index));
    } else if (isFinger(*event)) {
        tapped(index, event->globalPosition().toPoint());
    }
}

void RecordTree::tapped(const QModelIndex& index, QPoint globalPosition) {
    if (workspace_.settings().styleFlags.has(app::StyleFlag::secondTapCommand))
        emit menuRequested(globalPosition);
    else
        emit opened(index);
}

void RecordTree::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid() && !isFinger(*event)) {
        if (model_.group(index) != nullptr)
            setExpanded(index, !isExpanded(index));
        else
            emit opened(index);
        return;
    }
    QTreeView::mouseDoubleClickEvent(event);
}

// By keyboard the menu opens at the current row. Where no row is, what is selected is not meant.
void RecordTree::contextMenuEvent(QContextMenuEvent* event) {
    QPoint position = event->globalPos();
    const bool keyboard = event->reason() == QContextMenuEvent::Keyboard;
    if (keyboard && currentIndex().isValid())
        position = viewport()->mapToGlobal(visualRect(currentIndex()).center());
    else if (!keyboard && !indexAt(event->pos()).isValid())
        clearSelection();
    emit menuRequested(position);
    event->accept();
}

bool RecordTree::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Gesture) {
        const auto* gestures = static_cast<QGestureEvent*>(event);
        if (const auto* hold = static_cast<QTapAndHoldGesture*>(gestures->gesture(Qt::TapAndHoldGesture));
            hold != nullptr && hold->state() == Qt::GestureFinished) {
            const QPoint position = hold->position().toPoint();
            const QModelIndex index = indexAt(viewport()->mapFromGlobal(position));
            if (index.isValid() && !selectionModel()->isSelected(index))
                setCurrentIndex(index);
            emit menuRequested(position);
            return true;
        }
    }
    return QTreeView::viewportEvent(event);
}

} // namespace hourwright::desktop
