#include "desktop/timers/timer_dialogs.h"

#include "billing/client_choices.h"
#include "platform/qt/qt_locale.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/timers.h"
#include "store/client_tree.h"
#include "store/pick_lists.h"

#include <QCheckBox>
#include <QDateTimeEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace hourwright::desktop {

using platform::toQString;
using platform::toU16;
namespace texts = resources::timers;

namespace {

constexpr const char* helpAnchor = "timers";

QString nameOf(const billing::TimerNames& names) {
    QStringList parts;
    for (const std::u16string* const text : {&names.client, &names.project, &names.task})
        if (!text->empty())
            parts.append(toQString(*text));
    return parts.isEmpty() ? toQString(texts::noTimerName) : parts.join(" · ");
}

QString doubtText(const app::DoubtfulTime& doubt, const billing::EntryTimer& timer) {
    const resources::Text& text = doubt.doubt == app::TimerDoubt::gap    ? texts::doubtGap
                                  : doubt.doubt == app::TimerDoubt::idle ? texts::doubtIdle
                                                                         : texts::doubtDay;
    const auto seconds = static_cast<std::int32_t>(std::min<std::int64_t>(doubt.seconds, INT32_MAX));
    return toQString(text).arg(doubt.slot + 1).arg(nameOf(timer.names()), toQString(billing::clockText(seconds)));
}

// A window with a text and buttons below each other, which fit a narrow screen; each sets its answer and closes.
template<typename Answer>
void addAnswers(QDialog& dialog, const QString& text, Answer& answer,
                std::initializer_list<std::pair<resources::Text, Answer>> answers) {
    auto* layout = new QVBoxLayout(&dialog);
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout->addWidget(label);
    for (const auto& [title, value] : answers) {
        auto* button = new QPushButton(toQString(title));
        layout->addWidget(button);
        QObject::connect(button, &QPushButton::clicked, &dialog, [&dialog, &answer, chosen = value] {
            answer = chosen;
            dialog.accept();
        });
    }
    dialog.setMinimumWidth(320);
}

} // namespace

AddTimerDialog::AddTimerDialog(Workspace& workspace, const billing::TimerNames& names, QWidget* parent)
    : Dialog(workspace, toQString(resources::StringId::addTimer), helpAnchor, parent), client_(new CompletingCombo),
      project_(new CompletingCombo), phase_(new CompletingCombo), task_(new CompletingCombo),
      startChosen_(new QCheckBox(toQString(texts::startTime))), start_(new QDateTimeEdit) {
    auto* form = addForm();
    form->addRow(toQString(texts::client), client_);
    form->addRow(toQString(texts::project), project_);
    form->addRow(toQString(texts::phase), phase_);
    form->addRow(toQString(texts::task), task_);
    form->addRow(startChosen_, start_);
    const auto now = workspace.clock().localTime();
    start_->setDateTime(QDateTime(platform::toQDate(now), platform::toQTime(now), Qt::UTC));
    start_->setTimeSpec(Qt::UTC); // a time without a zone: every time of day exists
    const QLocale locale = platform::toQLocale(workspace.locale());
    start_->setDisplayFormat(locale.dateFormat(QLocale::ShortFormat) + ' ' + locale.timeFormat(QLocale::ShortFormat));
    start_->setCalendarPopup(true);
    start_->setEnabled(false);
    start_->setAccessibleName(startChosen_->text());
    connect(startChosen_, &QCheckBox::toggled, start_, &QWidget::setEnabled);
    std::vector<std::u16string> clients;
    for (const auto& client : store::listClients(workspace.stores()).value_or(std::vector<store::ClientRecord>{}))
        clients.push_back(client.name);
    client_->setChoices(clients);
    phase_->setLearned(store::pickListTexts(workspace.stores(), store::PickList::phases));
    client_->setText(names.client);
    project_->setText(names.project);
    phase_->setText(names.phase);
    task_->setText(names.task);
    fillBelow();
    connect(client_, &QComboBox::currentTextChanged, this, [this] { fillBelow(); });
    connect(project_, &QComboBox::currentTextChanged, this, [this] { fillBelow(); });
}

void AddTimerDialog::fillBelow() {
    const auto client = store::findClient(workspace().stores(), client_->text());
    const auto tree =
        client && client->id != store::RecordId::none ? store::clientTree(workspace().stores(), *client) : std::nullopt;
    const auto choices = billing::choicesOf(tree ? &*tree : nullptr, project_->text());
    project_->setChoices(choices.projects);
    task_->setChoices(choices.tasks);
}

billing::TimerNames AddTimerDialog::names() const {
    return {client_->text(), project_->text(), phase_->text(), task_->text()};
}

std::optional<platform::SystemTime> AddTimerDialog::start() const {
    if (!startChosen_->isChecked())
        return std::nullopt;
    return platform::toSystemTime(start_->date(), start_->time());
}

EditTimerDialog::EditTimerDialog(Workspace& workspace, const billing::EntryTimer& timer, QWidget* parent)
    : Dialog(workspace, toQString(resources::StringId::editTimer), helpAnchor, parent), duration_(timer.duration()),
      break_(timer.breakTime()) {
    auto* hint = new QLabel(toQString(texts::stopped));
    hint->setWordWrap(true);
    content()->addWidget(hint);
    auto* form = addForm();
    durationFields_ = addFields(form, toQString(texts::editDuration), duration_);
    breakFields_ = addFields(form, toQString(texts::editBreak), break_);
    durationFields_.front()->setFocus();
}

EditTimerDialog::Fields EditTimerDialog::addFields(QFormLayout* form, const QString& label, std::int32_t seconds) {
    const auto parts = billing::clockFields(seconds);
    const std::array<std::int32_t, 3> numbers{parts.hours, parts.minutes, parts.seconds};
    const std::array names{texts::hours, texts::minutes, texts::seconds};
    auto* row = new QHBoxLayout;
    Fields fields{};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        fields[i] = new QLineEdit(QString::number(numbers[i]));
        fields[i]->setAlignment(Qt::AlignRight);
        fields[i]->setMaxLength(10);
        fields[i]->setAccessibleName(toQString(names[i]));
        if (i > 0)
            row->addWidget(new QLabel(":"));
        row->addWidget(fields[i]);
    }
    auto* title = new QLabel(label);
    title->setBuddy(fields[0]);
    form->addRow(title, row);
    return fields;
}

std::optional<std::int32_t> EditTimerDialog::secondsIn(const Fields& fields) {
    return billing::secondsOf(toU16(fields[0]->text()), toU16(fields[1]->text()), toU16(fields[2]->text()));
}

void EditTimerDialog::accept() {
    for (const auto& [fields, target] : {std::pair{&durationFields_, &duration_}, std::pair{&breakFields_, &break_}}) {
        const auto seconds = secondsIn(*fields);
        if (!seconds) {
            workspace().messages().showError(platform::number(platform::PlatformError::invalidParameter));
            fields->front()->setFocus();
            return;
        }
        *target = *seconds;
    }
    QDialog::accept();
}

DoubtDialog::DoubtDialog(const app::DoubtfulTime& doubt, const billing::EntryTimer& timer, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(toQString(texts::doubtTitle));
    addAnswers<app::DoubtAnswer>(*this, doubtText(doubt, timer), answer_,
                                 {{texts::keep, app::DoubtAnswer::keep},
                                  {texts::trim, app::DoubtAnswer::trim},
                                  {texts::split, app::DoubtAnswer::split}});
}

RecoveryDialog::RecoveryDialog(const app::RecoveredTimers& timers, const platform::Locale& locale, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(toQString(texts::recoverTitle));
    QString text = toQString(texts::recover) + '\n';
    for (const app::RecoveredTimer& recovered : timers.timers)
        text +=
            QString("\n%1  %2  %3")
                .arg(toQString(billing::clockText(recovered.timer.duration())),
                     toQString(locale.timeWithoutSeconds(recovered.timer.start())), nameOf(recovered.timer.names()));
    addAnswers<RecoveryAnswer>(*this, text, answer_,
                               {{texts::recoverGoOn, RecoveryAnswer::goOn},
                                {texts::recoverCount, RecoveryAnswer::count},
                                {texts::recoverDrop, RecoveryAnswer::discard}});
}

} // namespace hourwright::desktop
