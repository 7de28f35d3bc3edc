#pragma once

#include "billing/entry_preview.h"
#include "desktop/dialog.h"
#include "desktop/drafts/draft_source.h"
#include "desktop/editor/client_offer.h"

class QTabWidget;

namespace hourwright::desktop {

class BillingPage;
class CustomPage;
class GeneralPage;
class NoteEditor;

/// The editor of one time entry, new (id none) or stored, on four pages. It stores the entry itself.
class EntryDialog : public Dialog, public DraftSource {
    Q_OBJECT

public:
    EntryDialog(Workspace& workspace, store::TimeEntry entry, QWidget* parent);

    /// For a new entry: it begins with the first rate of its client, and follows the client until a rate is chosen.
    void suggestRates();
    /// Checks and stores the entry; stays open when something is refused.
    void accept() override;
    /// Asks before changes are lost.
    void reject() override;
    [[nodiscard]] bool isChanged() const;

    /// The entry is what a timer counted, and nowhere else unless that timer still runs.
    void setTimer(const std::optional<app::KeptTimer>& timer);
    [[nodiscard]] std::optional<app::KeptRecord> draftToKeep() const override;
    /// Goes on with a draft of the entry that it was made with. It counts as changed.
    void restore(const app::KeptEntry& kept);

signals:
    /// The entry was stored.
    void saved(hourwright::store::RecordId id);

private:
    void addPages();
    void addKeys();
    void connectPages();
    void turnPage(int step);
    void pageChanged(int page);
    void changeClient();
    void offerChoices();
    void openTimes();
    void takeTimes(const store::TimeEntry& timed);
    void refresh();
    void refuse(const billing::DraftRefusal& refusal);
    [[nodiscard]] billing::EntryDraft collectFields() const;
    [[nodiscard]] billing::EntryDraft collect() const;
    [[nodiscard]] billing::EntryDraft touched() const { return billing::touchedOnly(collect(), opened_); }
    [[nodiscard]] billing::EntryPreview preview();

    store::TimeEntry stored_;     ///< as it was opened
    store::TimeEntry entry_;      ///< what the draft is applied to
    billing::EntryDraft opened_;  ///< of `entry_`
    billing::EntryDraft initial_; ///< what the pages held when the dialog opened
    ClientOffer offer_;
    QTabWidget* tabs_;
    GeneralPage* general_;
    BillingPage* billing_;
    NoteEditor* note_;
    CustomPage* custom_;
    int page_ = 0;
    bool timesTaken_ = false;
    bool suggests_ = false;
    bool saved_ = false;
    bool restored_ = false;
    bool ofTimer_ = false;
    std::optional<app::KeptTimer> timer_;
};

} // namespace hourwright::desktop
