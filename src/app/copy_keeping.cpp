#include "app/copy_keeping.h"

#include "app/copy_plan.h"
#include "platform/utf.h"

namespace hourwright::app {

using platform::RestoreOutcome;
using platform::StoreCopy;
using resources::StringId;

namespace {

// Replaces the first "%s".
void fill(std::u16string& text, std::u16string_view value) {
    constexpr std::u16string_view place = u"%s";
    if (const auto at = text.find(place); at != std::u16string::npos)
        text.replace(at, place.size(), value);
}

StringId messageOf(RestoreOutcome outcome) {
    switch (outcome) {
    case RestoreOutcome::copyDamaged: return StringId::copyDamaged;
    case RestoreOutcome::inUse: return StringId::recordsInUse;
    case RestoreOutcome::failed:
    case RestoreOutcome::done: break;
    }
    return StringId::copyNotRestored;
}

} // namespace

platform::MadeCopy makeCopy(platform::StoreCopies& copies, const platform::SystemTime& now,
                            const platform::KeepGoing& keepGoing) {
    platform::MadeCopy made = copies.make(now, keepGoing);
    if (made.outcome == platform::CopyOutcome::done)
        for (const StoreCopy& copy : copiesToForget(copies.list(), now))
            static_cast<void>(copies.remove(copy)); // tried again next time
    return made;
}

std::optional<platform::MadeCopy> makeDueCopy(platform::StoreCopies& copies, const platform::SystemTime& now,
                                              const platform::KeepGoing& keepGoing) {
    if (!isCopyDue(copies.list(), copies.present(), now))
        return std::nullopt;
    return makeCopy(copies, now, keepGoing);
}

std::optional<StoreCopy> newestSoundCopy(platform::StoreCopies& copies) {
    for (StoreCopy& copy : copies.list())
        if (copies.verify(copy, [] { return true; }) == platform::CopyHealth::sound)
            return std::move(copy);
    return std::nullopt;
}

std::u16string withCopy(StringId id, const StoreCopy& copy, const platform::Locale& locale) {
    std::u16string text(resources::string(id));
    fill(text, locale.shortDate(copy.time) + u' ' + locale.timeWithoutSeconds(copy.time));
    fill(text, locale.number(platform::toUtf16(std::to_string(copy.records))));
    return text;
}

bool askToRestore(platform::MessageBox& messages, StringId question, const StoreCopy& copy,
                  const platform::Locale& locale) {
    return messages.show({.id = question,
                          .text = withCopy(question, copy, locale),
                          .icon = platform::Icon::warning,
                          .buttons = platform::Buttons::yesNo,
                          .defaultAnswer = platform::Answer::no}) == platform::Answer::yes;
}

platform::RestoredCopy restoreCopy(platform::StoreCopies& copies, const StoreCopy& copy, platform::CopyPart part,
                                   const platform::SystemTime& now, platform::MessageBox& messages) {
    platform::RestoredCopy restored = copies.restore(copy, part, now);
    if (restored.outcome != RestoreOutcome::done)
        messages.showFailure(messageOf(restored.outcome));
    return restored;
}

void showRestored(platform::MessageBox& messages, const platform::RestoredCopy& restored) {
    std::u16string text(resources::string(StringId::copyRestored));
    fill(text, platform::toUtf16(restored.kept.string()));
    messages.show({.id = StringId::copyRestored, .text = std::move(text), .icon = platform::Icon::information});
}

bool offerCopy(platform::StoreCopies& copies, const platform::SystemTime& now, const platform::Locale& locale,
               platform::MessageBox& messages) {
    const auto copy = newestSoundCopy(copies);
    if (!copy || !askToRestore(messages, StringId::restoreOffer, *copy, locale))
        return false;
    const auto restored = restoreCopy(copies, *copy, platform::CopyPart::records, now, messages);
    if (restored.outcome != RestoreOutcome::done)
        return false;
    showRestored(messages, restored);
    return true;
}

} // namespace hourwright::app
