#include "billing/replace_structure.h"

#include "store/entry_types.h"
#include "store/fields.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace hourwright::billing {

namespace {

namespace field = store::field;
using platform::PropertyBuffer;
using platform::PropertyId;
using platform::PropertyValue;
using platform::Seek;
using platform::ValueType;
using store::DatabaseKind;
using store::RecordId;
using store::RecordStore;

// A record of a list or of the client structure. All but the id and the flags tells it from others of its database.
struct Item {
    RecordId id = RecordId::none;
    std::uint64_t client = 0; ///< client id
    std::uint64_t kind = 0;   ///< number of the list, type of the rate
    std::u16string name;      ///< text, description of a rate or name of a client
    std::u16string task;
    std::uint16_t flags = 0;

    [[nodiscard]] bool isSameAs(const Item& other) const {
        return client == other.client && kind == other.kind && name == other.name && task == other.task;
    }
};

Item itemOf(RecordId id, const PropertyBuffer& properties) {
    Item item{.id = id, .name = {}, .task = {}};
    for (const PropertyValue& value : properties.values()) {
        switch (value.id.number()) {
        case field::clientId: item.client = value.number; break;
        case field::kind: item.kind = value.number; break;
        case field::client:
        case field::description:
        case field::text: item.name = value.text; break;
        case field::task: item.task = value.text; break;
        case field::flags: item.flags = static_cast<std::uint16_t>(value.number); break;
        default: break;
        }
    }
    return item;
}

// The items of one database, kept as they are while they are changed one by one.
class ItemTable {
public:
    ItemTable(platform::Transaction& transaction, RecordStore& store) : transaction_(transaction), store_(store) {}

    [[nodiscard]] bool load() {
        const auto snapshot = store_.objects().snapshot();
        PropertyBuffer properties;
        for (RecordId id = store_.seek(Seek::toBeginning()); id != RecordId::none;
             id = store_.seek(Seek::fromCurrent(1))) {
            if (store_.read(properties) != store::ReadResult::ok)
                return false;
            items_.push_back(itemOf(id, properties));
        }
        return store_.lastError() == platform::PlatformError::noMoreItems;
    }

    [[nodiscard]] std::vector<Item>& items() { return items_; }

    /// Gives an item another form by writing the properties, or deletes it when there is one of that form already.
    [[nodiscard]] bool change(Item& item, Item form, std::span<const PropertyValue> properties) {
        const auto isTwin = [&](const Item& other) {
            return other.id != item.id && other.id != RecordId::none && other.isSameAs(form);
        };
        if (std::ranges::any_of(items_, isTwin))
            return remove(item);
        const RecordId id = item.id;
        item = std::move(form);
        return store_.write(transaction_, id, properties) != RecordId::none;
    }

    [[nodiscard]] bool remove(Item& item) {
        const bool deleted = store_.seek(Seek::toId(item.id)) != RecordId::none && store_.deleteCurrent(transaction_);
        item.id = RecordId::none;
        return deleted;
    }

private:
    platform::Transaction& transaction_;
    RecordStore& store_;
    std::vector<Item> items_; // deleted ones have no id
};

// Replaces the text of a field in the items that are meant.
template<typename IsMeant>
bool renameItems(const Renaming& renaming, RecordStore& store, std::uint16_t textField, IsMeant isMeant) {
    const auto text = textField == field::task ? &Item::task : &Item::name;
    ItemTable table(renaming.transaction, store);
    if (!table.load())
        return false;
    const std::array properties = {PropertyValue::ofText(textField, renaming.to)};
    for (Item& item : table.items()) {
        if (item.*text != renaming.from || !isMeant(item))
            continue;
        Item renamed = item;
        renamed.*text = renaming.to;
        if (!table.change(item, std::move(renamed), properties))
            return false;
    }
    return true;
}

// The properties that hand an item to another client. Rates know when they were changed, other items do not.
std::vector<PropertyValue> handOver(const Item& item, DatabaseKind database, std::uint32_t client,
                                    platform::FileTime now) {
    std::vector<PropertyValue> properties{PropertyValue::ofUi4(field::clientId, client)};
    if (database == DatabaseKind::rates) {
        properties.push_back(PropertyValue::ofFileTime(field::stamp, now));
        properties.push_back(
            PropertyValue::ofUi2(field::flags, store::flagsAfterUpdate(item.flags, store::flagsChanged)));
    }
    return properties;
}

bool moveItems(const Renaming& renaming, DatabaseKind database, std::uint64_t from, std::uint64_t to) {
    ItemTable table(renaming.transaction, renaming.stores[database]);
    if (!table.load())
        return false;
    for (Item& item : table.items()) {
        if (item.client != from)
            continue;
        Item moved = item;
        moved.client = to;
        const auto properties = handOver(item, database, static_cast<std::uint32_t>(to), renaming.now);
        if (!table.change(item, std::move(moved), properties))
            return false;
    }
    return true;
}

bool mergeClients(const Renaming& renaming, std::uint64_t from, std::uint64_t into) {
    constexpr std::array children = {DatabaseKind::projects, DatabaseKind::tasks, DatabaseKind::contacts,
                                     DatabaseKind::rates};
    return std::ranges::all_of(children,
                               [&](DatabaseKind database) { return moveItems(renaming, database, from, into); });
}

} // namespace

bool renameInStructure(const Renaming& renaming, DatabaseKind database, std::uint16_t textField) {
    return renameItems(renaming, renaming.stores[database], textField, [](const Item&) { return true; });
}

bool renameInPickList(const Renaming& renaming, store::PickList list) {
    const auto kind = static_cast<std::uint64_t>(list);
    return renameItems(renaming, renaming.stores.lists(), field::text,
                       [kind](const Item& item) { return item.kind == kind; });
}

bool renameClient(const Renaming& renaming) {
    ItemTable clients(renaming.transaction, renaming.stores.clients());
    if (!clients.load())
        return false;
    const std::array name = {PropertyValue::ofText(field::client, renaming.to)};
    for (Item& client : clients.items()) {
        if (client.name != renaming.from)
            continue;
        const auto other = std::ranges::find_if(clients.items(), [&](const Item& item) {
            return item.id != client.id && item.id != RecordId::none && item.name == renaming.to;
        });
        if (other == clients.items().end()) {
            client.name = renaming.to;
            if (renaming.stores.clients().write(renaming.transaction, client.id, name) == RecordId::none)
                return false;
        } else if (!mergeClients(renaming, client.client, other->client) || !clients.remove(client)) {
            return false;
        }
    }
    return true;
}

} // namespace hourwright::billing
