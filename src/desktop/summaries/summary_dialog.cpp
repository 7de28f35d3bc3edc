#include "desktop/summaries/summary_dialog.h"

#include "billing/client_choices.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/exports.h"
#include "store/client_tree.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace hourwright::desktop {

using platform::toQString;
using platform::toU16;
namespace exports = resources::exports;

namespace {

constexpr const char* helpAnchor = "summary";

QString textOf(const QTreeWidget& list) {
    QString text;
    for (int row = 0; row < list.topLevelItemCount(); ++row)
        text += list.topLevelItem(row)->text(0) + '\t' + list.topLevelItem(row)->text(1) + '\n';
    return text;
}

// Fills a box with "[Any]" and texts, and chooses one of them; one that is not there is added.
void fill(QComboBox& box, const std::vector<std::u16string>& texts, const std::u16string& chosen) {
    const QSignalBlocker quiet(box);
    box.clear();
    box.addItem(toQString(exports::any), QString());
    for (const std::u16string& text : texts)
        box.addItem(toQString(text), toQString(text));
    if (box.findData(toQString(chosen)) < 0)
        box.addItem(toQString(chosen), toQString(chosen));
    box.setCurrentIndex(box.findData(toQString(chosen)));
}

std::u16string chosenIn(const QComboBox& box) {
    return toU16(box.currentData().toString());
}

} // namespace

SummaryDialog::SummaryDialog(Workspace& workspace, const QString& title, const std::vector<billing::SummaryRow>& rows,
                             QWidget* parent)
    : Dialog(workspace, title, helpAnchor, parent), list_(new QTreeWidget) {
    list_->setColumnCount(2);
    list_->setHeaderHidden(true);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAlternatingRowColors(true);
    list_->setAccessibleName(title);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    list_->header()->setStretchLastSection(false);
    content()->addWidget(list_);
    buttons()->setStandardButtons(QDialogButtonBox::Close | QDialogButtonBox::Help);
    auto* copy = buttons()->addButton(toQString(exports::copy), QDialogButtonBox::ActionRole);
    copy->setAutoDefault(false);
    buttons()->button(QDialogButtonBox::Close)->setDefault(true);
    connect(copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(textOf(*list_)); });
    show(rows);
}

void SummaryDialog::show(const std::vector<billing::SummaryRow>& rows) {
    list_->clear();
    for (const billing::SummaryRow& row : rows) {
        auto* item = new QTreeWidgetItem(list_);
        item->setText(0, QString(row.level * 4, ' ') + toQString(row.label));
        item->setText(1, toQString(row.value));
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    const int rowHeight = list_->sizeHintForRow(0);
    list_->setMinimumSize(280, rowHeight * static_cast<int>(rows.size()) + 8);
}

ClientSummaryDialog::ClientSummaryDialog(Workspace& workspace, const billing::SummaryScope& scope, QWidget* parent)
    : SummaryDialog(workspace, toQString(exports::summary), {}, parent), client_(new QComboBox),
      project_(new QComboBox), task_(new QComboBox) {
    auto* form = makeForm();
    form->addRow(toQString(exports::chooseClient), client_);
    form->addRow(toQString(exports::chooseProject), project_);
    form->addRow(toQString(exports::chooseTask), task_);
    content()->insertLayout(0, form);
    std::vector<std::u16string> names;
    for (const auto& client : store::listClients(workspace.stores()).value_or(std::vector<store::ClientRecord>{}))
        names.push_back(client.name);
    fill(*client_, names, scope.client.empty() && !names.empty() ? names.front() : scope.client);
    client_->removeItem(client_->findData(QString()));
    fillBelow();
    fill(*project_, {}, scope.project);
    fill(*task_, {}, scope.task);
    fillBelow();
    connect(client_, &QComboBox::currentIndexChanged, this, [this] {
        project_->setCurrentIndex(0);
        task_->setCurrentIndex(0);
        fillBelow();
        refresh();
    });
    connect(project_, &QComboBox::currentIndexChanged, this, [this] {
        fillBelow();
        refresh();
    });
    connect(task_, &QComboBox::currentIndexChanged, this, [this] { refresh(); });
    refresh();
}

// Projects and tasks are those of the client; what was chosen stays.
void ClientSummaryDialog::fillBelow() {
    const auto client = store::findClient(workspace().stores(), chosenIn(*client_));
    const auto tree =
        client && client->id != store::RecordId::none ? store::clientTree(workspace().stores(), *client) : std::nullopt;
    const std::u16string project = chosenIn(*project_);
    const std::u16string task = chosenIn(*task_);
    const auto choices = billing::choicesOf(tree ? &*tree : nullptr, project);
    fill(*project_, choices.projects, project);
    fill(*task_, choices.tasks, task);
}

void ClientSummaryDialog::refresh() {
    const billing::SummaryScope scope{chosenIn(*client_), chosenIn(*project_), chosenIn(*task_)};
    const auto summary = billing::summarize(workspace().stores().entries(), scope, workspace().timeRules());
    if (summary)
        show(billing::summaryRows(*summary, scope, workspace().locale()));
    else
        workspace().showStoreError();
}

} // namespace hourwright::desktop
