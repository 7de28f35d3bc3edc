#include "store/date_walk.h"

#include "store/fields.h"

#include <algorithm>

namespace hourwright::store {

namespace {

constexpr platform::PropertyId dateProperty{field::date, platform::ValueType::fileTime};

} // namespace

DateWalk::DateWalk(RecordStore& store, const DateRange& range, std::span<const platform::PropertyId> wanted)
    : store_(store), range_(range), wanted_(wanted.begin(), wanted.end()), snapshot_(store.objects().snapshot()) {
    if (!wanted_.empty() && std::ranges::find(wanted_, dateProperty) == wanted_.end())
        wanted_.push_back(dateProperty);
}

RecordId DateWalk::advance() {
    if (started_)
        return store_.seek(platform::Seek::fromCurrent(1));
    started_ = true;
    platform::Seek first =
        range_.after ? platform::Seek::toGreater(platform::PropertyValue::ofFileTime(field::date, *range_.after))
                     : platform::Seek::toBeginning();
    first.columns = wanted_;
    return store_.seek(first);
}

ReadResult DateWalk::next() {
    if (advance() == RecordId::none)
        return store_.lastError() == platform::PlatformError::noMoreItems ? ReadResult::noMore : ReadResult::failed;
    const ReadResult result = store_.read(properties_, wanted_);
    if (result != ReadResult::ok || !range_.last)
        return result;
    const platform::PropertyValue* const date = properties_.find(dateProperty);
    return date != nullptr && date->fileTime() <= *range_.last ? ReadResult::ok : ReadResult::noMore;
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
