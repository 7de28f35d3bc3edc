#include "app/list_rows.h"

#include "app/list_record.h"
#include "resources/texts/periods.h"

#include <algorithm>
#include <array>
#include <deque>
#include <limits>
#include <numeric>
#include <unordered_map>
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

// Records that were shown lately; painting asks for the cells of one row after the other.
template<typename Record>
class RecordCache {
public:
    explicit RecordCache(store::RecordStore& store) : store_(store) {}

    const Record& read(store::RecordId id) {
        Slot& slot = slots_[static_cast<std::size_t>(id) % slots_.size()];
        if (slot.id != id) {
            slot.id = id;
            if (store_.seek(platform::Seek::toId(id)) == store::RecordId::none ||
                ListRecord<Record>::read(store_, slot.record) != store::ReadResult::ok)
                slot.record = Record{};
        }
        return slot.record;
    }

private:
    struct Slot {
        store::RecordId id = store::RecordId::none;
        Record record;
    };

    store::RecordStore& store_;
    std::array<Slot, 256> slots_{};
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
        chooseProperties();
    }

    bool load(std::size_t limit) override {
        if (complete_)
            return false;
        complete_ = !walk(limit);
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

private:
    [[nodiscard]] CellContext context() const { return {locale_, rules_}; }

    void chooseProperties() {
        properties_.assign(Traits::always.begin(), Traits::always.end());
        properties_.emplace_back(Traits::currency, platform::ValueType::text);
        const auto& filter = Traits::filter(query_);
        for (const auto& text : Traits::texts)
            if ((text.wanted != nullptr && !(filter.*text.wanted).empty()) ||
                (by_ != nullptr && (text.text == by_ || text.text == Traits::second)))
                properties_.emplace_back(text.field, platform::ValueType::text);
    }

    // Where the walk goes on: one tick before the last row, whose equals on that instant follow by their ids.
    [[nodiscard]] store::DateRange rest() const {
        store::DateRange range = query_.range;
        if (lastId_ != store::RecordId::none && lastDate_.ticks > 0)
            range.after = FileTime{lastDate_.ticks - 1};
        return range;
    }

    // Adds what passes the filter among so many further records; true when there may be more.
    bool walk(std::size_t limit) {
        store::DateWalk records(store_, rest(), properties_);
        Record record;
        std::size_t seen = 0;
        while (seen < limit) {
            if (records.next(record) != store::ReadResult::ok)
                return false;
            const FileTime stored = storedDate(records);
            if (lastId_ != store::RecordId::none && stored == lastDate_ && record.id <= lastId_)
                continue;
            lastDate_ = stored;
            lastId_ = record.id;
            ++seen;
            if (matcher_.matches(record))
                add(record);
        }
        return true;
    }

    // The date that the store sorts by; that of the record may have an old start time put into it.
    [[nodiscard]] static FileTime storedDate(const store::DateWalk& records) {
        const auto* const date = records.properties().find(dateOfRecord);
        return date != nullptr ? date->fileTime() : FileTime{};
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

    void arrangeRows() {
        std::vector<ArrangeRow> keys;
        keys.reserve(rows_.size());
        for (const Row& row : rows_)
            keys.push_back({groups_[row.group].title, row.date, pool_.text(row.second)});
        reorder(arrangedOrder(keys, locale_));
    }

    // Puts the rows into an order and the groups into that of their first rows.
    void reorder(const std::vector<std::size_t>& order) {
        std::vector<Row> rows;
        rows.reserve(rows_.size());
        std::vector<RowGroup> groups;
        std::uint32_t last = std::numeric_limits<std::uint32_t>::max();
        for (const std::size_t index : order) {
            rows.push_back(rows_[index]);
            if (const std::uint32_t group = std::exchange(last, rows_[index].group); group != last)
                groups.push_back(std::move(groups_[last]));
        }
        rows_ = std::move(rows);
        groups_ = std::move(groups);
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
    const platform::Locale& locale_;
    billing::TimeRules rules_;
    ListQuery query_;
    typename Traits::Matcher matcher_;
    std::u16string Record::*by_ = nullptr;
    std::vector<platform::PropertyId> properties_;
    std::vector<Row> rows_;
    std::vector<RowGroup> groups_;
    ViewTotals totals_;
    TextPool pool_;
    TextPool groupTexts_;
    std::vector<std::uint32_t> groupOfText_;
    std::unordered_map<std::string, std::uint32_t> groupOfKey_;
    FileTime lastDate_{};
    store::RecordId lastId_ = store::RecordId::none;
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
