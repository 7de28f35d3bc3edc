#include "cli/command_table.h"

#include "cli/handlers.h"

#include <algorithm>

namespace hourwright::cli {

namespace {

constexpr std::array globals{&option::home, &option::now, &option::locale,  &option::osMajor,
                             &option::json, &option::yes, &option::version, &option::help};
constexpr OptionGroup globalGroup{"GLOBAL OPTIONS", "Global options", globals};

constexpr std::array fieldOptions{
    &option::date,  &option::start,    &option::noStart,  &option::end,       &option::client,  &option::project,
    &option::phase, &option::task,     &option::duration, &option::breakTime, &option::status,  &option::currency,
    &option::rate,  &option::rateType, &option::billTo,   &option::custom1,   &option::custom2, &option::custom3,
    &option::note,  &option::noteFile, &option::paidDate,
};
constexpr OptionGroup fields{"FIELDS", "Fields", fieldOptions};

constexpr std::array expenseFieldOptions{
    &option::date,     &option::client,  &option::project,       &option::description,
    &option::category, &option::amount,  &option::startOdometer, &option::distance,
    &option::currency, &option::status,  &option::receipt,       &option::paidDate,
    &option::billTo,   &option::custom1, &option::custom2,       &option::note,
};
constexpr OptionGroup expenseFields{"FIELDS", "Fields", expenseFieldOptions};

constexpr std::array copyOptions{&option::copyTo, &option::restOfWeek, &option::copyUntil, &option::includeWeekend,
                                 &option::duration};
constexpr OptionGroup copyGroup{"", "", copyOptions};

constexpr std::array periodOptions{&option::day, &option::week, &option::month, &option::custom};
constexpr OptionGroup period{"PERIOD", "Period (default: the stored view kind and today)", periodOptions};

constexpr std::array entryFilterOptions{&option::client,  &option::project,    &option::phase,   &option::task,
                                        &option::billTo,  &option::currency,   &option::custom1, &option::custom2,
                                        &option::custom3, &option::rateType,   &option::hide,    &option::from,
                                        &option::to,      &option::savedFilter};
constexpr OptionGroup filter{"FILTER", "Filter (default: everything; texts must be the same, case included)",
                             entryFilterOptions};
constexpr std::array expenseFilterOptions{
    &option::client,  &option::project, &option::category,    &option::billTo,  &option::currency,
    &option::custom1, &option::custom2, &option::expenseKind, &option::receipt, &option::hide,
    &option::from,    &option::to,      &option::savedFilter};
constexpr OptionGroup expenseFilter{"FILTER", filter.title, expenseFilterOptions};
constexpr std::array expenseConditionOptions{&option::category, &option::expenseKind, &option::receipt};
constexpr OptionGroup expenseConditions{"", "Filter of expenses only", expenseConditionOptions};
constexpr std::array forExpensesOption{&option::forExpenses};
constexpr OptionGroup forExpenses{"", "", forExpensesOption};
constexpr std::array listOptions{&option::all, &option::arrange, &option::columns};
constexpr OptionGroup entryListing{"", "", listOptions};
constexpr std::array allOption{&option::all};
constexpr OptionGroup all{"", "", allOption};
constexpr std::array propertiesOption{&option::properties};
constexpr OptionGroup properties{"", "", propertiesOption};
constexpr std::array stepsOption{&option::steps};
constexpr OptionGroup stepsGroup{"", "", stepsOption};
constexpr std::array paidDateOption{&option::paidDate};
constexpr OptionGroup paidDate{"", "", paidDateOption};
constexpr std::array stepOptions{&option::previous, &option::next};
constexpr OptionGroup steps{"", "", stepOptions};
constexpr std::array idOption{&option::id};
constexpr OptionGroup recordId{"", "", idOption};
constexpr std::array summaryOptions{&option::project, &option::task};
constexpr OptionGroup summaryScope{"", "", summaryOptions};
constexpr std::array demoOptions{&option::entries, &option::seed};
constexpr OptionGroup demoGroup{"", "", demoOptions};
constexpr std::array taskProjectOption{&option::taskProject};
constexpr OptionGroup taskProject{"", "", taskProjectOption};
constexpr std::array rateOptions{&option::rateKind, &option::rateDescription, &option::rateAmount};
constexpr OptionGroup rateFields{"", "", rateOptions};
constexpr std::array wipeOptions{&option::wipeRates};
constexpr OptionGroup wipeGroup{"", "", wipeOptions};
constexpr std::array spreadsheetOptions{&option::delimiter, &option::decimalMark, &option::noByteOrderMark};
constexpr OptionGroup spreadsheet{"", "Form of the file", spreadsheetOptions};

constexpr std::array timerAddOptions{&option::client,     &option::project,   &option::phase, &option::task,
                                     &option::timerStart, &option::timerDate, &option::note};
constexpr OptionGroup timerAddGroup{"", "", timerAddOptions};
constexpr std::array timerEditOptions{&option::timerDuration, &option::timerBreak, &option::note};
constexpr OptionGroup timerEditGroup{"", "", timerEditOptions};
constexpr std::array timerSaveOption{&option::timerSave};
constexpr OptionGroup timerSaveGroup{"", "", timerSaveOption};

constexpr std::array verifyOption{&option::verify};
constexpr OptionGroup verifyGroup{"", "", verifyOption};
constexpr std::array restoreOption{&option::restoreSettings};
constexpr OptionGroup restoreGroup{"", "", restoreOption};

constexpr ArgumentSpec clientArgument{"CLIENT", ValueKind::clientName, "name of the client"};
constexpr std::array newClient{ArgumentSpec{"NAME", ValueKind::text, "name of the new client"}};
constexpr std::array clientName{ArgumentSpec{"NAME", ValueKind::clientName, "name of the client"}};
constexpr std::array optionalClient{ArgumentSpec{"NAME", ValueKind::clientName, "name of the client (all)", false}};
constexpr std::array clientProject{clientArgument,
                                   ArgumentSpec{"PROJECT", ValueKind::projectName, "name of the project"}};
constexpr std::array clientProjectTask{clientArgument,
                                       ArgumentSpec{"PROJECT", ValueKind::projectName, "name of the project"},
                                       ArgumentSpec{"TASK", ValueKind::taskName, "name of one of its tasks"}};
constexpr std::array clientTask{clientArgument, ArgumentSpec{"TASK", ValueKind::taskName, "name of the task"}};
constexpr std::array clientContact{clientArgument, ArgumentSpec{"NAME", ValueKind::contactName, "name of the contact"}};
constexpr std::array rateOwner{ArgumentSpec{"CLIENT", ValueKind::clientName,
                                            "name of the client, or \"(Default Rates)\" for the rates of everybody"}};
constexpr std::array rateId{ArgumentSpec{"ID", ValueKind::id, "record id of the rate"}};

constexpr std::array timerNumber{
    ArgumentSpec{"TIMER", ValueKind::choice, "number of the timer", true, false, "1|2|3|4"}};
constexpr std::array entryId{ArgumentSpec{"ID", ValueKind::id, "record id of the entry"}};
constexpr std::array entryIds{ArgumentSpec{"ID", ValueKind::id, "record ids of the entries", true, true}};
constexpr std::array expenseId{ArgumentSpec{"ID", ValueKind::id, "record id of the expense"}};
constexpr std::array expenseIds{ArgumentSpec{"ID", ValueKind::id, "record ids of the expenses", true, true}};
constexpr std::array expenseType{
    ArgumentSpec{"TYPE", ValueKind::choice, "kind of expense", true, false, option::expenseTypeChoices}};
constexpr std::array optionalDate{ArgumentSpec{"DATE", ValueKind::date, "a day of the period (today)", false}};
constexpr std::array listName{ArgumentSpec{"LIST", ValueKind::choice, "the list", true, false,
                                           "phases|currencies|custom1|custom2|custom3|categories|descriptions"}};
constexpr std::array valueName{ArgumentSpec{"NAME", ValueKind::text, "registry value name"}};
constexpr std::array nameAndValue{ArgumentSpec{"NAME", ValueKind::text, "registry value name"},
                                  ArgumentSpec{"VALUE", ValueKind::text, "its new value, as settings get prints it"}};
constexpr std::array nameAndData{
    ArgumentSpec{"NAME", ValueKind::text, "registry value name"},
    ArgumentSpec{"DATA", ValueKind::text, "dword:N, sz:TEXT or hex:aa,bb,... (hexadecimal bytes)"}};
constexpr std::array expenseTypeAndFile{
    ArgumentSpec{"TYPE", ValueKind::choice, "the type of expenses", true, false, option::expenseTypeChoices},
    ArgumentSpec{"FILE", ValueKind::file, "file to write, - for standard output"}};
constexpr std::array summaryClient{clientArgument};
constexpr std::array replaceTexts{
    ArgumentSpec{"TYPE", ValueKind::numbered, "the field whose texts are replaced", true, false,
                 option::replaceChoices},
    ArgumentSpec{"FIND", ValueKind::text, "text to be replaced where it is the whole of a field"},
    ArgumentSpec{"REPLACE", ValueKind::text, "its new text"}};
constexpr std::array fileName{ArgumentSpec{"FILE", ValueKind::file, "file to write, - for standard output"}};
constexpr std::array copyName{
    ArgumentSpec{"NAME", ValueKind::text, "name of the copy (the newest that is sound)", false}};
constexpr std::array databaseName{ArgumentSpec{"DATABASE", ValueKind::text, "full name of the database"}};
constexpr std::array databaseAndId{ArgumentSpec{"DATABASE", ValueKind::text, "full name of the database"},
                                   ArgumentSpec{"ID", ValueKind::id, "record id"}};
constexpr std::array databaseAndProperties{
    ArgumentSpec{"DATABASE", ValueKind::text, "full name of the database"},
    ArgumentSpec{"NUMBER:TYPE=VALUE", ValueKind::text,
                 "a property: its number, UI2, UI4, BOOL, FILETIME, LPWSTR or BLOB, and its value as store dump "
                 "prints it; the value - deletes the property",
                 true, true}};

constexpr std::array topicTable{
    TopicSpec{"entry", "time entries"},
    TopicSpec{"expense", "general and mileage expenses"},
    TopicSpec{"timer", "the timers of the running window"},
    TopicSpec{"client", "clients, with all that belongs to them"},
    TopicSpec{"project", "the projects of a client and their tasks"},
    TopicSpec{"task", "the tasks of a client"},
    TopicSpec{"contact", "whom a client's work is billed to"},
    TopicSpec{"rate", "the rates of a client"},
    TopicSpec{"picklist", "the texts that entries and expenses have used"},
    TopicSpec{"filter", "the stored filters of the views"},
    TopicSpec{"settings", "the settings, loaded and saved as the program does it"},
    TopicSpec{"registry", "the raw values that settings are kept in"},
    TopicSpec{"period", "start and end of a day, week, month or custom period"},
    TopicSpec{"export", "files for other programs"},
    TopicSpec{"summary", "hours and amounts of a client by status"},
    TopicSpec{"bulk", "changes of many entries at once"},
    TopicSpec{"undo", "take changes back"},
    TopicSpec{"redo", "make changes again"},
    TopicSpec{"history", "the changes that can be undone"},
    TopicSpec{"store", "databases and records as stored"},
    TopicSpec{"wipe", "deletion of all data or of the client structure"},
    TopicSpec{"demo", "made-up data to try the program with"},
};

constexpr std::array commandTable{
    CommandSpec{"entry", "add", "add a time entry and print its record id", {}, {&fields}, entryAdd},
    CommandSpec{"entry",
                "edit",
                "change the given fields of an entry; an empty value clears a field",
                entryId,
                {&fields},
                entryEdit},
    CommandSpec{"entry", "show", "print one entry", entryId, {&properties}, entryShow},
    CommandSpec{"entry", "list", "print the entries of a period", {}, {&period, &filter, &entryListing}, entryList},
    CommandSpec{"entry", "delete", "delete entries", entryIds, {}, entryDelete},
    CommandSpec{"entry", "copy", "copy an entry to other days and print the new ids", entryId, {&copyGroup}, entryCopy},
    CommandSpec{
        "entry", "toggle-billed", "bill what is not billed yet, take back what is", entryIds, {}, entryToggleBilled},
    CommandSpec{"entry", "pay", "mark entries paid, now or on a date", entryIds, {&paidDate}, entryPay},
    CommandSpec{"entry", "unpay", "make paid entries billed ones again", entryIds, {}, entryUnpay},
    CommandSpec{"expense", "add", "add an expense and print its record id", expenseType, {&expenseFields}, expenseAdd},
    CommandSpec{"expense",
                "edit",
                "change the given fields of an expense; an empty value clears a field",
                expenseId,
                {&expenseFields},
                expenseEdit},
    CommandSpec{"expense", "show", "print one expense", expenseId, {&properties}, expenseShow},
    CommandSpec{"expense", "list", "print the expenses of a period", {}, {&period, &expenseFilter, &all}, expenseList},
    CommandSpec{"expense", "delete", "delete expenses", expenseIds, {}, expenseDelete},
    CommandSpec{"timer", "list", "print the timers in use", {}, {}, timerList},
    CommandSpec{"timer", "add", "start a timer and print its number", {}, {&timerAddGroup}, timerAdd},
    CommandSpec{"timer", "pause", "pause a timer", timerNumber, {}, timerPause},
    CommandSpec{"timer", "resume", "let a paused timer run", timerNumber, {}, timerResume},
    CommandSpec{
        "timer", "edit", "change what a timer has counted, or its note", timerNumber, {&timerEditGroup}, timerEdit},
    CommandSpec{"timer",
                "complete",
                "open the editor on a timer's entry, or save it and print its record id",
                timerNumber,
                {&timerSaveGroup},
                timerComplete},
    CommandSpec{"timer", "cancel", "free a timer without an entry", timerNumber, {}, timerCancel},
    CommandSpec{"client", "add", "add a client and print its client id", newClient, {}, clientAdd},
    CommandSpec{"client", "list", "print all clients with their client ids", {}, {}, clientList},
    CommandSpec{"client",
                "tree",
                "print clients with their projects, tasks, contacts and rates",
                optionalClient,
                {},
                clientTree},
    CommandSpec{"client",
                "delete",
                "delete a client with all that belongs to it; entries are preserved",
                clientName,
                {},
                clientDelete},
    CommandSpec{
        "project", "add", "add a task to a project, which need not exist yet", clientProjectTask, {}, projectAdd},
    CommandSpec{"project", "delete", "delete a project with its tasks", clientProject, {}, projectDelete},
    CommandSpec{"task", "add", "add a task that belongs to no project", clientTask, {}, taskAdd},
    CommandSpec{"task",
                "delete",
                "delete a task of a client or of one of its projects",
                clientTask,
                {&taskProject},
                taskDelete},
    CommandSpec{"contact", "add", "add a contact", clientContact, {}, contactAdd},
    CommandSpec{"contact", "delete", "delete a contact", clientContact, {}, contactDelete},
    CommandSpec{"rate", "add", "add a rate and print its record id", rateOwner, {&rateFields}, rateAdd},
    CommandSpec{"rate", "list", "print the rates of a client", rateOwner, {}, rateList},
    CommandSpec{"rate", "edit", "change the given fields of a rate", rateId, {&rateFields}, rateEdit},
    CommandSpec{"rate", "delete", "delete a rate", rateId, {}, rateDelete},
    CommandSpec{"picklist", "show", "print a list's texts, one a line", listName, {}, picklistShow},
    CommandSpec{
        "filter", "show", "print the stored filter by registry value name, as JSON", {}, {&forExpenses}, filterShow},
    CommandSpec{"filter",
                "set",
                "store a filter; custom fields and dates are not kept",
                {},
                {&filter, &expenseConditions, &forExpenses},
                filterSet},
    CommandSpec{"filter", "clear", "store the filter that passes everything", {}, {&forExpenses}, filterClear},
    CommandSpec{"settings", "list", "print all settings by registry value name", {}, {}, settingsList},
    CommandSpec{"settings", "get", "print one setting", valueName, {}, settingsGet},
    CommandSpec{"settings", "set", "change one setting", nameAndValue, {}, settingsSet},
    CommandSpec{"registry", "dump", "print every value: name, type, size in bytes, data", {}, {}, registryDump},
    CommandSpec{"registry", "get", "print the data of a value", valueName, {}, registryGet},
    CommandSpec{"registry", "set", "store a value", nameAndData, {}, registrySet},
    CommandSpec{"registry", "delete", "delete a value", valueName, {}, registryDelete},
    CommandSpec{"registry", "delete-key", "delete all values and their key", {}, {}, registryDeleteKey},
    CommandSpec{"period", "day", "the day of a date", optionalDate, {&steps}, periodDay},
    CommandSpec{"period", "week", "the week of a date", optionalDate, {&steps}, periodWeek},
    CommandSpec{"period", "month", "the month of a date", optionalDate, {&steps}, periodMonth},
    CommandSpec{"period", "custom", "the custom period of the settings", {}, {}, periodCustom},
    CommandSpec{"export",
                "csv",
                "write the entries of a period as comma-separated values",
                fileName,
                {&period, &filter},
                exportCsv},
    CommandSpec{"export",
                "expenses",
                "write the expenses of a period, of one type, as comma-separated values",
                expenseTypeAndFile,
                {&period, &expenseFilter},
                exportExpenses},
    CommandSpec{
        "export", "xml", "write the entries of a period as an XML document", fileName, {&period, &filter}, exportXml},
    CommandSpec{"export",
                "spreadsheet",
                "write the entries of a period as a CSV file for spreadsheets, in UTF-8",
                fileName,
                {&period, &filter, &spreadsheet},
                exportSpreadsheet},
    CommandSpec{"export",
                "expense-spreadsheet",
                "write the expenses of a period as a CSV file for spreadsheets, in UTF-8",
                fileName,
                {&period, &expenseFilter, &spreadsheet},
                exportExpenseSpreadsheet},
    CommandSpec{"export",
                "json",
                "write the entries of a period as a JSON array, as entry list prints it",
                fileName,
                {&period, &filter},
                exportJson},
    CommandSpec{"export",
                "expense-json",
                "write the expenses of a period as a JSON array, as expense list prints it",
                fileName,
                {&period, &expenseFilter},
                exportExpenseJson},
    CommandSpec{"export",
                "icalendar",
                "write the entries of a period as events of an iCalendar file",
                fileName,
                {&period, &filter},
                exportCalendar},
    CommandSpec{"summary",
                "",
                "sum up all time of a client, or of one project or task of it",
                summaryClient,
                {&summaryScope},
                summary},
    CommandSpec{"bulk",
                "mark-paid",
                "mark what is unpaid of the entries from --from to --to paid",
                {},
                {&filter, &paidDate},
                bulkMarkPaid},
    CommandSpec{"bulk",
                "mark-billed",
                "mark what is billable of the entries from --from to --to billed",
                {},
                {&filter},
                bulkMarkBilled},
    CommandSpec{"bulk", "delete", "delete the entries from --from to --to", {}, {&filter}, bulkDelete},
    CommandSpec{"bulk",
                "replace",
                "replace a text in entries, expenses, lists, structure and stored filters",
                replaceTexts,
                {},
                bulkReplace},
    CommandSpec{"undo", "", "take back the newest change and print its name", {}, {&stepsGroup}, undo},
    CommandSpec{"redo", "", "make the change again that was undone last and print its name", {}, {&stepsGroup}, redo},
    CommandSpec{"history", "", "list the changes that can be undone and redone, the newest first", {}, {}, history},
    CommandSpec{
        "store", "databases", "print name, type number, sort property and record count", {}, {}, storeDatabases},
    CommandSpec{
        "store", "dump", "print every record of a database: its id, then its properties", databaseName, {}, storeDump},
    CommandSpec{
        "store", "write", "write a raw record and print its id", databaseAndProperties, {&recordId}, storeWrite},
    CommandSpec{"store", "delete", "delete a record", databaseAndId, {}, storeDelete},
    CommandSpec{"store", "check", "verify the store; exit code 1 when it is damaged", {}, {}, storeCheck},
    CommandSpec{"store",
                "copy",
                "copy records and settings, for example daily by cron, and print the copy's name",
                {},
                {},
                storeCopy},
    CommandSpec{"store", "copies", "print the copies, the newest first", {}, {&verifyGroup}, storeCopies},
    CommandSpec{"store",
                "restore",
                "put a copy in the place of the records and print where those are kept (asks)",
                copyName,
                {&restoreGroup},
                storeRestore},
    CommandSpec{"wipe", "all", "delete all data", {}, {}, wipeAll},
    CommandSpec{"wipe",
                "structure",
                "delete the client structure; time and expense entries are preserved",
                {},
                {&wipeGroup},
                wipeStructure},
    CommandSpec{"demo", "", "fill an empty store with a made-up consultant's data", {}, {&demoGroup}, demo},
};

// What completion scripts ask; it is not for people, so that help does not know it.
constexpr std::array namesKind{
    ArgumentSpec{"KIND", ValueKind::choice, "which names", true, false, "clients|projects|tasks|contacts"}};
constexpr std::array hiddenCommands{CommandSpec{"__names", "", "print names for completion", namesKind, {}, names}};

} // namespace

const OptionGroup& globalOptions() {
    return globalGroup;
}

std::span<const TopicSpec> topics() {
    return topicTable;
}

std::span<const CommandSpec> commands() {
    return commandTable;
}

std::span<const CommandSpec> commandsOf(std::string_view topic) {
    if (topic == hiddenCommands.front().name)
        return hiddenCommands;
    const auto first = std::ranges::find(commandTable, topic, &CommandSpec::name);
    const auto last = std::find_if(first, commandTable.end(), [&](const CommandSpec& c) { return c.name != topic; });
    return {first, last};
}

std::span<const OptionGroup* const> groupsOf(const CommandSpec& command) {
    const auto end = std::ranges::find(command.groups, nullptr);
    return {command.groups.begin(), end};
}

const OptionSpec* findOption(const CommandSpec* command, std::string_view name) {
    const auto inGroup = [name](const OptionGroup& group) -> const OptionSpec* {
        const auto found = std::ranges::find(group.options, name, [](const OptionSpec* o) { return o->name; });
        return found != group.options.end() ? *found : nullptr;
    };
    if (const OptionSpec* global = inGroup(globalGroup))
        return global;
    if (!command)
        return nullptr;
    for (const OptionGroup* group : groupsOf(*command))
        if (const OptionSpec* found = inGroup(*group))
            return found;
    return nullptr;
}

} // namespace hourwright::cli
