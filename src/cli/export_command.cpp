#include "cli/handlers.h"
#include "cli/joined.h"
#include "cli/period_option.h"
#include "cli/session.h"
#include "exchange/csv_export.h"
#include "exchange/xml_export.h"

#include <string>

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

// Runs an export to the file that the last positional names, over the stores and instants that the options ask for.
template<typename Export>
ExitCode runExport(Session& session, const Arguments& arguments, PeriodView view, Export runIt) {
    const auto period = periodOption(session, arguments, view);
    store::Stores* const stores = period ? session.stores() : nullptr;
    if (!stores)
        return ExitCode::refused;
    const exchange::ExportTarget target{session.files(), std::string(arguments.positionals().back()),
                                        *session.locales().system};
    return endOfExport(session, runIt(*stores, period->dateRange(), target));
}

constexpr auto everyRecord = [](const auto&) { return true; };

} // namespace

ExitCode exportCsv(Session& session, const Arguments& arguments) {
    return runExport(session, arguments, PeriodView::entries,
                     [&](store::Stores& stores, const auto& range, const auto& target) {
                         return exchange::exportTimeEntries(stores.entries(), range, everyRecord,
                                                            exchange::csvOptions(session.settings()), target);
                     });
}

ExitCode exportExpenses(Session& session, const Arguments& arguments) {
    const store::ExpenseType type{choiceOf(arguments.positionals().front(), option::expenseTypeChoices)};
    return runExport(session, arguments, PeriodView::expenses,
                     [&](store::Stores& stores, const auto& range, const auto& target) {
                         return exchange::exportExpenses(stores.expenses(), type, range, everyRecord,
                                                         exchange::csvOptions(session.settings()), target);
                     });
}

ExitCode exportXml(Session& session, const Arguments& arguments) {
    return runExport(session, arguments, PeriodView::entries,
                     [&](store::Stores& stores, const auto& range, const auto& target) {
                         return exchange::exportXml(stores.entries(), range, everyRecord,
                                                    exchange::xmlOptions(session.settings()), target);
                     });
}

} // namespace hourwright::cli
