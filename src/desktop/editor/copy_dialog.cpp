#include "desktop/editor/copy_dialog.h"

#include "app/settings_rules.h"
#include "billing/duration.h"
#include "billing/duration_list.h"
#include "billing/entry_draft.h"
#include "desktop/completing_combo.h"
#include "desktop/editor/field_widgets.h"
#include "platform/qt/qt_locale.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/editor.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace {

using billing::CopyField;
using billing::CopyTarget;
using platform::toQString;
namespace texts = resources::editor;

QString dayText(Workspace& workspace, platform::FileTime day) {
    const auto date = platform::toSystemTime(day).value_or(platform::SystemTime{});
    const QLocale locale = platform::toQLocale(workspace.locale());
    return locale.dayName(date.dayOfWeek == 0 ? 7 : date.dayOfWeek, QLocale::ShortFormat) + ' ' +
           toQString(workspace.locale().shortDate(date));
}

} // namespace

CopyDialog::CopyDialog(Workspace& workspace, store::TimeEntry entry, QWidget* parent)
    : Dialog(workspace, toQString(texts::copyTitle), "copy", parent), entry_(std::move(entry)),
      date_(new DayEdit(workspace)), endDate_(new DayEdit(workspace)),
      weekend_(new QCheckBox(toQString(texts::copyWeekend))), duration_(new CompletingCombo), outcome_(new QLabel),
      shownDuration_(toQString(billing::formatHours(entry_))) {
    platform::SystemTime next = platform::toSystemTime(entry_.date).value_or(workspace.clock().localTime());
    platform::addDays(next, 1);
    date_->setDay(next);
    endDate_->setDay(next);
    duration_->setChoices(billing::durationList(workspace.settings().timeInterval));
    duration_->setText(platform::toU16(shownDuration_));
    duration_->lineEdit()->setMaxLength(static_cast<int>(billing::maxDurationText));
    addChoices();
    toDate_->setChecked(true);
    connect(weekend_, &QCheckBox::toggled, this, &CopyDialog::refresh);
    connect(duration_, &QComboBox::editTextChanged, this, &CopyDialog::refresh);
    saveOnEnter(*duration_, [this] { accept(); });
    refresh();
    date_->setFocus();
}

void CopyDialog::addChoices() {
    content()->addWidget(new QLabel(toQString(texts::copyTo)));
    QFormLayout& form = *addForm();
    toDate_ = addTarget(form, texts::copyDate, date_);
    toRestOfWeek_ = addTarget(form, texts::copyRestOfWeek, nullptr);
    toEndDate_ = addTarget(form, texts::copyUntil, endDate_);
    form.addRow(weekend_);
    auto* row = new QHBoxLayout;
    row->addWidget(duration_, 1);
    row->addWidget(new QLabel(toQString(texts::hours)));
    auto* label = new QLabel(toQString(texts::copyDuration));
    label->setBuddy(duration_);
    form.addRow(label, row);
    outcome_->setWordWrap(true);
    outcome_->setForegroundRole(QPalette::PlaceholderText);
    content()->addWidget(outcome_);
    content()->addStretch();
}

QRadioButton* CopyDialog::addTarget(QFormLayout& form, const resources::Text& label, DayEdit* day) {
    auto* button = new QRadioButton(toQString(label));
    connect(button, &QRadioButton::toggled, this, &CopyDialog::refresh);
    if (day == nullptr) {
        form.addRow(button);
        return button;
    }
    form.addRow(button, day);
    day->setAccessibleName(button->text().remove('&').remove(':'));
    connect(button, &QRadioButton::clicked, day, [day] { day->setFocus(); });
    connect(day, &QDateEdit::dateChanged, this, [this, button] {
        button->setChecked(true);
        refresh();
    });
    return button;
}

CopyTarget CopyDialog::target() const {
    if (toDate_->isChecked())
        return CopyTarget::date;
    return toRestOfWeek_->isChecked() ? CopyTarget::restOfWeek : CopyTarget::untilDate;
}

billing::CopyOrder CopyDialog::order() const {
    billing::CopyOrder order{.target = target(), .includeWeekend = weekend_->isChecked()};
    order.date = (order.target == CopyTarget::date ? date_ : endDate_)->day();
    if (duration_->currentText() != shownDuration_)
        order.duration = duration_->text();
    return order;
}

std::optional<billing::CopyRefusal> CopyDialog::makeCopies(billing::EntryCopies& copies) {
    const billing::CopyRules rules{workspace().timeRules(), app::weekStart(workspace().settings()),
                                   workspace().clock().now()};
    return billing::makeCopies(entry_, order(), rules, copies);
}

void CopyDialog::refresh() {
    weekend_->setEnabled(target() != CopyTarget::date);
    billing::EntryCopies copies;
    if (makeCopies(copies)) {
        outcome_->clear();
        return;
    }
    const auto& days = copies.dates;
    QString text = toQString(days.empty()       ? texts::copiesNone
                             : days.size() == 1 ? texts::copiesOne
                                                : texts::copiesMany);
    text.replace("%n", QString::number(days.size()));
    if (!days.empty()) {
        text.replace(text.indexOf("%s"), 2, dayText(workspace(), days.front()));
        text.replace("%s", dayText(workspace(), days.back()));
    }
    outcome_->setText(text);
}

void CopyDialog::refuse(const billing::CopyRefusal& refusal) {
    if (refusal.field == CopyField::endDate) {
        using resources::StringId;
        workspace().messages().show({.id = StringId::copyEndTooFar,
                                     .text = platform::withNumber(StringId::copyEndTooFar, billing::maxCopyDays)});
        endDate_->setFocus();
        return;
    }
    showRefusal(workspace(), refusal);
    if (refusal.field == CopyField::date)
        date_->setFocus();
    else
        duration_->setFocus();
}

void CopyDialog::accept() {
    billing::EntryCopies copies;
    if (const auto refusal = makeCopies(copies)) {
        refuse(*refusal);
        return;
    }
    std::optional<std::vector<store::RecordId>> ids;
    const auto save = [&](platform::Transaction& transaction) {
        ids = billing::saveCopies(transaction, workspace().stores(), copies);
        return ids.has_value();
    };
    if (!copies.dates.empty() && !workspace().change(texts::undoCopy.text, save))
        return;
    if (ids)
        emit copied(*ids);
    QDialog::accept();
}

} // namespace hourwright::desktop
