#include "app/settings_rules.h"
#include "billing/new_entry.h"
#include "billing/selected_records.h"
#include "desktop/bulk/long_change.h"
#include "desktop/commands/commands.h"
#include "desktop/editor/copy_dialog.h"
#include "desktop/editor/entry_dialog.h"
#include "desktop/main_window.h"
#include "resources/texts/editor.h"
#include "store/read_record.h"

namespace hourwright::desktop {

namespace {

using app::Command;
using billing::Selected;
using store::RecordId;
namespace texts = resources::editor;

bool showsEntries(MainWindow& window) {
    return window.workspace().view().records() == app::RecordKind::entries;
}

// The entry that a new one takes its client from: the one recorded here last, else the latest of the store.
std::optional<store::TimeEntry> lastEntry(store::Stores& stores, RecordId recorded) {
    store::TimeEntry entry;
    if (recorded != RecordId::none && store::readRecord(stores, recorded, entry) == store::ReadResult::ok)
        return entry;
    store::RecordStore& entries = stores.entries();
    const bool found = entries.seek(platform::Seek::toEnd()) != RecordId::none;
    return found && store::readTimeEntry(entries, entry) == store::ReadResult::ok ? std::optional(entry) : std::nullopt;
}

std::optional<store::TimeEntry> readEntry(MainWindow& window, RecordId id) {
    store::TimeEntry entry;
    switch (store::readRecord(window.workspace().stores(), id, entry)) {
    case store::ReadResult::ok: return entry;
    case store::ReadResult::failed: window.workspace().showStoreError(); break;
    case store::ReadResult::noMore: break; // deleted meanwhile; the view is about to notice
    }
    return std::nullopt;
}

// Time entries: what is done with a single one, in a dialog.
class EntryEditing {
public:
    explicit EntryEditing(MainWindow& window) : window_(window) {}

    void openNew(const EntrySeed& seed) {
        Workspace& workspace = window_.workspace();
        const auto last = lastEntry(workspace.stores(), recorded_);
        auto entry =
            billing::newTimeEntry(app::newEntryDefaults(workspace.settings()), seed.day, last ? &*last : nullptr);
        billing::placeEntry(entry, seed.day, seed.start, seed.minutes, workspace.timeRules());
        open(std::move(entry))->suggestRates();
    }

    void edit(RecordId id) {
        if (auto entry = readEntry(window_, id))
            open(std::move(*entry));
    }

    void createCopy(RecordId id) {
        auto entry = readEntry(window_, id);
        if (!entry)
            return;
        entry->id = RecordId::none;
        open(std::move(*entry));
    }

    void copyTo(RecordId id) {
        auto entry = readEntry(window_, id);
        if (!entry)
            return;
        auto* dialog = new CopyDialog(window_.workspace(), std::move(*entry), &window_);
        QObject::connect(dialog, &CopyDialog::copied, &window_,
                         [this](const std::vector<RecordId>& ids) { window_.select(ids); });
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    }

    QDialog* reopen(const app::KeptEntry& kept) {
        EntryDialog* dialog = open(kept.stored);
        dialog->restore(kept);
        return dialog;
    }

private:
    EntryDialog* open(store::TimeEntry entry) {
        auto* dialog = new EntryDialog(window_.workspace(), std::move(entry), &window_);
        QObject::connect(dialog, &EntryDialog::saved, &window_, [this](RecordId id) {
            recorded_ = id;
            window_.select(std::span(&id, 1));
        });
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
        return dialog;
    }

    MainWindow& window_;
    RecordId recorded_ = RecordId::none;
};

// Where a view of one day shows another day than today, new entries are meant for that one.
EntrySeed newSeed(MainWindow& window) {
    if (const auto place = window.takePlace())
        return *place;
    const app::CurrentView& view = window.workspace().view();
    const bool day = view.kind() == app::PeriodKind::day;
    return {.day = day ? view.period().currentDate() : window.workspace().clock().localTime()};
}

void addSingleCommands(MainWindow& window) {
    const auto editing = std::make_shared<EntryEditing>(window);
    window.openNew = [&window, editing](const EntrySeed& seed) {
        if (showsEntries(window))
            editing->openNew(seed);
        else if (window.expenseEditing.openNew)
            window.expenseEditing.openNew(seed);
    };
    window.reopen = [&window, editing](const app::KeptRecord& record) -> QDialog* {
        if (const auto* entry = std::get_if<app::KeptEntry>(&record))
            return editing->reopen(*entry);
        return window.expenseEditing.reopen(std::get<app::KeptExpense>(record));
    };
    window.commands().set(Command::newEntry, [&window, editing] { editing->openNew(newSeed(window)); });
    const auto onSelected = [&window](Command command, std::function<void(RecordId)> ofEntry,
                                      std::function<void(RecordId)> RecordEditing::*ofExpense) {
        window.commands().set(command, [&window, ofEntry, ofExpense] {
            const auto ids = window.view().selection();
            if (ids.empty())
                return;
            if (showsEntries(window))
                ofEntry(ids.front());
            else if (ofExpense != nullptr && window.expenseEditing.*ofExpense)
                (window.expenseEditing.*ofExpense)(ids.front());
        });
    };
    onSelected(
        Command::edit, [editing](RecordId id) { editing->edit(id); }, &RecordEditing::edit);
    onSelected(
        Command::createCopy, [editing](RecordId id) { editing->createCopy(id); }, &RecordEditing::createCopy);
    onSelected(
        Command::copyTo, [editing](RecordId id) { editing->copyTo(id); }, nullptr);
}

using SelectionChange = bool (*)(platform::Transaction&, store::Stores&, Selected, std::span<const RecordId>,
                                 platform::FileTime);

void addSelectionChange(MainWindow& window, Command command, const resources::Text& name, SelectionChange change) {
    window.commands().set(command, [&window, name, change] {
        Workspace& workspace = window.workspace();
        const auto ids = window.view().selection();
        const auto kind = showsEntries(window) ? Selected::entries : Selected::expenses;
        if (!ids.empty())
            changeRecords(
                workspace, &window, name.text, ids.size(),
                [&, now = workspace.clock().now()](platform::Transaction& transaction, store::Stores& stores) {
                    return change(transaction, stores, kind, ids, now);
                });
    });
}

bool askToDelete(Workspace& workspace, std::size_t count) {
    using resources::StringId;
    if (count == 1)
        return workspace.messages().ask(StringId::deleteOneSelected);
    return workspace.messages().show(
               {.id = StringId::deleteSelected,
                .text = platform::withNumber(StringId::deleteSelected, static_cast<std::int32_t>(count)),
                .icon = platform::Icon::warning,
                .buttons = platform::Buttons::yesNo,
                .defaultAnswer = platform::Answer::no}) == platform::Answer::yes;
}

void deleteSelection(MainWindow& window) {
    Workspace& workspace = window.workspace();
    const auto ids = window.view().selection();
    const auto kind = showsEntries(window) ? Selected::entries : Selected::expenses;
    if (ids.empty() || !askToDelete(workspace, ids.size()))
        return;
    changeRecords(workspace, &window, texts::undoDelete.text, ids.size(),
                  [&](platform::Transaction& transaction, store::Stores& stores) {
                      return billing::deleteRecords(transaction, stores, kind, ids);
                  });
}

} // namespace

void addEntryCommands(MainWindow& window) {
    addSingleCommands(window);
    addSelectionChange(window, Command::markBilled, texts::undoBilled, billing::toggleBilled);
    addSelectionChange(window, Command::markPaid, texts::undoPaid, billing::togglePaid);
    window.commands().set(Command::deleteSelected, [&window] { deleteSelection(window); });
}

} // namespace hourwright::desktop
