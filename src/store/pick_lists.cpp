#include "store/pick_lists.h"

#include "store/fields.h"

#include <array>

namespace hourwright::store {

using platform::PropertyValue;
using platform::Seek;

namespace {

constexpr std::array textOnly = {platform::PropertyId{field::text, platform::ValueType::text}};

// Calls `visit` with each text of a list until it returns false.
template<typename Visit>
void forEachText(Stores& stores, PickList list, Visit visit) {
    const auto snapshot = stores.objects().snapshot();
    RecordStore& lists = stores.lists();
    const auto key = PropertyValue::ofUi2(field::kind, static_cast<std::uint16_t>(list));
    platform::PropertyBuffer item;
    for (RecordId id = lists.seek(Seek::toFirstEqual(key)); id != RecordId::none;
         id = lists.seek(Seek::toNextEqual(key)))
        if (lists.read(item, textOnly) == ReadResult::ok && !item.values().empty() &&
            !visit(item.values().front().text))
            return;
}

struct ListText {
    PickList list;
    std::u16string_view text;
};

bool addAll(platform::Transaction& transaction, Stores& stores, std::span<const ListText> texts) {
    for (const ListText& item : texts)
        if (!addToPickList(transaction, stores, item.list, item.text))
            return false;
    return true;
}

} // namespace

std::vector<std::u16string> pickListTexts(Stores& stores, PickList list) {
    std::vector<std::u16string> texts;
    forEachText(stores, list, [&texts](std::u16string_view text) {
        texts.emplace_back(text);
        return true;
    });
    return texts;
}

bool addToPickList(platform::Transaction& transaction, Stores& stores, PickList list, std::u16string_view text) {
    text = text.substr(0, text.find(u'\0'));
    if (text.empty())
        return true;
    bool known = false;
    forEachText(stores, list, [&known, text](std::u16string_view item) {
        known = item == text;
        return !known;
    });
    if (known)
        return true;
    const std::array properties = {PropertyValue::ofUi2(field::kind, static_cast<std::uint16_t>(list)),
                                   PropertyValue::ofText(field::text, text)};
    return stores.lists().write(transaction, RecordId::none, properties) != RecordId::none;
}

bool removeFromPickList(platform::Transaction& transaction, Stores& stores, PickList list, std::u16string_view text) {
    RecordStore& lists = stores.lists();
    RecordId found = RecordId::none;
    forEachText(stores, list, [&](std::u16string_view item) {
        if (item == text)
            found = lists.current();
        return found == RecordId::none;
    });
    return found == RecordId::none ||
           (lists.seek(Seek::toId(found)) != RecordId::none && lists.deleteCurrent(transaction));
}

bool learnPickLists(platform::Transaction& transaction, Stores& stores, const TimeEntry& entry) {
    const std::array texts = {ListText{PickList::phases, entry.phase}, ListText{PickList::currencies, entry.currency},
                              ListText{PickList::custom1, entry.custom1}, ListText{PickList::custom2, entry.custom2},
                              ListText{PickList::custom3, entry.custom3}};
    return addAll(transaction, stores, texts);
}

bool learnPickLists(platform::Transaction& transaction, Stores& stores, const ExpenseEntry& expense) {
    const std::array texts = {
        ListText{PickList::currencies, expense.currency}, ListText{PickList::custom1, expense.custom1},
        ListText{PickList::custom2, expense.custom2}, ListText{PickList::categories, expense.category},
        ListText{PickList::descriptions, expense.description}};
    return addAll(transaction, stores, texts);
}

} // namespace hourwright::store
