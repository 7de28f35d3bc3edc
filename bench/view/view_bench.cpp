#include "demo_home.h"
#include "desktop/lists/list_view.h"
#include "desktop/lists/record_tree.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/system_clock.h"
#include "support/recording_message_box.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <cstdio>
#include <cstdlib>

using namespace hourwright;

namespace {

class NoShell : public platform::Shell {
public:
    bool open(const std::filesystem::path& /*file*/) override { return false; }
    bool openPage(const std::filesystem::path& /*page*/, const std::string& /*anchor*/) override { return false; }
};

double milliseconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// From the call until the first rows are painted, then until all rows are there and painted.
void measureShow(desktop::ListView& view, const char* what) {
    QElapsedTimer timer;
    timer.start();
    view.showView();
    view.grab();
    const double first = milliseconds(timer);
    double longestStep = 0;
    while (view.isLoading()) {
        QElapsedTimer step;
        step.start();
        QApplication::processEvents();
        longestStep = std::max(longestStep, milliseconds(step));
    }
    view.grab();
    std::printf("%-24s first paint %7.1f ms, complete %7.1f ms, longest step %6.1f ms, %zu rows\n", what, first,
                milliseconds(timer), longestStep, view.totals().items);
}

void measureScrolling(desktop::ListView& view, const char* what) {
    QScrollBar* bar = view.tree().verticalScrollBar();
    double longest = 0;
    double sum = 0;
    constexpr int pages = 100;
    for (int page = 0; page < pages; ++page) {
        QElapsedTimer timer;
        timer.start();
        bar->setValue(bar->value() + bar->pageStep());
        view.grab();
        longest = std::max(longest, milliseconds(timer));
        sum += milliseconds(timer);
    }
    std::printf("%-24s a page %.1f ms on average, %.1f ms at most\n", what, sum / pages, longest);
}

void measure(desktop::Workspace& workspace, app::ListStyle style, const char* name) {
    workspace.view().arrangeBy(0);
    desktop::ListView view(workspace, style, nullptr);
    view.resize(1280, 800);
    view.show();
    measureShow(view, name);
    measureScrolling(view, name);
    workspace.view().arrangeBy(1);
    measureShow(view, "  arranged by client");
    QElapsedTimer timer;
    timer.start();
    view.reload();
    std::printf("%-24s %.1f ms\n", "  reload", milliseconds(timer));
    timer.start();
    static_cast<void>(view.findNext("text that no record has"));
    std::printf("%-24s %.1f ms\n", "  find in vain", milliseconds(timer));
}

} // namespace

// Shows a list of very many rows off-screen and measures what a user waits for.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    bench::Home home;
    const std::uint64_t entries = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 100'000;
    app::AppSettings settings = app::AppSettings::load(home.registry, {.osMajorVersion = 4, .personalFolder = u""});
    settings.periodStart = {.year = 1990, .month = 1, .day = 1};
    settings.periodEnd = {.year = 2026, .month = 12, .day = 31};
    if (!home.fill(entries))
        return 1;
    const platform::Locales locales{platform::makeIcuLocale("en_US"), platform::makeIcuLocale("en_US")};
    const platform::FixedClock clock({.year = 2026, .month = 6, .day = 19});
    test::RecordingMessageBox messages;
    platform::PosixFiles files;
    NoShell shell;
    const std::filesystem::path folder = home.directory.path();
    desktop::Workspace workspace({.stores = home.stores,
                                  .registry = home.registry,
                                  .settings = settings,
                                  .locales = locales,
                                  .clock = clock,
                                  .messages = messages,
                                  .files = files,
                                  .shell = shell,
                                  .directories = {.data = folder, .config = folder, .state = folder, .runtime = folder},
                                  .variable = [](const char*) { return std::optional<std::string>(); }});
    if (!workspace.view().setKind(app::PeriodKind::custom))
        return 1;
    measure(workspace, app::ListStyle::standard, "default list");
    measure(workspace, app::ListStyle::simple, "simple list");
    measure(workspace, app::ListStyle::tree, "tree list");
    return 0;
}
