#include "desktop/editor/times_dialog.h"

#include "billing/duration.h"
#include "desktop/editor/field_widgets.h"
#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/editor.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

namespace hourwright::desktop {

namespace {

using billing::DraftField;
using platform::toQString;
namespace texts = resources::editor;

constexpr int maxBreakText = 16;

QPushButton* makeButton(const QString& text) {
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    return button;
}

} // namespace

TimesDialog::TimesDialog(Workspace& workspace, const store::TimeEntry& entry, QWidget* parent)
    : Dialog(workspace, toQString(texts::timesTitle), "addnew", parent), entry_(entry),
      times_(entry, workspace.clock().localTime()), start_(new ClockEdit(workspace)), break_(new QLineEdit),
      end_(new ClockEdit(workspace)), lastFocused_(start_), hours_(new QLabel) {
    addTimes();
    addQuickMinutes();
    break_->setMaxLength(maxBreakText);
    break_->setText(toQString(times_.breakText()));
    showTimes();
    connectTimes();
    start_->setFocus();
}

void TimesDialog::addTimes() {
    QFormLayout& form = *addForm();
    form.addRow(toQString(texts::timesStart), start_);
    auto* breakRow = new QHBoxLayout;
    breakRow->addWidget(break_, 1);
    breakRow->addWidget(new QLabel(toQString(texts::hours)));
    auto* breakLabel = new QLabel(toQString(texts::timesBreak));
    breakLabel->setBuddy(break_);
    form.addRow(breakLabel, breakRow);
    auto* now = makeButton(toQString(texts::now));
    auto* endRow = new QHBoxLayout;
    endRow->addWidget(end_, 1);
    endRow->addWidget(now);
    auto* endLabel = new QLabel(toQString(texts::timesEnd));
    endLabel->setBuddy(end_);
    form.addRow(endLabel, endRow);
    form.addRow(isHandheld() ? nullptr : new QLabel, hours_);
    connect(now, &QPushButton::clicked, this, [this] {
        times_.setEnd(workspace().clock().localTime());
        showTimes();
    });
}

void TimesDialog::addQuickMinutes() {
    auto* grid = new QGridLayout;
    const int columns = 4;
    int place = 0;
    for (const std::uint16_t minute : billing::quickMinutes) {
        const QString digits = QString::number(minute).rightJustified(2, '0');
        auto* button = makeButton(':' + digits);
        button->setAccessibleName(toQString(texts::setMinute).replace("%s", digits));
        button->setToolTip(button->accessibleName());
        connect(button, &QPushButton::clicked, this, [this, minute] { setMinute(minute); });
        button->setMinimumWidth(touchTarget);
        grid->addWidget(button, place / columns, place % columns);
        ++place;
    }
    content()->addLayout(grid);
    content()->addStretch();
}

void TimesDialog::connectTimes() {
    for (ClockEdit* edit : {start_, end_})
        connect(edit, &ClockEdit::focused, this, [this, edit] { lastFocused_ = edit; });
    connect(start_, &QTimeEdit::timeChanged, this, [this] {
        times_.setStart(start_->clock());
        showTimes();
    });
    connect(end_, &QTimeEdit::timeChanged, this, [this] {
        times_.setEnd(end_->clock());
        showTimes();
    });
    connect(break_, &QLineEdit::textEdited, this, &TimesDialog::takeBreak);
    connect(break_, &QLineEdit::editingFinished, this, &TimesDialog::showRefusedBreak);
}

void TimesDialog::setMinute(std::uint16_t minute) {
    if (lastFocused_ == start_)
        times_.setStartMinute(minute);
    else
        times_.setEndMinute(minute);
    showTimes();
    lastFocused_->setFocus();
}

void TimesDialog::takeBreak() {
    breakRefused_ = times_.setBreak(platform::toU16(break_->text())).has_value();
    showTimes();
}

void TimesDialog::showTimes() {
    const QSignalBlocker quietStart(start_);
    const QSignalBlocker quietEnd(end_);
    start_->setClock(times_.start());
    end_->setClock(times_.end());
    store::TimeEntry worked = entry_;
    const bool valid = !times_.apply(workspace().timeRules(), worked);
    hours_->setText(valid ? toQString(texts::timesHours)
                                .replace("%s", toQString(workspace().locale().number(billing::formatHours(worked))))
                          : QString());
}

// When the field is left. Enter does not leave it, and neither does going to "Cancel".
void TimesDialog::showRefusedBreak() {
    if (!breakRefused_ || break_->hasFocus() || buttons()->isAncestorOf(focusWidget()))
        return;
    if (const auto refusal = times_.setBreak(platform::toU16(break_->text()))) {
        showRefusal(workspace(), *refusal);
        break_->setFocus();
        break_->selectAll();
    }
}

void TimesDialog::accept() {
    store::TimeEntry timed = entry_;
    if (const auto refusal = times_.apply(workspace().timeRules(), timed)) {
        showRefusal(workspace(), *refusal);
        QWidget* field = break_;
        if (refusal->field != DraftField::breakTime)
            field = refusal->field == DraftField::start ? start_ : end_;
        field->setFocus();
        return;
    }
    emit taken(timed);
    QDialog::accept();
}

} // namespace hourwright::desktop
