#include "cli/display_width.h"
#include "cli/handlers.h"
#include "cli/json_writer.h"
#include "cli/session.h"
#include "store/pick_lists.h"

#include <array>

namespace hourwright::cli {

namespace {

using store::PickList;

struct NamedList {
    std::string_view name;
    PickList list;
};

constexpr std::array lists{
    NamedList{"phases", PickList::phases},
    NamedList{"currencies", PickList::currencies},
    NamedList{"custom1", PickList::custom1},
    NamedList{"custom2", PickList::custom2},
    NamedList{"custom3", PickList::custom3},
    NamedList{"categories", PickList::categories},
    NamedList{"descriptions", PickList::descriptions},
};

PickList listOf(std::string_view name) {
    for (const NamedList& list : lists)
        if (list.name == name)
            return list.list;
    return PickList::phases; // not reached: the name has been accepted
}

} // namespace

ExitCode picklistShow(Session& session, const Arguments& arguments) {
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto texts = store::pickListTexts(*stores, listOf(arguments.positionals().front()));
    if (!session.json()) {
        for (const std::u16string& text : texts)
            session.out().writeLine(cellText(text));
        return ExitCode::done;
    }
    JsonWriter json(session.out());
    json.beginArray();
    for (const std::u16string& text : texts)
        json.value(std::u16string_view(text));
    json.endArray().finish();
    return ExitCode::done;
}

} // namespace hourwright::cli
