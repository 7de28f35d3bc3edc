#pragma once

#include "billing/entry_preview.h"
#include "desktop/editor/field_widgets.h"
#include "resources/text.h"

#include <QWidget>

class QCheckBox;
class QFormLayout;
class QLabel;

namespace hourwright::desktop {

class CompletingCombo;
class RateField;

/// The page "Billing" of the entry editor: status, who is billed, rate, currency, paid date and the amount.
class BillingPage : public QWidget {
    Q_OBJECT

public:
    explicit BillingPage(Workspace& workspace, QWidget* parent = nullptr);

    void show(const billing::EntryDraft& draft);
    /// Puts what stands in the fields, the rate included, into a draft that holds what they began with.
    void collect(billing::EntryDraft& draft) const;
    void focusField(billing::DraftField field);

    [[nodiscard]] RateField& rate() { return *rate_; }
    [[nodiscard]] const RateField& rate() const { return *rate_; }
    void setBillTo(const std::u16string& text);
    void offerContacts(std::span<const std::u16string> contacts);
    void showPreview(const billing::EntryPreview& preview);

signals:
    void changed();
    void saveRequested();

private:
    void addPaidDate(QFormLayout& form);
    [[nodiscard]] CompletingCombo* addCombo(QFormLayout& form, const resources::Text& label);
    [[nodiscard]] QWidget* fieldOf(billing::DraftField field) const;

    Workspace& workspace_;
    QComboBox* status_;
    CompletingCombo* billTo_ = nullptr;
    RateField* rate_ = nullptr;
    CompletingCombo* currency_ = nullptr;
    QCheckBox* hasPaidDate_ = nullptr;
    DayEdit* paidDate_ = nullptr;
    QLabel* total_ = nullptr;
};

} // namespace hourwright::desktop
