#include "app/timer_recovery.h"

#include "platform/number_text.h"

#include <array>
#include <cstring>
#include <string>

namespace hourwright::app {

namespace {

constexpr std::u16string_view journalKey = u"Software\\Hourwright\\Timers";
constexpr std::u16string_view writtenValue = u"Written";
constexpr std::size_t longestText = 1'000'000; // UTF-16 units; notes are kept whole

// The values of a slot: "State2" is the state of the third.
std::u16string valueName(std::u16string_view name, std::size_t slot) {
    std::u16string result(name);
    platform::appendInteger(result, static_cast<std::int64_t>(slot));
    return result;
}

struct TextValue {
    std::u16string_view name;
    std::u16string billing::TimerNames::*text;
};
constexpr std::array texts = {
    TextValue{u"Client", &billing::TimerNames::client},
    TextValue{u"Project", &billing::TimerNames::project},
    TextValue{u"Phase", &billing::TimerNames::phase},
    TextValue{u"Task", &billing::TimerNames::task},
};

bool writeTime(platform::RegistryKey& key, const std::u16string& name, platform::FileTime time) {
    return key.writeBinary(name, std::as_bytes(std::span(&time.ticks, 1)));
}

std::optional<platform::FileTime> readTime(const platform::RegistryKey& key, const std::u16string& name) {
    const auto bytes = key.readBinary(name, sizeof(std::uint64_t));
    if (!bytes)
        return std::nullopt;
    platform::FileTime time;
    std::memcpy(&time.ticks, bytes->data(), sizeof time.ticks);
    return time;
}

bool writeSlot(platform::RegistryKey& key, std::size_t slot, const billing::EntryTimer& timer) {
    const auto name = [slot](std::u16string_view value) { return valueName(value, slot); };
    const auto source = timer.source() ? timer.source()->id : store::RecordId::none;
    bool written = key.writeDword(name(u"State"), static_cast<std::uint32_t>(timer.state()));
    written = key.writeDword(name(u"Duration"), static_cast<std::uint32_t>(timer.duration())) && written;
    written = key.writeDword(name(u"Break"), static_cast<std::uint32_t>(timer.breakTime())) && written;
    written = key.writeDword(name(u"Source"), static_cast<std::uint32_t>(source)) && written;
    written =
        writeTime(key, name(u"Start"), platform::toFileTime(timer.start()).value_or(platform::FileTime{})) && written;
    written = key.writeString(name(u"Note"), timer.note()) && written;
    for (const TextValue& text : texts)
        written = key.writeString(name(text.name), timer.names().*text.text) && written;
    return written;
}

std::optional<std::int32_t> readSeconds(const platform::RegistryKey& key, const std::u16string& name) {
    const auto number = key.readDword(name);
    if (!number || *number > 0x7FFF'FFFF)
        return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

std::optional<RecoveredTimer> readSlot(const platform::RegistryKey& key, std::size_t slot) {
    const auto name = [slot](std::u16string_view value) { return valueName(value, slot); };
    const auto state = key.readDword(name(u"State"));
    const auto duration = readSeconds(key, name(u"Duration"));
    const auto breakTime = readSeconds(key, name(u"Break"));
    const auto start = readTime(key, name(u"Start"));
    const auto startFields = start ? platform::toSystemTime(*start) : std::nullopt;
    if (!state || *state < 1 || *state > 2 || !duration || !breakTime || !startFields)
        return std::nullopt;
    RecoveredTimer result{.slot = slot};
    result.timer.setStart(*startFields);
    if (*state == 1)
        result.timer.resume();
    else
        result.timer.pause();
    result.timer.setDuration(*duration);
    result.timer.setBreak(*breakTime);
    result.timer.setNote(key.readString(name(u"Note"), longestText).value_or(std::u16string()));
    billing::TimerNames names;
    for (const TextValue& text : texts)
        names.*text.text = key.readString(name(text.name), longestText).value_or(std::u16string());
    result.timer.setNames(std::move(names));
    result.source = static_cast<store::RecordId>(key.readDword(name(u"Source")).value_or(0));
    return result;
}

} // namespace

void TimerJournal::write(const billing::TimerSet& timers, platform::FileTime now) {
    if (timers.inUse() == 0) {
        erase();
        return;
    }
    const auto key = registry_.create(journalKey);
    const auto batch = key == nullptr ? nullptr : key->batch();
    if (batch == nullptr)
        return;
    bool written = writeTime(*key, std::u16string(writtenValue), now);
    for (std::size_t slot = 0; slot < billing::TimerSet::slotCount; ++slot)
        written = (timers.slot(slot).isFree() ? key->remove(valueName(u"State", slot))
                                              : writeSlot(*key, slot, timers.slot(slot))) &&
                  written;
    static_cast<void>(batch->commit() && written);
}

void TimerJournal::erase() {
    if (registry_.open(journalKey) != nullptr)
        registry_.removeKey(journalKey);
}

RecoveredTimers TimerJournal::read() const {
    RecoveredTimers result;
    const auto key = registry_.open(journalKey);
    if (key == nullptr)
        return result;
    result.written = readTime(*key, std::u16string(writtenValue)).value_or(platform::FileTime{});
    for (std::size_t slot = 0; slot < billing::TimerSet::slotCount; ++slot)
        if (auto timer = readSlot(*key, slot))
            result.timers.push_back(std::move(*timer));
    return result;
}

} // namespace hourwright::app
