#include "desktop/lists/list_view.h"
#include "desktop/lists/record_tree.h"
#include "peak_memory.h"
#include "ratios/samples.h"
#include "view/plain_model.h"
#include "view/workspace_home.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTreeView>
#include <chrono>
#include <ctime>

using namespace hourwright;
using bench::Cost;
using bench::Samples;

namespace {

constexpr int rounds = 3;
constexpr int stops = 100;

template<typename Work>
Cost costOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t cpuStart = std::clock();
    work();
    const std::clock_t cpuTaken = std::clock() - cpuStart;
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return {.seconds = taken.count(), .cpuSeconds = static_cast<double>(cpuTaken) / CLOCKS_PER_SEC};
}

// What each of the rounds took.
struct ListTimes {
    Samples firstPaint;
    Samples complete; ///< until all rows are there and painted
    Samples step;     ///< the longest moment meanwhile in which the window did not answer
    Samples page;     ///< a page on average
    Samples slowestPage;
    Samples byClient; ///< arranged by a text
    Samples find;     ///< a text that no row has
};

// Goes through the whole list in equal jumps and paints the page at each stop.
void scrollThrough(QTreeView& tree, QWidget& window, Samples& average, Samples& slowest) {
    QScrollBar& bar = *tree.verticalScrollBar();
    Cost sum;
    Cost longest;
    for (int stop = 1; stop <= stops; ++stop) {
        const Cost page = costOf([&] {
            bar.setValue(static_cast<int>(std::int64_t{bar.maximum()} * stop / stops));
            window.grab();
        });
        sum.seconds += page.seconds;
        sum.cpuSeconds += page.cpuSeconds;
        if (page.seconds > longest.seconds)
            longest = page;
    }
    average.add({.seconds = sum.seconds / stops, .cpuSeconds = sum.cpuSeconds / stops});
    slowest.add(longest);
}

void show(desktop::ListView& view, Samples& first, Samples& complete, Samples& step) {
    Cost longest;
    complete.add(costOf([&] {
        first.add(costOf([&] {
            view.showView();
            view.grab();
        }));
        while (view.isLoading()) {
            const Cost once = costOf([] { QApplication::processEvents(); });
            if (once.seconds > longest.seconds)
                longest = once;
        }
        view.grab();
    }));
    step.add(longest);
}

// Long searches go on by themselves.
void findInVain(desktop::ListView& view) {
    bool searching = true;
    QObject::connect(&view, &desktop::RecordView::findEnded, &view, [&searching] { searching = false; });
    searching = view.findNext("text that no record has") == desktop::Found::searching;
    while (searching)
        QApplication::processEvents();
}

// A list that nothing has been read into before.
void measureList(desktop::Workspace& workspace, app::ListStyle style, ListTimes& times) {
    workspace.view().arrangeBy(0);
    desktop::ListView view(workspace, style, nullptr);
    view.resize(1280, 800);
    view.show();
    show(view, times.firstPaint, times.complete, times.step);
    scrollThrough(view.tree(), view, times.page, times.slowestPage);
    workspace.view().arrangeBy(1);
    Samples unused;
    show(view, unused, times.byClient, unused);
    workspace.view().arrangeBy(0);
    if (style == app::ListStyle::standard)
        times.find.add(costOf([&] { findInVain(view); }));
}

ListTimes measureStyle(desktop::Workspace& workspace, app::ListStyle style) {
    ListTimes times;
    for (int round = 0; round < rounds; ++round)
        measureList(workspace, style, times);
    for (Samples* const samples : {&times.firstPaint, &times.complete, &times.step, &times.page, &times.slowestPage,
                                   &times.byClient, &times.find})
        samples->peakMegabytes = bench::peakMegabytes();
    return times;
}

// The toolkit's own view over texts that cost nothing.
ListTimes measurePlain(int rows) {
    ListTimes times;
    for (int round = 0; round < rounds; ++round) {
        bench::PlainModel model(rows, 14);
        QTreeView view;
        view.setUniformRowHeights(true);
        view.setAlternatingRowColors(true);
        view.resize(1280, 800);
        times.firstPaint.add(costOf([&] {
            view.setModel(&model);
            view.show();
            view.grab();
        }));
        scrollThrough(view, view, times.page, times.slowestPage);
    }
    return times;
}

} // namespace

// Shows lists of many rows off-screen, and measures what a user waits for, as lines of JSON.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    QApplication application(argc, argv);
    bench::WorkspaceHome home;
    const ListTimes list = measureStyle(home.workspace, app::ListStyle::standard);
    const auto rows = static_cast<int>(std::min(home.stores.entries().recordCount(), home.mostRows));
    const ListTimes plain = measurePlain(rows);
    bench::writeRow("list first paint", list.firstPaint, &plain.firstPaint);
    bench::writeRow("list complete", list.complete);
    bench::writeRow("list longest step", list.step);
    bench::writeRow("list by client", list.byClient);
    bench::writeRow("scroll", list.page, &plain.page);
    bench::writeRow("scroll, slowest page", list.slowestPage, &plain.slowestPage);
    bench::writeRow("find in vain", list.find);
    bench::writeRow("scroll, simple list", measureStyle(home.workspace, app::ListStyle::simple).page, &plain.page);
    bench::writeRow("scroll, tree list", measureStyle(home.workspace, app::ListStyle::tree).page, &plain.page);
    return 0;
}
