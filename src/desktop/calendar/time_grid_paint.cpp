#include "desktop/calendar/time_grid.h"
#include "desktop/screen_size.h"
#include "platform/calendar.h"
#include "platform/qt/qt_text.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

namespace hourwright::desktop {

namespace {

using platform::toQString;

constexpr int startOfWork = 8 * 60;
constexpr int endOfWork = 18 * 60;
const QColor nowColour(0xdb, 0x44, 0x37);

} // namespace

void TimeGrid::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    paintGround(painter, event->rect());
    paintHours(painter, event->rect());
    paintBlocks(painter, event->rect());
    paintNow(painter);
    paintCursor(painter);
    paintDrag(painter);
}

// Hours that are seldom worked are shaded, today has a breath of the highlight.
void TimeGrid::paintGround(QPainter& painter, const QRect& exposed) {
    const QColor base = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    painter.fillRect(exposed, base);
    const auto today = board_.calendar().dayOf(board_.workspace().clock().now());
    const int days = static_cast<int>(board_.days().size());
    for (int day = 0; day < days; ++day) {
        const auto weekday = board_.days()[static_cast<std::size_t>(day)].date.dayOfWeek;
        if (today && static_cast<int>(*today) == day && days > 1)
            painter.fillRect(spanRect(day, {0, app::minutesPerDay}),
                             mixed(palette().color(QPalette::Highlight), base, isDark(palette()) ? 16 : 7));
        else if (days > 1 && (weekday == 0 || weekday == 6))
            painter.fillRect(spanRect(day, {0, app::minutesPerDay}), mixed(text, base, 4));
        QColor shade = text;
        shade.setAlpha(9);
        painter.fillRect(spanRect(day, {0, startOfWork}), shade);
        painter.fillRect(spanRect(day, {endOfWork, app::minutesPerDay}), shade);
    }
}

void TimeGrid::paintHours(QPainter& painter, const QRect& exposed) {
    const QColor base = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    const auto geometry = grid();
    const int offset = verticalScrollBar()->value();
    const int right = viewport()->width();
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * (isHandheld() ? 0.8 : 0.88));
    painter.setFont(small);
    const int line = painter.fontMetrics().height();
    const auto& locale = board_.workspace().locale();
    for (int hour = 0; hour < 24; ++hour) {
        const int y = geometry.yOf(hour * 60) - offset;
        if (y + hourHeight_ < exposed.top() || y - line > exposed.bottom())
            continue;
        painter.setPen(mixed(text, base, 17));
        painter.drawLine(geometry.left - 4, y, right, y);
        painter.setPen(mixed(text, base, 8));
        painter.drawLine(geometry.left, y + hourHeight_ / 2, right, y + hourHeight_ / 2);
        painter.setPen(mixed(text, base, 65));
        const platform::SystemTime time{
            .year = 2000, .month = 1, .day = 1, .hour = static_cast<std::uint16_t>(hour), .minute = 0};
        if (hour > 0)
            painter.drawText(QRect(0, y - line / 2, geometry.left - 6, line), Qt::AlignRight | Qt::AlignVCenter,
                             toQString(app::shortTime(time, locale)));
    }
    painter.setPen(mixed(text, base, 17));
    for (int day = 0; day < geometry.columns; ++day)
        painter.drawLine(geometry.columnLeft(day), exposed.top(), geometry.columnLeft(day), exposed.bottom());
    painter.setFont(font());
}

void TimeGrid::paintBlocks(QPainter& painter, const QRect& exposed) {
    const bool narrow = grid().columnWidth(0) < 84;
    if (narrow) {
        QFont small = font();
        small.setPointSizeF(small.pointSizeF() * 0.85);
        painter.setFont(small);
    }
    for (const app::CalendarDay& day : board_.days())
        for (const app::TimeBlock& block : day.blocks) {
            const QRect rect = blockRect(block.entry);
            if (!rect.intersects(exposed))
                continue;
            const bool ghost = drag_ && hit_ && hit_->entry == block.entry;
            painter_.paint(painter, rect, block.entry,
                           {.selected = board_.isSelected(block.entry) && !ghost,
                            .pastMidnight = block.pastMidnight,
                            .ghost = ghost});
        }
    painter.setFont(font());
}

void TimeGrid::paintNow(QPainter& painter) {
    const auto now = board_.workspace().clock().localTime();
    const auto today = board_.calendar().dayOf(board_.workspace().clock().now());
    if (!today)
        return;
    const int minute = now.hour * 60 + now.minute;
    const QRect line = spanRect(static_cast<int>(*today), {minute, minute});
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(nowColour, 2));
    painter.drawLine(line.left(), line.top(), line.left() + line.width(), line.top());
    painter.setBrush(nowColour);
    painter.drawEllipse(QPoint(line.left(), line.top()), 3, 3);
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void TimeGrid::paintCursor(QPainter& painter) {
    const QColor highlight = palette().color(QPalette::Highlight);
    if (mark_) {
        QColor ground = highlight;
        ground.setAlpha(70);
        painter.fillRect(spanRect(mark_->day, mark_->span), ground);
    }
    if (!hasFocus() || !cursorShown_ || stop_.span.start < 0)
        return;
    const QRect rect = stop_.entry ? blockRect(*stop_.entry) : spanRect(day_, stop_.span);
    painter.setPen(QPen(stop_.entry ? palette().color(QPalette::Text) : highlight, 2));
    painter.drawRect(rect.adjusted(1, 1, -1, -1));
}

// The times that letting go would give, as the stored hours make them.
void TimeGrid::paintDrag(QPainter& painter) {
    if (!drag_)
        return;
    const app::DayTimes& times = drag_->times();
    const QRect rect = spanRect(times.day, times.span).adjusted(1, 0, -2, -1);
    const QColor highlight = palette().color(QPalette::Highlight);
    QColor ground = highlight;
    ground.setAlpha(110);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(highlight, 2));
    painter.setBrush(ground);
    painter.drawRoundedRect(rect, 4, 4);
    const auto place = app::placeOf(drag_->kind(), times, board_.days().front().date);
    const auto& locale = board_.workspace().locale();
    const QString text =
        hit_ && hit_->entry
            ? board_.preview(*hit_->entry, place)
            : toQString(locale.timeWithoutSeconds(*place.start) + u" – " + locale.timeWithoutSeconds(*place.end));
    const QSize size(painter.fontMetrics().horizontalAdvance(text) + 12, painter.fontMetrics().height() + 6);
    QRect label(QPoint(rect.left() + 4, rect.top() + 4), size);
    if (label.width() > rect.width() - 8 || label.height() > rect.height())
        label.moveTo(rect.left(), rect.bottom() + 6);
    label.moveRight(std::min(label.right(), viewport()->width() - 2));
    if (label.bottom() > viewport()->height() - 2)
        label.moveBottom(rect.top() - 6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::ToolTipBase));
    painter.drawRoundedRect(label, 4, 4);
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawText(label, Qt::AlignCenter, text);
}

} // namespace hourwright::desktop
