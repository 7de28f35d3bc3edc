#include "cli/arguments.h"

#include <gtest/gtest.h>

namespace hourwright::cli {

namespace {

using Words = std::vector<std::string_view>;

TEST(Arguments, takeOptionsInEveryPlaceAndForm) {
    const Words words{"--json",   "entry",     "edit",      "--task=a=b",          "12",
                      "--client", "--task",    "--now",     "2026-11-16 09:00:00", "--task",
                      "last",     "--status=", "--no-start"};
    const CommandLine line = parseCommandLine(words);
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.arguments.positionals().front(), "12");
    EXPECT_EQ(line.arguments.value(option::client), "--task"); // a value may look like an option
    EXPECT_EQ(line.arguments.value(option::task), "last");     // the last one counts
    EXPECT_EQ(line.arguments.value(option::status), "");
    EXPECT_TRUE(line.arguments.has(option::json));
    EXPECT_TRUE(line.arguments.has(option::noStart));
    EXPECT_FALSE(line.arguments.has(option::start));
}

TEST(Arguments, takeAnOptionalValueOnlyWhenItIsOne) {
    const Words plain{"entry", "list", "--week", "--json"};
    EXPECT_FALSE(parseCommandLine(plain).arguments.value(option::week));
    const Words offset{"entry", "list", "--week", "-7", "--json"};
    EXPECT_EQ(parseCommandLine(offset).arguments.value(option::week), "-7");
    const Words two{"entry", "list", "--custom", "-7", "today"};
    EXPECT_EQ(parseCommandLine(two).arguments.value(option::custom, 1), "today");
}

TEST(Arguments, takeNegativeNumbersAndWhatFollowsTwoDashesAsArguments) {
    const Words offset{"period", "day", "-3"};
    EXPECT_EQ(parseCommandLine(offset).arguments.positionals().front(), "-3");
    const Words ended{"settings", "set", "--", "Custom1", "--json"};
    const CommandLine line = parseCommandLine(ended);
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.arguments.positionals()[1], "--json");
    const Words file{"export", "csv", "-"};
    EXPECT_EQ(parseCommandLine(file).arguments.positionals().front(), "-");
}

TEST(Arguments, stopAtHelp) {
    const Words words{"entry", "add", "--help", "--nonsense"};
    const CommandLine line = parseCommandLine(words);
    EXPECT_EQ(line.error, "");
    ASSERT_NE(line.command, nullptr);
    EXPECT_EQ(line.command->subcommand, "add");
}

TEST(Arguments, sayWhatIsWrong) {
    struct Row {
        Words words;
        std::string_view error;
    };
    const Row rows[] = {
        {{"entry", "add", "--task"}, "--task needs TEXT"},
        {{"entry", "list", "--custom", "today"}, "--custom needs FROM TO"},
        {{"entry", "list", "--json=1"}, "--json takes no value"},
        {{"entry", "list", "-x"}, "unknown option '-x'"},
        {{"entry", "list", "12"}, "unexpected argument '12'"},
        {{"--week", "entry", "list"}, "unknown option '--week'"},
        {{"entry", "delete"}, "missing ID"},
        {{"entry", "delete", "1", "x"}, "'x' will not do for ID: a record id is expected"},
        {{"entry", "show", "4294967296"}, "'4294967296' will not do for ID: a record id is expected"},
        {{"entry", "add", "--start", "9:00"}, "'9:00' will not do for --start: a time is HH:MM"},
        {{"entry", "add", "--start", "09:00", "--no-start"}, "--start and --no-start exclude each other"},
        {{"entry", "add", "--status", "4"},
         "'4' will not do for --status: it is one of non-billable billable billed paid"},
        {{"picklist", "show", "tasks"},
         "'tasks' will not do for LIST: it is one of phases currencies custom1 custom2 custom3 categories "
         "descriptions"},
        {{"period", "day", "--next", "-1"}, "'-1' will not do for --next: a number is expected"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(parseCommandLine(row.words).error, row.error);
}

TEST(Arguments, countChoicesFromZero) {
    EXPECT_EQ(choiceOf("non-billable", option::statusChoices), 0);
    EXPECT_EQ(choiceOf("paid", option::statusChoices), 3);
    EXPECT_EQ(choiceOf("4", option::rateTypeChoices), 4);
    EXPECT_EQ(choiceOf("fixed", option::rateTypeChoices), 3);
}

} // namespace

} // namespace hourwright::cli
