#include "cli/structure_arguments.h"

#include "platform/utf.h"

namespace hourwright::cli {

std::optional<std::u16string> nameArgument(Session& session, std::string_view text, NameCheck check) {
    std::u16string name = platform::toUtf16(text);
    const auto refusal = check(name);
    if (!refusal)
        return name;
    if (refusal->error == platform::PlatformError::none)
        session.refuse(refusal->message);
    else
        session.fail(refusal->error,
                     name.size() > billing::maxNameLength
                         ? "A name has at most " + std::to_string(billing::maxNameLength) + " characters."
                         : "The name stands for the default rates.");
    return std::nullopt;
}

std::optional<store::ClientRecord> clientArgument(Session& session, store::Stores& stores, std::string_view name) {
    auto client = store::findClient(stores, platform::toUtf16(name));
    if (!client) {
        failStructureRead(session, stores);
    } else if (client->id == store::RecordId::none) {
        session.fail(platform::PlatformError::invalidParameter, "There is no client '" + std::string(name) + "'.");
        client.reset();
    }
    return client;
}

std::optional<std::uint32_t> rateOwnerArgument(Session& session, store::Stores& stores, std::string_view name) {
    if (platform::toUtf16(name) == resources::string(resources::StringId::defaultRates))
        return store::defaultRatesOwner;
    const auto client = clientArgument(session, stores, name);
    return client ? std::optional(client->clientId) : std::nullopt;
}

ExitCode changeStores(Session& session, const resources::Text& name,
                      const std::function<ExitCode(platform::Transaction&, store::Stores&)>& work) {
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto transaction = session.begin(name);
    if (!transaction)
        return session.failWrite();
    const ExitCode ended = work(*transaction, *stores);
    if (ended != ExitCode::done)
        return ended;
    return transaction->commit() ? ExitCode::done : session.failWrite();
}

ExitCode failStructureRead(Session& session, store::Stores& stores) {
    return session.fail(stores.objects().lastError(), "The client structure could not be read.");
}

ExitCode addNamed(Session& session, const Arguments& arguments, const resources::Text& step, AddName add) {
    const auto words = arguments.positionals();
    const auto name = nameArgument(session, words[1]);
    if (!name)
        return ExitCode::refused;
    return changeStores(session, step, [&](platform::Transaction& transaction, store::Stores& stores) {
        const auto client = clientArgument(session, stores, words[0]);
        if (!client)
            return ExitCode::refused;
        return add(transaction, stores, client->clientId, *name) ? ExitCode::done : session.failWrite();
    });
}

ExitCode deleteFound(Session& session, store::Stores& stores, const resources::Text& step,
                     const std::optional<billing::StructureNode>& node) {
    if (!node)
        return failStructureRead(session, stores);
    return deleteNode(session, stores, step, *node);
}

ExitCode deleteNode(Session& session, store::Stores& stores, const resources::Text& step,
                    const billing::StructureNode& node) {
    return endDeletion(session, billing::deleteNode(stores, session.messages(), node,
                                                    {.name = step.text, .time = session.clock().now()}));
}

ExitCode endDeletion(Session& session, billing::Deletion result) {
    switch (result) {
    case billing::Deletion::done: return ExitCode::done;
    case billing::Deletion::declined: return ExitCode::refused;
    case billing::Deletion::failed: break;
    }
    return session.failWrite();
}

} // namespace hourwright::cli
