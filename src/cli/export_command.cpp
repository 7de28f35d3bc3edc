#include "app/settings_rules.h"
#include "cli/filter_option.h"
#include "cli/handlers.h"
#include "cli/joined.h"
#include "cli/period_option.h"
#include "cli/session.h"
#include "exchange/csv_export.h"
#include "exchange/other_exports.h"
#include "exchange/xml_export.h"
#include "platform/posix/file_replacement.h"

#include <filesystem>
#include <optional>
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

// What the options of an export say about one kind of record.
struct Entries {
    using Record = store::TimeEntry;
    using Matcher = app::EntryMatcher;
    static constexpr PeriodView view = PeriodView::entries;
    static constexpr auto filterOption = entryFilterOption;
    static store::RecordStore& of(store::Stores& stores) { return stores.entries(); }
};
struct Expenses {
    using Record = store::ExpenseEntry;
    using Matcher = app::ExpenseMatcher;
    static constexpr PeriodView view = PeriodView::expenses;
    static constexpr auto filterOption = expenseFilterOption;
    static store::RecordStore& of(store::Stores& stores) { return stores.expenses(); }
};

// Runs an export to a file, over the stores, instants and records that the options ask for. Nothing, with the reason
// shown, when it cannot begin.
template<typename Records, typename Export>
std::optional<exchange::ExportResult> exportTo(Session& session, const Arguments& arguments,
                                               const std::filesystem::path& file, Export runIt) {
    const auto period = periodOption(session, arguments, Records::view);
    const auto filter = period ? Records::filterOption(session, arguments) : std::nullopt;
    store::Stores* const stores = filter ? session.stores() : nullptr;
    if (!stores)
        return std::nullopt;
    const typename Records::Matcher matcher(*filter, *session.locales().user);
    const auto accepts = [&matcher](const typename Records::Record& record) { return matcher.matches(record); };
    const exchange::ExportTarget target{session.files(), file, *session.locales().system};
    return runIt(*stores, period->dateRange(), accepts, target);
}

// An export to the file that the last positional names.
template<typename Records, typename Export>
ExitCode runExport(Session& session, const Arguments& arguments, Export runIt) {
    const auto result = exportTo<Records>(session, arguments, arguments.positionals().back(), runIt);
    return result ? endOfExport(session, *result) : ExitCode::refused;
}

// The same for a form of which a part is of no use: the file has its name only when it is complete.
template<typename Records, typename Export>
ExitCode runWholeExport(Session& session, const Arguments& arguments, Export runIt) {
    platform::FileReplacement file(arguments.positionals().back());
    if (file.error() != platform::PlatformError::none)
        return endOfExport(session, {.status = exchange::ExportStatus::notCreated, .error = file.error()});
    auto result = exportTo<Records>(session, arguments, file.path(), runIt);
    if (!result)
        return ExitCode::refused;
    const auto kept = result->ok() ? file.keep() : platform::PlatformError::none;
    if (kept != platform::PlatformError::none)
        result = {.status = exchange::ExportStatus::writeFailed, .error = kept};
    return endOfExport(session, *result);
}

// Nothing, with the message shown, when delimiter and decimal mark are the same.
std::optional<exchange::SpreadsheetOptions> spreadsheetOptions(Session& session, const Arguments& arguments) {
    exchange::SpreadsheetOptions options{.csv = exchange::csvOptions(session.settings())};
    const auto delimiter = arguments.value(option::delimiter).value_or("comma");
    options.delimiter = delimiter == "tab" ? '\t' : delimiter == "semicolon" ? ';' : ',';
    options.decimalMark = arguments.value(option::decimalMark).value_or("point") == "comma" ? ',' : '.';
    options.byteOrderMark = !arguments.has(option::noByteOrderMark);
    if (exchange::isUsable(options))
        return options;
    session.misuse("delimiter and decimal mark must not be the same");
    return std::nullopt;
}

template<typename Records>
ExitCode runSpreadsheet(Session& session, const Arguments& arguments) {
    const auto options = spreadsheetOptions(session, arguments);
    if (!options)
        return ExitCode::usage;
    return runWholeExport<Records>(
        session, arguments, [&](store::Stores& stores, const auto& range, const auto& accepts, const auto& target) {
            return exchange::exportSpreadsheet(Records::of(stores), range, accepts, *options, target);
        });
}

} // namespace

ExitCode exportCsv(Session& session, const Arguments& arguments) {
    return runExport<Entries>(session, arguments,
                              [&](store::Stores& stores, const auto& range, const auto& accepts, const auto& target) {
                                  return exchange::exportTimeEntries(stores.entries(), range, accepts,
                                                                     exchange::csvOptions(session.settings()), target);
                              });
}

ExitCode exportExpenses(Session& session, const Arguments& arguments) {
    const store::ExpenseType type{choiceOf(arguments.positionals().front(), option::expenseTypeChoices)};
    return runExport<Expenses>(session, arguments,
                               [&](store::Stores& stores, const auto& range, const auto& accepts, const auto& target) {
                                   return exchange::exportExpenses(stores.expenses(), type, range, accepts,
                                                                   exchange::csvOptions(session.settings()), target);
                               });
}

ExitCode exportXml(Session& session, const Arguments& arguments) {
    return runExport<Entries>(session, arguments,
                              [&](store::Stores& stores, const auto& range, const auto& accepts, const auto& target) {
                                  return exchange::exportXml(stores.entries(), range, accepts,
                                                             exchange::xmlOptions(session.settings()), target);
                              });
}

ExitCode exportSpreadsheet(Session& session, const Arguments& arguments) {
    return runSpreadsheet<Entries>(session, arguments);
}

ExitCode exportExpenseSpreadsheet(Session& session, const Arguments& arguments) {
    return runSpreadsheet<Expenses>(session, arguments);
}

ExitCode exportJson(Session& session, const Arguments& arguments) {
    return runWholeExport<Entries>(
        session, arguments, [&](store::Stores& stores, const auto& range, const auto& accepts, const auto& target) {
            return exchange::exportJson(stores.entries(), range, accepts, app::timeRules(session.settings()), target);
        });
}

ExitCode exportExpenseJson(Session& session, const Arguments& arguments) {
    return runWholeExport<Expenses>(
        session, arguments, [&](store::Stores& stores, const auto& range, const auto& accepts, const auto& target) {
            return exchange::exportJson(stores.expenses(), range, accepts, target);
        });
}

ExitCode exportCalendar(Session& session, const Arguments& arguments) {
    return runWholeExport<Entries>(
        session, arguments, [&](store::Stores& stores, const auto& range, const auto& accepts, const auto& target) {
            return exchange::exportCalendar(stores.entries(), range, accepts, session.clock().read(), target);
        });
}

} // namespace hourwright::cli
