#include "cli/handlers.h"
#include "cli/joined.h"
#include "cli/period_option.h"
#include "cli/session.h"
#include "exchange/csv_export.h"

namespace hourwright::cli {

namespace {

// A reader of standard output that has gone away needs no message.
ExitCode endOfExport(Session& session, const exchange::ExportResult& result) {
    if (result.ok())
        return ExitCode::done;
    if (result.error == platform::PlatformError::brokenPipe)
        return ExitCode::refused;
    return session.refuse(resources::StringId::exportFailed,
                          joined({"platform error ", std::to_string(platform::number(result.error))}));
}

} // namespace

ExitCode exportCsv(Session& session, const Arguments& arguments) {
    const auto period = periodOption(session, arguments);
    store::Stores* const stores = period ? session.stores() : nullptr;
    if (!stores)
        return ExitCode::refused;
    const auto everyEntry = [](const store::TimeEntry&) { return true; };
    const exchange::ExportTarget target{session.files(), std::string(arguments.positionals().front()),
                                        *session.locales().system};
    return endOfExport(session, exchange::exportTimeEntries(stores->entries(), period->dateRange(), everyEntry,
                                                            exchange::csvOptions(session.settings()), target));
}

} // namespace hourwright::cli
