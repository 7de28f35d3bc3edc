#pragma once

#include "app/list_record.h"

#include <unordered_map>
#include <utility>

namespace hourwright::app {

/// Records that were shown lately; painting asks for the cells of one row after the other. The last ones that were read
/// stay, so that what is on the screen can be painted anew while another connection holds the store.
template<typename Record>
class RecordCache {
public:
    explicit RecordCache(store::RecordStore& store) : store_(store) {}

    /// The record with this id; an empty one when there is none. Valid until the next call.
    const Record& read(store::RecordId id) {
        if (const auto found = recent_.find(id); found != recent_.end())
            return found->second;
        if (recent_.size() >= kept) {
            older_ = std::move(recent_);
            recent_.clear();
        }
        if (auto found = older_.extract(id); !found.empty())
            return recent_.insert(std::move(found)).position->second;
        Record record;
        if (!fetch(id, record) && store_.lastError() != platform::PlatformError::noMoreItems)
            return none_;
        return recent_.emplace(id, std::move(record)).first->second;
    }

private:
    static constexpr std::size_t kept = 256;

    bool fetch(store::RecordId id, Record& record) {
        if (store_.seek(platform::Seek::toId(id)) != store::RecordId::none &&
            ListRecord<Record>::read(store_, record) == store::ReadResult::ok)
            return true;
        record = Record{};
        return false;
    }

    store::RecordStore& store_;
    std::unordered_map<store::RecordId, Record> recent_;
    std::unordered_map<store::RecordId, Record> older_;
    const Record none_;
};

} // namespace hourwright::app
