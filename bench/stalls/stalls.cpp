#include "stalls/stalls.h"

#include "desktop/bulk/progress_window.h"
#include "desktop/bulk/replace_dialog.h"
#include "desktop/exports/export_note.h"
#include "desktop/lists/list_view.h"
#include "desktop/main_window.h"
#include "stalls/heartbeat.h"
#include "store/date_walk.h"

#include <QApplication>
#include <QLineEdit>
#include <functional>

namespace hourwright::bench {

namespace {

using app::Command;
using platform::Answer;

struct Figures {
    double total = 0;
    double stall = 0;
    double busy = 0;    ///< the longest in processor time
    double allBusy = 0; ///< processor time of the first thread in all
};

class Stalls {
public:
    Stalls(WindowHome& home, int runs) : home_(home), runs_(runs), window_(home.workspace()) {
        window_.resize(1280, 800);
        window_.show();
        settle();
        QObject::connect(&accepter_, &QTimer::timeout, &accepter_, [this] { acceptDialogs(); });
        accepter_.start(1);
    }

    void run() {
        thereAndBack("mark_paid", [this] { answer(Command::markViewPaid, {Answer::yes}); });
        command(Command::redo);
        measure(
            "undo", [this] { command(Command::undo); }, [this] { command(Command::redo); });
        measure(
            "redo", [this] { command(Command::redo); }, [this] { command(Command::undo); });
        command(Command::undo);
        thereAndBack("mark_billed", [this] { answer(Command::markBilledEntries, {}); });
        thereAndBack("delete", [this] { answer(Command::deleteByCriteria, {Answer::ok}); });
        thereAndBack(
            "delete_selected", [this] { answer(Command::deleteSelected, {Answer::yes}); },
            [this] { command(Command::selectAll); });
        thereAndBack("replace_text", [this] { replace(); });
        home_.workspace().view().arrangeBy(1);
        window_.showView();
        settle();
        thereAndBack("mark_paid_arranged", [this] { answer(Command::markViewPaid, {Answer::yes}); });
        home_.workspace().view().arrangeBy(0);
        window_.showView();
        settle();
        measure(
            "find_in_vain", [this] { find(); }, [this] { home_.workspace().recordsChanged(); });
        measure(
            "export_csv", [this] { command(Command::exportCsv); }, [this] { closeNotes(); });
        measure(
            "export_xml", [this] { command(Command::exportXml); }, [this] { closeNotes(); });
    }

private:
    // A change, which is taken back before the next run.
    void thereAndBack(
        const std::string& name, const std::function<void()>& change, const std::function<void()>& prepare = [] {}) {
        prepare();
        measure(name, change, [&] {
            command(Command::undo);
            settle();
            prepare();
        });
        command(Command::undo);
    }

    void measure(const std::string& name, const std::function<void()>& work, const std::function<void()>& between) {
        Figures best;
        for (int run = 0; run < runs_; ++run) {
            if (run > 0) {
                between();
                settle();
            }
            const Figures figures = measureOnce(work);
            best.total = run == 0 ? figures.total : std::min(best.total, figures.total);
            best.stall = run == 0 ? figures.stall : std::min(best.stall, figures.stall);
            best.busy = run == 0 ? figures.busy : std::min(best.busy, figures.busy);
            best.allBusy = run == 0 ? figures.allBusy : std::min(best.allBusy, figures.allBusy);
        }
        printFigure(name + ".total", best.total, "ms");
        printFigure(name + ".stall", best.stall, "ms");
        printFigure(name + ".busy", best.busy, "ms");
        printFigure(name + ".all_busy", best.allBusy, "ms");
    }

    Figures measureOnce(const std::function<void()>& work) {
        Heartbeat heartbeat;
        QElapsedTimer timer;
        timer.start();
        work();
        settle();
        const double total = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        const double stall = heartbeat.longest();
        return {total, stall, heartbeat.longestBusy(), heartbeat.allBusy()};
    }

    // Until the view shows what there is.
    void settle() {
        const auto* const list = dynamic_cast<const desktop::ListView*>(&window_.view());
        while (list != nullptr && list->isLoading())
            QApplication::processEvents();
        QApplication::processEvents();
    }

    void command(Command command) {
        window_.commands().run(command);
        settle();
    }
    void answer(Command which, std::deque<Answer> answers) {
        home_.messages().script = std::move(answers);
        command(which);
    }

    // Of the first entry that has one.
    std::u16string someClient() {
        store::TimeEntry entry;
        store::DateWalk walk(home_.workspace().stores().entries(), {});
        while (walk.next(entry) == store::ReadResult::ok && entry.client.empty()) {
        }
        return entry.client;
    }

    void replace() {
        desktop::ReplaceDialog dialog(home_.workspace(), &window_);
        dialog.show();
        dialog.findChild<desktop::CompletingCombo*>("find")->setText(someClient());
        dialog.findChild<QLineEdit*>("replacement")->setText("A name that nobody has");
        home_.messages().script = {Answer::yes};
        dialog.accept();
    }

    void find() {
        bool ended = window_.view().findNext("text that no record has") != desktop::Found::searching;
        const auto connection = QObject::connect(&window_.view(), &desktop::RecordView::findEnded,
                                                 [&ended](bool /*found*/) { ended = true; });
        while (!ended)
            QApplication::processEvents();
        QObject::disconnect(connection);
    }

    void closeNotes() {
        for (auto* note : window_.findChildren<desktop::ExportNote*>())
            delete note;
    }

    void acceptDialogs() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog != nullptr && qobject_cast<desktop::ProgressWindow*>(dialog) == nullptr &&
            qobject_cast<desktop::ReplaceDialog*>(dialog) == nullptr)
            dialog->accept();
    }

    WindowHome& home_;
    int runs_;
    desktop::MainWindow window_;
    QTimer accepter_;
};

} // namespace

void measureStalls(WindowHome& home, int runs) {
    Stalls(home, runs).run();
}

} // namespace hourwright::bench
