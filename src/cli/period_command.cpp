#include "cli/date_text.h"
#include "cli/handlers.h"
#include "cli/json_writer.h"
#include "cli/period_option.h"

namespace hourwright::cli {

namespace {

std::string_view kindName(app::PeriodKind kind) {
    switch (kind) {
    case app::PeriodKind::day: return "day";
    case app::PeriodKind::week: return "week";
    case app::PeriodKind::month: return "month";
    case app::PeriodKind::custom: return "custom";
    }
    return "";
}

// Moves by --previous or --next; false when that leaves the calendar.
bool step(app::Period& period, const Arguments& arguments) {
    for (std::uint32_t n = numberOf(arguments.value(option::previous).value_or("0")); n > 0; --n)
        if (!period.previous())
            return false;
    for (std::uint32_t n = numberOf(arguments.value(option::next).value_or("0")); n > 0; --n)
        if (!period.next())
            return false;
    return true;
}

void printPeriod(Session& session, const app::Period& period) {
    const auto start = platform::toSystemTime(period.start()).value_or(platform::SystemTime{});
    const auto end = platform::toSystemTime(period.end()).value_or(platform::SystemTime{});
    if (!session.json()) {
        session.out().writeLine(dateTimeText(start));
        session.out().writeLine(dateTimeText(end));
        return;
    }
    JsonWriter json(session.out());
    json.beginObject().member("kind", kindName(period.kind()));
    json.member("start", std::string_view(dateTimeText(start)));
    json.member("end", std::string_view(dateTimeText(end)));
    json.member("weekday", start.dayOfWeek).endObject().finish();
}

ExitCode showPeriod(Session& session, const Arguments& arguments, app::PeriodKind kind) {
    std::optional<std::string_view> date;
    if (!arguments.positionals().empty())
        date = arguments.positionals().front();
    auto period = periodAround(session, kind, date);
    if (!period)
        return ExitCode::refused;
    if (!step(*period, arguments))
        return session.fail(platform::PlatformError::invalidParameter, "The period is not in the years 1601 to 30827.");
    printPeriod(session, *period);
    return ExitCode::done;
}

} // namespace

ExitCode periodDay(Session& session, const Arguments& arguments) {
    return showPeriod(session, arguments, app::PeriodKind::day);
}

ExitCode periodWeek(Session& session, const Arguments& arguments) {
    return showPeriod(session, arguments, app::PeriodKind::week);
}

ExitCode periodMonth(Session& session, const Arguments& arguments) {
    return showPeriod(session, arguments, app::PeriodKind::month);
}

ExitCode periodCustom(Session& session, const Arguments& arguments) {
    return showPeriod(session, arguments, app::PeriodKind::custom);
}

} // namespace hourwright::cli
