#include "cli/client_tree_output.h"
#include "cli/display_width.h"
#include "cli/handlers.h"
#include "cli/structure_arguments.h"
#include "cli/text_table.h"
#include "resources/texts/history.h"

namespace hourwright::cli {

namespace {

// The trees of all clients, or of the one that is named; nothing, with the message shown, on failure.
std::optional<std::vector<store::ClientTree>> wantedTrees(Session& session, store::Stores& stores,
                                                          const Arguments& arguments) {
    std::optional<std::vector<store::ClientTree>> trees;
    if (arguments.positionals().empty()) {
        trees = store::clientTrees(stores);
    } else {
        const auto client = clientArgument(session, stores, arguments.positionals().front());
        if (!client)
            return std::nullopt;
        if (auto tree = store::clientTree(stores, *client))
            trees = std::vector{std::move(*tree)};
    }
    if (!trees)
        failStructureRead(session, stores);
    return trees;
}

ExitCode addFree(Session& session, platform::Transaction& transaction, store::Stores& stores, std::u16string_view name,
                 std::uint32_t& clientId) {
    const auto known = store::findClient(stores, name);
    if (!known)
        return failStructureRead(session, stores);
    if (known->id != store::RecordId::none)
        return session.fail(platform::PlatformError::alreadyExists, "There is a client of this name.");
    clientId = store::addClient(transaction, stores, name);
    return clientId != 0 ? ExitCode::done : session.failWrite();
}

} // namespace

ExitCode clientAdd(Session& session, const Arguments& arguments) {
    const auto name = nameArgument(session, arguments.positionals().front(), billing::checkClientName);
    if (!name)
        return ExitCode::refused;
    std::uint32_t clientId = 0;
    const ExitCode added = changeStores(session, resources::history::addClient,
                                        [&](platform::Transaction& transaction, store::Stores& stores) {
                                            return addFree(session, transaction, stores, *name, clientId);
                                        });
    if (added == ExitCode::done)
        session.out().writeLine(std::to_string(clientId));
    return added;
}

ExitCode clientList(Session& session, const Arguments&) {
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto clients = store::listClients(*stores);
    if (!clients)
        return failStructureRead(session, *stores);
    if (session.json()) {
        JsonWriter json(session.out());
        json.beginArray();
        for (const store::ClientRecord& client : *clients)
            json.beginObject()
                .member("id", client.clientId)
                .member("name", std::u16string_view(client.name))
                .endObject();
        json.endArray().finish();
        return ExitCode::done;
    }
    TextTable table(session.out(), {{"Id", true}, {"Client"}});
    for (const store::ClientRecord& client : *clients)
        table.add({std::to_string(client.clientId), cellText(client.name)});
    table.finish();
    return ExitCode::done;
}

ExitCode clientTree(Session& session, const Arguments& arguments) {
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto trees = wantedTrees(session, *stores, arguments);
    if (!trees)
        return ExitCode::refused;
    if (!session.json()) {
        for (const store::ClientTree& tree : *trees)
            writeClientTree(session.out(), tree);
        return ExitCode::done;
    }
    JsonWriter json(session.out());
    json.beginArray();
    for (const store::ClientTree& tree : *trees)
        writeClientTree(json, tree);
    json.endArray().finish();
    return ExitCode::done;
}

ExitCode clientDelete(Session& session, const Arguments& arguments) {
    store::Stores* const stores = session.stores();
    const auto client = stores ? clientArgument(session, *stores, arguments.positionals().front()) : std::nullopt;
    if (!client)
        return ExitCode::refused;
    return deleteNode(session, *stores, resources::history::deleteClient, billing::ClientNode{client->clientId});
}

} // namespace hourwright::cli
