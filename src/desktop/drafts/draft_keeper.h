#pragma once

#include "app/drafts/draft_journal.h"
#include "desktop/workspace.h"

#include <QPointer>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

class QDialog;

namespace hourwright::desktop {

/// Writes down what is being edited, in every open dialog that is a `DraftSource`: every few seconds when something has
/// changed, and when the program ends. A dialog that closes, whichever way, leaves nothing. The next start offers what
/// a dialog could not close with.
class DraftKeeper : public QObject {
    Q_OBJECT

public:
    /// Borrows the workspace and the journal's registry, which is one of its own.
    DraftKeeper(Workspace& workspace, platform::Registry& journal);

    /// Begins to look after dialogs, and to offer what was left behind as soon as no other window wants an answer.
    void start();
    /// Writes down what has changed since the last time.
    void keep();
    /// Asks about the next draft that was left behind. True when one was opened again.
    bool offer();

    /// Opens the editor on a draft again; null when that is impossible.
    std::function<QDialog*(const app::KeptRecord&)> reopen;

private:
    // An open dialog and what was written down of it last.
    struct Watched {
        QPointer<QDialog> dialog;
        std::size_t place = 0;
        std::optional<app::KeptRecord> written;
    };

    void offerWhenFree();
    Watched& watch(QDialog* dialog, std::size_t place);
    Watched* find(const QDialog* dialog);
    void keep(QDialog* dialog, const app::KeptRecord& record);
    void closed(const QDialog* dialog);
    [[nodiscard]] std::optional<std::size_t> freePlace() const;

    Workspace& workspace_;
    app::DraftJournal journal_;
    std::vector<Watched> watched_;
    std::vector<app::KeptDraft> left_; ///< not asked about yet
    std::vector<std::size_t> postponed_;
    QTimer regular_;
};

} // namespace hourwright::desktop
