#include "billing/entry_preview.h"

#include "billing/duration.h"

namespace hourwright::billing {

namespace {

// Takes one number over through the page's own checks, which also want a task.
bool takeHours(const EntryDraft& hours, const TimeRules& rules, store::TimeEntry& entry) {
    store::TimeEntry scratch;
    scratch.task = u" ";
    scratch.duration = entry.duration;
    scratch.breakTime = entry.breakTime;
    if (applyPage(DraftPage::general, hours, rules, scratch))
        return false;
    entry.duration = scratch.duration;
    entry.breakTime = scratch.breakTime;
    return true;
}

} // namespace

EntryPreview previewOf(const EntryDraft& touched, const RateChoice& rate, const TimeRules& rules,
                       const store::TimeEntry& entry) {
    EntryPreview preview{.entry = entry};
    EntryDraft time;
    time.date = touched.date;
    time.start = touched.start;
    time.withoutStart = touched.withoutStart;
    preview.entry.task = u" ";
    static_cast<void>(applyPage(DraftPage::general, time, rules, preview.entry));
    preview.entry.task = entry.task;
    EntryDraft hours;
    hours.duration = touched.duration;
    preview.durationReadable = takeHours(hours, rules, preview.entry);
    if (!preview.durationReadable)
        return preview;
    preview.total = rate.total(preview.entry, rules);
    const auto start = platform::toSystemTime(preview.entry.date);
    if (start && store::hasStart(preview.entry))
        preview.end = endTime(*start, preview.entry);
    return preview;
}

} // namespace hourwright::billing
