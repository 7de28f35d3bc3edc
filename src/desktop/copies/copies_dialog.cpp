#include "desktop/copies/copies_dialog.h"

#include "app/copy_keeping.h"
#include "app/copy_notice.h"
#include "desktop/copies/copy_work.h"
#include "desktop/screen_size.h"
#include "desktop/structure/button_column.h"
#include "platform/qt/qt_text.h"
#include "platform/sqlite/sqlite_store_copies.h"
#include "resources/texts/copies.h"

#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <array>

namespace hourwright::desktop {

namespace texts = resources::copies;
using platform::CopyHealth;
using platform::toQString;

namespace {

enum Column : int { madeColumn, recordsColumn, sizeColumn, keptColumn, stateColumn, columnCount };

QString ageText(app::CopyAge age) {
    switch (age) {
    case app::CopyAge::day: return toQString(texts::day);
    case app::CopyAge::week: return toQString(texts::week);
    case app::CopyAge::month: return toQString(texts::month);
    case app::CopyAge::none: break;
    }
    return {};
}

QString stateText(const std::optional<CopyHealth>& health) {
    return toQString(!health ? texts::notVerified : *health == CopyHealth::sound ? texts::sound : texts::damaged);
}

QTreeWidget* makeList() {
    auto* list = new QTreeWidget;
    list->setColumnCount(columnCount);
    list->setHeaderLabels({toQString(texts::made), toQString(texts::records), toQString(texts::size),
                           toQString(texts::keptFor), toQString(texts::state)});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setAccessibleName(toQString(texts::title));
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(madeColumn, QHeaderView::Stretch);
    list->header()->setStretchLastSection(false);
    list->setColumnHidden(recordsColumn, isHandheld()); // what is left is legible
    list->setColumnHidden(keptColumn, isHandheld());
    list->setMinimumHeight(isHandheld() ? 240 : 300);
    list->setMinimumWidth(isHandheld() ? 0 : 520);
    return list;
}

void fillItem(QTreeWidgetItem& item, const app::CopyRow& row, const platform::Locale& locale) {
    item.setText(madeColumn,
                 toQString(locale.shortDate(row.copy.time) + u' ' + locale.timeWithoutSeconds(row.copy.time)));
    item.setText(keptColumn, ageText(row.age));
    item.setText(stateColumn, stateText(row.health));
    if (!row.readable)
        return;
    item.setText(recordsColumn, toQString(locale.number(platform::toU16(QString::number(row.copy.records)))));
    item.setText(sizeColumn, toQString(app::sizeText(row.copy.bytes, locale)));
    for (const int column : {recordsColumn, sizeColumn})
        item.setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
}

} // namespace

CopiesDialog::CopiesDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::title), "copies", parent),
      copies_(platform::openStoreCopies(platform::copyPlaces(workspace.directories()))),
      empty_(new QLabel(toQString(texts::empty))), list_(makeList()) {
    auto* intro = new QLabel(toQString(texts::intro).replace("%s", QString::fromStdString(copies_->folder().string())));
    intro->setWordWrap(true);
    intro->setTextFormat(Qt::PlainText);
    intro->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* label = new QLabel(toQString(texts::list));
    label->setBuddy(list_);
    content()->addWidget(intro);
    content()->addWidget(label);
    content()->addWidget(empty_);
    ButtonColumn column(*content(), list_);
    column.add(texts::makeNow, [this] { makeNow(); });
    verify_ = column.add(texts::verifyAll, [this] { verifyAll(); });
    restore_ = column.add(texts::restore, [this] { restoreSelected(); });
    buttons()->setStandardButtons(QDialogButtonBox::Close | QDialogButtonBox::Help);
    connect(list_, &QTreeWidget::currentItemChanged, this, [this] { selectionChanged(); });
    reload();
}

void CopiesDialog::reload() {
    rows_.load(*copies_);
    fill();
}

void CopiesDialog::fill() {
    const app::CopyRow* const before = selected();
    const std::string current = before != nullptr ? before->copy.name : std::string();
    list_->clear();
    for (const app::CopyRow& row : rows_.rows()) {
        auto* item = new QTreeWidgetItem(list_);
        fillItem(*item, row, workspace().locale());
        if (row.copy.name == current)
            list_->setCurrentItem(item);
    }
    if (list_->currentItem() == nullptr)
        list_->setCurrentItem(list_->topLevelItem(0));
    empty_->setVisible(rows_.rows().empty());
    verify_->setEnabled(!rows_.toVerify().empty());
    selectionChanged();
}

const app::CopyRow* CopiesDialog::selected() const {
    const int row = list_->indexOfTopLevelItem(list_->currentItem());
    return row < 0 || static_cast<std::size_t>(row) >= rows_.rows().size()
               ? nullptr
               : &rows_.rows()[static_cast<std::size_t>(row)];
}

void CopiesDialog::selectionChanged() {
    const app::CopyRow* const row = selected();
    restore_->setEnabled(row != nullptr && row->readable);
}

// A copy is read back when it is made, so that one is sound.
void CopiesDialog::makeNow() {
    platform::MadeCopy made;
    runCopyWork({.label = texts::making, .mayCancel = true},
                [&, now = workspace().clock().localTime()](const platform::KeepGoing& keepGoing) {
                    made = app::makeCopy(*copies_, now, keepGoing);
                });
    if (made.outcome == platform::CopyOutcome::done)
        rows_.note(made.copy, CopyHealth::sound);
    list_->setCurrentItem(nullptr);
    reload();
    if (app::tellOfWishedCopy(made, *copies_, workspace().registry(), workspace().locale(), workspace().messages(),
                              runCopyWork))
        restart();
}

void CopiesDialog::verifyAll() {
    std::vector<CopyHealth> found;
    const auto copies = rows_.toVerify();
    runCopyWork({.label = texts::verifying, .mayCancel = true}, [&](const platform::KeepGoing& keepGoing) {
        for (const platform::StoreCopy& copy : copies)
            if (keepGoing())
                found.push_back(copies_->verify(copy, keepGoing));
    });
    for (std::size_t i = 0; i < found.size(); ++i)
        rows_.note(copies[i], found[i]);
    fill();
}

void CopiesDialog::restoreSelected() {
    const app::CopyRow* const row = selected();
    if (row != nullptr && row->readable &&
        app::wishForCopy(row->copy, *copies_, workspace().registry(), workspace().locale(), workspace().messages(),
                         runCopyWork))
        restart();
}

void CopiesDialog::restart() {
    wantsRestart_ = true;
    accept();
}

} // namespace hourwright::desktop
