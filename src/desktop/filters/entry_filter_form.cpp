#include "desktop/filters/filter_form.h"

#include "platform/qt/qt_text.h"
#include "resources/strings.h"
#include "resources/texts/filters.h"

#include <QComboBox>

namespace hourwright::desktop {

namespace texts = resources::filters;
using app::EntryFilter;
using platform::toQString;
using resources::StringId;
using store::PickList;

EntryFilterForm::EntryFilterForm(Workspace& workspace, FilterExtent extent, QWidget* parent)
    : FilterForm(workspace, parent) {
    const auto& settings = workspace.settings();
    const auto add = [this](AnyCombo* combo, std::u16string EntryFilter::*text) {
        if (combo != nullptr)
            fields_.push_back({combo, text});
        return combo;
    };
    client_ = add(addText(toQString(texts::client), "client", choices().clients()), &EntryFilter::client);
    project_ = add(addText(toQString(texts::project), "project", {}), &EntryFilter::project);
    add(addText(toQString(texts::phase), "phase", choices().list(PickList::phases)), &EntryFilter::phase);
    task_ = add(addText(toQString(texts::task), "task", {}), &EntryFilter::task);
    billTo_ = add(addText(toQString(texts::billTo), "billTo", {}), &EntryFilter::billTo);
    add(addText(toQString(texts::currency), "currency", choices().list(PickList::currencies)), &EntryFilter::currency);
    add(addCustom(extent, settings.custom1Label.text(), "custom1", PickList::custom1), &EntryFilter::custom1);
    add(addCustom(extent, settings.custom2Label.text(), "custom2", PickList::custom2), &EntryFilter::custom2);
    add(addCustom(extent, settings.custom3Label.text(), "custom3", PickList::custom3), &EntryFilter::custom3);
    rateType_ = addChoice(texts::rateType, "rateType");
    for (const StringId name : {StringId::rateTypeNormal, StringId::rateTypeOvertime, StringId::rateTypeWeekend,
                                StringId::rateTypeFixed, StringId::rateTypeDiscount})
        rateType_->addItem(toQString(name));
    addStatuses();
    if (extent == FilterExtent::all)
        addRange();
    connect(client_, &QComboBox::currentTextChanged, this, [this] { narrow(); });
    connect(project_, &QComboBox::currentTextChanged, this, [this] { narrow(); });
    narrow();
}

void EntryFilterForm::narrow() {
    const std::u16string client = client_->text();
    project_->offer(choices().projects(client));
    task_->offer(choices().tasks(client, project_->text()));
    billTo_->offer(choices().contacts(client));
}

// A rate type without a name cannot be shown; it stays as it is unless another one is chosen.
void EntryFilterForm::display(const EntryFilter& filter) {
    for (const Field& field : fields_)
        field.combo->setText(filter.*field.text);
    const auto known = static_cast<std::uint32_t>(rateType_->count() - 1);
    if (filter.rateType == EntryFilter::anyRateType)
        rateType_->setCurrentIndex(0);
    else
        rateType_->setCurrentIndex(filter.rateType < known ? static_cast<int>(filter.rateType) + 1 : -1);
    displayCommon(filter);
}

void EntryFilterForm::store(EntryFilter& filter) const {
    for (const Field& field : fields_)
        filter.*field.text = field.combo->text();
    if (const int index = rateType_->currentIndex(); index >= 0)
        filter.rateType = index == 0 ? EntryFilter::anyRateType : static_cast<std::uint32_t>(index - 1);
    storeCommon(filter);
}

} // namespace hourwright::desktop
