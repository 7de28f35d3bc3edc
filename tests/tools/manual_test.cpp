#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>
#include <string>

namespace fs = std::filesystem;

namespace {

using Names = std::set<std::string>;

const fs::path sources = HOURWRIGHT_SOURCES;
const fs::path manual = sources.parent_path() / "docs" / "manual" / "manual.html";

std::string textOf(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

// The first group of every match.
Names allOf(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern);
    Names found;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
        found.insert((*match)[1]);
    return found;
}

// The anchors that a source opens the manual at: of dialogs, of constants named so, and of commands. The condition in
// a constructor gives two.
Names anchorsIn(const std::string& source) {
    Names found = allOf(source, R"re([aA]nchor\w*\s*=\s*"(\w+)")re");
    found.merge(allOf(source, R"re(showHelp\("(\w+)"\))re"));
    found.merge(allOf(source, R"re(:\s*Dialog\(workspace,[^;{"]*"(\w+)")re"));
    found.merge(allOf(source, R"re(:\s*Dialog\(workspace,[^;{"]*"\w+"\s*:\s*"(\w+)")re"));
    return found;
}

std::string listed(const Names& names) {
    std::string text;
    for (const std::string& name : names)
        text += name + ' ';
    return text;
}

Names without(Names names, const Names& known) {
    for (const std::string& name : known)
        names.erase(name);
    return names;
}

TEST(Manual, AnchorsAreReadFromSources) {
    struct Case {
        std::string source;
        std::string anchors;
    };
    const Case cases[] = {
        {"constexpr const char* helpAnchor = \"export\";", "export "},
        {"constexpr auto anchor = \"editlist\";", "editlist "},
        {"workspace.showHelp(\"Main_Contents\");", "Main_Contents "},
        {"    : Dialog(workspace, toQString(a.text), \"copy\", parent), b(\"c\") {", "copy "},
        {"    : Dialog(workspace, toQString(a),\n  kind == x ? \"one\" : \"two\",\n parent)", "one two "},
        {"    : Dialog(workspace, {}, anchor, parent), search_(new QLineEdit) { setObjectName(\"s\");", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(listed(anchorsIn(c.source)), c.anchors) << c.source;
}

TEST(Manual, HasAPlaceForEveryAnchorOfTheWindow) {
    const Names ids = allOf(textOf(manual), R"re( id="([^"]+)")re");
    Names anchors;
    for (const auto& item : fs::recursive_directory_iterator(sources / "desktop"))
        if (item.path().extension() == ".cpp" || item.path().extension() == ".h")
            anchors.merge(anchorsIn(textOf(item.path())));
    EXPECT_GT(anchors.size(), 10U) << "too few anchors were found below " << sources;
    EXPECT_EQ(listed(without(anchors, ids)), "");
}

TEST(Manual, LeadsNowhereThatIsNotThere) {
    const std::string text = textOf(manual);
    const Names links = allOf(text, R"re(href="#([^"]*)")re");
    EXPECT_FALSE(links.empty());
    EXPECT_EQ(listed(without(links, allOf(text, R"re( id="([^"]+)")re"))), "");
    for (const std::string& picture : allOf(text, R"re(src="([^"]+)")re"))
        EXPECT_TRUE(fs::is_regular_file(manual.parent_path() / picture)) << picture;
}

} // namespace
