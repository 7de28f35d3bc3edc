#include "app/demo/demo_history.h"
#include "app/demo/random.h"
#include "platform/utf.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

using namespace hourwright;
using namespace hourwright::app::demo;
using store::EntryStatus;
using store::ExpenseEntry;
using store::RateType;
using store::TimeEntry;

namespace {

constexpr platform::SystemTime lastDay{.year = 2026, .month = 6, .dayOfWeek = 5, .day = 19, .hour = 18};

platform::FileTime midnight(std::uint16_t year, std::uint16_t month, std::uint16_t day) {
    return platform::toFileTime({.year = year, .month = month, .day = day}).value();
}

/// Keeps what it takes, up to a number of entries.
struct Recorder : DemoSink {
    DemoWorld world;
    std::vector<TimeEntry> entries;
    std::vector<std::u16string> notes;
    std::vector<ExpenseEntry> expenses;
    std::size_t room = static_cast<std::size_t>(-1);

    bool take(const DemoWorld& w) override {
        world = w;
        return true;
    }
    bool take(TimeEntry& entry, std::u16string_view note) override {
        if (entries.size() == room)
            return false;
        entries.push_back(entry);
        notes.emplace_back(note);
        return true;
    }
    bool take(ExpenseEntry& expense) override {
        expenses.push_back(expense);
        return true;
    }
};

Recorder made(std::uint64_t entries, std::uint64_t seed = 1) {
    Recorder recorder;
    EXPECT_TRUE(makeDemoHistory({.entries = entries, .seed = seed, .lastDay = lastDay}, recorder));
    return recorder;
}

bool has(const std::vector<std::u16string>& texts, const std::u16string& text) {
    return text.empty() || std::ranges::find(texts, text) != texts.end();
}

TEST(DemoRandom, GivesThePublishedNumbers) {
    Random random(1234567);
    EXPECT_EQ(random.next(), 6457827717110365317U);
    EXPECT_EQ(random.next(), 3203168211198807973U);
    EXPECT_EQ(random.next(), 9817491932198370423U);
}

TEST(DemoHistory, HasExactlyTheEntriesAskedForInDateOrder) {
    for (const std::uint64_t count : {0U, 1U, 2U, 17U, 500U, 2000U, 40001U}) {
        const Recorder history = made(count);
        EXPECT_EQ(history.entries.size(), count);
        EXPECT_TRUE(std::ranges::is_sorted(history.entries, {}, &TimeEntry::date)) << count;
        EXPECT_TRUE(std::ranges::is_sorted(history.expenses, {}, &ExpenseEntry::date)) << count;
        if (count == 0)
            continue;
        EXPECT_GE(history.entries.front().date, midnight(2006, 6, 1)) << count;
        EXPECT_LT(history.entries.back().date, midnight(2026, 6, 20)) << count;
    }
}

TEST(DemoHistory, IsTheSameForTheSameSeedOnly) {
    const Recorder first = made(300, 5), second = made(300, 5), other = made(300, 6);
    EXPECT_EQ(first.entries, second.entries);
    EXPECT_EQ(first.notes, second.notes);
    EXPECT_EQ(first.expenses, second.expenses);
    EXPECT_NE(first.entries, other.entries);
}

TEST(DemoHistory, RefersToItsOwnClientStructure) {
    const Recorder history = made(3000);
    const DemoWorld& world = history.world;
    for (const auto& entry : history.entries) {
        const auto client = std::ranges::find(world.clients, entry.client, &DemoClient::name);
        ASSERT_NE(client, world.clients.end()) << platform::toUtf8(entry.client);
        const auto project = std::ranges::find(client->projects, entry.project, &DemoProject::name);
        ASSERT_EQ(project == client->projects.end(), entry.project.empty()) << platform::toUtf8(entry.project);
        EXPECT_TRUE(has(entry.project.empty() ? client->tasks : project->tasks, entry.task));
        EXPECT_FALSE(entry.task.empty());
        EXPECT_TRUE(has(client->contacts, entry.billTo));
        EXPECT_EQ(entry.currency, client->currency);
        EXPECT_TRUE(has(world.phases, entry.phase) && has(world.places, entry.custom1) &&
                    has(world.orderNumbers, entry.custom2) && has(world.consultants, entry.custom3) &&
                    has(world.currencies, entry.currency));
        const auto isItsRate = [&](const DemoRate& rate) {
            return rate.type == entry.rateType && rate.hundredths == entry.rate;
        };
        EXPECT_TRUE(std::ranges::any_of(client->rates, isItsRate) || entry.rate == 0);
    }
    for (const auto& expense : history.expenses)
        EXPECT_TRUE(has(world.categories, expense.category) && has(world.descriptions, expense.description) &&
                    has(world.currencies, expense.currency) && !expense.description.empty());
}

TEST(DemoHistory, BillsWhenAMonthIsOverAndIsPaidLater) {
    for (const auto& entry : made(3000).entries) {
        EXPECT_EQ(entry.status == EntryStatus::paid, entry.paidDate.ticks != 0);
        EXPECT_LE(entry.paidDate, midnight(2026, 6, 19));
        if (entry.status == EntryStatus::nonBillable)
            continue;
        if (entry.date >= midnight(2026, 6, 1))
            EXPECT_EQ(entry.status, EntryStatus::billable);
        else if (entry.date < midnight(2026, 3, 1))
            EXPECT_EQ(entry.status, EntryStatus::paid);
        else
            EXPECT_NE(entry.status, EntryStatus::billable);
    }
}

TEST(DemoHistory, ShowsEveryKindOfRecord) {
    const Recorder history = made(2000);
    std::set<std::pair<EntryStatus, bool>> statusAndStart;
    std::set<RateType> rateTypes;
    std::size_t breaks = 0;
    for (const auto& entry : history.entries) {
        const auto time = platform::toSystemTime(entry.date).value();
        statusAndStart.emplace(entry.status, time.second == 1);
        EXPECT_TRUE(time.second == 1 || (time.hour == 0 && time.minute == 0 && time.second == 0));
        rateTypes.insert(entry.rateType);
        breaks += entry.breakTime > 0 ? 1 : 0;
        EXPECT_GE(entry.duration, 16);
    }
    EXPECT_EQ(statusAndStart.size(), 8U);
    EXPECT_EQ(rateTypes.size(), 5U);
    EXPECT_GT(breaks, 100U);
    EXPECT_GT(std::ranges::count_if(history.notes, [](const auto& note) { return !note.empty(); }), 300);
    const auto mileages = std::ranges::count(history.expenses, store::ExpenseType::mileage, &ExpenseEntry::type);
    EXPECT_GT(mileages, 20);
    EXPECT_GT(std::ssize(history.expenses) - mileages, 40);
}

TEST(DemoHistory, HasMoreClientsTheMoreEntries) {
    EXPECT_EQ(made(0).world.clients.size(), 8U);
    EXPECT_EQ(made(999).world.clients.size(), 8U);
    EXPECT_EQ(made(1000).world.clients.size(), 11U);
    EXPECT_EQ(made(4000).world.clients.size(), 17U);
}

TEST(DemoHistory, EndsWithItsSinkAndRefusesWhatIsNoDay) {
    Recorder recorder;
    recorder.room = 10;
    EXPECT_FALSE(makeDemoHistory({.entries = 20, .lastDay = lastDay}, recorder));
    EXPECT_EQ(recorder.entries.size(), 10U);
    EXPECT_FALSE(makeDemoHistory({.entries = 1, .lastDay = {.year = 2026, .month = 2, .day = 30}}, recorder));
    EXPECT_FALSE(makeDemoHistory({.entries = maxDemoEntries + 1, .lastDay = lastDay}, recorder));
}

TEST(DemoHistory, BeginsWithTheCalendar) {
    Recorder recorder;
    EXPECT_TRUE(makeDemoHistory({.entries = 500, .lastDay = {.year = 1601, .month = 1, .day = 3}}, recorder));
    EXPECT_EQ(recorder.entries.size(), 500U);
}

} // namespace
