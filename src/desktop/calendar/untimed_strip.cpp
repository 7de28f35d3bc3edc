#include "desktop/calendar/week_heading.h"
#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/calendar.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

namespace hourwright::desktop {

using platform::toQString;

namespace {

constexpr int mostRows = 4;
constexpr int longPressTime = 550;

} // namespace

UntimedStrip::UntimedStrip(CalendarBoard& board, BlockPainter& painter, TimeGrid& grid, QWidget* parent)
    : QAbstractScrollArea(parent), board_(board), painter_(painter), grid_(grid) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setFocusProxy(&grid);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(toQString(resources::calendar::untimedList));
    longPress_.setSingleShot(true);
    longPress_.setInterval(longPressTime);
    connect(&longPress_, &QTimer::timeout, this, [this] { askForMenu(pressed_); });
    connect(&board_, &CalendarBoard::selectionChanged, viewport(), qOverload<>(&QWidget::update));
}

int UntimedStrip::rowHeight() const {
    return isHandheld() ? fontMetrics().height() + 14 : fontMetrics().height() + 6;
}

int UntimedStrip::rowCount() const {
    std::size_t rows = 0;
    for (const app::CalendarDay& day : board_.days())
        rows = std::max(rows, day.untimed.size());
    return static_cast<int>(rows);
}

void UntimedStrip::refresh() {
    const int rows = rowCount();
    setVisible(rows > 0);
    setFixedHeight(std::min(rows, isHandheld() ? mostRows - 1 : mostRows) * rowHeight() + 5);
    updateRange();
    viewport()->update();
}

void UntimedStrip::updateRange() {
    verticalScrollBar()->setSingleStep(rowHeight());
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, rowCount() * rowHeight() + 5 - viewport()->height()));
}

void UntimedStrip::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateRange();
}

QRect UntimedStrip::rowRect(int day, int row) const {
    const auto grid = grid_.grid();
    const int margin = grid.columnWidth(day) > 80 ? 9 : 2;
    return {grid.columnLeft(day) + 2, 2 + row * rowHeight() - verticalScrollBar()->value(),
            grid.columnWidth(day) - margin - 2, rowHeight() - 2};
}

QRect UntimedStrip::chipRect(std::size_t entry) const {
    for (std::size_t day = 0; day < board_.days().size(); ++day) {
        const auto& untimed = board_.days()[day].untimed;
        const auto found = std::find(untimed.begin(), untimed.end(), entry);
        if (found != untimed.end())
            return rowRect(static_cast<int>(day), static_cast<int>(found - untimed.begin()));
    }
    return {};
}

void UntimedStrip::showEntry(std::size_t entry) {
    const QRect rect = chipRect(entry);
    if (rect.isNull())
        return;
    const int offset = verticalScrollBar()->value();
    if (rect.top() < 0)
        verticalScrollBar()->setValue(offset + rect.top() - 2);
    else if (rect.bottom() > viewport()->height())
        verticalScrollBar()->setValue(offset + rect.bottom() - viewport()->height() + 2);
}

std::optional<std::size_t> UntimedStrip::entryAt(QPoint position) const {
    for (const app::CalendarDay& day : board_.days())
        for (const std::size_t entry : day.untimed)
            if (chipRect(entry).contains(position))
                return entry;
    return std::nullopt;
}

void UntimedStrip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
    const auto grid = grid_.grid();
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    painter.setFont(small);
    painter.setPen(mixed(palette().color(QPalette::Text), palette().color(QPalette::Base), 65));
    const QRect label(2, 2, grid.left - 6, viewport()->height() - 4);
    painter.drawText(label, Qt::AlignRight | Qt::AlignTop | Qt::TextWordWrap,
                     toQString(resources::calendar::withoutStart));
    if (grid.columnWidth(0) >= 84)
        painter.setFont(font());
    for (std::size_t day = 0; day < board_.days().size(); ++day) {
        const auto& untimed = board_.days()[day].untimed;
        for (std::size_t row = 0; row < untimed.size(); ++row) {
            const QRect rect = rowRect(static_cast<int>(day), static_cast<int>(row));
            if (rect.intersects(viewport()->rect()))
                painter_.paintLine(painter, rect, untimed[row], {.selected = board_.isSelected(untimed[row])});
        }
    }
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, viewport()->height() - 1, viewport()->width(), viewport()->height() - 1);
}

bool UntimedStrip::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    if (const auto entry = entryAt(help->pos()))
        QToolTip::showText(help->globalPos(), board_.text(*entry).full, viewport(), chipRect(*entry));
    else
        QToolTip::hideText();
    return true;
}

void UntimedStrip::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->position().toPoint();
    grid_.setFocus(Qt::MouseFocusReason);
    scrolledFrom_.reset();
    if (event->source() != Qt::MouseEventNotSynthesized) {
        scrolledFrom_ = verticalScrollBar()->value();
        longPress_.start();
    }
    const auto entry = entryAt(pressed_);
    if (!entry)
        return board_.selectNone();
    wasSelected_ = board_.isSelected(*entry);
    grid_.goTo(*entry);
    if (event->modifiers().testFlag(Qt::ControlModifier))
        board_.toggle(*entry);
    else if (event->button() == Qt::LeftButton || !wasSelected_)
        board_.selectOnly(*entry);
}

void UntimedStrip::mouseMoveEvent(QMouseEvent* event) {
    const int moved = event->position().toPoint().y() - pressed_.y();
    if (!scrolledFrom_ || std::abs(moved) < QApplication::startDragDistance())
        return;
    longPress_.stop();
    wasSelected_ = false;
    verticalScrollBar()->setValue(*scrolledFrom_ - moved);
}

void UntimedStrip::mouseReleaseEvent(QMouseEvent* event) {
    longPress_.stop();
    const auto entry = entryAt(event->position().toPoint());
    const bool moved = (event->position().toPoint() - pressed_).manhattanLength() >= QApplication::startDragDistance();
    if (event->button() != Qt::LeftButton || !entry || moved || event->modifiers() != Qt::NoModifier)
        return;
    const bool atOnce = board_.workspace().settings().styleFlags.has(app::StyleFlag::secondTapCommand);
    if (atOnce || (wasSelected_ && (isHandheld() || scrolledFrom_)))
        emit activated(board_.entry(*entry).id);
}

void UntimedStrip::mouseDoubleClickEvent(QMouseEvent* event) {
    if (const auto entry = entryAt(event->position().toPoint()))
        emit activated(board_.entry(*entry).id);
}

void UntimedStrip::contextMenuEvent(QContextMenuEvent* event) {
    askForMenu(event->pos());
}

void UntimedStrip::askForMenu(QPoint position) {
    const QPoint place = viewport()->mapToGlobal(position);
    if (entryAt(position))
        emit contextMenuRequested(place);
    else
        emit placeMenuRequested(place, {.day = grid_.dayAt(position.x())});
}

} // namespace hourwright::desktop
