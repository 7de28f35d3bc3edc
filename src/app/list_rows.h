#pragma once

#include "app/display_settings.h"
#include "app/entry_filter.h"
#include "app/expense_filter.h"
#include "app/list_column.h"
#include "app/style_flags.h"
#include "app/view_state.h"
#include "app/view_totals.h"
#include "store/date_walk.h"
#include "store/stores.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::app {

/// Which records a list shows and in which order.
struct ListQuery {
    RecordKind records = RecordKind::entries;
    store::DateRange range;
    EntryFilter entryFilter;
    ExpenseFilter expenseFilter;
    std::uint16_t arrangedBy = 0;
    bool groupsDescending = false; ///< the last group comes first; within it the order is the same
};

/// Consecutive rows that have the arranged text in common or, in the default order, their day.
struct RowGroup {
    std::size_t first = 0;
    std::size_t count = 0;
    std::u16string title;                  ///< the text as the first of them has it, or the short date
    std::optional<platform::FileTime> day; ///< in the default order
    ViewTotals totals;
};

/// What the simple list shows of a record in two lines, each with something on the right.
struct SimpleRow {
    std::u16string title;
    std::u16string titleRight;
    std::u16string detail;
    std::u16string detailRight;

    friend bool operator==(const SimpleRow&, const SimpleRow&) = default;
};

/// The title, width and side of a column.
struct ColumnLook {
    std::string_view name; ///< for scripts; that of the arrangement by it, if there is one
    resources::StringId title;
    std::uint16_t width;
    bool alignRight;
};

/// A search through the records of a list, in steps. It sees the store as it is at each of them.
class RowSearch {
public:
    virtual ~RowSearch() = default;

    /// Looks at so many further records; true while there are more.
    virtual bool look(std::size_t limit) = 0;
    /// Once all were looked at: the positions of the rows that were found, ascending.
    [[nodiscard]] virtual const std::vector<std::size_t>& found() const = 0;
};

/// The rows of a list. Loading remembers of each record only what its place and the totals depend on; what a row shows
/// is read when it is asked for. Rows are addressed by position.
class ListRows {
public:
    virtual ~ListRows() = default;

    /// Loads at most so many further records, or all; true while there are more. Rows of the default order stand in
    /// their places at once, those of other orders when all are loaded.
    virtual bool load(std::size_t limit) = 0;
    void loadAll();

    [[nodiscard]] virtual std::size_t size() const = 0;
    [[nodiscard]] virtual store::RecordId id(std::size_t row) const = 0;
    [[nodiscard]] virtual const ViewTotals& totals() const = 0;
    /// The groups of the rows, once all are loaded.
    [[nodiscard]] virtual const std::vector<RowGroup>& groups() const = 0;

    [[nodiscard]] virtual std::size_t columnCount() const = 0;
    [[nodiscard]] virtual ColumnLook column(std::size_t column) const = 0;
    /// As `cellText`; empty for a record that is no longer there.
    [[nodiscard]] virtual std::u16string cell(std::size_t row, std::size_t column) = 0;
    [[nodiscard]] virtual RowImage image(std::size_t row) = 0;
    [[nodiscard]] virtual store::EntryStatus status(std::size_t row) = 0;
    [[nodiscard]] virtual SimpleRow simpleRow(std::size_t row, const DisplaySettings& display) = 0;

    /// A search for rows that have a cell with a property, in one of these columns. All rows must be loaded; it borrows
    /// them.
    [[nodiscard]] virtual std::unique_ptr<RowSearch> search(std::vector<std::size_t> columns,
                                                            std::function<bool(std::u16string_view)> test) = 0;
};

/// The rows of a query, none loaded yet. It borrows stores, whose state each step sees anew, and locale.
[[nodiscard]] std::unique_ptr<ListRows> makeListRows(store::Stores& stores, const platform::Locale& locale,
                                                     const billing::TimeRules& rules, const ListQuery& query);

/// What the options show of a group: "4 items · 7.50h · 500.00 USD"; hours for time entries only.
[[nodiscard]] std::u16string groupText(const RowGroup& group, TreeOptions options, RecordKind records,
                                       const platform::Locale& locale);

/// The arrangement by a column: that of its name, the default order for the date. Nothing when there is none.
[[nodiscard]] std::optional<std::uint16_t> arrangementOf(RecordKind records, std::string_view columnName);

/// Rows as lines with tabs between the columns; several rows follow a line of titles. Tabs and line breaks of the
/// cells become blanks.
[[nodiscard]] std::u16string copiedText(ListRows& rows, std::span<const std::size_t> positions,
                                        std::span<const std::size_t> columns, std::span<const std::u16string> titles);

} // namespace hourwright::app
