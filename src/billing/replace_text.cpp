#include "billing/replace_text.h"

#include "billing/replace_structure.h"
#include "store/date_walk.h"
#include "store/fields.h"

#include <algorithm>
#include <array>

namespace hourwright::billing {

namespace {

namespace field = store::field;
using platform::ValueType;
using resources::StringId;
using store::DatabaseKind;
using store::ExpenseEntry;
using store::PickList;
using store::ReadResult;
using store::TimeEntry;

struct StructureField {
    DatabaseKind database;
    std::uint16_t field;
};

// Where the texts of one type stand. The clients' own database is apart, since clients are more than a name.
struct ReplaceTarget {
    std::uint16_t field;
    std::u16string TimeEntry::*inEntry;
    std::u16string ExpenseEntry::*inExpense;
    std::optional<PickList> list;
    std::array<std::optional<StructureField>, 2> structure;
};

// In the order of ReplaceType.
constexpr std::array<ReplaceTarget, 10> targets = {{
    {field::client, &TimeEntry::client, &ExpenseEntry::client, {}, {}},
    {field::project,
     &TimeEntry::project,
     &ExpenseEntry::project,
     {},
     {StructureField{DatabaseKind::projects, field::text}}},
    {field::phase, &TimeEntry::phase, nullptr, PickList::phases, {}},
    {field::task,
     &TimeEntry::task,
     nullptr,
     {},
     {StructureField{DatabaseKind::projects, field::task}, StructureField{DatabaseKind::tasks, field::text}}},
    {field::billTo,
     &TimeEntry::billTo,
     &ExpenseEntry::billTo,
     {},
     {StructureField{DatabaseKind::contacts, field::text}}},
    {field::currency, &TimeEntry::currency, &ExpenseEntry::currency, PickList::currencies, {}},
    {field::custom1, &TimeEntry::custom1, &ExpenseEntry::custom1, PickList::custom1, {}},
    {field::custom2, &TimeEntry::custom2, &ExpenseEntry::custom2, PickList::custom2, {}},
    {field::custom3, &TimeEntry::custom3, nullptr, PickList::custom3, {}},
    {field::category, nullptr, &ExpenseEntry::category, PickList::categories, {}},
}};

const ReplaceTarget& targetOf(ReplaceType type) {
    return targets[static_cast<std::size_t>(type)];
}

// Counts the steps for the caller who wants to know.
class Steps {
public:
    Steps(const ReplaceProgress& progress, std::size_t total) : progress_(progress), total_(total) { report(); }

    void step() {
        ++done_;
        report();
    }
    void finish() {
        done_ = total_;
        report();
    }

private:
    void report() const {
        if (progress_)
            progress_(done_, total_);
    }

    const ReplaceProgress& progress_;
    std::size_t total_;
    std::size_t done_ = 0;
};

bool holdsText(const platform::PropertyBuffer& properties, std::uint16_t textField, std::u16string_view text) {
    const auto* const value = properties.find({textField, ValueType::text});
    return value != nullptr && value->text == text;
}

// Nothing when it failed; else the number of entries rewritten.
std::optional<std::size_t> replaceInEntries(const Renaming& renaming, const ReplaceTarget& target, Steps& steps) {
    if (target.inEntry == nullptr)
        return 0;
    store::RecordStore& entries = renaming.stores.entries();
    const std::array wanted = {platform::PropertyId{target.field, ValueType::text}};
    store::DateWalk walk(entries, {}, wanted);
    TimeEntry entry;
    std::size_t replaced = 0;
    ReadResult result = ReadResult::ok;
    while ((result = walk.next()) == ReadResult::ok) {
        if (holdsText(walk.properties(), target.field, renaming.from)) {
            if (readTimeEntry(entries, entry) != ReadResult::ok)
                return std::nullopt;
            entry.*target.inEntry = renaming.to;
            entry.modified = renaming.now;
            if (!updateTimeEntry(renaming.transaction, entries, entry))
                return std::nullopt;
            ++replaced;
        }
        steps.step();
    }
    return result == ReadResult::noMore ? std::optional(replaced) : std::nullopt;
}

std::optional<std::size_t> replaceInExpenses(const Renaming& renaming, const ReplaceTarget& target) {
    if (target.inExpense == nullptr)
        return 0;
    store::RecordStore& expenses = renaming.stores.expenses();
    store::DateWalk walk(expenses, {}, {}, {{target.field, std::u16string(renaming.from)}});
    ExpenseEntry expense;
    std::size_t replaced = 0;
    ReadResult result = ReadResult::ok;
    while ((result = walk.next(expense)) == ReadResult::ok) {
        expense.*target.inExpense = renaming.to;
        expense.modified = renaming.now;
        if (!updateExpenseEntry(renaming.transaction, expenses, expense))
            return std::nullopt;
        ++replaced;
    }
    return result == ReadResult::noMore ? std::optional(replaced) : std::nullopt;
}

bool replaceInLists(const Renaming& renaming, const ReplaceTarget& target) {
    for (const auto& place : target.structure)
        if (place && !renameInStructure(renaming, place->database, place->field))
            return false;
    if (target.inEntry == &TimeEntry::client && !renameClient(renaming))
        return false;
    return !target.list || renameInPickList(renaming, *target.list);
}

} // namespace

std::optional<StringId> checkReplace(const ReplaceRequest& request) {
    if (request.find.empty())
        return StringId::replaceFindMissing;
    if (request.replacement.empty())
        return StringId::replaceWithMissing;
    return std::nullopt;
}

std::optional<ReplaceCounts> replaceText(platform::Transaction& transaction, store::Stores& stores,
                                         const ReplaceRequest& request, platform::FileTime now,
                                         const ReplaceProgress& progress) {
    const ReplaceTarget& target = targetOf(request.type);
    const Renaming renaming{transaction, stores, request.find, request.replacement, now};
    Steps steps(progress, static_cast<std::size_t>(stores.entries().recordCount()) + 1);
    const auto entries = replaceInEntries(renaming, target, steps);
    if (!entries)
        return std::nullopt;
    const auto expenses = replaceInExpenses(renaming, target);
    if (!expenses || !replaceInLists(renaming, target))
        return std::nullopt;
    steps.finish();
    return ReplaceCounts{.entries = *entries, .expenses = *expenses};
}

} // namespace hourwright::billing
