#include "app/gone_records.h"

#include "app/copy_keeping.h"

namespace hourwright::app {

namespace {

using platform::Answer;
using resources::StringId;

// Putting it in place is offered first: the file can hardly have gone by the user's wish, or he says so.
bool offer(platform::StoreCopies& copies, const platform::StoreCopy& copy, const platform::SystemTime& now,
           const platform::Locale& locale, platform::MessageBox& messages, const CopyWorkRunner& run) {
    const Answer answer = messages.show({.id = StringId::recordsGoneOffer,
                                         .text = withCopy(StringId::recordsGoneOffer, copy, locale),
                                         .icon = platform::Icon::warning,
                                         .buttons = platform::Buttons::yesNoCancel,
                                         .defaultAnswer = Answer::yes});
    if (answer != Answer::yes)
        return answer == Answer::no;
    return restoreCopy(copies, copy, platform::CopyPart::records, now, messages, run).outcome ==
           platform::RestoreOutcome::done;
}

} // namespace

bool recordsAreGone(platform::StoreCopies& copies) {
    return copies.present().records.text.empty() && (!copies.list().empty() || !copies.unreadable().empty());
}

bool settleGoneRecords(platform::StoreCopies& copies, const platform::SystemTime& now, const platform::Locale& locale,
                       platform::MessageBox& messages, const CopyWorkRunner& run) {
    if (!recordsAreGone(copies))
        return true;
    if (const auto copy = newestSoundCopy(copies, run))
        return offer(copies, *copy, now, locale, messages, run);
    return messages.ask(StringId::recordsGoneNoCopy);
}

} // namespace hourwright::app
