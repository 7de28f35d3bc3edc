#include "app/arrange.h"

#include "platform/icu/icu_locale.h"

#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

using store::RecordId;
using store::TimeEntry;

TimeEntry entry(std::uint32_t id, std::uint64_t date, std::u16string client, std::u16string task = u"") {
    return {.id = RecordId{id}, .date = {date}, .client = std::move(client), .task = std::move(task)};
}

template<typename Record>
std::string idsOf(const std::vector<Record>& records) {
    std::string ids;
    for (const Record& record : records)
        ids += std::to_string(static_cast<std::uint32_t>(record.id)) + ' ';
    return ids;
}

TEST(Arrange, ComparesTextThenDateThenTask) {
    struct Case {
        const char* name;
        const char* locale;
        std::vector<TimeEntry> entries; // numbered in the order they should get
    };
    const Case cases[] = {
        {"text, the empty one first", "en_US", {entry(2, 1, u"Acme"), entry(3, 2, u"Beta"), entry(1, 3, u"")}},
        {"lower case before upper case", "en_US", {entry(2, 1, u"ACME"), entry(3, 2, u"b"), entry(1, 3, u"acme")}},
        {"date on equal text", "en_US", {entry(2, 7, u"A", u"a"), entry(1, 5, u"A", u"z"), entry(3, 9, u"A")}},
        {"task on equal date", "en_US", {entry(3, 7, u"A", u"c"), entry(1, 7, u"A", u""), entry(2, 7, u"A", u"B")}},
        {"the same in another spelling is equal",
         "en_US",
         {entry(3, 8, u"Cafe\u0301"), entry(1, 5, u"Cafe\u0301"), entry(2, 7, u"Caf\u00E9")}},
        {"a-ring like a", "en_US", {entry(2, 1, u"\u00C5s"), entry(3, 2, u"Z"), entry(1, 3, u"Ar")}},
        {"a-ring behind z", "sv_SE", {entry(3, 1, u"\u00C5s"), entry(2, 2, u"Z"), entry(1, 3, u"Ar")}},
        {"what is equal keeps its order", "en_US", {entry(1, 7, u"A"), entry(2, 7, u"A"), entry(3, 7, u"A")}},
    };
    for (const Case& c : cases) {
        std::vector<TimeEntry> entries = c.entries;
        arrange(entries, 1, *platform::makeIcuLocale(c.locale));
        EXPECT_EQ(idsOf(entries), "1 2 3 ") << c.name;
    }
}

TEST(Arrange, EachChoiceHasItsText) {
    const auto locale = platform::makeIcuLocale("de_DE");
    // The number of the choice by which this entry comes before the other.
    std::u16string TimeEntry::*const texts[] = {
        &TimeEntry::client, &TimeEntry::project, &TimeEntry::phase,   &TimeEntry::task,
        &TimeEntry::billTo, &TimeEntry::custom1, &TimeEntry::custom2, &TimeEntry::custom3,
    };
    for (std::uint16_t choice = 0; choice < 12; ++choice) {
        for (std::uint16_t text = 1; text <= 8; ++text) {
            std::vector<TimeEntry> entries{entry(2, 1, u""), entry(1, 2, u"")};
            entries[0].*texts[text - 1] = u"text";
            arrange(entries, choice, *locale);
            EXPECT_EQ(idsOf(entries), choice == text ? "1 2 " : "2 1 ") << choice << ' ' << text;
        }
    }
}

TEST(Arrange, ExpensesHaveChoicesOfTheirOwn) {
    using store::ExpenseEntry;
    const auto locale = platform::makeIcuLocale("de_DE");
    std::u16string ExpenseEntry::*const texts[] = {
        &ExpenseEntry::client, &ExpenseEntry::project, &ExpenseEntry::category, &ExpenseEntry::description,
        &ExpenseEntry::billTo, &ExpenseEntry::custom1, &ExpenseEntry::custom2,
    };
    for (std::uint16_t choice = 0; choice < 10; ++choice) {
        for (std::uint16_t text = 1; text <= 7; ++text) {
            std::vector<ExpenseEntry> expenses{{.id = RecordId{2}, .date = {1}}, {.id = RecordId{1}, .date = {2}}};
            expenses[0].*texts[text - 1] = u"text";
            arrange(expenses, choice, *locale);
            EXPECT_EQ(idsOf(expenses), choice == text ? "1 2 " : "2 1 ") << choice << ' ' << text;
        }
    }
    std::vector<ExpenseEntry> sameDate{{.id = RecordId{2}, .description = u"b"},
                                       {.id = RecordId{1}, .description = u"a"}};
    arrange(sameDate, 1, *locale);
    EXPECT_EQ(idsOf(sameDate), "1 2 ");
}

} // namespace
} // namespace hourwright::app
