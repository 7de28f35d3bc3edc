#include "cli/handlers.h"
#include "cli/structure_arguments.h"
#include "platform/utf.h"
#include "resources/texts/history.h"

namespace hourwright::cli {

ExitCode projectAdd(Session& session, const Arguments& arguments) {
    const auto words = arguments.positionals();
    const auto project = nameArgument(session, words[1]);
    const auto task = project ? nameArgument(session, words[2]) : std::nullopt;
    if (!task)
        return ExitCode::refused;
    return changeStores(
        session, resources::history::addProject, [&](platform::Transaction& transaction, store::Stores& stores) {
            const auto client = clientArgument(session, stores, words[0]);
            if (!client)
                return ExitCode::refused;
            return store::addProjectTask(transaction, stores, client->clientId, *project, *task) ? ExitCode::done
                                                                                                 : session.failWrite();
        });
}

ExitCode projectDelete(Session& session, const Arguments& arguments) {
    const auto words = arguments.positionals();
    store::Stores* const stores = session.stores();
    const auto client = stores ? clientArgument(session, *stores, words[0]) : std::nullopt;
    if (!client)
        return ExitCode::refused;
    const billing::ProjectNode node{client->clientId, platform::toUtf16(words[1])};
    return deleteNode(session, *stores, resources::history::deleteProject, node);
}

} // namespace hourwright::cli
