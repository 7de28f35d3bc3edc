#include "app/start_options.h"

#include "platform/instance_channel.h"

#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

using Words = std::vector<std::string>;
using namespace std::string_literals;

TEST(StartOptions, AreRead) {
    const StartOptions none;
    struct Case {
        Words words;
        StartOptions expected;
    };
    const Case cases[] = {
        {{}, none},
        {{"--help"}, {.help = true}},
        {{"-h", "--version"}, {.help = true, .version = true}},
        {{"--new-entry"}, {.newEntry = true}},
        {{"--view", "month"}, {.view = PeriodKind::month}},
        {{"--view=day", "--new-entry"}, {.newEntry = true, .view = PeriodKind::day}},
        {{"--date", "2026-11-16"},
         {.date = platform::SystemTime{.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16}}},
        {{"--home", "/a b", "--locale=de_DE", "x.hwd"}, {.home = "/a b", .locale = "de_DE", .file = "x.hwd"}},
        {{"--", "--view"}, {.file = "--view"}},
        {{"-"}, {.file = "-"}},
        {{"-platform", "offscreen", "--style", "fusion", "-session", "12"}, none},
    };
    for (const Case& c : cases)
        EXPECT_EQ(parseStartOptions(c.words), c.expected) << testing::PrintToString(c.words);
}

TEST(StartOptions, AreRefusedWithAReason) {
    struct Case {
        Words words;
        std::string error;
    };
    const Case cases[] = {
        {{"--nonsense"}, "unknown option '--nonsense'"},
        {{"-x"}, "unknown option '-x'"},
        {{"--view"}, "the option --view needs a value"},
        {{"--view", "custom"}, "the option --view cannot be 'custom'"},
        {{"--home="}, "the option --home cannot be ''"},
        {{"--date", "2026-02-30"}, "the option --date cannot be '2026-02-30'"},
        {{"--date", "1600-12-31"}, "the option --date cannot be '1600-12-31'"},
        {{"--date", "2026-1-05x"}, "the option --date cannot be '2026-1-05x'"},
        {{"--date", "+026-01-05"}, "the option --date cannot be '+026-01-05'"},
        {{"--date", "today"}, "the option --date cannot be 'today'"},
        {{"a.hwd", "b.hwd"}, "only one file can be opened"},
        {{""}, "a file has no name"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(parseStartOptions(c.words).error, c.error) << testing::PrintToString(c.words);
}

TEST(StartOptions, AreHandedOverWithoutWhatIsOfThisStartOnly) {
    struct Case {
        Words words;
        std::u16string line;
    };
    const Case cases[] = {
        {{}, u""},
        {{"--home", "/h", "--locale", "de_DE"}, u""},
        {{"--date", "2026-01-05", "--new-entry", "--view=week"}, u"--new-entry --view week --date 2026-01-05"},
        {{"x.hwd"}, u"/here/x.hwd"},
        {{"../My Files/a\"b.hwd"}, u"\"/My Files/a\\\"b.hwd\""},
        {{"/abs/M\xC3\xBCller.hwd"}, u"/abs/M\u00fcller.hwd"},
    };
    for (const Case& c : cases) {
        StartOptions options = parseStartOptions(c.words);
        ASSERT_EQ(options.error, "");
        const std::u16string line = handOverLine(options, "/here");
        EXPECT_EQ(line, c.line);
        EXPECT_EQ(platform::handOverMessage(line).payload.size(), (line.size() + 1) * 2);
        options.home.clear();
        options.locale.clear();
        if (!options.file.empty())
            options.file = (std::filesystem::path("/here") / options.file).lexically_normal();
        EXPECT_EQ(parseHandOverLine(line), options);
    }
}

TEST(StartOptions, LinesGoBackToTheirWords) {
    for (const Words& words : {Words{}, Words{"a", "b"}, Words{"a b", "", "\\", "\"\"", "tab\there", " "}})
        EXPECT_EQ(splitLine(joinLine(words)), words) << testing::PrintToString(words);
    EXPECT_EQ(splitLine(u"  a   \"b c"), (Words{"a", "b c"}));
    EXPECT_EQ(splitLine(u"a\\"), Words{"a\\"});
}

} // namespace
} // namespace hourwright::app
