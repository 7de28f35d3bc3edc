#pragma once

#include "app/calendar/calendar_days.h"
#include "app/calendar/entry_label.h"
#include "app/calendar/time_drag.h"
#include "desktop/workspace.h"

#include <QObject>
#include <QString>
#include <span>
#include <vector>

namespace hourwright::desktop {

/// What a calendar writes on an entry, ready to be painted.
struct BlockText {
    QString time, start, title, detail, initials, full;
};

/// What the parts of the calendar share: the entries shown, what is written on them, and which are selected.
class CalendarBoard : public QObject {
    Q_OBJECT

public:
    explicit CalendarBoard(Workspace& workspace, QObject* parent);

    /// Reads the current period anew. What is selected stays so as long as it is shown.
    void load();

    [[nodiscard]] Workspace& workspace() { return workspace_; }
    [[nodiscard]] const app::CalendarDays& calendar() const { return calendar_; }
    [[nodiscard]] const std::vector<app::CalendarDay>& days() const { return calendar_.days(); }
    [[nodiscard]] const store::TimeEntry& entry(std::size_t index) const { return calendar_.entries()[index]; }
    [[nodiscard]] const BlockText& text(std::size_t index) const { return texts_[index]; }

    [[nodiscard]] bool isSelected(std::size_t index) const { return selected_[index]; }
    [[nodiscard]] std::vector<store::RecordId> selection() const;
    /// The entry that was selected last, if it still is.
    [[nodiscard]] std::optional<std::size_t> current() const { return current_; }
    void selectNone();
    void selectOnly(std::size_t index);
    void toggle(std::size_t index);
    void select(std::span<const store::RecordId> ids);

    /// Gives an entry other times in the store, as one step that can be undone. False when it was refused, which the
    /// user has been told.
    bool place(store::RecordId id, const billing::EntryPlace& place, app::DragKind kind);

    /// Day, start and length in words, as an entry would have it that was placed so.
    [[nodiscard]] QString preview(std::size_t index, const billing::EntryPlace& place);

signals:
    void selectionChanged();

private:
    void setSelected(const std::vector<store::RecordId>& ids);

    Workspace& workspace_;
    app::CalendarDays calendar_;
    std::vector<BlockText> texts_;
    std::vector<bool> selected_;
    std::optional<std::size_t> current_;
};

} // namespace hourwright::desktop
