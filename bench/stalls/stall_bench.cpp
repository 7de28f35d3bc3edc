#include "stalls/stalls.h"

#include <QApplication>
#include <cstdlib>
#include <memory>

using namespace hourwright;

// How long the window does not react while it changes, searches and exports so many entries (200,000), the best of so
// many runs (3), off-screen; a figure a line.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    QApplication application(argc, argv);
    const std::uint64_t entries = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 200'000;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 3;
    const auto home = std::make_unique<bench::WindowHome>();
    if (!home->fill(entries))
        return 1;
    bench::measureStalls(*home, runs);
    return 0;
}
