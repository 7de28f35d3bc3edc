#pragma once

#include "desktop/workspace.h"
#include "platform/store_copies.h"

#include <QTimer>
#include <atomic>
#include <optional>
#include <thread>

namespace hourwright::desktop {

/// Makes the copy of the day while the window runs: a moment after the start, and later when the day has changed. The
/// work is done in a thread of its own with connections of its own; the window's end does not wait for it.
class DailyCopy : public QObject {
    Q_OBJECT

public:
    /// Takes over the copies, which nothing else may use from now on.
    DailyCopy(Workspace& workspace, std::unique_ptr<platform::StoreCopies> copies);
    ~DailyCopy() override;

    /// To be called when the window is shown.
    void start();
    /// Begins to make a copy when one is due and none is being made.
    void look();

signals:
    /// A look has ended, whatever came of it.
    void ended();
    /// The user wants to go back to a copy: the window should end, the next one restores it.
    void restartWanted();

private:
    void finish(const std::optional<platform::MadeCopy>& made);

    Workspace& workspace_;
    std::unique_ptr<platform::StoreCopies> copies_;
    std::thread worker_;
    std::atomic<bool> stop_{false};
    QTimer first_;
    QTimer regular_;
};

} // namespace hourwright::desktop
