#include "app/demo/demo_store.h"

#include "store/client_structure.h"
#include "store/fields.h"
#include "store/pick_lists.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <unordered_map>

namespace hourwright::app::demo {
namespace {

using platform::PropertyValue;
using store::RecordId;
using store::RecordStore;
namespace field = store::field;

/// Writes what it takes. The structure is new and its texts are all different, so that nothing is looked up.
class StoreSink : public DemoSink {
public:
    StoreSink(platform::Transaction& transaction, store::Stores& stores, const NoteEncoder& encodeNote,
              platform::FileTime stamp)
        : transaction_(transaction), stores_(stores), encodeNote_(encodeNote), stamp_(stamp) {}

    bool take(const DemoWorld& world) override {
        return std::ranges::all_of(world.clients, [&](const DemoClient& client) { return writeClient(client); }) &&
               writeLists(world);
    }

    bool take(store::TimeEntry& entry, std::u16string_view note) override {
        if (!note.empty())
            entry.note = noteBytes(note);
        return store::insertTimeEntry(transaction_, stores_.entries(), entry);
    }

    bool take(store::ExpenseEntry& expense) override {
        return store::insertExpenseEntry(transaction_, stores_.expenses(), expense);
    }

private:
    bool write(RecordStore& store, std::span<const PropertyValue> properties) {
        return store.write(transaction_, RecordId::none, properties) != RecordId::none;
    }

    bool writeClient(const DemoClient& client) {
        const std::uint32_t id = stores_.allocateClientId(transaction_);
        if (id == 0)
            return false;
        const std::array properties = {PropertyValue::ofUi4(field::clientId, id),
                                       PropertyValue::ofText(field::client, client.name)};
        return write(stores_.clients(), properties) && writeProjects(id, client) &&
               writeNames(stores_.tasks(), id, client.tasks) && writeNames(stores_.contacts(), id, client.contacts) &&
               writeRates(id, client);
    }

    bool writeProjects(std::uint32_t clientId, const DemoClient& client) {
        for (const auto& project : client.projects)
            for (const auto& task : project.tasks) {
                const std::array properties = {PropertyValue::ofUi4(field::clientId, clientId),
                                               PropertyValue::ofText(field::text, project.name),
                                               PropertyValue::ofText(field::task, task)};
                if (!write(stores_.projects(), properties))
                    return false;
            }
        return true;
    }

    bool writeNames(RecordStore& store, std::uint32_t clientId, const std::vector<std::u16string>& names) {
        return std::ranges::all_of(names, [&](const std::u16string& name) {
            const std::array properties = {PropertyValue::ofUi4(field::clientId, clientId),
                                           PropertyValue::ofText(field::text, name)};
            return write(store, properties);
        });
    }

    bool writeRates(std::uint32_t clientId, const DemoClient& client) {
        return std::ranges::all_of(client.rates, [&](const DemoRate& rate) {
            store::RateRecord record{.clientId = clientId,
                                     .type = rate.type,
                                     .description = rate.description,
                                     .rate = rate.hundredths,
                                     .modified = stamp_};
            return store::writeRate(transaction_, stores_, record);
        });
    }

    bool writeLists(const DemoWorld& world) {
        using store::PickList;
        return writeList(PickList::phases, world.phases) && writeList(PickList::currencies, world.currencies) &&
               writeList(PickList::custom1, world.places) && writeList(PickList::custom2, world.orderNumbers) &&
               writeList(PickList::custom3, world.consultants) && writeList(PickList::categories, world.categories) &&
               writeList(PickList::descriptions, world.descriptions);
    }

    bool writeList(store::PickList list, const std::vector<std::u16string>& items) {
        return std::ranges::all_of(items, [&](const std::u16string& text) {
            const std::array properties = {PropertyValue::ofUi2(field::kind, static_cast<std::uint16_t>(list)),
                                           PropertyValue::ofText(field::text, text)};
            return write(stores_.lists(), properties);
        });
    }

    // The same few notes come again and again.
    const std::vector<std::byte>& noteBytes(std::u16string_view text) {
        auto found = notes_.find(text);
        if (found == notes_.end())
            found = notes_.emplace(text, encodeNote_(text)).first;
        return found->second;
    }

    platform::Transaction& transaction_;
    store::Stores& stores_;
    const NoteEncoder& encodeNote_;
    platform::FileTime stamp_; ///< of the rates
    std::unordered_map<std::u16string_view, std::vector<std::byte>> notes_;
};

bool isEmpty(store::Stores& stores) {
    return !stores.holdRecords() && stores.clients().seek(platform::Seek::toBeginning()) == RecordId::none;
}

} // namespace

DemoResult fillWithDemoHistory(store::Stores& stores, const DemoOptions& options, const NoteEncoder& encodeNote) {
    const auto transaction = stores.objects().begin();
    if (!transaction)
        return DemoResult::failed;
    if (!isEmpty(stores))
        return DemoResult::notEmpty;
    const auto stamp = platform::toFileTime(options.lastDay).value_or(platform::FileTime{});
    StoreSink sink(*transaction, stores, encodeNote, stamp);
    const bool made = makeDemoHistory(options, sink);
    return made && transaction->commit() ? DemoResult::done : DemoResult::failed;
}

} // namespace hourwright::app::demo
