#pragma once

#include "desktop/workspace.h"

#include <QWidget>

class QCheckBox;

namespace hourwright::desktop {

class DayEdit;

/// Whether and on which day something was paid: a check box and a date.
class PaidField : public QWidget {
    Q_OBJECT

public:
    explicit PaidField(Workspace& workspace, QWidget* parent = nullptr);

    /// Zero: not paid.
    void show(platform::FileTime paid);
    /// The instant shown, with its time of day, as long as its day was not changed; else that day at 00:00.
    [[nodiscard]] platform::FileTime paidDate() const;
    /// A status was chosen: paid begins with today; what a status has set, another takes back.
    void follow(store::EntryStatus status);
    [[nodiscard]] QCheckBox* checkBox() const { return isPaid_; }

private:
    Workspace& workspace_;
    QCheckBox* isPaid_;
    DayEdit* date_;
    platform::FileTime paid_;
    bool setByStatus_ = false;
};

} // namespace hourwright::desktop
