#include "desktop/filters/filter_form.h"

#include "app/filter_description.h"
#include "desktop/dialog.h"
#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/filters.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace texts = resources::filters;
using platform::toQString;

FilterForm::FilterForm(Workspace& workspace, QWidget* parent)
    : QWidget(parent), choices_(workspace.stores(), workspace.locale()), workspace_(workspace),
      form_(Dialog::makeForm()), beside_(new QVBoxLayout) {
    auto* layout = new QBoxLayout(isHandheld() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(form_, 1);
    layout->addSpacing(layout->spacing());
    layout->addLayout(beside_);
}

AnyCombo* FilterForm::addText(const QString& label, const char* name, std::span<const std::u16string> offered) {
    auto* combo = new AnyCombo;
    combo->setObjectName(name);
    combo->offer(offered);
    form_->addRow(label, combo);
    return combo;
}

QComboBox* FilterForm::addChoice(const resources::Text& label, const char* name) {
    auto* combo = new QComboBox;
    combo->setObjectName(name);
    combo->addItem(toQString(texts::any));
    form_->addRow(toQString(label), combo);
    return combo;
}

AnyCombo* FilterForm::addCustom(FilterExtent extent, const std::u16string& caption, const char* name,
                                store::PickList list) {
    if (extent == FilterExtent::stored)
        return nullptr;
    const QString label = toQString(caption).replace('&', "&&");
    return addText(toQString(texts::captionWithColon).replace("%s", label), name, choices_.list(list));
}

void FilterForm::addStatuses() {
    auto* box = new QGroupBox(toQString(texts::status));
    auto* grid = new QGridLayout(box);
    for (std::size_t status = 0; status < statuses_.size(); ++status) {
        const auto number = static_cast<std::uint16_t>(status);
        statuses_[status] = new QCheckBox(toQString(app::statusName(store::EntryStatus{number})));
        statuses_[status]->setObjectName("status" + QString::number(status));
        grid->addWidget(statuses_[status], number / 2, number % 2);
    }
    beside_->addWidget(box);
    beside_->addStretch();
}

void FilterForm::addRange() {
    rangeBox_ = new QGroupBox(toQString(texts::inRange));
    rangeBox_->setObjectName("range");
    rangeBox_->setCheckable(true);
    range_.emplace(workspace_, *Dialog::makeForm(rangeBox_), texts::from, texts::to);
    beside_->insertWidget(1, rangeBox_);
    auto* hint = new QLabel(toQString(texts::notKept));
    hint->setWordWrap(true);
    beside_->insertWidget(2, hint);
}

void FilterForm::displayCommon(const app::ViewFilter& filter) {
    for (std::size_t status = 0; status < statuses_.size(); ++status)
        statuses_[status]->setChecked(filter.shows(store::EntryStatus{static_cast<std::uint16_t>(status)}));
    if (rangeBox_ == nullptr)
        return;
    rangeBox_->setChecked(filter.hasRange());
    range_->setDays(filter.rangeStart, filter.rangeEnd);
}

void FilterForm::storeCommon(app::ViewFilter& filter) const {
    for (std::size_t status = 0; status < statuses_.size(); ++status)
        filter.show(store::EntryStatus{static_cast<std::uint16_t>(status)}, statuses_[status]->isChecked());
    if (rangeBox_ == nullptr)
        return;
    const bool on = rangeBox_->isChecked();
    filter.rangeStart = on ? range_->firstDay() : platform::SystemTime{};
    filter.rangeEnd = on ? range_->lastDay() : platform::SystemTime{};
}

bool FilterForm::check() {
    return rangeBox_ == nullptr || !rangeBox_->isChecked() || range_->check();
}

} // namespace hourwright::desktop
