#pragma once

#include "billing/rate_draft.h"
#include "desktop/dialog.h"

#include <functional>
#include <string>

class QComboBox;
class QLabel;
class QLineEdit;

namespace hourwright::desktop {

/// Edits one rate of a client, or a default rate. OK stores it.
class RateDialog : public Dialog {
    Q_OBJECT

public:
    /// A rate without id is a new one of its client id; `owner` is the client's name for the title.
    RateDialog(Workspace& workspace, store::RateRecord rate, const std::u16string& owner, QWidget* parent);

    /// Told the rate as it was stored.
    std::function<void(const store::RateRecord&)> saved;

    void accept() override;

private:
    void build();
    void fill(const billing::RateDraft& draft);
    [[nodiscard]] billing::RateDraft draft() const;
    void refuse(const billing::RateRefusal& refusal);

    store::RateRecord rate_;
    billing::RateDraft opened_;
    QComboBox* type_;
    QLineEdit* description_;
    QLineEdit* amount_;
    QLabel* modified_;
};

/// "Normal Rate" and so on.
[[nodiscard]] QString rateTypeText(store::RateType type);

/// When a rate was last changed, in the user's own writing; "<New>" for zero.
[[nodiscard]] QString modifiedText(const Workspace& workspace, platform::FileTime modified);

/// Asks, then deletes a rate.
void deleteRate(Workspace& workspace, store::RecordId id);

} // namespace hourwright::desktop
