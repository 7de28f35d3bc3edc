// Takes any text for a number that somebody types: hours, rates, amounts, odometer readings, a timer's clock. What is
// taken must fit its field and be shown as something that is taken for it again; what is refused must change nothing.

#include "billing/amount.h"
#include "billing/duration.h"
#include "billing/entry_draft.h"
#include "billing/entry_timer.h"
#include "billing/expense_amount.h"
#include "billing/expense_draft.h"
#include "billing/numeric_test.h"
#include "billing/odometer.h"
#include "billing/odometer_texts.h"
#include "billing/rate_draft.h"
#include "billing/start_break_end.h"
#include "billing/stored_number.h"
#include "fuzz/input.h"
#include "fuzz/require.h"
#include "platform/icu/icu_locale.h"
#include "platform/number_text.h"

#include <cmath>

namespace hourwright::fuzz {

using namespace billing;

namespace {

using Text = std::u16string;

Text hundredthsText(std::int64_t stored) {
    Text text;
    platform::appendHundredths(text, stored);
    return text;
}

// Cutting off may lose the last hundredth of a shown number, never more.
void requireShown(std::int64_t stored, std::optional<std::int64_t> again) {
    require(again && *again <= stored && *again >= stored - 1);
}

void tryParsing(const Text& text) {
    const double value = platform::parseDecimal(text);
    require(!std::isnan(value));
    require(platform::parseDecimal(text + u"x") == value || text.size() >= 64 || !text.empty());
    if (std::abs(value) < 1e15) {
        Text shown;
        platform::appendFixedDecimals(shown, value, 2);
        require(std::abs(platform::parseDecimal(shown) - value) <= 0.00501 + std::abs(value) * 1e-15);
        require(passesNumericTest(shown));
    }
}

void tryHours(const Text& text, const TimeRules& rules) {
    store::TimeEntry entry;
    entry.duration = entry.breakTime = 123;
    if (!setDurationFromText(entry, text, rules))
        require(entry.duration == 123);
    require(entry.duration >= 0 && entry.duration <= maxStoredHours);
    if (!setBreakFromText(entry, text))
        require(entry.breakTime == 123);
    require(entry.breakTime >= 0 && entry.breakTime <= maxStoredHours);
    store::TimeEntry again = entry;
    require(setDurationFromText(again, formatHours(entry), {}) &&
            setBreakFromText(again, hundredthsText(entry.breakTime)));
    requireShown(entry.duration, again.duration);
    requireShown(entry.breakTime, again.breakTime);
    const auto plain = durationFromHours(platform::parseDecimal(text), {});
    const auto raised = durationFromHours(platform::parseDecimal(text), rules);
    if (plain && raised)
        require(*raised >= *plain);
}

void tryMoney(const Text& text) {
    if (const auto rate = rateFromText(text)) {
        require(*rate >= 0);
        requireShown(*rate, rateFromText(hundredthsText(*rate)));
    }
    if (const auto amount = expenseAmountFromText(text))
        requireShown(*amount, expenseAmountFromText(hundredthsText(*amount)));
    const RateDraft draft{.type = store::RateType::normal, .description = u"d", .rate = text};
    if (!draft.check({}))
        require(passesNumericTest(text) && rateFromText(text));
}

void tryOdometer(const Text& first, const Text& second, std::uint8_t order) {
    if (const auto reading = odometerFromText(first)) {
        Text text;
        platform::appendInteger(text, std::int64_t{*reading});
        require(odometerFromText(text) == reading);
    }
    OdometerTexts texts(first, second);
    for (int i = 0; i < 4; ++i, order = static_cast<std::uint8_t>(order / 4))
        texts.type(static_cast<OdometerField>(order % 4 % 3), i % 2 == 0 ? second : first);
    const auto start = odometerFromText(texts.text(OdometerField::start));
    const auto distance = odometerFromText(texts.text(OdometerField::distance));
    const auto end = odometerFromText(texts.text(OdometerField::end));
    if (!texts.checkEnd() && start && distance && end && !texts.text(OdometerField::end).empty() &&
        !texts.text(OdometerField::distance).empty())
        require(std::uint64_t{*start} + *distance == *end);
}

void tryEntryDraft(const Text& first, const Text& second, const TimeRules& rules) {
    store::TimeEntry before;
    before.task = u"task";
    before.date = *platform::toFileTime({.year = 2026, .month = 11, .day = 16, .hour = 9, .second = 1});
    EntryDraft draft;
    draft.duration = first;
    draft.breakTime = second;
    draft.rate = first;
    draft.client = second;
    store::TimeEntry entry = before;
    if (applyDraft(draft, rules, entry)) {
        require(entry == before);
        return;
    }
    require(passesNumericTest(first) && passesNumericTest(second) && !first.empty());
    require(entry.client == second && entry.client.size() <= maxTextLength && entry.rate >= 0);
    const platform::SystemTime now{.year = 2026, .month = 11, .day = 16, .hour = 17, .minute = 20};
    StartBreakEnd times(entry, now);
    const auto refused = times.setBreak(first);
    times.setEnd(now);
    store::TimeEntry timed = entry;
    if (times.apply(rules, timed))
        require(timed == entry);
    else
        require(!refused && timed.duration >= 0 && timed.duration <= maxStoredHours);
}

void tryExpenseDraft(const Text& first, const Text& second, bool mileage) {
    store::ExpenseEntry before;
    before.type = mileage ? store::ExpenseType::mileage : store::ExpenseType::general;
    before.startOdometer = mileage ? 4'000'000'000 : 0;
    ExpenseDraft draft;
    draft.amount = first;
    draft.distance = second;
    draft.note = first;
    store::ExpenseEntry expense = before;
    if (applyDraft(draft, expense))
        require(expense == before);
    else
        require(endOdometer(expense) <= maxStoredAmount && passesNumericTest(first));
}

void tryTimer(const Text& hours, const Text& minutes) {
    const auto seconds = secondsOf(hours, minutes, hours);
    if (!seconds)
        return;
    require(*seconds >= 0);
    const ClockFields fields = clockFields(*seconds);
    const auto textOf = [](std::int32_t number) {
        Text text;
        platform::appendInteger(text, number);
        return text;
    };
    require(secondsOf(textOf(fields.hours), textOf(fields.minutes), textOf(fields.seconds)) == seconds);
}

void tryShowing(const Text& text, const Text& other) {
    static const auto german = platform::makeIcuLocale("de_DE");
    static const auto indian = platform::makeIcuLocale("hi_IN");
    Text plain;
    platform::appendFixedDecimals(plain, std::clamp(platform::parseDecimal(text), -1e15, 1e15), 2);
    require(german->number(plain).back() == plain.back());
    require(indian->number(plain).size() >= plain.size());
    static_cast<void>(german->number(other));
}

} // namespace

void typedNumbers(Bytes bytes) {
    Input input(bytes);
    const std::uint8_t mode = input.number();
    const std::uint8_t minutes = input.number();
    const TimeRules rules{
        .preciseMinutes = (mode & 0x80) != 0, .granularityOn = (mode & 0x40) != 0, .granularityMinutes = minutes};
    const Text first = input.text();
    const Text second = platform::toUtf16(input.restChars());
    switch (mode % 8) {
    case 0: return tryParsing(first);
    case 1: return tryHours(first, rules);
    case 2: return tryMoney(first);
    case 3: return tryOdometer(first, second, minutes);
    case 4: return tryEntryDraft(first, second, rules);
    case 5: return tryExpenseDraft(first, second, (mode & 0x80) != 0);
    case 6: return tryTimer(first, second);
    default: return tryShowing(first, second);
    }
}

} // namespace hourwright::fuzz
