#include "desktop/bulk/replace_dialog.h"

#include "app/replace_in_filters.h"
#include "billing/typed_text.h"
#include "desktop/bulk/bulk_run.h"
#include "desktop/bulk/long_change.h"
#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/bulk.h"
#include "resources/texts/filters.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace texts = resources::bulk;
using billing::ReplaceType;
using platform::toQString;
using resources::StringId;
using store::PickList;

namespace {

constexpr int shownCharacters = 32; // of the texts, where the screen is wide enough

app::Texts offered(const app::FilterChoices& choices, ReplaceType type) {
    switch (type) {
    case ReplaceType::client: return choices.clients();
    case ReplaceType::project: return choices.projects({});
    case ReplaceType::phase: return choices.list(PickList::phases);
    case ReplaceType::task: return choices.tasks({}, {});
    case ReplaceType::billTo: return choices.contacts({});
    case ReplaceType::currency: return choices.list(PickList::currencies);
    case ReplaceType::custom1: return choices.list(PickList::custom1);
    case ReplaceType::custom2: return choices.list(PickList::custom2);
    case ReplaceType::custom3: return choices.list(PickList::custom3);
    case ReplaceType::category: break;
    }
    return choices.list(PickList::categories);
}

} // namespace

ReplaceDialog::ReplaceDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::replaceTitle), "replace", parent),
      choices_(workspace.stores(), workspace.locale()), type_(new QComboBox), find_(new CompletingCombo),
      replacement_(new QLineEdit), state_(new QLabel(toQString(StringId::updatingRecords))), bar_(new QProgressBar) {
    auto* form = addForm();
    addTypes();
    form->addRow(toQString(texts::type), type_);
    form->addRow(toQString(texts::find), find_);
    form->addRow(toQString(texts::replaceWith), replacement_);
    type_->setObjectName("type");
    find_->setObjectName("find");
    replacement_->setObjectName("replacement");
    replacement_->setMaxLength(static_cast<int>(billing::maxTextLength));
    if (!isHandheld())
        find_->setMinimumContentsLength(shownCharacters);
    content()->addWidget(state_);
    content()->addWidget(bar_);
    bar_->setAccessibleName(toQString(texts::progress));
    for (QWidget* widget : {static_cast<QWidget*>(state_), static_cast<QWidget*>(bar_)}) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
        widget->hide();
    }
    connect(type_, &QComboBox::currentIndexChanged, this, [this] { offerTexts(); });
    offerTexts();
}

// In the order of `ReplaceType`.
void ReplaceDialog::addTypes() {
    namespace words = resources::filters;
    for (const resources::Text& text : {words::wordClient, words::wordProject, words::wordPhase, words::wordTask,
                                        words::wordBillTo, words::wordCurrency})
        type_->addItem(toQString(text));
    const auto& settings = workspace().settings();
    for (const app::Caption* caption : {&settings.custom1Label, &settings.custom2Label, &settings.custom3Label})
        type_->addItem(toQString(caption->text()));
    type_->addItem(toQString(words::wordCategory));
}

void ReplaceDialog::offerTexts() {
    find_->setChoices(offered(choices_, ReplaceType{static_cast<std::uint8_t>(type_->currentIndex())}));
    find_->setText({});
}

bool ReplaceDialog::check(const billing::ReplaceRequest& request) {
    const auto refusal = billing::checkReplace(request);
    if (!refusal)
        return true;
    workspace().messages().showCheck(*refusal);
    if (*refusal == StringId::replaceFindMissing)
        find_->setFocus();
    else
        replacement_->setFocus();
    return false;
}

void ReplaceDialog::accept() {
    const billing::ReplaceRequest request{.type = ReplaceType{static_cast<std::uint8_t>(type_->currentIndex())},
                                          .find = find_->text(),
                                          .replacement = platform::toU16(replacement_->text())};
    if (!running_ && check(request) && workspace().messages().ask(StringId::replaceConfirm))
        run(request);
}

void ReplaceDialog::reject() {
    if (!running_)
        Dialog::reject();
}

void ReplaceDialog::run(const billing::ReplaceRequest& request) {
    setRunning(true);
    const auto counts = replace(request);
    setRunning(false);
    if (!counts)
        return;
    QDialog::accept();
    app::replaceInFilter(workspace().entryFilter(), request);
    app::replaceInFilter(workspace().expenseFilter(), request);
    workspace().saveFilters();
    tellCount(workspace(), StringId::recordsReplaced, counts->entries + counts->expenses);
}

std::optional<billing::ReplaceCounts> ReplaceDialog::replace(const billing::ReplaceRequest& request) {
    std::optional<billing::ReplaceCounts> counts;
    const platform::ChangeLabel label{.name = texts::replaceText.text, .time = workspace().clock().now()};
    const auto change = [&](WorkerStores& worker, BackgroundProgress& progress) {
        const auto transaction = worker.objects->begin(label);
        if (transaction != nullptr)
            counts = billing::replaceText(*transaction, *worker.stores, request, label.time,
                                          [&progress](std::size_t done, std::size_t total) {
                                              progress.done = done;
                                              progress.total = total;
                                          });
        return counts && transaction->commit() ? platform::HistoryResult::done : platform::HistoryResult::failed;
    };
    const auto outcome = runLongChange(workspace(), change, [this](const auto& work) {
        BackgroundProgress progress;
        runOnThread([&] { work(progress); }, [&] { showProgress(progress.done, progress.total); }, [] { return true; });
    });
    if (!outcome.done())
        workspace().messages().showError(platform::number(outcome.error));
    return outcome.done() ? counts : std::nullopt;
}

void ReplaceDialog::setRunning(bool running) {
    running_ = running;
    state_->setVisible(running);
    bar_->setVisible(running);
    for (QWidget* widget : {static_cast<QWidget*>(type_), static_cast<QWidget*>(find_),
                            static_cast<QWidget*>(replacement_), static_cast<QWidget*>(buttons())})
        widget->setEnabled(!running);
}

void ReplaceDialog::showProgress(std::size_t done, std::size_t total) {
    bar_->setRange(0, static_cast<int>(total));
    bar_->setValue(static_cast<int>(done));
}

} // namespace hourwright::desktop
