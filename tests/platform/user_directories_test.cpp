#include "platform/posix/user_directories.h"

#include "support/temporary_directory.h"

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>

namespace hourwright::platform {

namespace {

namespace fs = std::filesystem;

using Variables = std::map<std::string, std::string>;

Environment environment(Variables variables) {
    return [variables = std::move(variables)](const char* name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    };
}

mode_t permissions(const fs::path& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0U;
}

TEST(UserDirectoriesTest, TheMostExplicitPlaceWins) {
    const Directories inHome{.data = "/h", .config = "/h", .state = "/h", .runtime = "/h/runtime", .ownHome = true};
    const Directories defaults{.data = "/u/.local/share/hourwright",
                               .config = "/u/.config/hourwright",
                               .state = "/u/.local/state/hourwright",
                               .runtime = "/u/.local/share/hourwright/runtime"};
    const Directories set{.data = "/d/hourwright",
                          .config = "/c/hourwright",
                          .state = "/s/hourwright",
                          .runtime = "/d/hourwright/runtime"};
    struct Case {
        const char* what;
        fs::path home;
        Variables variables;
        Directories expected;
    };
    const Variables xdg{{"HOME", "/u"}, {"XDG_DATA_HOME", "/d"}, {"XDG_CONFIG_HOME", "/c"}, {"XDG_STATE_HOME", "/s"}};
    const Case cases[] = {
        {"option", "/h", {{"HOME", "/u"}, {"HOURWRIGHT_HOME", "/other"}, {"XDG_DATA_HOME", "/d"}}, inHome},
        {"option with slash", "/h/", {}, inHome},
        {"option with dots", "/x/../h/.", {}, inHome},
        {"variable", "", {{"HOME", "/u"}, {"HOURWRIGHT_HOME", "/h"}, {"XDG_CONFIG_HOME", "/c"}}, inHome},
        {"empty variable", "", {{"HOME", "/u"}, {"HOURWRIGHT_HOME", ""}}, defaults},
        {"defaults", "", {{"HOME", "/u"}}, defaults},
        {"XDG", "", xdg, set},
        {"relative XDG", "", {{"HOME", "/u"}, {"XDG_DATA_HOME", "d"}, {"XDG_CONFIG_HOME", ""}}, defaults},
        {"missing runtime", "", {{"HOME", "/u"}, {"XDG_RUNTIME_DIR", "/missing"}}, defaults},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Directories found = userDirectories(c.home, environment(c.variables));
        EXPECT_EQ(found.data, c.expected.data);
        EXPECT_EQ(found.config, c.expected.config);
        EXPECT_EQ(found.state, c.expected.state);
        EXPECT_EQ(found.runtime, c.expected.runtime);
        EXPECT_EQ(found.ownHome, c.expected.ownHome);
    }
}

TEST(UserDirectoriesTest, FilesAndRelativeHomesHaveFullPaths) {
    const Directories relative = userDirectories("x/y", environment({}));
    EXPECT_EQ(relative.data, fs::current_path() / "x" / "y");
    const Directories defaults = userDirectories("", environment({{"HOME", "/u"}}));
    EXPECT_EQ(defaults.recordsFile(), "/u/.local/share/hourwright/hourwright.db");
    EXPECT_EQ(defaults.settingsFile(), "/u/.config/hourwright/settings.db");
    const Directories own = userDirectories("/h", environment({}));
    EXPECT_EQ(own.recordsFile(), "/h/hourwright.db");
    EXPECT_EQ(own.settingsFile(), "/h/settings.db");
}

TEST(UserDirectoriesTest, ARuntimeFolderMustBePrivate) {
    const test::TemporaryDirectory folder;
    const fs::path shared = folder / "shared";
    const fs::path own = folder / "own";
    fs::create_directory(shared);
    fs::permissions(shared, fs::perms{0750});
    fs::create_directory(own);
    fs::permissions(own, fs::perms{0700});
    const auto runtime = [](const fs::path& path) {
        return userDirectories("", environment({{"HOME", "/u"}, {"XDG_RUNTIME_DIR", path.string()}})).runtime;
    };
    EXPECT_EQ(runtime(own), own / "hourwright");
    EXPECT_EQ(runtime(shared), "/u/.local/share/hourwright/runtime");
}

TEST(UserDirectoriesTest, MakesWhatIsMissingForTheOwnerOnly) {
    const test::TemporaryDirectory folder;
    const Directories defaults = userDirectories("", environment({{"HOME", folder.path().string()}}));
    EXPECT_EQ(makeDirectories(defaults), PlatformError::none);
    EXPECT_EQ(makeDirectories(defaults), PlatformError::none);
    for (const char* made : {".local", ".local/share", ".local/share/hourwright", ".local/share/hourwright/runtime",
                             ".local/state/hourwright", ".config/hourwright"})
        EXPECT_EQ(permissions(folder / made), 0700U) << made;
}

TEST(UserDirectoriesTest, AnOwnHomeIsMadeButNotItsParent) {
    const test::TemporaryDirectory folder;
    const Directories own = userDirectories(folder / "home", environment({}));
    EXPECT_EQ(makeDirectories(own), PlatformError::none);
    EXPECT_EQ(permissions(folder / "home"), 0700U);
    EXPECT_EQ(permissions(folder / "home/runtime"), 0700U);

    EXPECT_EQ(makeDirectories(userDirectories(folder / "typo/home", environment({}))), PlatformError::pathNotFound);
    EXPECT_FALSE(fs::exists(folder / "typo"));

    fs::permissions(folder / "home", fs::perms{0755});
    EXPECT_EQ(makeDirectories(own), PlatformError::none);
    EXPECT_EQ(permissions(folder / "home"), 0755U);
}

TEST(UserDirectoriesTest, AFileInTheWayIsAnError) {
    const test::TemporaryDirectory folder;
    std::ofstream(folder / "file").put('x');
    EXPECT_EQ(makePrivateDirectory(folder / "file", Parents::create), PlatformError::alreadyExists);
    EXPECT_EQ(makePrivateDirectory(folder / "file/below/it", Parents::create), PlatformError::alreadyExists);
    EXPECT_EQ(makePrivateDirectory("", Parents::create), PlatformError::pathNotFound);
}

TEST(UserDirectoriesTest, DocumentsAreWhereTheDesktopSays) {
    struct Case {
        const char* lines; // null: no file
        fs::path expected;
    };
    const Case cases[] = {
        {nullptr, "/u"},
        {"", "/u"},
        {"XDG_DOCUMENTS_DIR=\"$HOME/Papers\"\n", "/u/Papers"},
        {"# XDG_DOCUMENTS_DIR=\"$HOME/Old\"\nXDG_MUSIC_DIR=\"$HOME/Music\"\n  XDG_DOCUMENTS_DIR=\"/srv/My Papers\"",
         "/srv/My Papers"},
        {"XDG_DOCUMENTS_DIR=\"$HOME/a\\\"b\\$c\"\n", "/u/a\"b$c"},
        {"XDG_DOCUMENTS_DIR=\"$HOME/\"\n", "/u"},
        {"XDG_DOCUMENTS_DIR=\"$HOME/A\"\nXDG_DOCUMENTS_DIR=\"$HOME/B\"\n", "/u/B"},
        {"XDG_DOCUMENTS_DIR=\"relative\"\n", "/u"},
        {"XDG_DOCUMENTS_DIR=\"$HOMEless/x\"\n", "/u"},
        {"XDG_DOCUMENTS_DIRS=\"/x\"\nXDG_DOCUMENTS_DIR=unquoted\n", "/u"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.lines == nullptr ? "(no file)" : c.lines);
        const test::TemporaryDirectory config;
        if (c.lines != nullptr)
            std::ofstream(config / "user-dirs.dirs") << c.lines;
        const Variables variables{{"HOME", "/u"}, {"XDG_CONFIG_HOME", config.path().string()}};
        EXPECT_EQ(documentsDirectory(environment(variables)), c.expected);
    }
}

} // namespace

} // namespace hourwright::platform
