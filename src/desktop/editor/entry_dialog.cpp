#include "desktop/editor/entry_dialog.h"

#include "billing/duration.h"
#include "desktop/editor/billing_page.h"
#include "desktop/editor/custom_page.h"
#include "desktop/editor/general_page.h"
#include "desktop/editor/rate_field.h"
#include "desktop/editor/save_record.h"
#include "desktop/editor/times_dialog.h"
#include "desktop/note/note_editor.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/editor.h"

#include <QShortcut>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace {

using billing::DraftField;
using billing::DraftPage;
using billing::EntryDraft;
using platform::toQString;
namespace texts = resources::editor;

const resources::Text& titleOf(const store::TimeEntry& entry) {
    return entry.id == store::RecordId::none ? texts::newTitle : texts::editTitle;
}

} // namespace

EntryDialog::EntryDialog(Workspace& workspace, store::TimeEntry entry, QWidget* parent)
    : Dialog(workspace, toQString(titleOf(entry)), "addnew", parent), stored_(entry), entry_(std::move(entry)),
      opened_(billing::draftOf(entry_, workspace.clock().localTime())), offer_(workspace.stores()),
      tabs_(new QTabWidget), general_(new GeneralPage(workspace)), billing_(new BillingPage(workspace)),
      note_(new NoteEditor(workspace, nullptr)), custom_(new CustomPage(workspace)) {
    addPages();
    addKeys();
    offer_.choose(entry_.client);
    general_->offerClients(offer_.clients());
    general_->show(opened_);
    billing_->show(opened_);
    billing_->rate().show(entry_, offer_.rates());
    note_->setNote(entry_.note);
    custom_->show(opened_);
    offerChoices();
    initial_ = collect();
    connectPages();
    refresh();
    general_->focusFirst();
}

void EntryDialog::addPages() {
    tabs_->addTab(general_, toQString(texts::general));
    tabs_->addTab(billing_, toQString(texts::billing));
    tabs_->addTab(note_, toQString(texts::note));
    tabs_->addTab(custom_, toQString(texts::custom));
    tabs_->setUsesScrollButtons(false);
    content()->addWidget(tabs_);
}

void EntryDialog::addKeys() {
    const auto onKey = [this](const char* keys, auto action) {
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, action);
    };
    onKey("Ctrl+Tab", [this] { turnPage(1); });
    onKey("Ctrl+Shift+Tab", [this] { turnPage(-1); });
}

void EntryDialog::connectPages() {
    connect(tabs_, &QTabWidget::currentChanged, this, &EntryDialog::pageChanged);
    connect(general_, &GeneralPage::changed, this, &EntryDialog::refresh);
    connect(billing_, &BillingPage::changed, this, &EntryDialog::refresh);
    connect(general_, &GeneralPage::clientChosen, this, &EntryDialog::changeClient);
    connect(general_, &GeneralPage::projectChanged, this, &EntryDialog::offerChoices);
    connect(general_, &GeneralPage::timesRequested, this, &EntryDialog::openTimes);
    connect(general_, &GeneralPage::saveRequested, this, &EntryDialog::accept);
    connect(billing_, &BillingPage::saveRequested, this, &EntryDialog::accept);
    connect(custom_, &CustomPage::saveRequested, this, &EntryDialog::accept);
}

void EntryDialog::suggestRates() {
    suggests_ = true;
    billing_->rate().suggest();
    initial_ = collect();
}

void EntryDialog::turnPage(int step) {
    const int count = tabs_->count();
    tabs_->setCurrentIndex((tabs_->currentIndex() + step + count) % count);
}

// A page is left only when what stands on it is accepted.
void EntryDialog::pageChanged(int page) {
    changeClient();
    store::TimeEntry scratch = entry_;
    if (const auto refusal = billing::applyPage(DraftPage{static_cast<std::uint8_t>(page_)}, touched(),
                                                workspace().timeRules(), scratch)) {
        refuse(*refusal);
        return;
    }
    page_ = page;
    refresh();
}

void EntryDialog::refuse(const billing::DraftRefusal& refusal) {
    page_ = static_cast<int>(billing::pageOf(refusal.field));
    {
        const QSignalBlocker quiet(tabs_);
        tabs_->setCurrentIndex(page_);
    }
    showRefusal(workspace(), refusal);
    switch (billing::pageOf(refusal.field)) {
    case DraftPage::general: general_->focusField(refusal.field); break;
    case DraftPage::billing: billing_->focusField(refusal.field); break;
    case DraftPage::note: note_->setFocus(Qt::OtherFocusReason); break;
    case DraftPage::custom: custom_->focusField(refusal.field); break;
    }
}

// The note is left out where it does not count: taking its bytes is work.
EntryDraft EntryDialog::collectFields() const {
    EntryDraft draft = opened_;
    general_->collect(draft);
    billing_->collect(draft);
    custom_->collect(draft);
    return draft;
}

EntryDraft EntryDialog::collect() const {
    EntryDraft draft = collectFields();
    draft.note = note_->note();
    return draft;
}

billing::EntryPreview EntryDialog::preview() {
    return billing::previewOf(billing::touchedOnly(collectFields(), opened_), billing_->rate().choice(),
                              workspace().timeRules(), entry_);
}

void EntryDialog::refresh() {
    const billing::EntryPreview shown = preview();
    general_->showPreview(shown);
    billing_->showPreview(shown);
}

void EntryDialog::changeClient() {
    EntryDraft draft = collectFields();
    if (*draft.client == offer_.chosen())
        return;
    const ClientOffer former = offer_;
    offer_.choose(*draft.client);
    billing::changeClient(draft, former.tree(), offer_.tree());
    general_->show(draft);
    billing_->setBillTo(*draft.billTo);
    billing_->rate().changeRates(offer_.rates());
    if (suggests_)
        billing_->rate().suggest();
    offerChoices();
}

void EntryDialog::offerChoices() {
    const auto choices = billing::choicesOf(offer_.tree(), *collectFields().project);
    general_->offer(choices);
    billing_->offerContacts(choices.contacts);
}

void EntryDialog::openTimes() {
    auto* dialog = new TimesDialog(workspace(), preview().entry, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &TimesDialog::taken, this, &EntryDialog::takeTimes);
    dialog->open();
}

// What the times came to becomes the entry's: read back from its text, the duration could lose a hundredth.
void EntryDialog::takeTimes(const store::TimeEntry& timed) {
    EntryDraft shown = collectFields();
    entry_.date = timed.date;
    entry_.breakTime = timed.breakTime;
    entry_.duration = timed.duration;
    const EntryDraft now = billing::draftOf(timed, workspace().clock().localTime());
    for (EntryDraft* draft : {&opened_, &shown}) {
        draft->date = now.date;
        draft->start = now.start;
        draft->withoutStart = now.withoutStart;
        draft->breakTime = now.breakTime;
        draft->duration = billing::formatHours(timed);
    }
    timesTaken_ = true;
    general_->show(shown);
    refresh();
}

bool EntryDialog::isChanged() const {
    return timesTaken_ || restored_ || collect() != initial_;
}

void EntryDialog::accept() {
    if (saved_)
        return; // a second press of the key must not store a second entry
    changeClient();
    store::TimeEntry entry = entry_;
    if (const auto refusal = billing::applyDraft(touched(), workspace().timeRules(), entry)) {
        refuse(*refusal);
        return;
    }
    if (aboutToStore)
        aboutToStore();
    const bool isNew = stored_.id == store::RecordId::none;
    if (!saveRecord(workspace(), (isNew ? texts::undoAdd : texts::undoEdit).text, entry, stored_))
        return;
    saved_ = true;
    emit saved(entry.id);
    QDialog::accept();
}

void EntryDialog::reject() {
    if (!isChanged() || workspace().messages().ask(resources::StringId::discardChanges))
        QDialog::reject();
}

} // namespace hourwright::desktop
