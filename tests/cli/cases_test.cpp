#include "cli/case_file.h"
#include "cli/command_runner.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace hourwright::test {

namespace {

std::vector<std::filesystem::path> caseFiles() {
    std::vector<std::filesystem::path> files;
    for (const auto& file : std::filesystem::directory_iterator(CASES_FOLDER))
        if (file.path().extension() == ".txt")
            files.push_back(file.path());
    std::ranges::sort(files);
    return files;
}

void runSteps(const CaseFile& file, const std::string& locale) {
    CommandRunner runner;
    runner.variables["LC_ALL"] = locale;
    CaseNumbers numbers;
    for (const CaseStep& step : file.steps) {
        std::vector<std::string> words;
        for (const std::string& word : step.words)
            words.push_back(withNumbers(word, numbers));
        const CommandRunner::Result result = runner.run(words);
        keepNumbers(step.out, result.out, numbers);
        EXPECT_EQ(result.out, withNumbers(step.out, numbers)) << locale << ", line " << step.line << ": " << step.why;
        EXPECT_EQ(result.err, withNumbers(step.err, numbers)) << locale << ", line " << step.line << ": " << step.why;
        EXPECT_EQ(result.exitCode, step.exitCode) << locale << ", line " << step.line << ": " << step.why;
    }
}

class Cases : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(Cases, doWhatTheFileSays) {
    const CaseFile file = readCaseFile(GetParam());
    ASSERT_FALSE(file.steps.empty());
    if (!file.locale.empty())
        return runSteps(file, file.locale);
    for (const char* const locale : {"C", "de_DE.UTF-8", "ja_JP.UTF-8"})
        runSteps(file, locale);
}

INSTANTIATE_TEST_SUITE_P(Cli, Cases, testing::ValuesIn(caseFiles()),
                         [](const auto& file) { return file.param.stem().string(); });

} // namespace

} // namespace hourwright::test
