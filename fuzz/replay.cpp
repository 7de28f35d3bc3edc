// Runs every target over the samples that are kept: fuzz_replay DATA-FOLDER

#include "fuzz/require.h"
#include "fuzz/targets.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using namespace hourwright::fuzz;

namespace {

struct Target {
    std::string_view name;
    void (*run)(Bytes);
    std::string_view otherSamples = {}; ///< folder beside the corpus of the target's name
};

constexpr Target targets[] = {
    {"note_document", noteDocument, "notes"}, {"foreign_note", foreignNote, "notes"},
    {"markup_document", markupDocument},      {"hand_over", handOver},
    {"registry_values", registryValues},      {"property_records", propertyRecords},
    {"typed_numbers", typedNumbers},          {"typed_dates", typedDates},
};

std::vector<fs::path> filesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator(folder, missing))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

bool holdsFor(const Target& target, const fs::path& sample) {
    std::ifstream file(sample, std::ios::binary);
    const std::string content(std::istreambuf_iterator<char>(file), {});
    try {
        target.run(std::as_bytes(std::span(content)));
    } catch (const Broken& broken) {
        std::cerr << target.name << ": " << sample << ": " << broken.what() << '\n';
        return false;
    }
    return true;
}

// A target without a single sample is a mistake in the paths.
bool replay(const Target& target, const fs::path& data) {
    std::vector<fs::path> samples = filesIn(data / "corpus" / target.name);
    if (!samples.empty() && !target.otherSamples.empty())
        std::ranges::copy(filesIn(data / target.otherSamples), std::back_inserter(samples));
    const auto broken =
        std::ranges::count_if(samples, [&](const fs::path& sample) { return !holdsFor(target, sample); });
    std::cout << target.name << ": " << samples.size() << " samples, " << broken << " broken\n";
    return !samples.empty() && broken == 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: fuzz_replay DATA-FOLDER\n";
        return 2;
    }
    const auto failed = std::ranges::count_if(targets, [&](const Target& target) { return !replay(target, argv[1]); });
    return failed == 0 ? 0 : 1;
}
