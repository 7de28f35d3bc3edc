#pragma once

#include "app/entry_filter.h"
#include "app/expense_filter.h"
#include "app/filter_choices.h"
#include "desktop/filters/any_combo.h"
#include "desktop/filters/date_range_fields.h"
#include "desktop/workspace.h"

#include <QWidget>
#include <array>
#include <optional>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QVBoxLayout;

namespace hourwright::desktop {

/// Which fields of a filter a form has.
enum class FilterExtent : std::uint8_t {
    all,
    stored, ///< without custom fields and dates, which hold only while the program runs
};

/// The fields that the forms of both filters have. Choosing a client narrows what the others offer.
class FilterForm : public QWidget {
    Q_OBJECT

public:
    /// True when the dates are in order; else says so and goes there.
    [[nodiscard]] bool check();

protected:
    FilterForm(Workspace& workspace, QWidget* parent);

    AnyCombo* addText(const QString& label, const char* name, std::span<const std::u16string> offered);
    QComboBox* addChoice(const resources::Text& label, const char* name);
    /// A custom field under its caption; nothing in a form without custom fields.
    AnyCombo* addCustom(FilterExtent extent, const std::u16string& caption, const char* name, store::PickList list);
    void addStatuses();
    void addRange();

    void displayCommon(const app::ViewFilter& filter);
    void storeCommon(app::ViewFilter& filter) const;

    [[nodiscard]] const app::FilterChoices& choices() const { return choices_; }

private:
    app::FilterChoices choices_;
    Workspace& workspace_;
    QFormLayout* form_;
    QVBoxLayout* beside_;                  ///< the column beside the texts; on a handheld it is below them
    std::array<QCheckBox*, 4> statuses_{}; ///< by number of status
    QGroupBox* rangeBox_ = nullptr;
    std::optional<DateRangeFields> range_;
};

/// The filter of time entries as fields.
class EntryFilterForm : public FilterForm {
    Q_OBJECT

public:
    EntryFilterForm(Workspace& workspace, FilterExtent extent, QWidget* parent = nullptr);

    void display(const app::EntryFilter& filter);
    /// Changes what the form has fields for.
    void store(app::EntryFilter& filter) const;

private:
    void narrow();

    struct Field {
        AnyCombo* combo;
        std::u16string app::EntryFilter::*text;
    };
    std::vector<Field> fields_;
    AnyCombo* client_;
    AnyCombo* project_;
    AnyCombo* task_;
    AnyCombo* billTo_;
    QComboBox* rateType_;
};

/// The filter of expenses as fields.
class ExpenseFilterForm : public FilterForm {
    Q_OBJECT

public:
    ExpenseFilterForm(Workspace& workspace, FilterExtent extent, QWidget* parent = nullptr);

    void display(const app::ExpenseFilter& filter);
    void store(app::ExpenseFilter& filter) const;

private:
    void narrow();

    struct Field {
        AnyCombo* combo;
        std::u16string app::ExpenseFilter::*text;
    };
    std::vector<Field> fields_;
    AnyCombo* client_;
    AnyCombo* project_;
    AnyCombo* billTo_;
    QComboBox* type_;
    QComboBox* receipt_;
};

} // namespace hourwright::desktop
