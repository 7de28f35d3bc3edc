#pragma once

#include "app/idle_watch.h"
#include "app/timer_recovery.h"
#include "billing/timer_set.h"
#include "desktop/completing_combo.h"
#include "desktop/dialog.h"

#include <array>
#include <optional>

class QCheckBox;
class QDateTimeEdit;
class QLineEdit;

namespace hourwright::desktop {

/// "Add Timer": what the timer is for and when it started.
class AddTimerDialog : public Dialog {
public:
    /// Begins with the names of an entry, or none.
    AddTimerDialog(Workspace& workspace, const billing::TimerNames& names, QWidget* parent);

    [[nodiscard]] billing::TimerNames names() const;
    /// The time chosen; nothing means now.
    [[nodiscard]] std::optional<platform::SystemTime> start() const;

private:
    void fillBelow();

    CompletingCombo* client_;
    CompletingCombo* project_;
    CompletingCombo* phase_;
    CompletingCombo* task_;
    QCheckBox* startChosen_;
    QDateTimeEdit* start_;
};

/// "Edit Timer": duration and break as hours, minutes and seconds.
class EditTimerDialog : public Dialog {
public:
    EditTimerDialog(Workspace& workspace, const billing::EntryTimer& timer, QWidget* parent);

    [[nodiscard]] std::int32_t duration() const { return duration_; } ///< seconds, once accepted
    [[nodiscard]] std::int32_t breakTime() const { return break_; }   ///< seconds, once accepted

protected:
    void accept() override;

private:
    using Fields = std::array<QLineEdit*, 3>;
    [[nodiscard]] static Fields addFields(class QFormLayout* form, const QString& label, std::int32_t seconds);
    [[nodiscard]] static std::optional<std::int32_t> secondsIn(const Fields& fields);

    Fields durationFields_;
    Fields breakFields_;
    std::int32_t duration_;
    std::int32_t break_;
};

/// Asks what to do with time that a running timer may have counted wrongly. Closing it keeps the time.
class DoubtDialog : public QDialog {
public:
    DoubtDialog(const app::DoubtfulTime& doubt, const billing::EntryTimer& timer, QWidget* parent);

    [[nodiscard]] app::DoubtAnswer answer() const { return answer_; }

private:
    app::DoubtAnswer answer_ = app::DoubtAnswer::keep;
};

enum class RecoveryAnswer : std::uint8_t { goOn, count, discard };

/// Offers the timers that a crashed program left behind. Closing it goes on with them.
class RecoveryDialog : public QDialog {
public:
    RecoveryDialog(const app::RecoveredTimers& timers, const platform::Locale& locale, QWidget* parent);

    [[nodiscard]] RecoveryAnswer answer() const { return answer_; }

private:
    RecoveryAnswer answer_ = RecoveryAnswer::goOn;
};

} // namespace hourwright::desktop
