#include "app/copy_plan.h"

#include <algorithm>
#include <limits>

namespace hourwright::app {

namespace {

using platform::StoreCopy;
using platform::SystemTime;

constexpr std::uint64_t daysPerWeek = 7;
constexpr std::uint64_t monthsPerYear = 12;
constexpr std::uint64_t noPeriod = std::numeric_limits<std::uint64_t>::max();

// Numbers of days, weeks and months. Instants count from a Monday, so whole weeks are those from Monday.
std::uint64_t dayOf(const SystemTime& time) {
    return platform::toFileTime(time).value_or(platform::FileTime{}).ticks / platform::ticksPerDay;
}

std::uint64_t weekOf(const SystemTime& time) {
    return dayOf(time) / daysPerWeek;
}

std::uint64_t monthOf(const SystemTime& time) {
    return time.year * monthsPerYear + time.month;
}

// Keeps the first copy of each period that has one, for so many periods.
class Keeper {
public:
    Keeper(std::uint64_t (*periodOf)(const SystemTime&), unsigned periods) : periodOf_(periodOf), left_(periods) {}

    [[nodiscard]] bool keeps(const StoreCopy& copy) {
        const std::uint64_t period = periodOf_(copy.time);
        if (left_ == 0 || last_ == period)
            return false;
        last_ = period;
        --left_;
        return true;
    }

private:
    std::uint64_t (*periodOf_)(const SystemTime&);
    unsigned left_;
    std::uint64_t last_ = noPeriod;
};

} // namespace

bool isCopyDue(std::span<const StoreCopy> copies, const platform::SourceStamps& present, const SystemTime& now) {
    const std::uint64_t today = dayOf(now);
    if (std::ranges::any_of(copies, [today](const StoreCopy& copy) { return dayOf(copy.time) == today; }))
        return false;
    if (present.records.text.empty())
        return false;
    if (copies.empty() || copies.front().source.records != present.records)
        return true;
    const StoreCopy& newest = copies.front();
    return newest.source.settings != present.settings && dayOf(newest.time) + settingsCopyDays <= today;
}

std::vector<CopyAge> agesOf(std::span<const StoreCopy> copies, const CopyRetention& retention) {
    Keeper daily(dayOf, retention.days);
    Keeper weekly(weekOf, retention.weeks);
    Keeper monthly(monthOf, retention.months);
    std::vector<CopyAge> ages;
    for (const StoreCopy& copy : copies) {
        // Each must be asked: a copy may stand for its day, its week and its month.
        const bool ofDay = daily.keeps(copy);
        const bool ofWeek = weekly.keeps(copy);
        const bool ofMonth = monthly.keeps(copy);
        ages.push_back(ofDay ? CopyAge::day : ofWeek ? CopyAge::week : ofMonth ? CopyAge::month : CopyAge::none);
    }
    return ages;
}

std::vector<StoreCopy> copiesToForget(std::span<const StoreCopy> copies, const SystemTime& now,
                                      const CopyRetention& retention) {
    const auto ages = agesOf(copies, retention);
    std::vector<StoreCopy> forgotten;
    for (std::size_t i = 0; i < copies.size(); ++i)
        if (ages[i] == CopyAge::none && dayOf(copies[i].time) != dayOf(now))
            forgotten.push_back(copies[i]);
    return forgotten;
}

} // namespace hourwright::app
