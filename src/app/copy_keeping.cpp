#include "app/copy_keeping.h"

#include "app/copy_plan.h"
#include "platform/utf.h"
#include "resources/filled.h"
#include "resources/texts/copies.h"

#include <algorithm>
#include <set>

namespace hourwright::app {

using platform::CopyHealth;
using platform::RestoreOutcome;
using platform::StoreCopies;
using platform::StoreCopy;
using Names = std::set<std::string>;
using resources::StringId;
namespace texts = resources::copies;

namespace {

StringId messageOf(RestoreOutcome outcome) {
    switch (outcome) {
    case RestoreOutcome::copyDamaged: return StringId::copyDamaged;
    case RestoreOutcome::inUse: return StringId::recordsInUse;
    case RestoreOutcome::failed:
    case RestoreOutcome::done: break;
    }
    return StringId::copyNotRestored;
}

bool isNamed(const std::vector<StoreCopy>& copies, const StoreCopy& copy) {
    return std::ranges::find(copies, copy.name, &StoreCopy::name) != copies.end();
}

std::vector<StoreCopy> without(std::vector<StoreCopy> copies, const Names& damaged) {
    std::erase_if(copies, [&damaged](const StoreCopy& copy) { return damaged.contains(copy.name); });
    return copies;
}

// Sound ones go when there are sound ones to keep instead, damaged ones when they would go if they were sound.
std::vector<StoreCopy> forgettable(const std::vector<StoreCopy>& all, const Names& damaged,
                                   const platform::SystemTime& now) {
    std::vector<StoreCopy> forgotten = copiesToForget(all, now);
    const auto ofSound = copiesToForget(without(all, damaged), now);
    std::erase_if(forgotten,
                  [&](const StoreCopy& copy) { return !damaged.contains(copy.name) && !isNamed(ofSound, copy); });
    return forgotten;
}

// The newest copy that takes the place of one to forget and of which nothing is known yet.
const StoreCopy* nextToVerify(const std::vector<StoreCopy>& all, const std::vector<StoreCopy>& forgotten,
                              const Names& known) {
    if (forgotten.empty())
        return nullptr;
    const auto oldest = std::ranges::find(all, forgotten.back().name, &StoreCopy::name);
    const auto next = std::find_if(all.begin(), oldest, [&](const StoreCopy& copy) {
        return !known.contains(copy.name) && !isNamed(forgotten, copy);
    });
    return next == oldest ? nullptr : &*next;
}

void forgetOldCopies(StoreCopies& copies, const std::string& justMade, const platform::SystemTime& now,
                     const platform::KeepGoing& keepGoing) {
    std::vector<StoreCopy> all = copies.list();
    Names damaged;
    for (StoreCopy& copy : copies.unreadable()) {
        damaged.insert(copy.name);
        const auto older =
            std::ranges::find_if(all, [&copy](const StoreCopy& other) { return platform::isNewer(copy, other); });
        all.insert(older, std::move(copy));
    }
    Names known = damaged;
    known.insert(justMade);
    auto forgotten = forgettable(all, damaged, now);
    while (const StoreCopy* const next = nextToVerify(all, forgotten, known)) {
        const CopyHealth health = copies.verify(*next, keepGoing);
        if (health == CopyHealth::cancelled)
            return;
        known.insert(next->name);
        if (health == CopyHealth::damaged)
            damaged.insert(next->name);
        forgotten = forgettable(all, damaged, now);
    }
    for (const StoreCopy& copy : forgotten)
        static_cast<void>(copies.remove(copy)); // tried again next time
}

std::optional<StoreCopy> firstSound(StoreCopies& copies, platform::CopyPart part,
                                    const platform::KeepGoing& keepGoing) {
    for (StoreCopy& copy : copies.list()) {
        if (!keepGoing())
            return std::nullopt;
        if ((part == platform::CopyPart::records || copy.hasSettings) &&
            copies.verify(copy, keepGoing) == CopyHealth::sound)
            return std::move(copy);
    }
    return std::nullopt;
}

bool isOfDay(const StoreCopy& copy, const platform::SystemTime& now) {
    return copy.time.year == now.year && copy.time.month == now.month && copy.time.day == now.day;
}

} // namespace

platform::MadeCopy makeCopy(StoreCopies& copies, const platform::SystemTime& now,
                            const platform::KeepGoing& keepGoing) {
    platform::MadeCopy made = copies.make(now, keepGoing);
    if (made.outcome == platform::CopyOutcome::done)
        forgetOldCopies(copies, made.copy.name, now, keepGoing);
    return made;
}

std::optional<platform::MadeCopy> makeDueCopy(StoreCopies& copies, const platform::SystemTime& now,
                                              const platform::KeepGoing& keepGoing) {
    std::vector<StoreCopy> all = copies.list();
    while (!isCopyDue(all, copies.present(), now)) {
        // One of this day was read back when it was made.
        if (all.empty() || isOfDay(all.front(), now) || copies.verify(all.front(), keepGoing) != CopyHealth::damaged)
            return std::nullopt;
        all.erase(all.begin());
    }
    return makeCopy(copies, now, keepGoing);
}

std::optional<StoreCopy> newestSoundCopy(StoreCopies& copies, platform::CopyPart part) {
    return firstSound(copies, part, [] { return true; });
}

std::optional<StoreCopy> newestSoundCopy(StoreCopies& copies, const CopyWorkRunner& run) {
    std::optional<StoreCopy> found;
    run({.label = texts::looking, .mayCancel = true}, [&](const platform::KeepGoing& keepGoing) {
        found = firstSound(copies, platform::CopyPart::records, keepGoing);
    });
    return found;
}

std::u16string withCopy(StringId id, const StoreCopy& copy, const platform::Locale& locale) {
    return resources::filled(resources::string(id),
                             {locale.shortDate(copy.time) + u' ' + locale.timeWithoutSeconds(copy.time),
                              locale.number(platform::toUtf16(std::to_string(copy.records)))});
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
                                   const platform::SystemTime& now, platform::MessageBox& messages,
                                   const CopyWorkRunner& run) {
    platform::RestoredCopy restored;
    run({.label = texts::restoring},
        [&](const platform::KeepGoing& /*keepGoing*/) { restored = copies.restore(copy, part, now); });
    if (restored.outcome != RestoreOutcome::done)
        messages.showFailure(messageOf(restored.outcome));
    return restored;
}

void showRestored(platform::MessageBox& messages, const platform::RestoredCopy& restored) {
    messages.show({.id = StringId::copyRestored,
                   .text = resources::filled(resources::string(StringId::copyRestored),
                                             {platform::toUtf16(restored.kept.string())}),
                   .icon = platform::Icon::information});
}

bool offerCopy(platform::StoreCopies& copies, const platform::SystemTime& now, const platform::Locale& locale,
               platform::MessageBox& messages, const CopyWorkRunner& run) {
    const auto copy = newestSoundCopy(copies, run);
    if (!copy || !askToRestore(messages, StringId::restoreOffer, *copy, locale))
        return false;
    const auto restored = restoreCopy(copies, *copy, platform::CopyPart::records, now, messages, run);
    if (restored.outcome != RestoreOutcome::done)
        return false;
    showRestored(messages, restored);
    return true;
}

} // namespace hourwright::app
