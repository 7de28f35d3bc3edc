#include "desktop/structure/drop_lists_dialog.h"

#include "billing/replace_structure.h"
#include "desktop/structure/button_column.h"
#include "desktop/structure/list_keys.h"
#include "desktop/structure/name_dialog.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/structure.h"

#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <algorithm>

namespace hourwright::desktop {

namespace texts = resources::structure;
using platform::toQString;
using resources::StringId;
using store::PickList;
using Texts = std::vector<std::u16string>;

namespace {

constexpr auto anchor = "editlist";

// Two records share these lists; their captions need not be the same.
std::u16string sharedCaption(const std::u16string& ofEntries, const std::u16string& ofExpenses) {
    return ofEntries == ofExpenses ? ofEntries : ofEntries + u" / " + ofExpenses;
}

} // namespace

DropListsDialog::DropListsDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::dropLists), anchor, parent), list_(new QComboBox), items_(new QListWidget) {
    build();
    fillLists();
    connect(list_, &QComboBox::currentIndexChanged, this, [this] { reload(); });
    connect(items_, &QListWidget::itemSelectionChanged, this, [this] { updateButtons(); });
    connect(items_, &QListWidget::itemDoubleClicked, this, [this] { change_->click(); });
    connect(&workspace, &Workspace::recordsChanged, this, [this] { reload(); });
    reload();
    items_->setFocus();
}

void DropListsDialog::build() {
    buttons()->setStandardButtons(QDialogButtonBox::Close | QDialogButtonBox::Help);
    for (QAbstractButton* button : buttons()->buttons())
        qobject_cast<QPushButton*>(button)->setAutoDefault(false);
    list_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list_->setMinimumContentsLength(16);
    addForm()->addRow(toQString(texts::listLabel), list_);
    items_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    items_->setUniformItemSizes(true);
    items_->setTextElideMode(Qt::ElideMiddle);
    items_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    items_->setMinimumHeight(fontMetrics().height() * 8);
    items_->setAccessibleName(toQString(texts::itemsName));
    items_->installEventFilter(this);
    const auto run = [](std::unique_ptr<Dialog> dialog) {
        if (dialog)
            dialog->exec();
    };
    ButtonColumn column(*content(), items_);
    column.add(texts::addPlain, [this, run] { run(addDialog()); });
    change_ = column.add(texts::change, [this, run] { run(changeDialog()); });
    delete_ = column.add(texts::remove, [this] { deleteSelected(); });
    resize(480, 420);
}

void DropListsDialog::fillLists() {
    const auto& settings = workspace().settings();
    const auto add = [this](PickList list, const QString& name) { list_->addItem(name, static_cast<int>(list)); };
    add(PickList::phases, toQString(texts::phases));
    add(PickList::currencies, toQString(texts::currencies));
    add(PickList::categories, toQString(texts::categories));
    add(PickList::descriptions, toQString(texts::descriptions));
    add(PickList::custom1, toQString(sharedCaption(settings.custom1Label.text(), settings.expenseCustom1Label.text())));
    add(PickList::custom2, toQString(sharedCaption(settings.custom2Label.text(), settings.expenseCustom2Label.text())));
    add(PickList::custom3, toQString(settings.custom3Label.text()));
}

PickList DropListsDialog::list() const {
    return static_cast<PickList>(list_->currentData().toInt());
}

void DropListsDialog::reload() {
    const Texts selected = selection();
    const int row = items_->currentRow();
    items_->clear();
    for (const std::u16string& text : store::pickListTexts(workspace().stores(), list()))
        items_->addItem(toQString(text));
    items_->setCurrentRow(std::clamp(row, 0, std::max(0, items_->count() - 1)));
    if (selected.size() == 1)
        select(selected.front());
    updateButtons();
}

void DropListsDialog::select(const std::u16string& text) {
    const auto found = items_->findItems(toQString(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!found.isEmpty())
        items_->setCurrentItem(found.front());
}

Texts DropListsDialog::selection() const {
    Texts selected;
    for (const QListWidgetItem* item : items_->selectedItems())
        selected.push_back(platform::toU16(item->text()));
    return selected;
}

void DropListsDialog::updateButtons() {
    const std::size_t selected = selection().size();
    change_->setEnabled(selected == 1);
    delete_->setEnabled(selected > 0);
}

std::unique_ptr<Dialog> DropListsDialog::addDialog() {
    return textDialog({});
}

std::unique_ptr<Dialog> DropListsDialog::changeDialog() {
    const Texts selected = selection();
    return selected.size() == 1 ? textDialog(selected.front()) : nullptr;
}

std::unique_ptr<Dialog> DropListsDialog::textDialog(const std::u16string& former) {
    const QString title = toQString(former.empty() ? texts::newItem : texts::changeItem);
    auto dialog = std::make_unique<NameDialog>(workspace(), title, texts::textLabel, anchor, this);
    dialog->setName(former);
    auto& stores = workspace().stores();
    dialog->check = [&stores, former,
                     list = list()](const std::u16string& text) -> std::optional<billing::NameRefusal> {
        if (text.empty())
            return billing::NameRefusal{StringId::nameMissing};
        const Texts others = store::pickListTexts(stores, list);
        const bool taken = text != former && std::ranges::find(others, text) != others.end();
        return taken ? std::optional(billing::NameRefusal{StringId::nameTaken}) : std::nullopt;
    };
    dialog->accepted = [this, &stores, former, list = list()](const std::u16string& text) {
        if (text == former)
            return true;
        const auto write = [&](platform::Transaction& transaction) {
            if (former.empty())
                return store::addToPickList(transaction, stores, list, text);
            return billing::renameInPickList({transaction, stores, former, text, workspace().clock().now()}, list);
        };
        const bool done = workspace().change(texts::undoList.text, write);
        if (done)
            select(text);
        return done;
    };
    return dialog;
}

void DropListsDialog::deleteSelected() {
    const Texts selected = selection();
    if (selected.empty() || !workspace().messages().ask(StringId::deleteListItems))
        return;
    workspace().change(texts::undoList.text, [&](platform::Transaction& transaction) {
        return std::ranges::all_of(selected, [&](const std::u16string& text) {
            return store::removeFromPickList(transaction, workspace().stores(), list(), text);
        });
    });
}

bool DropListsDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched != items_ || event->type() != QEvent::KeyPress)
        return Dialog::eventFilter(watched, event);
    const ListKeys keys{.add = [this] { return addDialog(); },
                        .change = [this] { return changeDialog(); },
                        .remove = [this] { deleteSelected(); }};
    return runListKey(keys, static_cast<QKeyEvent*>(event)->key()) || Dialog::eventFilter(watched, event);
}

} // namespace hourwright::desktop
