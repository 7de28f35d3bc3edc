#include "cli/handlers.h"
#include "cli/session.h"
#include "platform/utf.h"
#include "store/client_tree.h"

#include <algorithm>
#include <set>

namespace hourwright::cli {

namespace {

using store::ClientTree;

// Calls `visit` with every name of a kind that a client has.
template<typename Visitor>
void forEachName(const ClientTree& tree, std::string_view kind, Visitor visit) {
    if (kind == "clients")
        visit(tree.client.name);
    for (const store::ProjectTree& project : tree.projects) {
        if (kind == "projects")
            visit(project.name);
        for (const store::ProjectRecord& task : project.tasks)
            if (kind == "tasks")
                visit(task.task);
    }
    for (const store::TaskRecord& task : tree.tasks)
        if (kind == "tasks")
            visit(task.name);
    for (const store::ContactRecord& contact : tree.contacts)
        if (kind == "contacts")
            visit(contact.name);
}

// A name that takes several lines would be taken for several names.
bool isOneLine(std::u16string_view name) {
    return std::ranges::none_of(name, [](char16_t unit) { return unit < u' '; });
}

} // namespace

ExitCode names(Session& session, const Arguments& arguments) {
    if (!session.hasStore())
        return ExitCode::done;
    store::Stores* const stores = session.stores();
    const auto trees = stores ? store::clientTrees(*stores) : std::nullopt;
    if (!trees)
        return ExitCode::refused;
    std::set<std::u16string_view> printed;
    for (const ClientTree& tree : *trees)
        forEachName(tree, arguments.positionals().front(), [&](std::u16string_view name) {
            if (isOneLine(name) && printed.insert(name).second)
                session.out().writeLine(platform::printableUtf8(name));
        });
    return ExitCode::done;
}

} // namespace hourwright::cli
