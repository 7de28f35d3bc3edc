#include "app/demo/demo_store.h"
#include "platform/posix/flock_mutex.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "platform/sqlite/sqlite_registry.h"
#include "ratios/commands.h"
#include "ratios/report.h"
#include "ratios/walk.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

using namespace hourwright;
using bench::Cost;

struct Arguments {
    std::filesystem::path hwctl;
    std::filesystem::path folder; ///< the stores are made here once and used again
    std::uint64_t entries = 1'000'000;
};

// A home with a made-up history of so many entries, from an earlier run or made now.
std::filesystem::path makeHome(const Arguments& arguments, std::uint64_t entries) {
    std::filesystem::path home = arguments.folder / std::to_string(entries);
    if (std::filesystem::exists(home / "complete"))
        return home;
    std::filesystem::remove_all(home);
    std::filesystem::create_directories(home);
    const Cost cost = bench::runChild({arguments.hwctl, "--home", home, "--now", "2026-11-21 12:00:00", "demo",
                                       "--entries", std::to_string(entries)});
    if (cost.failed) {
        std::printf("hwctl demo failed\n");
        return {};
    }
    if (entries == arguments.entries)
        bench::printFigure("hwctl demo", cost.seconds, "s", entries == 1'000'000 ? 60 : 0);
    std::fclose(std::fopen((home / "complete").c_str(), "w"));
    return home;
}

bool parse(int argc, char** argv, Arguments& arguments) {
    if (argc < 3 || argc > 4)
        return false;
    arguments.hwctl = argv[1];
    arguments.folder = argv[2];
    return argc == 3 || std::from_chars(argv[3], argv[3] + std::strlen(argv[3]), arguments.entries).ec == std::errc{};
}

} // namespace

// usage: hourwright_ratios HWCTL FOLDER [ENTRIES]
int main(int argc, char** argv) {
    Arguments arguments;
    if (!parse(argc, argv, arguments)) {
        std::fprintf(stderr, "usage: hourwright_ratios HWCTL FOLDER [ENTRIES]\n");
        return 2;
    }
    bench::printHead(std::to_string(arguments.entries) + " entries");
    const std::filesystem::path small = makeHome(arguments, 1000);
    const std::filesystem::path large = makeHome(arguments, arguments.entries);
    if (small.empty() || large.empty())
        return 1;
    bench::measureWalk(large / "hourwright.db");
    bench::measureCommands(arguments.hwctl, large, small);
    return 0;
}
