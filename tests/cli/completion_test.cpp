#include "cli/completion.h"

#include "cli/command_runner.h"
#include "support/temporary_directory.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>

namespace hourwright::test {

namespace {

/// Runs the completion script in a bash in which the program is a script that knows some names.
class BashCompletion : public testing::Test {
protected:
    BashCompletion() {
        std::ofstream(directory_ / "completion") << cli::bashCompletion();
        std::ofstream(directory_ / "hwctl") << "case $* in\n"
                                               "'__names clients') printf '%s\\n' 'Acme Ltd' \"O'Neil\" '$(boom)' ;;\n"
                                               "'--home far __names clients') echo Faraway ;;\n"
                                               "'__names projects') echo Bridge ;;\n"
                                               "*) echo noise >&2; exit 1 ;;\n"
                                               "esac\n";
        std::filesystem::permissions(directory_ / "hwctl", std::filesystem::perms::owner_all);
    }

    /// What is offered for the last of these words, which stand as bash hands them over, one a line.
    std::string offered(const std::string& words) {
        const std::string script = "source " + (directory_ / "completion").string() + "; COMP_WORDS=(" +
                                   (directory_ / "hwctl").string() + " " + words +
                                   "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _hwctl 2>&1; "
                                   "printf '%s\\n' \"${COMPREPLY[@]}\"";
        std::ofstream(directory_ / "script") << script;
        FILE* const pipe = popen(("bash " + (directory_ / "script").string()).c_str(), "r");
        if (pipe == nullptr)
            return "no bash";
        std::string out;
        std::array<char, 4096> block{};
        for (std::size_t got = 0; (got = fread(block.data(), 1, block.size(), pipe)) > 0;)
            out.append(block.data(), got);
        pclose(pipe);
        return out;
    }

private:
    TemporaryDirectory directory_;
};

TEST_F(BashCompletion, offersTheNamesThatTheProgramKnows) {
    struct Case {
        std::string words;
        std::string offered;
    };
    const std::vector<Case> cases = {
        {"client delete ''", "Acme\\ Ltd\nO\\'Neil\n\\$\\(boom\\)\n"},
        {"client delete 'Acme\\ L'", "Acme\\ Ltd\n"},
        {"client delete '\"Acme L'", "Acme Ltd\n"},
        {"client delete B", "\n"},
        {"project delete x ''", "Bridge\n"},
        {"entry add --task t --client A", "Acme\\ Ltd\n"},
        {"--home far client delete ''", "Faraway\n"},
        {"rate add x --description ''", "\n"},
        {"rate add x --type o", "overtime\n"},
        {"contact add x ''", "\n"}, // the program fails: nothing is said
        {"client de", "delete\n"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(offered(c.words), c.offered) << c.words;
}

TEST(NamesForCompletion, askingMakesNoStore) {
    CommandRunner runner;
    EXPECT_EQ(runner.run({"__names", "clients"}), (CommandRunner::Result{0, "", ""}));
    EXPECT_TRUE(std::filesystem::is_empty(runner.home()));
}

} // namespace

} // namespace hourwright::test
