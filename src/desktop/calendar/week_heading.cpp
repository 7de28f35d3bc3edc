#include "desktop/calendar/week_heading.h"

#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/calendar.h"

#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

namespace hourwright::desktop {

using platform::toQString;

namespace {

constexpr int shortHeading = 70;

}

WeekHeading::WeekHeading(CalendarBoard& board, TimeGrid& grid, QWidget* parent)
    : QWidget(parent), board_(board), grid_(grid) {
    setMouseTracking(true);
    setToolTip(toQString(resources::calendar::openDay));
    setCursor(Qt::PointingHandCursor);
}

QSize WeekHeading::sizeHint() const {
    return {200, 2 * fontMetrics().height() + 10};
}

int WeekHeading::dayAt(QPointF position) const {
    return position.x() < grid_.grid().left ? -1 : grid_.grid().columnAt(static_cast<int>(position.x()));
}

void WeekHeading::paintDay(QPainter& painter, const QRect& rect, int day) {
    const app::CalendarDay& column = board_.days()[static_cast<std::size_t>(day)];
    const QLocale locale(QString::fromStdString(board_.workspace().locale().name()));
    const QDate date = platform::toQDate(column.date);
    const bool narrow = rect.width() < shortHeading;
    const bool today = date == platform::toQDate(board_.workspace().clock().localTime());
    const auto group = palette();
    if (day == hovered_)
        painter.fillRect(rect, mixed(group.color(QPalette::Highlight), group.color(QPalette::Window), 15));
    const int line = painter.fontMetrics().height();
    const QString name =
        locale.standaloneDayName(date.dayOfWeek(), narrow ? QLocale::NarrowFormat : QLocale::ShortFormat);
    const QString number = QString::number(date.day());
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(today ? bold : font());
    painter.setPen(group.color(today ? QPalette::Link : QPalette::WindowText));
    painter.drawText(QRect(rect.left(), 4, rect.width(), line), Qt::AlignCenter,
                     board_.days().size() == 1 ? locale.toString(date, QLocale::LongFormat) : name + ' ' + number);
    painter.setFont(font());
    if (column.totals.items == 0)
        return;
    painter.setPen(mixed(group.color(QPalette::WindowText), group.color(QPalette::Window), 70));
    QString hours = toQString(app::hoursText(column.totals, board_.workspace().locale()));
    if (painter.fontMetrics().horizontalAdvance(hours) > rect.width())
        hours.chop(1);
    painter.drawText(QRect(rect.left(), 6 + line, rect.width(), line), Qt::AlignCenter, hours);
}

void WeekHeading::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const auto grid = grid_.grid();
    for (int day = 0; day < grid.columns; ++day)
        paintDay(painter, QRect(grid.columnLeft(day), 0, grid.columnWidth(day), height()), day);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, height() - 1, width(), height() - 1);
}

void WeekHeading::mouseMoveEvent(QMouseEvent* event) {
    hovered_ = dayAt(event->position());
    update();
}

void WeekHeading::leaveEvent(QEvent* /*event*/) {
    hovered_ = -1;
    update();
}

void WeekHeading::mouseReleaseEvent(QMouseEvent* event) {
    const int day = dayAt(event->position());
    if (event->button() == Qt::LeftButton && day >= 0 && rect().contains(event->position().toPoint()))
        emit dayChosen(board_.days()[static_cast<std::size_t>(day)].date);
}

} // namespace hourwright::desktop
