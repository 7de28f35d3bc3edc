#include "support/temporary_directory.h"
#include "tools/include_rules.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

using namespace hourwright::tools;
namespace fs = std::filesystem;

namespace {

struct Include {
    std::string file;
    std::string include;
};

TEST(IncludeRules, AllowWhatGoesDown) {
    const Include cases[] = {
        {"store/time_entry.h", "\"platform/object_store.h\""},
        {"store/time_entry.cpp", "\"store/time_entry.h\""},
        {"billing/duration.cpp", "<cmath>"},
        {"platform/sqlite/connection.h", "<sqlite3.h>"},
        {"platform/icu/icu_locale.cpp", "<unicode/uchar.h>"},
        {"platform/posix/lock.cpp", "<sys/file.h>"},
        {"platform/posix/lock.cpp", "\"platform/sqlite/connection.h\""},
        {"cli/main/main.cpp", "\"platform/icu/icu_locale.h\""},
        {"desktop/main_window.h", "<QMainWindow>"},
        {"platform/qt/sound.cpp", "<QtMultimedia/QSoundEffect>"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(objection(c.file, c.include), std::nullopt) << c.file << " includes " << c.include;
}

TEST(IncludeRules, ObjectToWhatGoesUpOrPastAnAdapter) {
    const Include cases[] = {
        {"store/time_entry.cpp", "\"billing/duration.h\""},
        {"platform/utf.cpp", "\"store/fields.h\""},
        {"cli/entry.cpp", "\"desktop/main_window.h\""},
        {"desktop/main_window.cpp", "\"cli/args.h\""},
        {"billing/duration.cpp", "\"time_rules.h\""},
        {"billing/duration.cpp", "\"../store/fields.h\""},
        {"billing/duration.cpp", "\"gtest/gtest.h\""},
        {"store/record_store.cpp", "\"platform/sqlite/connection.h\""},
        {"store/record_store.cpp", "<sqlite3.h>"},
        {"platform/icu/icu_locale.cpp", "<sqlite3.h>"},
        {"platform/utf.cpp", "<unicode/ustring.h>"},
        {"app/settings.cpp", "<unistd.h>"},
        {"cli/main/main.cpp", "<sys/stat.h>"},
        {"exchange/csv.cpp", "<stdio.h>"},
        {"app/columns.h", "<QString>"},
        {"app/columns.h", "CONFIGURED_HEADER"},
        {"stray.cpp", "\"store/fields.h\""},
    };
    for (const auto& c : cases)
        EXPECT_NE(objection(c.file, c.include), std::nullopt) << c.file << " includes " << c.include;
}

TEST(IncludeRules, ReadIncludesFromLines) {
    EXPECT_EQ(includedBy("#include \"a/b.h\" // why"), "\"a/b.h\"");
    EXPECT_EQ(includedBy("  #  include <vector>"), "<vector>");
    EXPECT_EQ(includedBy("#include MACRO"), "MACRO");
    EXPECT_EQ(includedBy("#pragma once"), std::nullopt);
    EXPECT_EQ(includedBy("// #include <vector>"), std::nullopt);
    EXPECT_EQ(includedBy(""), std::nullopt);
}

// Objections to all sources below a folder, a line each; `files` counts what was read.
std::string objectionsBelow(const fs::path& sources, int& files) {
    std::string found;
    for (const auto& item : fs::recursive_directory_iterator(sources)) {
        if (item.path().extension() != ".h" && item.path().extension() != ".cpp")
            continue;
        ++files;
        const std::string name = item.path().lexically_relative(sources).generic_string();
        std::ifstream in(item.path());
        for (std::string line; std::getline(in, line);)
            if (const auto include = includedBy(line))
                if (const auto reason = objection(name, *include))
                    found += name + " includes " + *include + ": " + *reason + "\n";
    }
    return found;
}

TEST(Includes, OfMadeUpFilesAreFound) {
    const hourwright::test::TemporaryDirectory directory;
    const fs::path& folder = directory.path();
    fs::create_directories(folder / "store");
    std::ofstream(folder / "store" / "bad.cpp") << "#include <string>\n#include \"app/settings.h\"\n";
    int files = 0;
    EXPECT_EQ(objectionsBelow(folder, files), "store/bad.cpp includes \"app/settings.h\": an include goes down only\n");
    EXPECT_EQ(files, 1);
}

TEST(Includes, OfAllSourcesFollowTheRules) {
    int files = 0;
    EXPECT_EQ(objectionsBelow(HOURWRIGHT_SOURCES, files), "");
    EXPECT_GT(files, 20) << "the sources were not found below " << HOURWRIGHT_SOURCES;
}

} // namespace
