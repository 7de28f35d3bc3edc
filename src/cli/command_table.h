#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace hourwright::cli {

class Arguments;
class Session;

/// How a command ends, as the process's exit code.
enum class ExitCode : std::uint8_t { done = 0, refused = 1, usage = 2 };

/// What a value on the command line must look like; the parser checks it, completion offers what fits.
enum class ValueKind : std::uint8_t {
    text,
    clientName,  ///< a text; completion offers the names that the client structure has
    projectName, ///< the same
    taskName,    ///< the same
    contactName, ///< the same
    date,        ///< YYYY-MM-DD, today, yesterday, tomorrow, +N, -N
    time,        ///< HH:MM
    dateTime,    ///< YYYY-MM-DD HH:MM:SS
    number,      ///< 0 to 4294967295
    id,          ///< 1 to 4294967295
    choice,      ///< one of `choices`
    numbered,    ///< one of `choices`, or its position counted from 0
    file,
    directory,
};

/// How many values follow an option.
enum class Arity : std::uint8_t { none, optional, one, two };

/// Options of one family exclude each other.
enum class Family : std::uint8_t { none, period, start, note, step, copyTarget };

struct OptionSpec {
    std::string_view name; ///< with its dashes
    Arity arity = Arity::none;
    ValueKind kind = ValueKind::text;
    std::string_view value; ///< placeholder in help
    std::string_view help;
    std::string_view choices{}; ///< separated by '|'
    Family family = Family::none;
    bool clearable = false; ///< an empty value is allowed whatever the kind
    bool repeatable = false;
};

struct ArgumentSpec {
    std::string_view name; ///< placeholder in help
    ValueKind kind = ValueKind::text;
    std::string_view help;
    bool required = true;
    bool repeated = false;
    std::string_view choices{};
};

/// Options that several commands take together.
struct OptionGroup {
    std::string_view name; ///< placeholder in usage lines; empty: options are written out
    std::string_view title;
    std::span<const OptionSpec* const> options;
};

using Handler = ExitCode (*)(Session&, const Arguments&);

/// One command: what help, usage lines, the parser, completion and the manual know of it.
struct CommandSpec {
    std::string_view name;
    std::string_view subcommand; ///< empty: the command has none
    std::string_view summary;
    std::span<const ArgumentSpec> arguments;
    std::array<const OptionGroup*, 3> groups; ///< null behind the last
    Handler run;
};

/// A command word and what its subcommands are about.
struct TopicSpec {
    std::string_view name;
    std::string_view summary;
};

/// The options, each named once, so that a command cannot ask for one that does not exist.
namespace option {

inline constexpr std::string_view statusChoices = "non-billable|billable|billed|paid";
inline constexpr std::string_view rateTypeChoices = "normal|overtime|weekend|fixed|discount";
inline constexpr std::string_view replaceChoices =
    "client|project|phase|task|bill-to|currency|custom1|custom2|custom3|category";

inline constexpr OptionSpec home{"--home", Arity::one, ValueKind::directory, "DIR", "keep settings and store in DIR"};
inline constexpr OptionSpec now{"--now", Arity::one, ValueKind::dateTime, "\"YYYY-MM-DD HH:MM:SS\"",
                                "take this as the current local time"};
inline constexpr OptionSpec locale{"--locale", Arity::one, ValueKind::text, "NAME",
                                   "format and compare as this locale does, for example de_DE"};
inline constexpr OptionSpec osMajor{"--os-major", Arity::one, ValueKind::number, "N",
                                    "major version of the system that settings defaults depend on (5)"};
inline constexpr OptionSpec json{"--json", Arity::none, {}, "", "print one JSON document"};
inline constexpr OptionSpec yes{"--yes", Arity::none, {}, "", "answer every question with Yes"};
inline constexpr OptionSpec version{"--version", Arity::none, {}, "", "print the version"};
inline constexpr OptionSpec help{"--help", Arity::none, {}, "", "explain the command"};

inline constexpr OptionSpec date{"--date", Arity::one, ValueKind::date, "DATE", "date of the entry or expense"};
inline constexpr OptionSpec start{"--start",    Arity::one, ValueKind::time, "HH:MM",
                                  "start time", "",         Family::start,   true};
inline constexpr OptionSpec noStart{"--no-start", Arity::none, {}, "", "no start time", "", Family::start};
inline constexpr OptionSpec end{"--end", Arity::one, ValueKind::time, "HH:MM",
                                "end time: the duration comes from start, break and end"};
inline constexpr OptionSpec client{"--client", Arity::one, ValueKind::clientName, "TEXT", "client"};
inline constexpr OptionSpec project{"--project", Arity::one, ValueKind::projectName, "TEXT", "project"};
inline constexpr OptionSpec phase{"--phase", Arity::one, ValueKind::text, "TEXT", "phase"};
inline constexpr OptionSpec task{"--task", Arity::one, ValueKind::taskName, "TEXT", "task"};
inline constexpr OptionSpec duration{"--duration", Arity::one, ValueKind::text, "HOURS", "duration in hours"};
inline constexpr OptionSpec breakTime{"--break", Arity::one, ValueKind::text, "HOURS", "break in hours"};
inline constexpr OptionSpec status{"--status",       Arity::one,    ValueKind::numbered, "STATUS",
                                   "billing status", statusChoices, Family::none,        true};
inline constexpr OptionSpec currency{"--currency", Arity::one, ValueKind::text, "TEXT", "currency"};
inline constexpr OptionSpec rate{"--rate", Arity::one, ValueKind::text, "AMOUNT", "rate per hour"};
inline constexpr OptionSpec rateType{"--rate-type",  Arity::one,      ValueKind::numbered, "TYPE",
                                     "kind of rate", rateTypeChoices, Family::none,        true};
inline constexpr OptionSpec billTo{"--bill-to", Arity::one, ValueKind::contactName, "TEXT", "contact that is billed"};
inline constexpr OptionSpec custom1{"--custom1", Arity::one, ValueKind::text, "TEXT", "first custom field"};
inline constexpr OptionSpec custom2{"--custom2", Arity::one, ValueKind::text, "TEXT", "second custom field"};
inline constexpr OptionSpec custom3{"--custom3", Arity::one, ValueKind::text, "TEXT", "third custom field"};
inline constexpr OptionSpec note{"--note", Arity::one, ValueKind::text, "TEXT", "note", "", Family::note};
inline constexpr OptionSpec noteFile{
    "--note-file", Arity::one, ValueKind::file, "FILE", "note from a file: RTF or UTF-8 text", "", Family::note};
inline constexpr OptionSpec paidDate{"--paid-date",         Arity::one, ValueKind::date, "DATE",
                                     "date of the payment", "",         Family::none,    true};

inline constexpr std::string_view expenseTypeChoices = "general|mileage";
inline constexpr std::string_view yesNoChoices = "yes|no";

inline constexpr OptionSpec description{"--description", Arity::one, ValueKind::text, "TEXT", "what was paid for"};
inline constexpr OptionSpec category{"--category", Arity::one, ValueKind::text, "TEXT",
                                     "category (general expenses only)"};
inline constexpr OptionSpec amount{"--amount", Arity::one, ValueKind::text, "AMOUNT",
                                   "amount; of a mileage expense the rate per distance unit"};
inline constexpr OptionSpec startOdometer{
    "--start-odo", Arity::one, ValueKind::number, "N", "odometer at the start (mileage only)", "", Family::none, true};
inline constexpr OptionSpec distance{"--distance", Arity::one, ValueKind::number, "N", "distance (mileage only)", "",
                                     Family::none, true};
inline constexpr OptionSpec receipt{"--receipt", Arity::one, ValueKind::choice, "ANSWER", "whether there is a receipt",
                                    yesNoChoices};

inline constexpr OptionSpec copyTo{"--to", Arity::one,        ValueKind::date, "DATE", "copy to one day",
                                   "",     Family::copyTarget};
inline constexpr OptionSpec restOfWeek{
    "--rest-of-week", Arity::none, {}, "", "copy to the days left of the entry's week", "", Family::copyTarget};
inline constexpr OptionSpec copyUntil{
    "--until", Arity::one,        ValueKind::date, "DATE", "copy to every day after the entry's up to DATE",
    "",        Family::copyTarget};
inline constexpr OptionSpec includeWeekend{"--include-weekend", Arity::none, {}, "", "also to Saturdays and Sundays"};

inline constexpr OptionSpec day{"--day", Arity::optional, ValueKind::date, "DATE", "the day of DATE (default today)",
                                "",      Family::period};
inline constexpr OptionSpec week{"--week", Arity::optional, ValueKind::date, "DATE", "the week of DATE",
                                 "",       Family::period};
inline constexpr OptionSpec month{"--month", Arity::optional, ValueKind::date, "DATE", "the month of DATE",
                                  "",        Family::period};
inline constexpr OptionSpec custom{"--custom", Arity::two,    ValueKind::date, "FROM TO", "the days from FROM to TO",
                                   "",         Family::period};
inline constexpr OptionSpec all{"--all", Arity::none, {}, "", "all records, whatever their date", "", Family::period};

inline constexpr std::string_view entryArrangeChoices =
    "default|client|project|phase|task|bill-to|custom1|custom2|custom3";

inline constexpr OptionSpec hide{"--hide",
                                 Arity::one,
                                 ValueKind::numbered,
                                 "STATUS",
                                 "leave this status out (repeatable)",
                                 statusChoices,
                                 Family::none,
                                 false,
                                 true};
inline constexpr OptionSpec from{"--from", Arity::one, ValueKind::date, "DATE", "nothing before this day"};
inline constexpr OptionSpec to{"--to", Arity::one, ValueKind::date, "DATE", "nothing after this day"};
inline constexpr OptionSpec savedFilter{"--saved-filter", Arity::none, {}, "", "start from the stored filter"};
inline constexpr OptionSpec expenseKind{
    "--type", Arity::one, ValueKind::numbered, "TYPE", "type of the expense", expenseTypeChoices, Family::none, true};
inline constexpr OptionSpec forExpenses{"--expenses", Arity::none, {}, "", "the filter of expenses"};
inline constexpr OptionSpec arrange{
    "--arrange",        Arity::one, ValueKind::numbered, "FIELD", "sort by this field (default: the stored choice)",
    entryArrangeChoices};
inline constexpr OptionSpec columns{
    "--columns", Arity::one, ValueKind::text, "NAME,NAME,...",
    "print these columns (default: id, status and the list's columns in the stored order)"};

inline constexpr OptionSpec properties{"--properties", Arity::none, {}, "", "print the properties as stored"};
inline constexpr OptionSpec previous{"--previous",        Arity::one, ValueKind::number, "N",
                                     "N periods earlier", "",         Family::step};
inline constexpr OptionSpec next{"--next", Arity::one, ValueKind::number, "N", "N periods later", "", Family::step};
inline constexpr OptionSpec id{"--id", Arity::one, ValueKind::id, "ID", "change this record instead of adding one"};
inline constexpr OptionSpec steps{"--steps", Arity::one, ValueKind::number, "N", "so many changes (default 1)"};
inline constexpr OptionSpec entries{"--entries", Arity::one, ValueKind::number, "N",
                                    "number of time entries (default 1000)"};
inline constexpr OptionSpec seed{"--seed", Arity::one, ValueKind::number, "S", "another seed, other data (default 1)"};

inline constexpr OptionSpec taskProject{"--project", Arity::one, ValueKind::projectName, "PROJECT",
                                        "project of the task"};
inline constexpr OptionSpec rateKind{"--type", Arity::one,     ValueKind::numbered,
                                     "TYPE",   "kind of rate", rateTypeChoices};
inline constexpr OptionSpec rateDescription{"--description", Arity::one, ValueKind::text, "TEXT",
                                            "what the rate is for"};
inline constexpr OptionSpec rateAmount{"--rate", Arity::one, ValueKind::text, "AMOUNT",
                                       "the rate; digits past the second decimal are cut off"};
inline constexpr OptionSpec delimiter{"--delimiter",           Arity::one,           ValueKind::choice, "NAME",
                                      "between cells (comma)", "comma|semicolon|tab"};
inline constexpr OptionSpec decimalMark{"--decimal", Arity::one,           ValueKind::choice,
                                        "NAME",      "in numbers (point)", "point|comma"};
inline constexpr OptionSpec noByteOrderMark{"--no-bom", Arity::none, {}, "", "begin without a byte order mark"};
inline constexpr OptionSpec wipeRates{"--rates", Arity::none, {}, "", "delete all rates too"};

inline constexpr OptionSpec verify{"--verify", Arity::none, {}, "", "read every copy and say whether it is sound"};
inline constexpr OptionSpec restoreSettings{
    "--settings", Arity::none, {}, "", "restore the settings instead of the records"};

inline constexpr OptionSpec timerDate{"--date", Arity::one, ValueKind::date, "DATE", "day of the start (today)"};
inline constexpr OptionSpec timerStart{"--start", Arity::one, ValueKind::time, "HH:MM", "time of the start (now)"};
inline constexpr OptionSpec timerDuration{"--duration", Arity::one, ValueKind::text, "H:M:S", "time that has run"};
inline constexpr OptionSpec timerBreak{"--break", Arity::one, ValueKind::text, "H:M:S", "time of the breaks"};
inline constexpr OptionSpec timerSave{"--save", Arity::none, {}, "", "save the entry without opening the editor"};

} // namespace option

/// The options that every command takes.
[[nodiscard]] const OptionGroup& globalOptions();

/// The command words in the order in which help lists them.
[[nodiscard]] std::span<const TopicSpec> topics();

/// Every command, those of one topic together; not the one that only completion scripts call.
[[nodiscard]] std::span<const CommandSpec> commands();

/// The commands of one topic; empty for an unknown word.
[[nodiscard]] std::span<const CommandSpec> commandsOf(std::string_view topic);

/// The option groups that are in use.
[[nodiscard]] std::span<const OptionGroup* const> groupsOf(const CommandSpec& command);

/// The option of that name that the command takes, global ones included; null when there is none.
[[nodiscard]] const OptionSpec* findOption(const CommandSpec* command, std::string_view name);

/// Calls `visit` with each of the words that `choices` separates by '|'.
template<typename Visitor>
constexpr void forEachChoice(std::string_view choices, Visitor visit) {
    while (!choices.empty()) {
        const auto bar = choices.find('|');
        visit(choices.substr(0, bar));
        choices = bar == std::string_view::npos ? std::string_view{} : choices.substr(bar + 1);
    }
}

} // namespace hourwright::cli
