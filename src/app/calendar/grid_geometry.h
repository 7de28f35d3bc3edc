#pragma once

namespace hourwright::app {

/// Where days and minutes are in a grid with days side by side and hours from top to bottom, in pixels.
struct GridGeometry {
    int left = 0;        ///< of the first day
    int width = 0;       ///< of all days
    int columns = 1;     ///< number of days
    int hourHeight = 48; ///< of an hour

    [[nodiscard]] int columnLeft(int column) const { return left + width * column / columns; }
    [[nodiscard]] int columnWidth(int column) const { return columnLeft(column + 1) - columnLeft(column); }
    /// The day at a place; the nearest one outside of the grid.
    [[nodiscard]] int columnAt(int x) const {
        int column = 0;
        while (column + 1 < columns && columnLeft(column + 1) <= x)
            ++column;
        return column;
    }

    [[nodiscard]] int yOf(int minute) const { return minute * hourHeight / 60; }
    /// The minute that is drawn at a height, outside of the day too.
    [[nodiscard]] int minuteAt(int y) const {
        const int scaled = y * 60;
        return scaled >= 0 ? scaled / hourHeight : -((hourHeight - 1 - scaled) / hourHeight);
    }
    [[nodiscard]] int height() const { return yOf(24 * 60); }
};

} // namespace hourwright::app
