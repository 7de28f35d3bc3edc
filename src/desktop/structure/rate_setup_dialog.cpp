#include "desktop/structure/rate_setup_dialog.h"

#include "desktop/screen_size.h"
#include "desktop/structure/button_column.h"
#include "desktop/structure/list_keys.h"
#include "desktop/structure/rate_dialog.h"
#include "platform/number_text.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/structure.h"
#include "store/client_structure.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace hourwright::desktop {

namespace texts = resources::structure;
using platform::toQString;
using store::RateRecord;

namespace {

enum Column : int { description, type, rate, modified };

} // namespace

RateSetupDialog::RateSetupDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::setupRates), "ratesetup", parent), client_(new QComboBox),
      list_(new QTreeWidget) {
    build();
    connect(client_, &QComboBox::currentIndexChanged, this, [this] { reloadRates(); });
    connect(list_, &QTreeWidget::currentItemChanged, this, [this] { updateButtons(); });
    connect(list_, &QTreeWidget::itemDoubleClicked, this, [this] { edit_->click(); });
    connect(&workspace, &Workspace::recordsChanged, this, [this] { reloadClients(); });
    reloadClients();
    list_->setFocus();
}

void RateSetupDialog::build() {
    buttons()->setStandardButtons(QDialogButtonBox::Close | QDialogButtonBox::Help);
    for (QAbstractButton* button : buttons()->buttons())
        qobject_cast<QPushButton*>(button)->setAutoDefault(false);
    client_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    client_->setMinimumContentsLength(16);
    addForm()->addRow(toQString(texts::clientLabel), client_);
    list_->setHeaderLabels({toQString(texts::descriptionColumn), toQString(texts::typeColumn),
                            toQString(texts::rateColumn), toQString(texts::modifiedColumn)});
    list_->setAccessibleName(toQString(texts::ratesName));
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setMinimumHeight(fontMetrics().height() * 8);
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list_->header()->setSectionResizeMode(Column::description, QHeaderView::Stretch);
    list_->setColumnHidden(Column::modified, isHandheld());
    list_->installEventFilter(this);
    ButtonColumn column(*content(), list_);
    const auto run = [](std::unique_ptr<Dialog> dialog) {
        if (dialog)
            dialog->exec();
    };
    column.add(texts::addPlain, [this, run] { run(addDialog()); });
    edit_ = column.add(texts::edit, [this, run] { run(editDialog()); });
    delete_ = column.add(texts::remove, [this] { deleteSelected(); });
    resize(680, 420);
}

void RateSetupDialog::reloadClients() {
    const auto clients = store::listClients(workspace().stores());
    if (!clients)
        workspace().showStoreError();
    const QVariant chosen = client_->currentIndex() < 0 ? QVariant(store::defaultRatesOwner) : client_->currentData();
    {
        const QSignalBlocker quiet(client_);
        client_->clear();
        client_->addItem(toQString(resources::StringId::defaultRates), store::defaultRatesOwner);
        for (const auto& client : clients.value_or(std::vector<store::ClientRecord>{}))
            client_->addItem(toQString(client.name), client.clientId);
        client_->setCurrentIndex(std::max(0, client_->findData(chosen)));
    }
    reloadRates();
}

void RateSetupDialog::showClient(std::uint32_t clientId) {
    client_->setCurrentIndex(std::max(0, client_->findData(clientId)));
}

void RateSetupDialog::reloadRates() {
    const auto selected = current();
    const int row = list_->indexOfTopLevelItem(list_->currentItem());
    auto rates = store::recordsOf<RateRecord>(workspace().stores(), client_->currentData().toUInt());
    if (!rates)
        workspace().showStoreError();
    list_->clear();
    rates_ = std::move(rates).value_or(std::vector<RateRecord>{});
    for (const RateRecord& record : rates_) {
        auto* item = new QTreeWidgetItem(list_);
        item->setText(Column::description, toQString(record.description));
        item->setText(Column::type, rateTypeText(record.type));
        item->setText(Column::rate, QString::fromStdString(platform::hundredths(record.rate)));
        item->setTextAlignment(Column::rate, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(Column::modified, modifiedText(workspace(), record.modified));
    }
    list_->setCurrentItem(list_->topLevelItem(std::clamp(row, 0, std::max(0, list_->topLevelItemCount() - 1))));
    if (selected)
        select(selected->id);
    updateButtons();
}

void RateSetupDialog::select(store::RecordId id) {
    const auto found = std::ranges::find(rates_, id, &RateRecord::id);
    if (found != rates_.end())
        list_->setCurrentItem(list_->topLevelItem(static_cast<int>(found - rates_.begin())));
}

std::optional<RateRecord> RateSetupDialog::current() const {
    const int row = list_->indexOfTopLevelItem(list_->currentItem());
    if (row < 0 || static_cast<std::size_t>(row) >= rates_.size())
        return std::nullopt;
    return rates_[static_cast<std::size_t>(row)];
}

void RateSetupDialog::updateButtons() {
    edit_->setEnabled(current().has_value());
    delete_->setEnabled(current().has_value());
}

std::unique_ptr<Dialog> RateSetupDialog::addDialog() {
    RateRecord record;
    record.clientId = client_->currentData().toUInt();
    auto dialog = std::make_unique<RateDialog>(workspace(), record, platform::toU16(client_->currentText()), this);
    dialog->saved = [this](const RateRecord& added) { select(added.id); };
    return dialog;
}

std::unique_ptr<Dialog> RateSetupDialog::editDialog() {
    const auto record = current();
    return record ? std::make_unique<RateDialog>(workspace(), *record, platform::toU16(client_->currentText()), this)
                  : nullptr;
}

void RateSetupDialog::deleteSelected() {
    if (const auto record = current())
        deleteRate(workspace(), record->id);
}

bool RateSetupDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched != list_ || event->type() != QEvent::KeyPress)
        return Dialog::eventFilter(watched, event);
    const ListKeys keys{.add = [this] { return addDialog(); },
                        .change = [this] { return editDialog(); },
                        .remove = [this] { deleteSelected(); }};
    return runListKey(keys, static_cast<QKeyEvent*>(event)->key()) || Dialog::eventFilter(watched, event);
}

} // namespace hourwright::desktop
