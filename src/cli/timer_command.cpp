#include "cli/date_text.h"
#include "cli/display_width.h"
#include "cli/handlers.h"
#include "cli/joined.h"
#include "cli/json_writer.h"
#include "cli/session.h"
#include "cli/text_table.h"
#include "exchange/timer_messages.h"
#include "platform/utf.h"

#include <algorithm>
#include <array>

namespace hourwright::cli {

namespace {

using exchange::TimerAction;
using exchange::TimerReply;
using exchange::TimerRequest;
using platform::Delivery;

std::string textOf(const std::vector<std::byte>& bytes) {
    std::string text;
    for (const std::byte byte : bytes)
        text += static_cast<char>(byte);
    return text;
}

void explain(Session& session, Delivery delivery) {
    if (delivery == Delivery::nobody)
        session.refuse(resources::StringId::windowNotRunning);
    else if (delivery == Delivery::unanswered)
        session.fail(platform::PlatformError::invalidParameter,
                     "The running window did not answer in time; it may still do what was asked.");
    else
        session.fail(platform::PlatformError::invalidParameter, "The running window did not understand the command.");
}

void explain(Session& session, const TimerReply& reply) {
    if (reply.outcome == exchange::TimerOutcome::noFreeSlot)
        session.refuse(resources::StringId::timersAllInUse);
    else if (reply.outcome == exchange::TimerOutcome::slotFree)
        session.refuse(resources::StringId::noSuchTimer);
    else if (reply.error != 0)
        session.fail(platform::PlatformError{reply.error});
    else
        session.refuse(resources::StringId{reply.message});
}

// The reply to what was done; nothing, with the reason shown, when it was not.
std::optional<TimerReply> ask(Session& session, const TimerRequest& request) {
    const platform::InstanceReply answer = session.askWindow(textOf(exchange::packed(request)));
    if (answer.delivery != Delivery::answered) {
        explain(session, answer.delivery);
        return std::nullopt;
    }
    auto reply = exchange::unpackTimerReply(std::as_bytes(std::span(answer.payload)));
    if (!reply) {
        session.fail(platform::PlatformError::invalidParameter, "The running window's answer cannot be read.");
    } else if (reply->outcome != exchange::TimerOutcome::done) {
        explain(session, *reply);
        reply.reset();
    }
    return reply;
}

ExitCode ended(const std::optional<TimerReply>& reply) {
    return reply ? ExitCode::done : ExitCode::refused;
}

TimerRequest requestFor(const Arguments& arguments, TimerAction action) {
    return {.action = action, .slot = static_cast<std::uint8_t>(numberOf(arguments.positionals()[0]) - 1)};
}

std::string numberText(const exchange::ListedTimer& timer) {
    return std::to_string(timer.slot + 1);
}

std::string_view stateText(const exchange::ListedTimer& timer) {
    return timer.paused ? "paused" : "running";
}

std::string startText(const exchange::ListedTimer& timer) {
    const auto start = exchange::unlessZero(timer.start);
    return start ? dateTimeText(*start) : std::string();
}

void printJson(Output& out, const TimerReply& reply) {
    JsonWriter json(out);
    json.beginArray();
    for (const exchange::ListedTimer& timer : reply.timers)
        json.beginObject()
            .member("timer", std::uint32_t{timer.slot} + 1)
            .member("state", stateText(timer))
            .member("start", std::string_view(startText(timer)))
            .member("duration_seconds", timer.duration)
            .member("break_seconds", timer.breakTime)
            .member("client", std::u16string_view(timer.names.client))
            .member("project", std::u16string_view(timer.names.project))
            .member("phase", std::u16string_view(timer.names.phase))
            .member("task", std::u16string_view(timer.names.task))
            .member("note", std::u16string_view(timer.note))
            .endObject();
    json.endArray().finish();
}

void printTable(Output& out, const TimerReply& reply) {
    TextTable table(out, {{"Timer", true},
                          {"State"},
                          {"Start"},
                          {"Duration", true},
                          {"Break", true},
                          {"Client"},
                          {"Project"},
                          {"Phase"},
                          {"Task"},
                          {"Note"}});
    for (const exchange::ListedTimer& timer : reply.timers)
        table.add({numberText(timer), std::string(stateText(timer)), startText(timer),
                   platform::toUtf8(billing::clockText(timer.duration)),
                   platform::toUtf8(billing::clockText(timer.breakTime)), cellText(timer.names.client),
                   cellText(timer.names.project), cellText(timer.names.phase), cellText(timer.names.task),
                   cellText(timer.note.substr(0, timer.note.find_first_of(u"\r\n")))});
    table.finish();
}

std::u16string textValue(const Arguments& arguments, const OptionSpec& option) {
    return platform::toUtf16(arguments.value(option).value_or(""));
}

std::optional<std::u16string> noteOf(const Arguments& arguments) {
    const auto note = arguments.value(option::note);
    return note ? std::optional(platform::toUtf16(*note)) : std::nullopt;
}

// A time without a day is of today, a day without a time means the present time of day. False when it was refused.
bool readStart(Session& session, const Arguments& arguments, TimerRequest& request) {
    if (!arguments.has(option::timerStart) && !arguments.has(option::timerDate))
        return true;
    auto start = session.day(arguments.value(option::timerDate).value_or("today"));
    if (!start)
        return false;
    const auto typed = parseTime(arguments.value(option::timerStart).value_or(""));
    const platform::SystemTime time = typed.value_or(session.clock().localTime());
    start->hour = time.hour;
    start->minute = time.minute;
    start->second = time.second;
    request.start = platform::toFileTime(*start);
    return true;
}

bool isNumber(std::u16string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

std::optional<std::int32_t> parseClock(std::u16string_view text) {
    const auto first = text.find(u':');
    const auto last = text.rfind(u':');
    if (first == last)
        return std::nullopt;
    const std::array parts{text.substr(0, first), text.substr(first + 1, last - first - 1), text.substr(last + 1)};
    return std::ranges::all_of(parts, isNumber) ? billing::secondsOf(parts[0], parts[1], parts[2]) : std::nullopt;
}

// False when the option was given with something else than a time.
bool readClock(const Arguments& arguments, const OptionSpec& option, std::optional<std::int32_t>& seconds) {
    if (arguments.has(option))
        seconds = parseClock(textValue(arguments, option));
    return seconds.has_value() || !arguments.has(option);
}

} // namespace

ExitCode timerList(Session& session, const Arguments&) {
    const auto reply = ask(session, {});
    if (reply && session.json())
        printJson(session.out(), *reply);
    else if (reply)
        printTable(session.out(), *reply);
    return ended(reply);
}

ExitCode timerAdd(Session& session, const Arguments& arguments) {
    TimerRequest request{.action = TimerAction::add,
                         .names = {.client = textValue(arguments, option::client),
                                   .project = textValue(arguments, option::project),
                                   .phase = textValue(arguments, option::phase),
                                   .task = textValue(arguments, option::task)},
                         .note = noteOf(arguments)};
    if (!readStart(session, arguments, request))
        return ExitCode::refused;
    const auto reply = ask(session, request);
    if (reply)
        for (const exchange::ListedTimer& timer : reply->timers)
            session.out().writeLine(numberText(timer));
    return ended(reply);
}

ExitCode timerPause(Session& session, const Arguments& arguments) {
    return ended(ask(session, requestFor(arguments, TimerAction::pause)));
}

ExitCode timerResume(Session& session, const Arguments& arguments) {
    return ended(ask(session, requestFor(arguments, TimerAction::resume)));
}

ExitCode timerEdit(Session& session, const Arguments& arguments) {
    TimerRequest request = requestFor(arguments, TimerAction::edit);
    for (const auto& [option, seconds] :
         {std::pair(&option::timerDuration, &request.duration), std::pair(&option::timerBreak, &request.breakTime)})
        if (!readClock(arguments, *option, *seconds))
            return session.misuse(joined({"bad value for ", option->name, ": a time is H:M:S"}));
    request.note = noteOf(arguments);
    return ended(ask(session, request));
}

ExitCode timerComplete(Session& session, const Arguments& arguments) {
    TimerRequest request = requestFor(arguments, TimerAction::complete);
    request.save = arguments.has(option::timerSave);
    const auto reply = ask(session, request);
    if (reply && request.save)
        session.out().writeLine(std::to_string(reply->record));
    return ended(reply);
}

// A timer that is not there is not asked about.
ExitCode timerCancel(Session& session, const Arguments& arguments) {
    const TimerRequest request = requestFor(arguments, TimerAction::cancel);
    const auto listed = ask(session, {});
    if (!listed)
        return ExitCode::refused;
    if (std::ranges::find(listed->timers, request.slot, &exchange::ListedTimer::slot) == listed->timers.end())
        return session.refuse(resources::StringId::noSuchTimer);
    if (!session.messages().ask(resources::StringId::cancelTimer))
        return ExitCode::refused;
    return ended(ask(session, request));
}

} // namespace hourwright::cli
