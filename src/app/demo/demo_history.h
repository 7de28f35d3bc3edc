#pragma once

#include "app/demo/demo_world.h"
#include "platform/file_time.h"
#include "store/expense_entry.h"
#include "store/time_entry.h"

#include <cstdint>
#include <string_view>

namespace hourwright::app::demo {

/// The longest history that can be made.
inline constexpr std::uint64_t maxDemoEntries = 100'000'000;

/// What made-up history is wanted.
struct DemoOptions {
    std::uint64_t entries = 0;
    std::uint64_t seed = 1;
    platform::SystemTime lastDay; ///< the history ends on this day
};

/// Where made-up records go. A function that returns false ends the history.
class DemoSink {
public:
    virtual ~DemoSink() = default;

    /// Comes first: all that entries and expenses will refer to.
    virtual bool take(const DemoWorld& world) = 0;
    /// The entry's note is plain text beside it, empty for none; that text stays in memory as long as the program. The
    /// sink may change the record.
    virtual bool take(store::TimeEntry& entry, std::u16string_view note) = 0;
    virtual bool take(store::ExpenseEntry& expense) = 0;
};

/// Makes up a consultant's history: exactly so many entries, and an expense for about every twelfth, each kind in the
/// order of its dates, on working days that end with the last day and reach back for at most twenty years. Many
/// entries are those of several consultants. The same options give the same records on every machine. False when the
/// sink ended it, the last day is no date or so many entries cannot be made.
[[nodiscard]] bool makeDemoHistory(const DemoOptions& options, DemoSink& sink);

} // namespace hourwright::app::demo
