#include "desktop/calendar/block_painter.h"

#include "desktop/icons.h"
#include "desktop/status_look.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>

namespace hourwright::desktop {

namespace {

constexpr int barWidth = 4;
constexpr int narrowWidth = 84;

QPalette palette() {
    return QApplication::palette();
}

QString elided(const QPainter& painter, const QString& text, int width) {
    return painter.fontMetrics().elidedText(text, Qt::ElideRight, width);
}

QString joined(const QString& a, const QString& b, const QString& separator) {
    return a.isEmpty() || b.isEmpty() ? a + b : a + separator + b;
}

} // namespace

QColor mixed(const QColor& first, const QColor& second, int share) {
    const auto mix = [share](int a, int b) { return (a * share + b * (100 - share)) / 100; };
    return {mix(first.red(), second.red()), mix(first.green(), second.green()), mix(first.blue(), second.blue())};
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < 128;
}

QColor BlockPainter::colour(store::EntryStatus status) const {
    return statusFill(status, board_.workspace().display());
}

void BlockPainter::fill(QPainter& painter, const QRect& rect, std::size_t index, const BlockState& state) {
    const QPalette colours = palette();
    const QColor status = colour(board_.entry(index).status);
    const QColor base = colours.color(QPalette::Base);
    QColor ground =
        state.selected ? colours.color(QPalette::Highlight) : mixed(status, base, isDark(colours) ? 34 : 20);
    painter.save();
    if (state.ghost)
        painter.setOpacity(0.4);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath path;
    path.addRoundedRect(QRectF(rect), 4, 4);
    if (state.pastMidnight)
        path.addRect(QRectF(rect.left(), rect.bottom() - 5, rect.width(), 6));
    path.setFillRule(Qt::WindingFill);
    painter.setClipPath(path, Qt::IntersectClip);
    painter.fillRect(rect, ground);
    painter.fillRect(QRect(rect.topLeft(), QSize(barWidth, rect.height())), status);
    painter.restore();
}

int BlockPainter::paintIcon(QPainter& painter, const QRect& rect, std::size_t index, const BlockState& state) {
    if (!board_.workspace().display().showStatusIcon)
        return 0;
    const int side = std::min(rect.height(), painter.fontMetrics().height());
    const store::TimeEntry& entry = board_.entry(index);
    const bool note = !entry.note.empty();
    QPixmap& pixmap = icons_[{static_cast<int>(entry.status), note, state.selected, side}];
    const qreal ratio = painter.device()->devicePixelRatioF();
    if (pixmap.isNull() || pixmap.devicePixelRatio() != ratio) {
        const auto mode = state.selected ? QIcon::Selected : QIcon::Normal;
        pixmap = statusIcon(entry.status, note).pixmap(QSize(side, side) * ratio, 1.0, mode);
        pixmap.setDevicePixelRatio(ratio);
    }
    painter.drawPixmap(rect.left(), rect.top(), pixmap);
    return side + 3;
}

void BlockPainter::paintLine(QPainter& painter, const QRect& rect, std::size_t index, const BlockState& state) {
    fill(painter, rect, index, state);
    QRect inner = rect.adjusted(barWidth + 2, 0, -2, 0);
    const int line = painter.fontMetrics().height();
    const QRect text(inner.left(), inner.top() + (inner.height() - line) / 2, inner.width(), line);
    const BlockText& texts = board_.text(index);
    painter.setPen(palette().color(state.selected ? QPalette::HighlightedText : QPalette::Text));
    const int icon = inner.width() >= 24 ? paintIcon(painter, text, index, state) : 0;
    const QRect rest = text.adjusted(icon, 0, 0, 0);
    const bool narrow = rect.width() < narrowWidth;
    const QString name = joined(texts.title, texts.detail, " · ");
    const QString shown = narrow ? texts.initials : joined(texts.start, name, " ");
    painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, elided(painter, shown, rest.width()));
}

// Icon and start, the initials below: what fits into a column as wide as a finger.
void BlockPainter::paintNarrow(QPainter& painter, QRect rect, std::size_t index, const BlockState& state) {
    const int line = painter.fontMetrics().height();
    const BlockText& texts = board_.text(index);
    const int icon = paintIcon(painter, rect, index, state);
    const QRect beside = rect.adjusted(icon, 0, 0, 0);
    const auto fits = [&](const QString& text, const QRect& place) {
        return painter.fontMetrics().horizontalAdvance(text) <= place.width();
    };
    // Without "AM" or "PM" before it would be cut; where it stands says which.
    const QString start = fits(texts.start, rect) ? texts.start : texts.start.section(' ', 0, 0);
    const bool room = fits(start, beside);
    QStringList lines;
    if (!start.isEmpty() && !room)
        lines.append(start);
    lines.append(texts.initials);
    if (room || fits(texts.initials, beside)) {
        const QString first = room && !start.isEmpty() ? start : lines.takeLast();
        painter.drawText(QRect(beside.left(), rect.top(), beside.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
                         first);
    }
    int top = rect.top() + line;
    for (const QString& text : lines) {
        if (top + line > rect.bottom() + 3)
            return;
        painter.drawText(QRect(rect.left(), top, rect.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
                         elided(painter, text, rect.width() + 4));
        top += line;
    }
}

void BlockPainter::paint(QPainter& painter, const QRect& rect, std::size_t index, const BlockState& state) {
    const int line = painter.fontMetrics().height();
    if (rect.height() < 2 * line)
        return paintLine(painter, rect, index, state);
    fill(painter, rect, index, state);
    painter.setPen(palette().color(state.selected ? QPalette::HighlightedText : QPalette::Text));
    const QRect inner = rect.adjusted(barWidth + 2, 2, -2, -2);
    if (rect.width() < narrowWidth)
        return paintNarrow(painter, inner, index, state);
    const BlockText& texts = board_.text(index);
    const int icon = paintIcon(painter, QRect(inner.topLeft(), QSize(line, line)), index, state);
    const QFont plain = painter.font();
    QFont bold = plain;
    bold.setBold(true);
    QStringList lines{texts.title, texts.detail, texts.time};
    if (inner.height() < 3 * line)
        lines = {texts.title, joined(texts.time, texts.detail, " · ")};
    lines.removeAll(QString());
    int top = inner.top();
    for (int i = 0; i < lines.size() && top + line <= inner.bottom() + 3; ++i, top += line) {
        const int indent = i == 0 ? icon : 0;
        painter.setFont(i == 0 ? bold : plain);
        painter.drawText(QRect(inner.left() + indent, top, inner.width() - indent, line),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         elided(painter, lines[i], inner.width() - indent));
    }
    painter.setFont(plain);
}

} // namespace hourwright::desktop
