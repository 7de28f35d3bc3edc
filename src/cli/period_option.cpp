#include "cli/period_option.h"

#include "app/settings_rules.h"

#include <array>

namespace hourwright::cli {

namespace {

using app::Period;
using app::PeriodKind;

struct KindOption {
    const OptionSpec* option;
    PeriodKind kind;
};

constexpr std::array kindOptions{
    KindOption{&option::day, PeriodKind::day},
    KindOption{&option::week, PeriodKind::week},
    KindOption{&option::month, PeriodKind::month},
};

// Passes a period on, or says why there is none.
std::optional<Period> orRefuse(Session& session, std::optional<Period> period, PeriodKind kind) {
    if (!period)
        session.fail(platform::PlatformError::invalidParameter,
                     kind == PeriodKind::custom ? "The days of the custom period have not been chosen."
                                                : "The period is not in the years 1601 to 30827.");
    return period;
}

std::optional<Period> customPeriod(Session& session, const Arguments& arguments) {
    const auto first = session.day(arguments.value(option::custom, 0).value_or(""));
    const auto last = first ? session.day(arguments.value(option::custom, 1).value_or("")) : std::nullopt;
    if (!first || !last)
        return std::nullopt;
    return orRefuse(session, Period::custom(*first, *last), PeriodKind::custom);
}

} // namespace

std::optional<Period> periodAround(Session& session, PeriodKind kind, std::optional<std::string_view> date) {
    const auto day = session.day(date.value_or("today"));
    if (!day)
        return std::nullopt;
    return orRefuse(session, app::periodOf(session.settings(), kind, *day), kind);
}

std::optional<Period> periodOption(Session& session, const Arguments& arguments, PeriodView view) {
    for (const KindOption& kind : kindOptions)
        if (arguments.has(*kind.option))
            return periodAround(session, kind.kind, arguments.value(*kind.option));
    if (arguments.has(option::custom))
        return customPeriod(session, arguments);
    const app::AppSettings& settings = session.settings();
    return periodAround(session, app::periodKind(view == PeriodView::entries ? settings.view : settings.expView), {});
}

} // namespace hourwright::cli
