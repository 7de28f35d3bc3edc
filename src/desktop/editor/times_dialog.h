#pragma once

#include "billing/start_break_end.h"
#include "desktop/dialog.h"

class QHBoxLayout;
class QLabel;
class QLineEdit;

namespace hourwright::desktop {

class ClockEdit;

/// Start, break and end of an entry's work, from which its duration follows.
class TimesDialog : public Dialog {
    Q_OBJECT

public:
    TimesDialog(Workspace& workspace, const store::TimeEntry& entry, QWidget* parent);

    void accept() override;

signals:
    /// The times were accepted: the entry with its start time, break and duration.
    void taken(const hourwright::store::TimeEntry& entry);

private:
    void addTimes();
    void addQuickMinutes();
    void connectTimes();
    void setMinute(std::uint16_t minute);
    void takeBreak();
    void showTimes();
    void showRefusedBreak();

    store::TimeEntry entry_;
    billing::StartBreakEnd times_;
    ClockEdit* start_;
    QLineEdit* break_;
    ClockEdit* end_;
    ClockEdit* lastFocused_;
    QLabel* hours_;
    bool breakRefused_ = false;
};

} // namespace hourwright::desktop
