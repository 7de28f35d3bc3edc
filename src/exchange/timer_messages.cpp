#include "exchange/timer_messages.h"

#include "platform/packed_bytes.h"
#include "platform/utf.h"

namespace hourwright::exchange {

using platform::PackedReader;
using platform::PackedWriter;

namespace {

// Texts are UTF-8, an absent value is the number 0, a present one is itself plus 1.
void putText(PackedWriter& out, const std::u16string& text) {
    out.text(platform::toUtf8(text));
}

template<typename Number>
void putOptional(PackedWriter& out, const std::optional<Number>& number) {
    out.number(number ? static_cast<std::uint64_t>(*number) + 1 : 0);
}

void putNames(PackedWriter& out, const billing::TimerNames& names) {
    putText(out, names.client);
    putText(out, names.project);
    putText(out, names.phase);
    putText(out, names.task);
}

bool takeText(PackedReader& in, std::u16string& text) {
    std::string utf8;
    if (!in.text(utf8))
        return false;
    text = platform::toUtf16(utf8);
    return platform::toUtf8(text) == utf8;
}

bool takeNames(PackedReader& in, billing::TimerNames& names) {
    return takeText(in, names.client) && takeText(in, names.project) && takeText(in, names.phase) &&
           takeText(in, names.task);
}

bool takeSeconds(PackedReader& in, std::int32_t& seconds) {
    std::uint32_t number = 0;
    if (!in.number32(number) || number > 0x7FFF'FFFF)
        return false;
    seconds = static_cast<std::int32_t>(number);
    return true;
}

bool takeOptionalSeconds(PackedReader& in, std::optional<std::int32_t>& seconds) {
    std::uint32_t number = 0;
    if (!in.number32(number) || number > 0x8000'0000)
        return false;
    if (number > 0)
        seconds = static_cast<std::int32_t>(number - 1);
    return true;
}

void putTime(PackedWriter& out, platform::FileTime time) {
    out.number(time.ticks);
}

template<typename Number>
bool takeNumber(PackedReader& in, Number& number, std::uint64_t most) {
    std::uint32_t value = 0;
    if (!in.number32(value) || value > most)
        return false;
    number = static_cast<Number>(value);
    return true;
}

bool takeFlag(PackedReader& in, bool& flag) {
    return takeNumber(in, flag, 1);
}

void putTimer(PackedWriter& out, const ListedTimer& timer) {
    out.number(timer.slot);
    out.number(timer.paused ? 1 : 0);
    putTime(out, timer.start);
    out.number(static_cast<std::uint64_t>(timer.duration));
    out.number(static_cast<std::uint64_t>(timer.breakTime));
    putNames(out, timer.names);
    putText(out, timer.note);
}

bool takeTimer(PackedReader& in, ListedTimer& timer) {
    if (!takeNumber(in, timer.slot, billing::TimerSet::slotCount - 1) || !takeFlag(in, timer.paused))
        return false;
    timer.start.ticks = in.number();
    return takeSeconds(in, timer.duration) && takeSeconds(in, timer.breakTime) && takeNames(in, timer.names) &&
           takeText(in, timer.note);
}

} // namespace

std::vector<std::byte> packed(const TimerRequest& request) {
    PackedWriter out;
    out.number(static_cast<std::uint64_t>(request.action));
    out.number(request.slot);
    putNames(out, request.names);
    out.number(request.start ? 1 : 0);
    putTime(out, request.start.value_or(platform::FileTime{}));
    putOptional(out, request.duration);
    putOptional(out, request.breakTime);
    out.number(request.note ? 1 : 0);
    putText(out, request.note.value_or(std::u16string()));
    out.number(request.save ? 1 : 0);
    return out.take();
}

std::optional<TimerRequest> unpackTimerRequest(std::span<const std::byte> bytes) {
    PackedReader in(bytes);
    TimerRequest request;
    bool hasStart = false;
    bool hasNote = false;
    std::u16string note;
    if (!takeNumber(in, request.action, static_cast<std::uint64_t>(TimerAction::cancel)) ||
        !takeNumber(in, request.slot, billing::TimerSet::slotCount - 1) || !takeNames(in, request.names) ||
        !takeFlag(in, hasStart))
        return std::nullopt;
    const platform::FileTime start{in.number()};
    if (!takeOptionalSeconds(in, request.duration) || !takeOptionalSeconds(in, request.breakTime) ||
        !takeFlag(in, hasNote) || !takeText(in, note) || !takeFlag(in, request.save) || !in.finished())
        return std::nullopt;
    if ((!hasStart && start.ticks != 0) || (!hasNote && !note.empty()))
        return std::nullopt;
    if (hasStart)
        request.start = start;
    if (hasNote)
        request.note = std::move(note);
    return request;
}

std::vector<std::byte> packed(const TimerReply& reply) {
    PackedWriter out;
    out.number(static_cast<std::uint64_t>(reply.outcome));
    out.number(reply.message);
    out.number(reply.error);
    out.number(reply.record);
    out.number(reply.timers.size());
    for (const ListedTimer& timer : reply.timers)
        putTimer(out, timer);
    return out.take();
}

std::optional<TimerReply> unpackTimerReply(std::span<const std::byte> bytes) {
    PackedReader in(bytes);
    TimerReply reply;
    std::size_t count = 0;
    if (!takeNumber(in, reply.outcome, static_cast<std::uint64_t>(TimerOutcome::refused)) ||
        !takeNumber(in, reply.message, 0xFFFF) || !in.number32(reply.error) || !in.number32(reply.record) ||
        !takeNumber(in, count, billing::TimerSet::slotCount))
        return std::nullopt;
    reply.timers.resize(count);
    for (ListedTimer& timer : reply.timers)
        if (!takeTimer(in, timer))
            return std::nullopt;
    if (!in.finished())
        return std::nullopt;
    return reply;
}

} // namespace hourwright::exchange
