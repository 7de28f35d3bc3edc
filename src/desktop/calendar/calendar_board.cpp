#include "desktop/calendar/calendar_board.h"

#include "app/settings_rules.h"
#include "billing/duration.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/calendar.h"

#include <algorithm>

namespace hourwright::desktop {

using platform::toQString;

CalendarBoard::CalendarBoard(Workspace& workspace, QObject* parent) : QObject(parent), workspace_(workspace) {}

void CalendarBoard::load() {
    const auto kept = selection();
    const app::EntryMatcher filter(workspace_.entryFilter(), workspace_.locale());
    const bool read = calendar_.load(workspace_.stores().entries(), workspace_.view().period(),
                                     app::weekStart(workspace_.settings()), filter, workspace_.timeRules());
    texts_.clear();
    for (const store::TimeEntry& entry : calendar_.entries()) {
        const auto label = app::entryLabel(entry, workspace_.display(), workspace_.locale());
        texts_.push_back({toQString(label.time), toQString(label.start), toQString(label.title),
                          toQString(label.detail), toQString(label.initials), toQString(label.full)});
    }
    setSelected(kept);
    if (!read)
        workspace_.showStoreError();
}

std::vector<store::RecordId> CalendarBoard::selection() const {
    std::vector<store::RecordId> ids;
    for (std::size_t i = 0; i < selected_.size(); ++i)
        if (selected_[i])
            ids.push_back(entry(i).id);
    return ids;
}

void CalendarBoard::setSelected(const std::vector<store::RecordId>& ids) {
    selected_.assign(calendar_.entries().size(), false);
    current_.reset();
    for (const store::RecordId id : ids)
        if (const auto index = calendar_.find(id)) {
            selected_[*index] = true;
            current_ = current_.value_or(*index);
        }
}

void CalendarBoard::selectNone() {
    if (std::find(selected_.begin(), selected_.end(), true) == selected_.end())
        return;
    setSelected({});
    emit selectionChanged();
}

void CalendarBoard::selectOnly(std::size_t index) {
    setSelected({entry(index).id});
    emit selectionChanged();
}

void CalendarBoard::toggle(std::size_t index) {
    selected_[index] = !selected_[index];
    current_ = selected_[index] ? std::optional(index) : std::nullopt;
    emit selectionChanged();
}

void CalendarBoard::select(std::span<const store::RecordId> ids) {
    setSelected({ids.begin(), ids.end()});
    emit selectionChanged();
}

bool CalendarBoard::place(store::RecordId id, const billing::EntryPlace& place, app::DragKind kind) {
    const auto& name = kind == app::DragKind::move ? resources::calendar::moveEntry : resources::calendar::changeLength;
    const auto rules = workspace_.timeRules();
    const auto now = workspace_.clock().now();
    return workspace_.change(name.text, [&](platform::Transaction& transaction) {
        return billing::placeStoredEntry(transaction, workspace_.stores(), id, place, rules, now);
    });
}

QString CalendarBoard::preview(std::size_t index, const billing::EntryPlace& place) {
    store::TimeEntry placed = entry(index);
    if (billing::placeEntry(place, workspace_.timeRules(), placed))
        return {};
    const auto times = app::startAndEnd(placed, workspace_.locale());
    return toQString(times + u" · " + workspace_.locale().number(billing::formatHours(placed)) + u'h');
}

} // namespace hourwright::desktop
