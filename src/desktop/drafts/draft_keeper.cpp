#include "desktop/drafts/draft_keeper.h"

#include "app/drafts/stored_draft.h"
#include "desktop/drafts/draft_source.h"
#include "resources/filled.h"

#include <QApplication>
#include <QDialog>
#include <algorithm>
#include <chrono>

namespace hourwright::desktop {

namespace {

using platform::Answer;
using resources::StringId;

constexpr std::chrono::seconds betweenLooks{10};
constexpr std::chrono::milliseconds untilAnotherTry{300};

Answer askAbout(Workspace& workspace, const app::KeptDraft& draft) {
    const auto written = platform::toSystemTime(draft.written).value_or(platform::SystemTime{});
    const std::u16string when =
        workspace.locale().shortDate(written) + u' ' + workspace.locale().timeWithoutSeconds(written);
    return workspace.messages().show(
        {.id = StringId::draftOffer,
         .text = resources::filled(resources::string(StringId::draftOffer),
                                   {when, app::describe(draft.record, workspace.locale())}),
         .icon = platform::Icon::question,
         .buttons = platform::Buttons::yesNoCancel,
         .defaultAnswer = Answer::yes});
}

} // namespace

DraftKeeper::DraftKeeper(Workspace& workspace, platform::Registry& journal)
    : workspace_(workspace), journal_(journal), left_(journal_.read()) {
    regular_.setInterval(betweenLooks);
    connect(&regular_, &QTimer::timeout, this, qOverload<>(&DraftKeeper::keep));
}

void DraftKeeper::start() {
    regular_.start();
    if (!left_.empty())
        QTimer::singleShot(0, this, &DraftKeeper::offerWhenFree);
}

// Timers that were left behind are asked about first: a draft may complete one of them.
void DraftKeeper::offerWhenFree() {
    if (QApplication::activeModalWidget() != nullptr)
        QTimer::singleShot(untilAnotherTry, this, &DraftKeeper::offerWhenFree);
    else if (offer() || !left_.empty())
        QTimer::singleShot(untilAnotherTry, this, &DraftKeeper::offerWhenFree);
}

// A question that was not answered, because the program was told to end meanwhile, forgets nothing either.
bool DraftKeeper::offer() {
    if (left_.empty())
        return false;
    const app::KeptDraft draft = std::move(left_.front());
    left_.erase(left_.begin());
    if (app::wasStored(workspace_.stores(), draft, workspace_.timeRules())) {
        journal_.erase(draft.place);
        return false;
    }
    const Answer answer = askAbout(workspace_, draft);
    if (answer == Answer::no) {
        journal_.erase(draft.place);
        return false;
    }
    QDialog* const dialog = answer == Answer::yes && reopen ? reopen(draft.record) : nullptr;
    if (dialog == nullptr) {
        postponed_.push_back(draft.place);
        return false;
    }
    watch(dialog, draft.place).written = draft.record;
    return true;
}

void DraftKeeper::keep() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        const auto* source = dynamic_cast<DraftSource*>(widget);
        auto* dialog = qobject_cast<QDialog*>(widget);
        if (source == nullptr || dialog == nullptr || !dialog->isVisible())
            continue;
        if (const auto record = source->draftToKeep())
            keep(dialog, *record);
    }
}

void DraftKeeper::keep(QDialog* dialog, const app::KeptRecord& record) {
    Watched* watched = find(dialog);
    if (watched == nullptr) {
        const auto place = freePlace();
        if (!place)
            return;
        watched = &watch(dialog, *place);
    }
    if (watched->written != record && journal_.write(watched->place, record, workspace_.clock().now()))
        watched->written = record;
}

// What was taken back by hand until nothing is changed any more stays written until the dialog closes.
DraftKeeper::Watched& DraftKeeper::watch(QDialog* dialog, std::size_t place) {
    if (auto* source = dynamic_cast<DraftSource*>(dialog))
        source->aboutToStore = [this] { keep(); };
    connect(dialog, &QDialog::finished, this, [this, dialog] { closed(dialog); });
    return watched_.emplace_back(Watched{.dialog = dialog, .place = place, .written = {}});
}

DraftKeeper::Watched* DraftKeeper::find(const QDialog* dialog) {
    const auto found =
        std::ranges::find(watched_, dialog, [](const Watched& watched) { return watched.dialog.data(); });
    return found == watched_.end() ? nullptr : &*found;
}

void DraftKeeper::closed(const QDialog* dialog) {
    if (const Watched* const watched = find(dialog)) {
        journal_.erase(watched->place);
        std::erase_if(watched_, [dialog](const Watched& each) { return each.dialog == dialog; });
    }
}

std::optional<std::size_t> DraftKeeper::freePlace() const {
    for (std::size_t place = 0; place < app::DraftJournal::placeCount; ++place) {
        const bool taken = std::ranges::find(watched_, place, &Watched::place) != watched_.end() ||
                           std::ranges::find(left_, place, &app::KeptDraft::place) != left_.end() ||
                           std::ranges::find(postponed_, place) != postponed_.end();
        if (!taken)
            return place;
    }
    return std::nullopt;
}

} // namespace hourwright::desktop
