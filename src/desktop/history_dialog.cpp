#include "desktop/history_dialog.h"

#include "desktop/bulk/long_change.h"
#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/history.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace hourwright::desktop {

namespace texts = resources::history;
using platform::HistoryStep;
using platform::toQString;

namespace {

enum Column : int { whenColumn, changeColumn, recordsColumn, stateColumn, columnCount };

QString timeText(const platform::Locale& locale, platform::FileTime time) {
    const auto fields = platform::toSystemTime(time);
    return fields ? toQString(locale.shortDate(*fields) + u' ' + locale.timeWithoutSeconds(*fields)) : QString();
}

QTreeWidget* makeList() {
    auto* list = new QTreeWidget;
    list->setColumnCount(columnCount);
    list->setHeaderLabels({toQString(texts::when.text), toQString(texts::change.text), toQString(texts::records.text),
                           toQString(texts::state.text)});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setAccessibleName(toQString(texts::title.text));
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(changeColumn, QHeaderView::Stretch);
    list->header()->setStretchLastSection(false);
    list->setColumnHidden(recordsColumn, isHandheld()); // what is narrow keeps the names legible
    return list;
}

} // namespace

HistoryDialog::HistoryDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::title.text), "history", parent),
      empty_(new QLabel(toQString(texts::empty.text))), list_(makeList()), go_(new QPushButton) {
    auto* label = new QLabel(toQString(texts::steps.text));
    label->setBuddy(list_);
    empty_->setWordWrap(true);
    list_->setMinimumHeight(isHandheld() ? 300 : 360);
    list_->setMinimumWidth(isHandheld() ? 0 : 520);
    content()->addWidget(label);
    content()->addWidget(empty_);
    content()->addWidget(list_, 1);
    content()->addWidget(go_, 0, Qt::AlignLeft);
    buttons()->setStandardButtons(QDialogButtonBox::Close | QDialogButtonBox::Help);
    connect(list_, &QTreeWidget::currentItemChanged, this, [this] { selectionChanged(); });
    connect(go_, &QPushButton::clicked, this, [this] { goToSelected(); });
    connect(&workspace, &Workspace::recordsChanged, this, [this] { fill(); });
    fill();
}

void HistoryDialog::fill() {
    const auto* const before = selected();
    const std::int64_t current = before != nullptr ? before->id : 0;
    list_->clear();
    steps_ = workspace().stores().objects().history().steps();
    std::ranges::reverse(steps_);
    for (const HistoryStep& step : steps_) {
        auto* item = new QTreeWidgetItem(list_);
        item->setText(whenColumn, timeText(workspace().locale(), step.time));
        item->setText(changeColumn, toQString(step.name));
        item->setText(recordsColumn, QString::number(step.records));
        item->setTextAlignment(recordsColumn, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(stateColumn, step.undone ? toQString(texts::isUndone.text) : QString());
        if (step.id == current)
            list_->setCurrentItem(item);
    }
    empty_->setVisible(steps_.empty());
    list_->setVisible(!steps_.empty());
    if (list_->currentItem() == nullptr)
        list_->setCurrentItem(list_->topLevelItem(0));
    selectionChanged();
}

const HistoryStep* HistoryDialog::selected() const {
    const int row = list_->indexOfTopLevelItem(list_->currentItem());
    return row < 0 || static_cast<std::size_t>(row) >= steps_.size() ? nullptr : &steps_[static_cast<std::size_t>(row)];
}

void HistoryDialog::selectionChanged() {
    const HistoryStep* const step = selected();
    const bool undone = step != nullptr && step->undone;
    go_->setText(toQString((undone ? texts::redoToHere : texts::undoToHere).text));
    go_->setEnabled(step != nullptr);
}

void HistoryDialog::goToSelected() {
    const HistoryStep* const step = selected();
    if (step == nullptr)
        return;
    const bool redo = step->undone;
    const auto count = std::ranges::count_if(steps_, [redo, id = step->id](const HistoryStep& other) {
        return other.undone == redo && (redo ? other.id <= id : other.id >= id);
    });
    for (auto left = count; left > 0; --left)
        if (!(redo ? redoChange(workspace(), this) : undoChange(workspace(), this)))
            return;
}

} // namespace hourwright::desktop
