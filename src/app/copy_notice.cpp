#include "app/copy_notice.h"

#include "app/copy_keeping.h"
#include "platform/utf.h"
#include "resources/filled.h"
#include "resources/texts/copies.h"

#include <algorithm>

namespace hourwright::app {

namespace {

using platform::CopyOutcome;
using platform::StoreCopy;
using resources::StringId;
namespace texts = resources::copies;

constexpr std::u16string_view toldName = u"CopyTroubleTold";
constexpr std::u16string_view wishName = u"CopyToRestore";
constexpr std::size_t longestName = 64;

// What was told, as stored.
constexpr std::uint32_t toldFailure = 1;
constexpr std::uint32_t toldDamage = 2;

// True when this was not told yet. What cannot be remembered is not told, or it would be told for ever.
bool mayTell(platform::Registry& registry, std::uint32_t what) {
    const auto key = registry.create(platform::settingsKey);
    return key && key->readDword(toldName) != what && key->writeDword(toldName, what);
}

void forgetTold(platform::Registry& registry) {
    const auto key = registry.open(platform::settingsKey);
    if (key && key->readDword(toldName))
        key->remove(toldName);
}

void tellFailure(const platform::StoreCopies& copies, platform::MessageBox& messages) {
    messages.show({.id = StringId::automaticCopyFailed,
                   .text = resources::filled(resources::string(StringId::automaticCopyFailed),
                                             {platform::toUtf16(copies.folder().string())})});
}

bool keepWish(const StoreCopy& copy, platform::Registry& registry, platform::MessageBox& messages) {
    const auto key = registry.create(platform::settingsKey);
    if (!key || !key->writeString(wishName, platform::toUtf16(copy.name))) {
        messages.showFailure(StringId::copyNotRestored);
        return false;
    }
    messages.show({.id = StringId::restoreAtNextStart,
                   .text = std::u16string(resources::string(StringId::restoreAtNextStart)),
                   .icon = platform::Icon::information});
    return true;
}

bool offerAfterDamage(const StoreCopy& copy, platform::Registry& registry, const platform::Locale& locale,
                      platform::MessageBox& messages) {
    return askToRestore(messages, StringId::recordsDamaged, copy, locale) && keepWish(copy, registry, messages);
}

} // namespace

bool tellOfWishedCopy(const platform::MadeCopy& made, platform::StoreCopies& copies, platform::Registry& registry,
                      const platform::Locale& locale, platform::MessageBox& messages, const CopyWorkRunner& run) {
    if (made.outcome == CopyOutcome::done || made.outcome == CopyOutcome::cancelled)
        return false;
    if (made.outcome == CopyOutcome::sourceDamaged)
        if (const auto sound = newestSoundCopy(copies, run))
            return offerAfterDamage(*sound, registry, locale, messages);
    std::u16string text(resources::string(StringId::copyNotMade));
    if (!made.reason.empty())
        text += u"\n\n" + platform::toUtf16(made.reason);
    messages.show({.id = StringId::copyNotMade, .text = std::move(text), .icon = platform::Icon::stop});
    return false;
}

bool wishForCopy(const StoreCopy& copy, platform::StoreCopies& copies, platform::Registry& registry,
                 const platform::Locale& locale, platform::MessageBox& messages, const CopyWorkRunner& run) {
    if (!askToRestore(messages, StringId::restoreQuestion, copy, locale))
        return false;
    auto health = platform::CopyHealth::cancelled;
    run({.label = texts::verifying, .mayCancel = true},
        [&](const platform::KeepGoing& keepGoing) { health = copies.verify(copy, keepGoing); });
    if (health == platform::CopyHealth::damaged)
        messages.showFailure(StringId::copyDamaged);
    return health == platform::CopyHealth::sound && keepWish(copy, registry, messages);
}

void forgetWishedCopy(platform::Registry& registry) {
    if (const auto key = registry.open(platform::settingsKey))
        key->remove(wishName);
}

bool tellOfCopy(const std::optional<platform::MadeCopy>& made, platform::StoreCopies& copies,
                platform::Registry& registry, const platform::Locale& locale, platform::MessageBox& messages,
                const CopyWorkRunner& run) {
    if (!made)
        return false;
    if (made->outcome == CopyOutcome::done)
        forgetTold(registry);
    if (made->outcome == CopyOutcome::failed && mayTell(registry, toldFailure))
        tellFailure(copies, messages);
    if (made->outcome != CopyOutcome::sourceDamaged || !mayTell(registry, toldDamage))
        return false;
    if (const auto sound = newestSoundCopy(copies, run))
        return offerAfterDamage(*sound, registry, locale, messages);
    tellFailure(copies, messages);
    return false;
}

void restoreWishedCopy(platform::StoreCopies& copies, platform::Registry& registry, const platform::SystemTime& now,
                       platform::MessageBox& messages, const CopyWorkRunner& run) {
    const auto key = registry.open(platform::settingsKey);
    const auto wish = key ? key->readString(wishName, longestName) : std::nullopt;
    if (!wish || !key->remove(wishName))
        return;
    const auto all = copies.list();
    const auto copy = std::ranges::find(all, platform::toUtf8(*wish), &StoreCopy::name);
    if (copy == all.end()) {
        messages.showFailure(StringId::noSuchCopy);
        return;
    }
    const auto restored = restoreCopy(copies, *copy, platform::CopyPart::records, now, messages, run);
    if (restored.outcome == platform::RestoreOutcome::done)
        showRestored(messages, restored);
}

} // namespace hourwright::app
