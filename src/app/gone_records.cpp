#include "app/gone_records.h"

#include "app/copy_keeping.h"

#include <system_error>

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

// What cannot be looked at is no reason to think so: opening it says why.
bool recordsAreGone(platform::StoreCopies& copies, const std::filesystem::path& file) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    const bool gone = error ? error == std::errc::no_such_file_or_directory : size == 0;
    return gone && (!copies.list().empty() || !copies.unreadable().empty());
}

bool settleGoneRecords(platform::StoreCopies& copies, const std::filesystem::path& file,
                       const platform::SystemTime& now, const platform::Locale& locale, platform::MessageBox& messages,
                       const CopyWorkRunner& run) {
    if (!recordsAreGone(copies, file))
        return true;
    if (const auto copy = newestSoundCopy(copies, run))
        return offer(copies, *copy, now, locale, messages, run);
    return messages.ask(StringId::recordsGoneNoCopy);
}

} // namespace hourwright::app
