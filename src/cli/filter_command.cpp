#include "cli/filter_option.h"
#include "cli/handlers.h"
#include "cli/joined.h"
#include "cli/json_writer.h"
#include "platform/utf.h"

namespace hourwright::cli {

namespace {

template<typename Filter>
void print(Session& session, const Filter& filter) {
    JsonWriter json(session.out());
    json.beginObject();
    for (const app::StoredFilterValue& stored : filter.storedValues()) {
        json.key(platform::printableUtf8(stored.name));
        std::visit([&json](const auto& value) { json.value(value); }, stored.value);
    }
    json.endObject().finish();
}

template<typename Filter>
ExitCode save(Session& session, const std::optional<Filter>& filter) {
    if (!filter)
        return ExitCode::refused;
    static_cast<void>(session.settings()); // before saving makes their key, by which they tell a first run
    if (!filter->save(session.registry()))
        return session.fail(platform::PlatformError::writeFault, "The filter could not be saved.");
    return ExitCode::done;
}

} // namespace

ExitCode filterShow(Session& session, const Arguments& arguments) {
    if (arguments.has(option::forExpenses))
        print(session, savedExpenseFilter(session));
    else
        print(session, savedEntryFilter(session));
    return ExitCode::done;
}

ExitCode filterSet(Session& session, const Arguments& arguments) {
    const bool expenses = arguments.has(option::forExpenses);
    if (const OptionSpec* foreign = foreignFilterOption(arguments, expenses))
        return session.misuse(joined({foreign->name, expenses ? " is for time entries only" : " needs --expenses"}));
    return expenses ? save(session, expenseFilterOption(session, arguments))
                    : save(session, entryFilterOption(session, arguments));
}

ExitCode filterClear(Session& session, const Arguments& arguments) {
    return arguments.has(option::forExpenses) ? save(session, std::optional(app::ExpenseFilter{}))
                                              : save(session, std::optional(app::EntryFilter{}));
}

} // namespace hourwright::cli
