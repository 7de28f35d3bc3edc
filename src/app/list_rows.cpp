#include "app/list_rows.h"

#include "app/record_cache.h"
#include "app/stepped_walk.h"
#include "platform/remembering_locale.h"
#include "resources/texts/periods.h"

#include <algorithm>
#include <array>
#include <deque>
#include <limits>
#include <map>
#include <numeric>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace hourwright::app {

namespace {

using platform::FileTime;

// Texts that rows have in common, kept once each; an index stands for a text.
class TextPool {
public:
    std::uint32_t indexOf(const std::u16string& text) {
        if (const auto found = indexes_.find(text); found != indexes_.end())
            return found->second;
        const auto index = static_cast<std::uint32_t>(texts_.size());
        indexes_.emplace(texts_.emplace_back(text), index);
        return index;
    }
    [[nodiscard]] const std::u16string& text(std::uint32_t index) const { return texts_[index]; }
    [[nodiscard]] std::size_t size() const { return texts_.size(); }

private:
    std::deque<std::u16string> texts_; // does not move them, since the keys borrow
    std::unordered_map<std::u16string_view, std::uint32_t> indexes_;
};

struct Row {
    store::RecordId id;
    std::uint32_t group;  // of `groups_` while loading
    std::uint32_t second; // of the pool
    FileTime date;
};

template<typename Record>
class RecordSearch final : public RowSearch {
    using Traits = ListRecord<Record>;

public:
    RecordSearch(store::RecordStore& store, const store::DateRange& range, std::span<const Row> rows,
                 const CellContext& context, std::vector<std::size_t> columns,
                 std::function<bool(std::u16string_view)> test)
        : walk_(store, range, properties()), rows_(rows), context_(context), columns_(std::move(columns)),
          test_(std::move(test)) {}

    bool look(std::size_t limit) override {
        const bool more = walk_.go(limit, [this](const Record& record) {
            if (std::ranges::any_of(columns_, [&](std::size_t column) {
                    return test_(Traits::columns()[column].cell(record, context_));
                }))
                matching_.insert(record.id);
        });
        for (std::size_t row = 0; !more && !matching_.empty() && row < rows_.size(); ++row)
            if (matching_.contains(rows_[row].id))
                found_.push_back(row);
        return more;
    }

    [[nodiscard]] const std::vector<std::size_t>& found() const override { return found_; }

private:
    [[nodiscard]] static std::vector<platform::PropertyId> properties() {
        auto properties = propertiesOf<Record>([](const auto& /*text*/) { return true; });
        properties.insert(properties.end(), Traits::shown.begin(), Traits::shown.end());
        return properties;
    }

    SteppedWalk<Record> walk_;
    std::span<const Row> rows_;
    CellContext context_;
    std::vector<std::size_t> columns_;
    std::function<bool(std::u16string_view)> test_;
    std::unordered_set<store::RecordId> matching_; // whatever the filter says; the rows have passed it
    std::vector<std::size_t> found_;
};

template<typename Record>
class RecordRows final : public ListRows {
    using Traits = ListRecord<Record>;

public:
    RecordRows(store::Stores& stores, const platform::Locale& locale, const billing::TimeRules& rules,
               const ListQuery& query)
        : store_(stores.objects(), Traits::database), cache_(store_), locale_(locale), rules_(rules), query_(query),
          matcher_(Traits::filter(query), locale) {
        if (query.arrangedBy < Traits::arrangements().size())
            by_ = Traits::arrangements()[query.arrangedBy].by;
        // A position of its own, so that rows can be read while others walk.
        complete_ = !store_.open();
        walk_.emplace(store_, query_.range, properties());
    }

    bool load(std::size_t limit) override {
        if (complete_)
            return false;
        complete_ = !walk_->go(limit, [this](const Record& record) {
            if (matcher_.matches(record))
                add(record);
        });
        if (complete_)
            finish();
        return !complete_;
    }

    [[nodiscard]] std::size_t size() const override { return rows_.size(); }
    [[nodiscard]] store::RecordId id(std::size_t row) const override { return rows_[row].id; }
    [[nodiscard]] const ViewTotals& totals() const override { return totals_; }
    [[nodiscard]] const std::vector<RowGroup>& groups() const override { return groups_; }

    [[nodiscard]] std::size_t columnCount() const override { return Traits::columns().size(); }
    [[nodiscard]] ColumnLook column(std::size_t column) const override {
        const auto& look = Traits::columns()[column];
        return {look.name, look.title, look.width, look.alignRight};
    }
    [[nodiscard]] std::u16string cell(std::size_t row, std::size_t column) override {
        const Record& record = cache_.read(rows_[row].id);
        return record.id == store::RecordId::none || column >= columnCount()
                   ? std::u16string()
                   : Traits::columns()[column].cell(record, context());
    }
    [[nodiscard]] RowImage image(std::size_t row) override { return getRowImage(cache_.read(rows_[row].id)); }
    [[nodiscard]] store::EntryStatus status(std::size_t row) override { return cache_.read(rows_[row].id).status; }
    [[nodiscard]] SimpleRow simpleRow(std::size_t row, const DisplaySettings& display) override {
        const Record& record = cache_.read(rows_[row].id);
        return record.id == store::RecordId::none ? SimpleRow() : Traits::simpleRow(record, context(), display);
    }

    [[nodiscard]] std::unique_ptr<RowSearch> search(std::vector<std::size_t> columns,
                                                    std::function<bool(std::u16string_view)> test) override {
        std::erase_if(columns, [this](std::size_t column) { return column >= columnCount(); });
        return std::make_unique<RecordSearch<Record>>(store_, query_.range, rows_, context(), std::move(columns),
                                                      std::move(test));
    }

private:
    [[nodiscard]] CellContext context() const { return {locale_, rules_}; }

    [[nodiscard]] std::vector<platform::PropertyId> properties() const {
        return propertiesOf<Record>([&](const auto& text) {
            const bool filtered = text.wanted != nullptr && !(Traits::filter(query_).*text.wanted).empty();
            return filtered || (by_ != nullptr && (text.text == by_ || text.text == Traits::second));
        });
    }

    void add(const Record& record) {
        const std::uint32_t group = by_ != nullptr ? groupOf(record.*by_) : groupOf(record.date);
        const std::uint32_t second = by_ != nullptr ? pool_.indexOf(record.*Traits::second) : 0;
        rows_.push_back({record.id, group, second, record.date});
        Traits::add(totals_, record, rules_);
        ++groups_[group].count;
        Traits::add(groups_[group].totals, record, rules_);
    }

    std::uint32_t groupOf(FileTime date) {
        const FileTime day{date.ticks - date.ticks % platform::ticksPerDay};
        if (groups_.empty() || groups_.back().day != day)
            groups_.push_back({.title = dateCell(day, context()), .day = day});
        return static_cast<std::uint32_t>(groups_.size() - 1);
    }

    // Texts that the locale counts as equal are one group.
    std::uint32_t groupOf(const std::u16string& text) {
        const std::uint32_t index = groupTexts_.indexOf(text);
        if (index < groupOfText_.size())
            return groupOfText_[index];
        const auto next = static_cast<std::uint32_t>(groups_.size());
        const auto [found, isNew] = groupOfKey_.emplace(locale_.collationKey(text), next);
        if (isNew)
            groups_.push_back({.title = text, .day = std::nullopt});
        groupOfText_.push_back(found->second);
        return found->second;
    }

    void finish() {
        if (by_ != nullptr)
            arrangeRows();
        if (query_.groupsDescending)
            reverseGroups();
        std::size_t first = 0;
        for (RowGroup& group : groups_) {
            group.first = first;
            first += group.count;
        }
    }

    // The groups in the order of their keys, the rows in that of their groups, dates and second texts. The walk has
    // brought them by date already, so that they are dealt out to their groups and hardly ever sorted.
    void arrangeRows() {
        std::vector<RowGroup> groups;
        std::vector<std::size_t> ends(groups_.size());
        std::size_t end = 0;
        for (const auto& [key, group] : groupOfKey_) {
            ends[group] = end;
            end += groups_[group].count;
            groups.push_back(std::move(groups_[group]));
        }
        std::vector<Row> rows(rows_.size());
        for (const Row& row : rows_)
            rows[ends[row.group]++] = row;
        rows_ = std::move(rows);
        groups_ = std::move(groups);
        std::span rest(rows_);
        for (const RowGroup& group : groups_) {
            const auto inGroup = rest.first(group.count);
            const auto isBefore = [this](const Row& a, const Row& b) { return this->isBefore(a, b); };
            if (!std::ranges::is_sorted(inGroup, isBefore))
                std::ranges::stable_sort(inGroup, isBefore);
            rest = rest.subspan(group.count);
        }
    }

    [[nodiscard]] bool isBefore(const Row& a, const Row& b) const {
        if (a.date != b.date || a.second == b.second)
            return a.date < b.date;
        return std::is_lt(locale_.compare(pool_.text(a.second), pool_.text(b.second)));
    }

    void reverseGroups() {
        std::vector<Row> rows;
        rows.reserve(rows_.size());
        std::size_t end = rows_.size();
        for (std::size_t i = groups_.size(); i-- > 0;) {
            const std::size_t first = end - groups_[i].count;
            rows.insert(rows.end(), rows_.begin() + static_cast<std::ptrdiff_t>(first),
                        rows_.begin() + static_cast<std::ptrdiff_t>(end));
            end = first;
        }
        rows_ = std::move(rows);
        std::ranges::reverse(groups_);
    }

    store::RecordStore store_;
    RecordCache<Record> cache_;
    platform::RememberingLocale locale_;
    billing::TimeRules rules_;
    ListQuery query_;
    typename Traits::Matcher matcher_;
    std::u16string Record::*by_ = nullptr;
    std::optional<SteppedWalk<Record>> walk_;
    std::vector<Row> rows_;
    std::vector<RowGroup> groups_;
    ViewTotals totals_;
    TextPool pool_;
    TextPool groupTexts_;
    std::vector<std::uint32_t> groupOfText_;
    std::map<std::string, std::uint32_t> groupOfKey_;
    bool complete_ = false;
};

template<typename Choices>
std::optional<std::uint16_t> placeIn(const Choices& choices, std::string_view name) {
    const auto found = std::ranges::find(choices, name, [](const auto& choice) { return choice.name; });
    return found == choices.end() ? std::nullopt : std::optional(static_cast<std::uint16_t>(found - choices.begin()));
}

std::u16string withoutBreaks(std::u16string text) {
    for (char16_t& unit : text)
        if (unit == u'\t' || unit == u'\n' || unit == u'\r')
            unit = u' ';
    return text;
}

} // namespace

void ListRows::loadAll() {
    while (load(std::numeric_limits<std::size_t>::max())) {
    }
}

std::unique_ptr<ListRows> makeListRows(store::Stores& stores, const platform::Locale& locale,
                                       const billing::TimeRules& rules, const ListQuery& query) {
    if (query.records == RecordKind::entries)
        return std::make_unique<RecordRows<store::TimeEntry>>(stores, locale, rules, query);
    return std::make_unique<RecordRows<store::ExpenseEntry>>(stores, locale, rules, query);
}

std::u16string groupText(const RowGroup& group, TreeOptions options, RecordKind records,
                         const platform::Locale& locale) {
    std::vector<std::u16string> parts;
    if (options.has(TreeOption::itemCounts)) {
        std::u16string items(group.count == 1 ? resources::periods::oneItem.text : resources::periods::items.text);
        if (const auto place = items.find(u"%d"); place != std::u16string::npos) {
            const std::string count = std::to_string(group.count);
            items.replace(place, 2, std::u16string(count.begin(), count.end()));
        }
        parts.push_back(std::move(items));
    }
    if (options.has(TreeOption::hours) && records == RecordKind::entries)
        parts.push_back(hoursText(group.totals, locale));
    if (options.has(TreeOption::amounts) && !group.totals.amounts.empty())
        parts.push_back(amountsText(group.totals, locale));
    std::u16string text;
    for (const std::u16string& part : parts)
        text += (text.empty() ? u"" : u" · ") + part;
    return text;
}

std::optional<std::uint16_t> arrangementOf(RecordKind records, std::string_view columnName) {
    const std::string_view name = columnName == "date" ? "default" : columnName;
    return records == RecordKind::entries ? placeIn(entryArrangements, name) : placeIn(expenseArrangements, name);
}

std::u16string copiedText(ListRows& rows, std::span<const std::size_t> positions, std::span<const std::size_t> columns,
                          std::span<const std::u16string> titles) {
    std::u16string text;
    const auto addLine = [&](const auto& cell) {
        for (std::size_t i = 0; i < columns.size(); ++i)
            text += (i == 0 ? u"" : u"\t") + withoutBreaks(cell(columns[i]));
        text += u'\n';
    };
    if (positions.size() > 1)
        addLine([&](std::size_t column) { return column < titles.size() ? titles[column] : std::u16string(); });
    for (const std::size_t row : positions)
        addLine([&](std::size_t column) { return rows.cell(row, column); });
    return text;
}

} // namespace hourwright::app
