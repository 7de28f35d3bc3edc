#pragma once

#include "billing/expense_draft.h"
#include "billing/odometer_texts.h"
#include "desktop/workspace.h"
#include "store/client_tree.h"

#include <QWidget>
#include <optional>
#include <vector>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace hourwright::desktop {

class CompletingCombo;
class OdometerEditor;

/// The fields of one expense. What the client offers narrows projects and contacts.
class ExpenseForm : public QWidget {
    Q_OBJECT

public:
    ExpenseForm(Workspace& workspace, const store::ExpenseEntry& expense, QWidget* parent = nullptr);

    /// What was touched since the form opened.
    [[nodiscard]] billing::ExpenseDraft touched() const;
    [[nodiscard]] bool isTouched() const { return touched() != billing::ExpenseDraft{}; }
    /// What is wrong with a typed end odometer, as a refusal of the start, behind which it stands.
    [[nodiscard]] std::optional<billing::FieldRefusal<billing::OdometerField>> checkEnd() const;

    void focusOn(billing::ExpenseField field);
    void focusOnEnd();

private:
    void buildFirst(QFormLayout& form);
    void buildMoney(QFormLayout& form);
    void buildLast(QFormLayout& form);
    [[nodiscard]] QWidget* makePaidRow();
    void nameFields();
    void fillLists();
    void fill(const billing::ExpenseDraft& draft);
    [[nodiscard]] billing::ExpenseDraft read() const;
    void readOwn(billing::ExpenseDraft& draft) const;
    [[nodiscard]] platform::FileTime paidDate() const;
    void clientChanged();
    void offerOf(const store::ClientTree* client);
    void statusChanged();
    void showAmount();
    [[nodiscard]] bool isMileage() const { return expense_.type == store::ExpenseType::mileage; }
    [[nodiscard]] QWidget* widgetOf(billing::ExpenseField field) const;

    Workspace& workspace_;
    store::ExpenseEntry expense_;
    std::vector<store::ClientTree> clients_;
    const store::ClientTree* client_ = nullptr; ///< the last one known
    billing::ExpenseDraft shown_;
    platform::FileTime paid_;
    bool paidByStatus_ = false;

    QDateEdit* date_ = nullptr;
    CompletingCombo* clientBox_ = nullptr;
    CompletingCombo* project_ = nullptr;
    CompletingCombo* description_ = nullptr;
    CompletingCombo* category_ = nullptr;
    OdometerEditor* odometer_ = nullptr;
    QLineEdit* amount_ = nullptr;
    CompletingCombo* currency_ = nullptr;
    QLabel* total_ = nullptr;
    QComboBox* status_ = nullptr;
    QCheckBox* isPaid_ = nullptr;
    QDateEdit* paidDate_ = nullptr;
    CompletingCombo* billTo_ = nullptr;
    CompletingCombo* custom1_ = nullptr;
    CompletingCombo* custom2_ = nullptr;
    QCheckBox* receipt_ = nullptr;
    QPlainTextEdit* note_ = nullptr;
};

} // namespace hourwright::desktop
