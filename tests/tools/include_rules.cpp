#include "tools/include_rules.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace hourwright::tools {
namespace {

struct Floor {
    std::string_view name;
    int height;
};

constexpr std::array<Floor, 8> floors = {{{"resources", 0},
                                          {"platform", 1},
                                          {"store", 2},
                                          {"billing", 3},
                                          {"app", 4},
                                          {"exchange", 5},
                                          {"cli", 6},
                                          {"desktop", 6}}};
constexpr int platformHeight = 1;
constexpr int faceHeight = 6;

struct Adapter {
    std::string_view library;
    std::string_view folder;
};

constexpr Adapter sqlite{"SQLite", "platform/sqlite/"};
constexpr Adapter icu{"ICU", "platform/icu/"};
constexpr Adapter posix{"the system", "platform/posix/"};
constexpr Adapter qt{"Qt", "platform/qt/"};
constexpr Adapter opus{"Opus", "platform/opus/"};
constexpr Adapter nettle{"Nettle", "platform/nettle/"};
constexpr std::array adapters = {sqlite, icu, posix, qt, opus, nettle};

const Floor* floorOf(std::string_view path) {
    const auto name = path.substr(0, path.find('/'));
    const auto found = std::ranges::find(floors, name, &Floor::name);
    return found == floors.end() || name.size() == path.size() ? nullptr : &*found;
}

// The library that a header in angle brackets belongs to; null for the C++ standard library, whose headers are the
// only ones without a folder or an ending.
const Adapter* libraryOf(std::string_view header) {
    if (header == "sqlite3.h")
        return &sqlite;
    if (header.starts_with("unicode/"))
        return &icu;
    if (header.starts_with("opus/"))
        return &opus;
    if (header.starts_with("nettle/"))
        return &nettle;
    if (header.size() > 1 && header[0] == 'Q' && std::isalpha(static_cast<unsigned char>(header[1])) != 0)
        return &qt;
    return header.find_first_of("./") == std::string_view::npos ? nullptr : &posix;
}

std::optional<std::string> objectionToLibrary(std::string_view file, std::string_view header) {
    const Adapter* library = libraryOf(header);
    if (library == nullptr || file.starts_with(library->folder))
        return std::nullopt;
    if (library->library == qt.library && file.starts_with("desktop/"))
        return std::nullopt;
    return "a header of " + std::string(library->library) + " belongs in " + std::string(library->folder);
}

std::optional<std::string> objectionToOwn(std::string_view file, std::string_view header) {
    const Floor* from = floorOf(file);
    const Floor* to = floorOf(header);
    if (from == nullptr || to == nullptr)
        return "it is not named from src/ with its floor";
    if (to->height > from->height || (to->height == from->height && to->name != from->name))
        return "an include goes down only";
    const bool ofAdapter =
        std::ranges::any_of(adapters, [&](const Adapter& a) { return header.starts_with(a.folder); });
    if (ofAdapter && from->height != platformHeight && from->height != faceHeight)
        return "adapters are known to the platform and to the faces only";
    return std::nullopt;
}

std::string_view withoutBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

} // namespace

std::optional<std::string> includedBy(std::string_view line) {
    line = withoutBlanks(line);
    if (!line.starts_with('#'))
        return std::nullopt;
    line = withoutBlanks(line.substr(1));
    if (!line.starts_with("include"))
        return std::nullopt;
    line = withoutBlanks(line.substr(std::string_view("include").size()));
    const auto end = line.find_first_of(line.starts_with('<') ? ">" : "\"", 1);
    return std::string(line.substr(0, end == std::string_view::npos ? end : end + 1));
}

std::optional<std::string> objection(std::string_view file, std::string_view include) {
    if (include.size() > 2 && include.front() == '"' && include.back() == '"')
        return objectionToOwn(file, include.substr(1, include.size() - 2));
    if (include.size() > 2 && include.front() == '<' && include.back() == '>')
        return objectionToLibrary(file, include.substr(1, include.size() - 2));
    return "it cannot be read";
}

} // namespace hourwright::tools
