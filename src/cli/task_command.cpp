#include "cli/handlers.h"
#include "cli/structure_arguments.h"
#include "platform/utf.h"
#include "resources/texts/history.h"

namespace hourwright::cli {

namespace {

using billing::StructureNode;

std::optional<StructureNode> taskNode(store::Stores& stores, std::uint32_t clientId, std::u16string_view project,
                                      std::u16string_view task) {
    if (project.empty())
        return findNode<store::TaskRecord, billing::TaskNode>(
            stores, clientId, [task](const store::TaskRecord& record) { return record.name == task; });
    return findNode<store::ProjectRecord, billing::ProjectTaskNode>(
        stores, clientId,
        [&](const store::ProjectRecord& record) { return record.project == project && record.task == task; });
}

} // namespace

ExitCode taskAdd(Session& session, const Arguments& arguments) {
    return addNamed(session, arguments, resources::history::addTask, store::addTask);
}

ExitCode taskDelete(Session& session, const Arguments& arguments) {
    const auto words = arguments.positionals();
    store::Stores* const stores = session.stores();
    const auto client = stores ? clientArgument(session, *stores, words[0]) : std::nullopt;
    if (!client)
        return ExitCode::refused;
    const std::u16string project = platform::toUtf16(arguments.value(option::taskProject).value_or(""));
    return deleteFound(session, *stores, resources::history::deleteTask,
                       taskNode(*stores, client->clientId, project, platform::toUtf16(words[1])));
}

} // namespace hourwright::cli
