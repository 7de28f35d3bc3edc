#pragma once

#include "billing/expense_draft.h"
#include "desktop/workspace.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

namespace hourwright::desktop {

class CompletingCombo;
class DayEdit;
class OdometerEditor;
class PaidField;

/// The fields of an expense with their labels, in the order of their rows; those of the other type are absent. The
/// form's owner owns them.
struct ExpenseFields {
    /// Adds the rows; `owner` owns what is no widget.
    void addTo(QFormLayout& form, Workspace& workspace, store::ExpenseType type, QObject* owner);
    [[nodiscard]] QWidget* of(billing::ExpenseField field) const;

    DayEdit* date = nullptr;
    CompletingCombo* client = nullptr;
    CompletingCombo* project = nullptr;
    CompletingCombo* description = nullptr;
    CompletingCombo* category = nullptr; ///< of a general expense
    OdometerEditor* odometer = nullptr;  ///< of a mileage expense
    QLineEdit* amount = nullptr;
    CompletingCombo* currency = nullptr;
    QLabel* total = nullptr; ///< of a mileage expense
    QCheckBox* receipt = nullptr;
    QComboBox* status = nullptr;
    PaidField* paid = nullptr;
    CompletingCombo* billTo = nullptr;
    CompletingCombo* custom1 = nullptr;
    CompletingCombo* custom2 = nullptr;
    QPlainTextEdit* note = nullptr;

private:
    void addFirst(QFormLayout& form, Workspace& workspace, bool mileage, QObject* owner);
    void addMoney(QFormLayout& form, bool mileage);
    void addStatus(QFormLayout& form, Workspace& workspace);
    void addLast(QFormLayout& form, const app::AppSettings& settings);
    void nameAll() const;
};

} // namespace hourwright::desktop
