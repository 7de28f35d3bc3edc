#include "desktop/calendar/month_grid.h"
#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/calendar.h"

#include <QLocale>
#include <QPaintEvent>
#include <QPainter>
#include <QTextOption>

namespace hourwright::desktop {

using platform::toQString;

namespace {

constexpr int daysInWeek = 7;
constexpr int narrowCell = 84;

} // namespace

int MonthGrid::headingHeight() const {
    return fontMetrics().height() + 8;
}

int MonthGrid::lineHeight() const {
    return fontMetrics().height() + 3;
}

QRect MonthGrid::cellRect(int day) const {
    const int weeks = std::max(1, static_cast<int>(board_.days().size()) / daysInWeek);
    const int column = day % daysInWeek;
    const int row = day / daysInWeek;
    const int room = height() - headingHeight();
    const QPoint topLeft(width() * column / daysInWeek, headingHeight() + room * row / weeks);
    const QPoint next(width() * (column + 1) / daysInWeek, headingHeight() + room * (row + 1) / weeks);
    return {topLeft, next - QPoint(1, 1)};
}

QRect MonthGrid::rowRect(int day, int row) const {
    const QRect cell = cellRect(day);
    return {cell.left() + 4, cell.top() + lineHeight() + 4 + row * lineHeight(), cell.width() - 7, lineHeight() - 1};
}

// As many as fit; when there are more, one line is for their number. The last line is the amount's.
int MonthGrid::rowsIn(int day) const {
    const app::CalendarDay& shown = board_.days()[static_cast<std::size_t>(day)];
    const QRect cell = cellRect(day);
    if (cell.width() < narrowCell)
        return 0;
    const int amount = shown.totals.amounts.empty() ? 0 : 1;
    const int room = (cell.height() - lineHeight() - 6) / lineHeight() - amount;
    const int count = static_cast<int>(shown.totals.items);
    return std::max(0, count <= room ? count : room - 1);
}

void MonthGrid::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Base));
    paintHeading(painter);
    for (int day = 0; day < static_cast<int>(board_.days().size()); ++day)
        if (cellRect(day).intersects(event->rect()))
            paintCell(painter, day);
}

void MonthGrid::paintHeading(QPainter& painter) {
    const QLocale locale(QString::fromStdString(board_.workspace().locale().name()));
    painter.fillRect(QRect(0, 0, width(), headingHeight()), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::WindowText));
    for (int column = 0; column < daysInWeek; ++column) {
        const QRect cell = cellRect(column);
        const int weekday = platform::toQDate(board_.days()[static_cast<std::size_t>(column)].date).dayOfWeek();
        const bool room = cell.width() >= narrowCell;
        painter.drawText(QRect(cell.left(), 0, cell.width(), headingHeight()), Qt::AlignCenter,
                         locale.standaloneDayName(weekday, room ? QLocale::LongFormat : QLocale::ShortFormat));
    }
}

void MonthGrid::paintCell(QPainter& painter, int day) {
    const app::CalendarDay& shown = board_.days()[static_cast<std::size_t>(day)];
    const QRect cell = cellRect(day);
    const QColor base = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    const bool today = platform::toQDate(shown.date) == platform::toQDate(board_.workspace().clock().localTime());
    const bool weekend = shown.date.dayOfWeek == 0 || shown.date.dayOfWeek == 6;
    if (!shown.inPeriod)
        painter.fillRect(cell, palette().color(QPalette::Window));
    else if (weekend)
        painter.fillRect(cell, mixed(text, base, 4));
    painter.setPen(mixed(text, base, 17));
    painter.drawLine(cell.topLeft(), cell.topRight());
    painter.drawLine(cell.topRight(), cell.bottomRight());
    const int line = lineHeight();
    const QString number = QString::number(shown.date.day);
    QRect numberRect(cell.left() + 4, cell.top() + 3, painter.fontMetrics().horizontalAdvance(number) + 10, line - 1);
    if (today) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(numberRect, line / 2.0, line / 2.0);
        painter.setBrush(Qt::NoBrush);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    painter.setPen(today            ? palette().color(QPalette::HighlightedText)
                   : shown.inPeriod ? text
                                    : mixed(text, palette().color(QPalette::Window), 45));
    painter.drawText(numberRect, Qt::AlignCenter, number);
    if (shown.totals.items > 0)
        paintRows(painter, day, shown.entries());
    if (day == day_) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), hasFocus() ? 2 : 1));
        painter.drawRect(cell.adjusted(1, 1, -2, -2));
    }
}

void MonthGrid::paintRows(QPainter& painter, int day, const std::vector<std::size_t>& entries) {
    const app::CalendarDay& shown = board_.days()[static_cast<std::size_t>(day)];
    const QRect cell = cellRect(day);
    const int line = lineHeight();
    const QColor faint = mixed(palette().color(QPalette::Text), palette().color(QPalette::Base), 72);
    const auto& locale = board_.workspace().locale();
    const bool narrow = cell.width() < narrowCell;
    QString hours = toQString(app::hoursText(shown.totals, locale));
    painter.setPen(palette().color(QPalette::Text));
    QFont strong = font();
    strong.setBold(!narrow);
    if (narrow)
        strong.setPointSizeF(strong.pointSizeF() * 0.85);
    painter.setFont(strong);
    const QRect top(cell.left() + 4, cell.top() + 3 + (narrow ? line : 0), cell.width() - 8, line - 1);
    if (painter.fontMetrics().horizontalAdvance(hours) > top.width())
        hours.chop(1);
    painter.drawText(QRectF(top), hours,
                     QTextOption(narrow ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignRight | Qt::AlignVCenter));
    painter.setFont(font());
    if (narrow)
        return paintDots(painter, cell, entries);
    const int rows = rowsIn(day);
    for (int row = 0; row < rows; ++row) {
        const std::size_t entry = entries[static_cast<std::size_t>(row)];
        painter_.paintLine(painter, rowRect(day, row), entry, {.selected = board_.isSelected(entry)});
    }
    painter.setPen(faint);
    const auto rest = entries.size() - static_cast<std::size_t>(rows);
    const QRect below = rowRect(day, rows);
    if (rest > 0 && below.bottom() <= cell.bottom())
        painter.drawText(below, Qt::AlignLeft | Qt::AlignVCenter,
                         toQString(resources::calendar::more).replace("%s", QString::number(rest)));
    const QRect amountRect(cell.left() + 4, cell.bottom() - line, cell.width() - 8, line);
    if (!shown.totals.amounts.empty() && amountRect.top() >= cell.top() + line)
        painter.drawText(amountRect, Qt::AlignRight | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(toQString(app::amountsText(shown.totals, locale)),
                                                          Qt::ElideRight, amountRect.width()));
}

// Where there is no room for words: a mark for each entry in the colour of its status.
void MonthGrid::paintDots(QPainter& painter, const QRect& cell, const std::vector<std::size_t>& entries) {
    constexpr int side = 7;
    QPoint place(cell.left() + 4, cell.top() + 2 * lineHeight() + 6);
    for (const std::size_t entry : entries) {
        if (place.y() + side > cell.bottom())
            return;
        const QRect dot(place, QSize(side, side));
        painter.fillRect(dot, painter_.colour(board_.entry(entry).status));
        if (board_.isSelected(entry))
            painter.drawRect(dot);
        place.rx() += side + 2;
        if (place.x() + side > cell.right() - 2)
            place = QPoint(cell.left() + 4, place.y() + side + 2);
    }
}

} // namespace hourwright::desktop
