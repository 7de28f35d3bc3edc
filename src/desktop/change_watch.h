#pragma once

#include "desktop/workspace.h"

#include <QTimer>
#include <optional>

namespace hourwright::desktop {

/// Tells the workspace when other programs have changed records: at once when they say so, soon when they do not. The
/// window's own changes do not count. When another file has taken the place of the records, a copy that was put back
/// for example, it is opened; one that cannot be used is told once.
class ChangeWatch : public QObject {
    Q_OBJECT

public:
    /// From now on. To be made before the first records are shown.
    explicit ChangeWatch(Workspace& workspace);

    /// Another program says that it has changed something. Many notices in a row make one look.
    void noticed();

private:
    void look();
    void followReplacement();
    [[nodiscard]] bool openAnew();

    Workspace& workspace_;
    std::optional<std::uint64_t> seen_;
    bool toldUnusable_ = false;
    QTimer burst_;
    QTimer regular_;
};

} // namespace hourwright::desktop
