#include "desktop/lists/list_options_dialog.h"

#include "desktop/lists/record_model.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/lists.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>

namespace hourwright::desktop {

namespace {

namespace lists = resources::lists;
using platform::toQString;

constexpr std::array optionTexts{lists::itemCounts, lists::hours, lists::amounts, lists::expanded, lists::ascending};

} // namespace

ListOptionsDialog::ListOptionsDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(lists::customize), "lists", parent),
      list_(workspace.view().records() == app::RecordKind::entries ? app::ColumnList::entries
                                                                   : app::ColumnList::expenses),
      builtIn_(app::builtInColumnLayout(list_, static_cast<std::uint32_t>(logicalDpiX()))),
      layout_(app::loadColumnLayout(workspace.registry(), list_, static_cast<std::uint32_t>(logicalDpiX()))) {
    content()->addWidget(makeGroups());
    content()->addWidget(makeColumns());
    showColumns();
}

QWidget* ListOptionsDialog::makeGroups() {
    auto* box = new QGroupBox(toQString(lists::groups));
    auto* layout = new QVBoxLayout(box);
    for (std::size_t i = 0; i < options_.size(); ++i) {
        options_[i] = new QCheckBox(toQString(optionTexts[i]), box);
        options_[i]->setChecked(workspace().settings().treeOptions.has(static_cast<app::TreeOption>(i)));
        layout->addWidget(options_[i]);
    }
    return box;
}

QWidget* ListOptionsDialog::makeColumns() {
    auto* box = new QGroupBox(toQString(lists::columns));
    auto* layout = new QVBoxLayout(box);
    columns_ = new QListWidget(box);
    columns_->setAccessibleName(box->title().remove('&'));
    columns_->setMinimumHeight(180);
    layout->addWidget(columns_);
    auto* buttons = new QHBoxLayout;
    const auto addButton = [&](const resources::Text& text, auto run) {
        auto* button = new QPushButton(toQString(text), box);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, run);
        buttons->addWidget(button);
    };
    addButton(lists::moveUp, [this] { moveCurrent(-1); });
    addButton(lists::moveDown, [this] { moveCurrent(1); });
    layout->addLayout(buttons);
    auto* reset = new QPushButton(toQString(lists::reset), box);
    reset->setAutoDefault(false);
    connect(reset, &QPushButton::clicked, this, [this] {
        layout_ = builtIn_;
        showColumns();
    });
    layout->addWidget(reset);
    return box;
}

void ListOptionsDialog::showColumns() {
    RecordModel model(workspace(), app::ListStyle::standard, nullptr);
    model.setRows(app::makeListRows(workspace().stores(), workspace().locale(), workspace().timeRules(),
                                    {.records = workspace().view().records()}),
                  workspace().view().records(), true);
    columns_->clear();
    for (const std::uint32_t column : layout_.order) {
        auto* item = new QListWidgetItem(model.columnTitle(column), columns_);
        item->setData(Qt::UserRole, column);
        item->setCheckState(layout_.widths[column] != 0 ? Qt::Checked : Qt::Unchecked);
    }
    columns_->setCurrentRow(0);
}

void ListOptionsDialog::moveCurrent(int places) {
    const int row = columns_->currentRow();
    if (row < 0 || row + places < 0 || row + places >= columns_->count())
        return;
    columns_->insertItem(row + places, columns_->takeItem(row));
    columns_->setCurrentRow(row + places);
}

// A column that is not shown is stored with no width; all hidden would leave nothing to look at.
void ListOptionsDialog::accept() {
    bool any = false;
    for (int row = 0; row < columns_->count(); ++row) {
        const QListWidgetItem* item = columns_->item(row);
        const std::uint32_t column = item->data(Qt::UserRole).toUInt();
        const bool shown = item->checkState() == Qt::Checked;
        any = any || shown;
        layout_.order[static_cast<std::size_t>(row)] = column;
        if (!shown)
            layout_.widths[column] = 0;
        else if (layout_.widths[column] == 0)
            layout_.widths[column] = builtIn_.widths[column];
    }
    if (!any)
        layout_.widths = builtIn_.widths;
    for (std::size_t i = 0; i < options_.size(); ++i)
        workspace().settings().treeOptions.set(static_cast<app::TreeOption>(i), options_[i]->isChecked());
    app::saveColumnLayout(workspace().registry(), list_, layout_); // a failure is silent
    workspace().saveSettings();
    Dialog::accept();
}

} // namespace hourwright::desktop
