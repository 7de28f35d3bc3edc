#pragma once

#include "billing/field_refusal.h"
#include "desktop/workspace.h"

#include <QComboBox>
#include <QDateEdit>
#include <QTimeEdit>
#include <functional>

namespace hourwright::desktop {

/// A date in the user's short form with a calendar to pick from. The wheel changes it only while it has the focus.
class DayEdit : public QDateEdit {
    Q_OBJECT

public:
    explicit DayEdit(Workspace& workspace, QWidget* parent = nullptr);

    void setDay(const platform::SystemTime& day);
    [[nodiscard]] platform::SystemTime day() const;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

/// A time of day, to the minute, in the user's form.
class ClockEdit : public QTimeEdit {
    Q_OBJECT

public:
    explicit ClockEdit(Workspace& workspace, QWidget* parent = nullptr);

    /// Hour and minute count.
    void setClock(const platform::SystemTime& time);
    [[nodiscard]] platform::SystemTime clock() const;

signals:
    void focused();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

/// Lets Enter save from an editable combo also while its proposals are shown, unless one of them is chosen.
void saveOnEnter(QComboBox& combo, const std::function<void()>& save);

/// Shows why something typed was refused.
template<typename Field>
void showRefusal(Workspace& workspace, const billing::FieldRefusal<Field>& refusal) {
    if (refusal.message == resources::StringId::error)
        workspace.messages().showError(platform::number(refusal.error));
    else
        workspace.messages().showCheck(refusal.message);
}

} // namespace hourwright::desktop
