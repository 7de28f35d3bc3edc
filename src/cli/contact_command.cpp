#include "cli/handlers.h"
#include "cli/structure_arguments.h"
#include "platform/utf.h"
#include "resources/texts/history.h"

namespace hourwright::cli {

ExitCode contactAdd(Session& session, const Arguments& arguments) {
    return addNamed(session, arguments, resources::history::addContact, store::addContact);
}

ExitCode contactDelete(Session& session, const Arguments& arguments) {
    const auto words = arguments.positionals();
    store::Stores* const stores = session.stores();
    const auto client = stores ? clientArgument(session, *stores, words[0]) : std::nullopt;
    if (!client)
        return ExitCode::refused;
    const std::u16string name = platform::toUtf16(words[1]);
    return deleteFound(
        session, *stores, resources::history::deleteContact,
        findNode<store::ContactRecord, billing::ContactNode>(
            *stores, client->clientId, [&](const store::ContactRecord& record) { return record.name == name; }));
}

} // namespace hourwright::cli
