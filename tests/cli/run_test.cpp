#include "cli/command_runner.h"
#include "cli/command_table.h"
#include "cli/completion.h"
#include "cli/man_page.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace hourwright::test {

namespace {

TEST(Run, outputThatCannotBeWrittenIsAFailure) {
    CommandRunner runner;
    runner.outCapacity = 20;
    const auto full = runner.run({"settings", "list"});
    EXPECT_EQ(full.exitCode, 1);
    EXPECT_EQ(full.err, "Error: 112\n");
    runner.outBroken = true;
    const auto broken = runner.run({"settings", "list"});
    EXPECT_EQ(broken.exitCode, 1);
    EXPECT_EQ(broken.err, "");
}

TEST(Run, argumentsMustBeUtf8) {
    CommandRunner runner;
    for (const char* const text : {"\xFF", "a\xC3", "\xED\xA0\x80"}) {
        const auto result = runner.run({"entry", "add", "--duration", "1", "--task", text});
        EXPECT_EQ(result.exitCode, 2) << text;
        EXPECT_TRUE(result.err.starts_with("hwctl: an argument is not valid UTF-8\n")) << result.err;
    }
}

TEST(Run, aStoreThatCannotBeOpenedIsSaidSoAndLeftAlone) {
    CommandRunner runner;
    const auto file = runner.home() / "hourwright.db";
    std::ofstream(file) << "not a store";
    const auto result = runner.run({"entry", "list"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(result.err.starts_with("Hourwright is unable to open the database!\n")) << result.err;
    EXPECT_EQ(std::ranges::count(result.err, '\n'), 2) << result.err;
    EXPECT_EQ(std::filesystem::file_size(file), 11U);
}

TEST(Run, longTextsAndNotesAreRefusedNotCut) {
    CommandRunner runner;
    const auto add = [&](const char* option, const std::string& text) {
        return runner.run({"entry", "add", "--duration", "1", "--task", "T", option, text});
    };
    EXPECT_EQ(add("--client", std::string(128, 'c')).exitCode, 0);
    EXPECT_EQ(add("--client", std::string(129, 'c')).err, "Error: 87\nThe entry cannot hold the value of --client.\n");
    EXPECT_EQ(add("--custom3", std::string(129, 'c')).exitCode, 1);
    EXPECT_EQ(add("--note", std::string(65000, 'n')).exitCode, 0);
    EXPECT_EQ(add("--note", std::string(65001, 'n')).err,
              "The note is too large. Please remove large voice recordings or drawings.\n");
}

TEST(Run, aNoteFileCountsAsTheNoteInItAndIsNeverCut) {
    CommandRunner runner;
    const auto add = [&](const std::string& bytes) {
        std::ofstream(runner.home() / "note") << bytes;
        return runner.run({"entry", "add", "--duration", "1", "--task", "T", "--note-file", runner.home() / "note"});
    };
    std::string formats;
    for (int i = 0; i < 10'000; ++i)
        formats += "{\\b x}"; // 10,000 characters in 70,000 bytes
    EXPECT_EQ(add("{\\rtf1 " + formats + '}').exitCode, 0);
    EXPECT_EQ(add("{\\rtf1 " + std::string(65'001, 'x') + '}').exitCode, 1);
    EXPECT_EQ(add("{\\rtf1 {\\*\\unknown " + std::string(2'000'000, ' ') + "} x}").exitCode, 1)
        << "longer than is read";
}

TEST(Run, noteFilesAreTakenAsTheyAreOrAsText) {
    CommandRunner runner;
    const std::string rtf = "{\\rtf1\\ansi {\\b bold} text}";
    std::ofstream(runner.home() / "note.rtf") << rtf;
    std::ofstream(runner.home() / "note.txt") << "\xEF\xBB\xBFone\r\ntwo";
    const auto add = [&](const std::string& file) {
        return runner.run({"entry", "add", "--duration", "1", "--task", "T", "--note-file", runner.home() / file});
    };
    std::string id = add("note.rtf").out;
    id.pop_back();
    std::string hex;
    for (const char c : rtf)
        for (const int nibble : {c >> 4, c & 0xF})
            hex += "0123456789abcdef"[nibble];
    EXPECT_NE(runner.run({"entry", "show", id, "--properties"}).out.find("1012 BLOB " + hex + "\n"), std::string::npos);
    id = add("note.txt").out;
    id.pop_back();
    EXPECT_NE(runner.run({"entry", "show", id, "--json"}).out.find(R"("note":"one\ntwo")"), std::string::npos);
    EXPECT_EQ(add("missing.txt").exitCode, 1);
}

TEST(Run, helpNamesEveryCommandAndOption) {
    CommandRunner runner;
    const std::string general = runner.run({"--help"}).out;
    for (const cli::CommandSpec& command : cli::commands()) {
        EXPECT_NE(general.find("  " + std::string(command.name) + " "), std::string::npos) << command.name;
        std::vector<std::string> words{std::string(command.name)};
        if (!command.subcommand.empty())
            words.emplace_back(command.subcommand);
        words.emplace_back("--help");
        const auto help = runner.run(words);
        EXPECT_EQ(help.exitCode, 0);
        for (const cli::OptionGroup* group : cli::groupsOf(command))
            for (const cli::OptionSpec* option : group->options)
                EXPECT_NE(help.out.find("  " + std::string(option->name)), std::string::npos) << option->name;
    }
    EXPECT_EQ(runner.run({"--version"}).out.substr(0, 6), "hwctl ");
}

TEST(Pages, nameEveryCommand) {
    std::ifstream file(MAN_TEMPLATE);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const std::string man = cli::manPage(text, "1.2");
    EXPECT_EQ(man.find('@'), std::string::npos);
    for (const cli::CommandSpec& command : cli::commands()) {
        const std::string words =
            std::string(command.name) + (command.subcommand.empty() ? "" : " " + std::string(command.subcommand));
        std::string escaped = words;
        if (const auto dash = escaped.find('-'); dash != std::string::npos)
            escaped.insert(dash, "\\");
        EXPECT_NE(man.find(".B hwctl " + escaped), std::string::npos) << words;
        std::string key = words;
        std::ranges::replace(key, ' ', '/');
        if (command.subcommand.empty())
            key += '/';
        EXPECT_NE(cli::bashCompletion().find(key + ")"), std::string::npos) << words;
        EXPECT_NE(cli::zshCompletion().find(key + ")"), std::string::npos) << words;
        const std::string word(command.subcommand.empty() ? command.name : command.subcommand);
        EXPECT_NE(cli::fishCompletion().find(" -a " + word + " -d "), std::string::npos) << words;
    }
}

} // namespace

} // namespace hourwright::test
