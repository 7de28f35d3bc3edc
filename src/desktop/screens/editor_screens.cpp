#include "desktop/editor/copy_dialog.h"
#include "desktop/editor/entry_dialog.h"
#include "desktop/editor/times_dialog.h"
#include "desktop/screens/screens.h"
#include "store/date_walk.h"

#include <QTabWidget>

namespace hourwright::desktop {

namespace {

// An entry of the demo with everything filled in as far as there is one.
store::TimeEntry sampleEntry(MainWindow& window) {
    store::TimeEntry entry;
    store::TimeEntry best;
    store::DateWalk walk(window.workspace().stores().entries(), {});
    while (walk.next(entry) == store::ReadResult::ok)
        if (!entry.note.empty() && !entry.project.empty() && store::hasStart(entry) && entry.rate > 0)
            best = entry;
    return best;
}

std::function<QWidget*(MainWindow&)> page(int index) {
    return [index](MainWindow& window) {
        auto* dialog = new EntryDialog(window.workspace(), sampleEntry(window), &window);
        dialog->findChild<QTabWidget*>()->setCurrentIndex(index);
        return dialog;
    };
}

QWidget* newEntry(MainWindow& window) {
    window.commands().run(app::Command::newEntry);
    auto* dialog = window.findChild<EntryDialog*>();
    dialog->setAttribute(Qt::WA_DeleteOnClose, false);
    return dialog;
}

} // namespace

void addEditorScreens(std::vector<Screen>& screens) {
    screens.push_back({"entry-new", newEntry});
    screens.push_back({"entry-general", page(0)});
    screens.push_back({"entry-billing", page(1)});
    screens.push_back({"entry-note", page(2)});
    screens.push_back({"entry-custom", page(3)});
    screens.push_back({"entry-times", [](MainWindow& window) {
                           return new TimesDialog(window.workspace(), sampleEntry(window), &window);
                       }});
    screens.push_back({"entry-copy", [](MainWindow& window) {
                           return new CopyDialog(window.workspace(), sampleEntry(window), &window);
                       }});
}

} // namespace hourwright::desktop
