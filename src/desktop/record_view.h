#pragma once

#include "app/view_totals.h"
#include "platform/file_time.h"
#include "store/record_store.h"

#include <QPoint>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace hourwright::desktop {

/// What a new entry begins with when it was asked for in a view: a day and, where time was marked, start and length.
struct EntrySeed {
    platform::SystemTime day;
    std::optional<platform::SystemTime> start; ///< hour and minute count
    std::optional<int> minutes;
};

/// What became of a search.
enum class Found : std::uint8_t { no, yes, searching };

/// One way of showing the records of the current view. It reads what to show (kind of records, period, filter, layout)
/// from its workspace when it is told to.
class RecordView : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Shows the current view from its beginning: period, filter or options are others than before.
    virtual void showView() = 0;
    /// Shows the same view anew after records changed; selection and scroll position stay as far as they can.
    virtual void reload() = 0;

    [[nodiscard]] virtual app::ViewTotals totals() const = 0;
    [[nodiscard]] virtual std::vector<store::RecordId> selection() const = 0;
    /// Selects the records that are shown and makes the first of them visible.
    virtual void select(std::span<const store::RecordId> ids) = 0;
    virtual void selectAll() = 0;
    /// The selected records as lines with tabs between the columns shown; all records when none is selected.
    [[nodiscard]] virtual QString selectedText() const = 0;
    /// Goes to the next record after the current one, around the end, that shows the text anywhere. A search through
    /// very many goes on by itself; `findEnded` tells what came of it.
    [[nodiscard]] virtual Found findNext(const QString& text) = 0;
    /// Ends such a search; it tells nothing then.
    virtual void cancelFind() {}

signals:
    void findEnded(bool found);
    void selectionChanged();
    /// The totals or the number of records changed.
    void totalsChanged();
    /// An item was opened: by Enter, a double click, or a tap when that is what a tap does.
    void activated(hourwright::store::RecordId id);
    void contextMenuRequested(QPoint globalPosition);
    /// The menu of an empty place, where a new record would begin with the seed; nothing is selected.
    void placeMenuRequested(QPoint globalPosition, hourwright::desktop::EntrySeed seed);
    void newEntryRequested(hourwright::desktop::EntrySeed seed);
    /// The user went to another day within the view, for example by a heading of the week.
    void dayChosen(hourwright::platform::SystemTime day);
};

} // namespace hourwright::desktop
