#include "cli/handlers.h"
#include "cli/structure_arguments.h"

namespace hourwright::cli {

ExitCode wipeAll(Session& session, const Arguments&) {
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    return endDeletion(session, billing::askAndWipeAll(*stores, session.messages()));
}

ExitCode wipeStructure(Session& session, const Arguments& arguments) {
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    return endDeletion(session,
                       billing::askAndWipeStructure(*stores, session.messages(), arguments.has(option::wipeRates)));
}

} // namespace hourwright::cli
