#pragma once

#include "desktop/calendar/calendar_board.h"

#include <QPalette>
#include <QPixmap>
#include <QRect>
#include <map>
#include <tuple>

class QPainter;

namespace hourwright::desktop {

/// How an entry stands in the calendar at the moment.
struct BlockState {
    bool selected = false;
    bool pastMidnight = false;
    bool ghost = false; ///< being dragged from here
};

/// Paints entries as coloured blocks with icon and texts, as much of them as there is room for.
class BlockPainter {
public:
    explicit BlockPainter(CalendarBoard& board) : board_(board) {}

    void paint(QPainter& painter, const QRect& rect, std::size_t index, const BlockState& state);
    /// One line without room for more.
    void paintLine(QPainter& painter, const QRect& rect, std::size_t index, const BlockState& state);
    /// The colour that stands for a status; blocks are filled with a tint of it.
    [[nodiscard]] QColor colour(store::EntryStatus status) const;

    /// Icons are drawn anew: the palette or the display settings are others.
    void forget() { icons_.clear(); }

private:
    void fill(QPainter& painter, const QRect& rect, std::size_t index, const BlockState& state);
    int paintIcon(QPainter& painter, const QRect& rect, std::size_t index, const BlockState& state);
    void paintNarrow(QPainter& painter, QRect rect, std::size_t index, const BlockState& state);

    CalendarBoard& board_;
    std::map<std::tuple<int, bool, bool, int>, QPixmap> icons_;
};

/// A mixture of two colours, `share` of 100 of the first.
[[nodiscard]] QColor mixed(const QColor& first, const QColor& second, int share);
[[nodiscard]] bool isDark(const QPalette& palette);

} // namespace hourwright::desktop
