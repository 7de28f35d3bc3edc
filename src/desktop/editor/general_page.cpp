#include "desktop/editor/general_page.h"

#include "billing/duration.h"
#include "billing/duration_list.h"
#include "desktop/completing_combo.h"
#include "desktop/dialog.h"
#include "desktop/screen_size.h"
#include "platform/number_text.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/editor.h"
#include "store/pick_lists.h"

#include <QCheckBox>
#include <QCompleter>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace hourwright::desktop {

namespace {

using billing::DraftField;
using platform::toQString;
namespace texts = resources::editor;

QHBoxLayout* makeRow() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    return row;
}

QLabel* addLabel(QFormLayout& form, const resources::Text& text, QWidget* field, QLayout* row) {
    auto* label = new QLabel(toQString(text));
    label->setBuddy(field);
    form.addRow(label, row);
    return label;
}

QString hoursText(Workspace& workspace, std::int32_t hundredths) {
    std::u16string plain;
    platform::appendHundredths(plain, hundredths);
    return toQString(workspace.locale().number(plain));
}

} // namespace

GeneralPage::GeneralPage(Workspace& workspace, QWidget* parent)
    : QWidget(parent), workspace_(workspace), date_(new DayEdit(workspace)) {
    QFormLayout& form = *Dialog::makeForm(this);
    form.addRow(toQString(texts::date), date_);
    connect(date_, &QDateEdit::dateChanged, this, &GeneralPage::changed);
    addNames(form);
    addTimes(form);
}

CompletingCombo* GeneralPage::addCombo(QFormLayout& form, const resources::Text& label) {
    auto* combo = new CompletingCombo;
    form.addRow(toQString(label), combo);
    connect(combo, &QComboBox::editTextChanged, this, &GeneralPage::changed);
    saveOnEnter(*combo, [this] { emit saveRequested(); });
    return combo;
}

void GeneralPage::addNames(QFormLayout& form) {
    client_ = addCombo(form, texts::client);
    project_ = addCombo(form, texts::project);
    phase_ = addCombo(form, texts::phase);
    task_ = addCombo(form, texts::task);
    phase_->setLearned(store::pickListTexts(workspace_.stores(), store::PickList::phases));
    connect(client_, &QComboBox::activated, this, &GeneralPage::clientChosen);
    connect(client_->lineEdit(), &QLineEdit::editingFinished, this, &GeneralPage::clientChosen);
    connect(project_, &QComboBox::editTextChanged, this, &GeneralPage::projectChanged);
}

void GeneralPage::addTimes(QFormLayout& form) {
    duration_ = new CompletingCombo;
    duration_->setChoices(billing::durationList(workspace_.settings().timeInterval));
    duration_->setMinimumContentsLength(6);
    duration_->completer()->setFilterMode(Qt::MatchStartsWith);
    connect(duration_, &QComboBox::editTextChanged, this, &GeneralPage::changed);
    saveOnEnter(*duration_, [this] { emit saveRequested(); });
    auto* hours = makeRow();
    hours->addWidget(duration_, 1);
    hours->addWidget(new QLabel(toQString(texts::hours)));
    auto* times = new QPushButton(toQString(texts::openTimes));
    connect(times, &QPushButton::clicked, this, &GeneralPage::timesRequested);
    addLabel(form, texts::duration, duration_, hours);

    hasStart_ = new QCheckBox(toQString(texts::start));
    start_ = new ClockEdit(workspace_);
    start_->setAccessibleName(toQString(texts::startTime));
    auto* start = makeRow();
    start->addWidget(start_, 1);
    start->addWidget(times);
    form.addRow(hasStart_, start);
    connect(hasStart_, &QCheckBox::toggled, this, [this](bool on) {
        start_->setEnabled(on);
        emit changed();
    });
    connect(start_, &QTimeEdit::timeChanged, this, &GeneralPage::changed);
    start_->setEnabled(false);

    outcome_ = new QLabel;
    outcome_->setWordWrap(true);
    outcome_->setForegroundRole(QPalette::PlaceholderText);
    form.addRow(isHandheld() ? nullptr : new QLabel, outcome_);
}

void GeneralPage::show(const billing::EntryDraft& draft) {
    if (draft.date)
        date_->setDay(*draft.date);
    client_->setText(draft.client.value_or(u""));
    project_->setText(draft.project.value_or(u""));
    phase_->setText(draft.phase.value_or(u""));
    task_->setText(draft.task.value_or(u""));
    duration_->setText(draft.duration.value_or(u""));
    duration_->lineEdit()->setMaxLength(static_cast<int>(billing::maxDurationText));
    if (draft.start)
        start_->setClock(*draft.start);
    hasStart_->setChecked(!draft.withoutStart);
}

void GeneralPage::collect(billing::EntryDraft& draft) const {
    // An instant whose day or time was not touched stays what it is, down to its milliseconds.
    if (!draft.date || platform::toQDate(*draft.date) != date_->date())
        draft.date = date_->day();
    if (!draft.start || platform::toQTime(*draft.start) != start_->time())
        draft.start = start_->clock();
    draft.withoutStart = !hasStart_->isChecked();
    draft.client = client_->text();
    draft.project = project_->text();
    draft.phase = phase_->text();
    draft.task = task_->text();
    draft.duration = duration_->text();
}

QWidget* GeneralPage::fieldOf(DraftField field) const {
    switch (field) {
    case DraftField::date: return date_;
    case DraftField::client: return client_;
    case DraftField::project: return project_;
    case DraftField::phase: return phase_;
    case DraftField::task: return task_;
    case DraftField::start: return start_;
    default: return duration_;
    }
}

void GeneralPage::focusField(DraftField field) {
    QWidget* widget = fieldOf(field);
    widget->setFocus(Qt::OtherFocusReason);
    if (auto* combo = qobject_cast<QComboBox*>(widget))
        combo->lineEdit()->selectAll();
}

void GeneralPage::focusFirst() {
    focusField(client_->currentText().isEmpty() ? DraftField::client : DraftField::task);
}

void GeneralPage::offerClients(std::span<const std::u16string> clients) {
    client_->setChoices(clients);
}

void GeneralPage::offer(const billing::ClientChoices& choices) {
    project_->setLearned(choices.projects);
    task_->setLearned(choices.tasks);
}

void GeneralPage::showPreview(const billing::EntryPreview& preview) {
    QStringList parts;
    if (preview.end)
        parts.append(
            toQString(texts::endsAt).replace("%s", toQString(workspace_.locale().timeWithoutSeconds(*preview.end))));
    if (preview.entry.breakTime > 0)
        parts.append(toQString(texts::withBreak).replace("%s", hoursText(workspace_, preview.entry.breakTime)));
    const bool raised = preview.durationReadable && billing::formatHours(preview.entry) != duration_->text();
    if (raised && preview.entry.duration > 0)
        parts.append(toQString(texts::recordedAs).replace("%s", hoursText(workspace_, preview.entry.duration)));
    outcome_->setText(parts.join(", "));
}

} // namespace hourwright::desktop
