#include "store/upgrade.h"

#include "store/date_walk.h"
#include "store/fields.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace hourwright::store {

using platform::PlatformError;

namespace {

constexpr std::array<platform::PropertyId, 3> oldProperties = {{{field::oldBillable, platform::ValueType::boolean},
                                                                {field::oldBilled, platform::ValueType::boolean},
                                                                {field::oldStart, platform::ValueType::fileTime}}};

bool isOfEarlierVersion(const platform::PropertyBuffer& properties) {
    return std::ranges::any_of(oldProperties, [&](platform::PropertyId id) { return properties.find(id) != nullptr; });
}

// The flags are those of the user's changes, and this is none.
bool rewrite(platform::Transaction& transaction, RecordStore& store, TimeEntry entry) {
    const std::uint16_t flags = std::exchange(entry.flags, std::uint16_t{0});
    return updateTimeEntry(transaction, store, entry, flags);
}

PlatformError errorOf(Stores& stores) {
    const PlatformError error = stores.entries().lastError();
    return error == PlatformError::none ? stores.objects().lastError() : error;
}

} // namespace

bool needsUpgrade(Stores& stores) {
    DateWalk walk(stores.entries(), {}, oldProperties);
    while (walk.next() == ReadResult::ok)
        if (isOfEarlierVersion(walk.properties()))
            return true;
    return false;
}

PlatformError upgradeRecords(Stores& stores) {
    const auto transaction = stores.objects().begin();
    if (!transaction)
        return stores.objects().lastError();
    // Found first and rewritten then: a folded start time moves an entry in the order of the walk.
    std::vector<TimeEntry> found;
    {
        DateWalk walk(stores.entries(), {});
        ReadResult result = ReadResult::ok;
        while ((result = walk.next()) == ReadResult::ok)
            if (isOfEarlierVersion(walk.properties()))
                readTimeEntry(walk.id(), walk.properties(), found.emplace_back());
        if (result == ReadResult::failed)
            return errorOf(stores);
    }
    for (const TimeEntry& entry : found)
        if (!rewrite(*transaction, stores.entries(), entry))
            return errorOf(stores);
    return transaction->commit() ? PlatformError::none : stores.objects().lastError();
}

} // namespace hourwright::store
