#pragma once

#include "desktop/dialog.h"
#include "exchange/spreadsheet_csv.h"
#include "store/entry_types.h"

class QCheckBox;
class QComboBox;
class QRadioButton;

namespace hourwright::desktop {

/// Asks which type of expenses the next CSV file is to hold; the view's filter decides when it shows one type only.
class ExpenseTypeDialog : public Dialog {
public:
    ExpenseTypeDialog(Workspace& workspace, QWidget* parent);

    [[nodiscard]] store::ExpenseType type() const;

private:
    QRadioButton* general_;
    QRadioButton* mileage_;
};

enum class OtherForm : std::uint8_t { spreadsheet, json, calendar };

/// Asks for the form of an export for other programs and how a file for spreadsheets is written.
class OtherExportDialog : public Dialog {
public:
    OtherExportDialog(Workspace& workspace, QWidget* parent);

    [[nodiscard]] OtherForm form() const;
    [[nodiscard]] exchange::SpreadsheetOptions options() const;

private:
    void showState();

    QComboBox* form_;
    QComboBox* delimiter_;
    QComboBox* decimalMark_;
    QCheckBox* byteOrderMark_;
};

} // namespace hourwright::desktop
