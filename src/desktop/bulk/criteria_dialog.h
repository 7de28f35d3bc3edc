#pragma once

#include "app/bulk_selection.h"
#include "app/filter_choices.h"
#include "desktop/dialog.h"
#include "desktop/filters/any_combo.h"
#include "desktop/filters/date_range_fields.h"

#include <array>
#include <optional>

class QCheckBox;
class QFormLayout;

namespace hourwright::desktop {

/// Asks which entries a bulk change is for; it begins with the period that is shown. The caller takes `criteria` when
/// it was accepted.
class CriteriaDialog : public Dialog {
    Q_OBJECT

public:
    CriteriaDialog(Workspace& workspace, app::BulkKind kind, QWidget* parent);

    [[nodiscard]] const app::EntryFilter& criteria() const { return criteria_; }

    void accept() override;

private:
    void addTexts(QFormLayout& form);
    void addStatuses();
    void narrow();

    struct Field {
        AnyCombo* combo;
        std::u16string app::EntryFilter::*text;
    };

    app::EntryFilter criteria_;
    app::FilterChoices choices_;
    std::optional<DateRangeFields> days_;
    std::array<Field, 5> fields_{}; ///< client, project, phase, task, bill to
    std::array<QCheckBox*, 4> statuses_{};
};

} // namespace hourwright::desktop
