#pragma once

#include "app/list_rows.h"
#include "desktop/record_view.h"
#include "desktop/workspace.h"

#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

namespace hourwright::desktop {

/// Finds the next row with a text. Rows that are near are looked at once, the others in steps of the event loop. What a
/// search has found is remembered, so that the next step of the same search is at once there.
class RowFinder : public QObject {
    Q_OBJECT

public:
    RowFinder(const Workspace& workspace, QObject* parent);

    /// Milliseconds until it is looked again whether the records can be read, while they are being changed.
    static constexpr int pause = 30;

    struct Request {
        app::ListRows& rows;
        std::vector<std::size_t> columns;
        QString text;
        std::size_t first; ///< where to begin; around the end
    };
    /// `position` has the row when there is one. `searching`: `ended` tells it later.
    [[nodiscard]] Found next(const Request& request, std::size_t& position);
    /// The same among the rows that can be looked at in a moment.
    [[nodiscard]] std::optional<std::size_t> near(const Request& request);

    [[nodiscard]] bool isSearching() const { return steps_.isActive(); }
    /// Ends a running search.
    void cancel();
    /// The rows are others, or about to be.
    void forget();

signals:
    void ended(std::optional<std::size_t> position);

private:
    /// Looks at rows one by one for a moment; `rest` becomes how many there are still.
    std::optional<std::size_t> look(const Request& request, std::size_t& rest);
    [[nodiscard]] std::optional<std::size_t> nextOfFound(std::size_t first) const;
    void step();

    const Workspace& workspace_;
    QTimer steps_;
    std::unique_ptr<app::RowSearch> search_;
    bool complete_ = false; // the search has looked at all rows
    QString text_;
    std::vector<std::size_t> columns_;
    std::size_t first_ = 0;
};

} // namespace hourwright::desktop
