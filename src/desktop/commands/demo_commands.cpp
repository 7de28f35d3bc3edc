#include "app/demo/demo_store.h"
#include "desktop/commands/commands.h"
#include "desktop/main_window.h"
#include "exchange/note_document.h"

#include <QApplication>

namespace hourwright::desktop {

namespace {

// Enough for every view to show something, and loaded in a moment.
constexpr std::uint64_t demoEntries = 1000;

std::vector<std::byte> noteOf(std::u16string_view text) {
    return exchange::writeNote(exchange::fromPlainText(text));
}

void loadDemo(MainWindow& window) {
    auto& workspace = window.workspace();
    const app::demo::DemoOptions options{.entries = demoEntries, .lastDay = workspace.clock().localTime()};
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto result = app::demo::fillWithDemoHistory(workspace.stores(), options, noteOf);
    QApplication::restoreOverrideCursor();
    if (result == app::demo::DemoResult::failed)
        workspace.showStoreError();
    emit workspace.recordsChanged();
}

} // namespace

void addDemo(MainWindow& window) {
    window.loadDemo = [&window] { loadDemo(window); };
}

} // namespace hourwright::desktop
