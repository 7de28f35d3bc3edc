#include "store/date_walk.h"

#include "store/fields.h"

#include <algorithm>
#include <utility>

namespace hourwright::store {

namespace {

constexpr platform::PropertyId dateProperty{field::date, platform::ValueType::fileTime};

} // namespace

DateWalk::DateWalk(RecordStore& store, const DateRange& range, std::span<const platform::PropertyId> wanted,
                   std::vector<TextCondition> conditions, WalkPurpose purpose)
    : store_(store), range_(range), wanted_(wanted.begin(), wanted.end()), conditions_(std::move(conditions)),
      purpose_(purpose), snapshot_(store.objects().snapshot()) {
    if (wanted_.empty())
        return;
    want(dateProperty);
    for (const TextCondition& condition : conditions_)
        want({condition.field, platform::ValueType::text});
}

void DateWalk::want(platform::PropertyId id) {
    if (std::ranges::find(wanted_, id) == wanted_.end())
        wanted_.push_back(id);
}

RecordId DateWalk::advance() {
    if (started_)
        return store_.seek(platform::Seek::fromCurrent(1));
    started_ = true;
    platform::Seek first =
        range_.after ? platform::Seek::toGreater(platform::PropertyValue::ofFileTime(field::date, *range_.after))
                     : platform::Seek::toBeginning();
    std::vector<platform::PropertyValue> texts;
    for (const TextCondition& condition : conditions_)
        if (!condition.text.empty())
            texts.push_back(platform::PropertyValue::ofText(condition.field, condition.text));
    if (purpose_ == WalkPurpose::reading)
        first.columns = wanted_;
    first.texts = texts;
    return store_.seek(first);
}

// Goes to the next record of the range.
ReadResult DateWalk::readNext() {
    if (advance() == RecordId::none)
        return store_.lastError() == platform::PlatformError::noMoreItems ? ReadResult::noMore : ReadResult::failed;
    const ReadResult result = store_.read(properties_, wanted_);
    if (result != ReadResult::ok || !range_.last)
        return result;
    const platform::PropertyValue* const date = properties_.find(dateProperty);
    return date != nullptr && date->fileTime() <= *range_.last ? ReadResult::ok : ReadResult::noMore;
}

bool DateWalk::meetsConditions() const {
    return std::ranges::all_of(conditions_, [this](const TextCondition& condition) {
        const auto* const value = properties_.find({condition.field, platform::ValueType::text});
        return (value != nullptr ? value->text : std::u16string_view{}) == condition.text;
    });
}

ReadResult DateWalk::next() {
    ReadResult result = ReadResult::ok;
    do
        result = readNext();
    while (result == ReadResult::ok && !meetsConditions());
    return result;
}

ReadResult DateWalk::next(TimeEntry& out) {
    const ReadResult result = next();
    if (result == ReadResult::ok)
        readTimeEntry(id(), properties_, out);
    return result;
}

ReadResult DateWalk::next(ExpenseEntry& out) {
    const ReadResult result = next();
    if (result == ReadResult::ok)
        readExpenseEntry(id(), properties_, out);
    return result;
}

} // namespace hourwright::store
