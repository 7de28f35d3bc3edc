#pragma once

#include "billing/copy_entry.h"
#include "desktop/dialog.h"
#include "resources/text.h"

class QCheckBox;
class QFormLayout;
class QLabel;
class QRadioButton;

namespace hourwright::desktop {

class CompletingCombo;
class DayEdit;

/// Copies an entry to another day, to the rest of its week or to every day up to a date.
class CopyDialog : public Dialog {
    Q_OBJECT

public:
    CopyDialog(Workspace& workspace, store::TimeEntry entry, QWidget* parent);

    void accept() override;

signals:
    /// The copies were stored.
    void copied(const std::vector<hourwright::store::RecordId>& ids);

private:
    [[nodiscard]] QRadioButton* addTarget(QFormLayout& form, const resources::Text& label, DayEdit* day);
    void addChoices();
    void refresh();
    [[nodiscard]] billing::CopyTarget target() const;
    [[nodiscard]] billing::CopyOrder order() const;
    [[nodiscard]] std::optional<billing::CopyRefusal> makeCopies(billing::EntryCopies& copies);
    void refuse(const billing::CopyRefusal& refusal);

    store::TimeEntry entry_;
    QRadioButton* toDate_ = nullptr;
    DayEdit* date_;
    QRadioButton* toRestOfWeek_ = nullptr;
    QRadioButton* toEndDate_ = nullptr;
    DayEdit* endDate_;
    QCheckBox* weekend_;
    CompletingCombo* duration_;
    QLabel* outcome_;
    QString shownDuration_;
};

} // namespace hourwright::desktop
