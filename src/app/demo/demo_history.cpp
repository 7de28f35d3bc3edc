#include "app/demo/demo_history.h"

#include "app/demo/demo_calendar.h"
#include "app/demo/demo_texts.h"
#include "app/demo/random.h"
#include "billing/duration.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace hourwright::app::demo {
namespace {

using platform::FileTime;
using store::EntryStatus;
using store::ExpenseEntry;
using store::RateType;
using store::TimeEntry;

constexpr std::uint32_t entriesOfOnePerson = 6;
constexpr std::uint32_t earliestStart = 8 * 60;
constexpr std::uint32_t overtimeFrom = 18 * 60;
constexpr std::uint32_t latestStart = 22 * 60;
constexpr std::uint32_t entriesOfAnExpense = 12;

struct NotedEntry {
    TimeEntry entry;
    std::u16string_view note;
};

FileTime at(FileTime day, std::uint32_t minute, std::uint32_t seconds) {
    return {day.ticks + minute * platform::ticksPerMinute + seconds * platform::ticksPerSecond};
}

/// Makes up one day after the other and hands its records over.
class History {
public:
    History(const DemoOptions& options, const DemoWorld& world, DemoSink& sink)
        : random_(options.seed ^ 0x5DEECE66D), world_(world), sink_(sink) {}

    bool makeDay(const DemoDay& day) {
        entries_.clear();
        for (std::uint32_t left = day.entries, person = 0; left > 0; ++person) {
            const std::uint32_t count = std::min(left, entriesOfOnePerson);
            addPerson(day, person, count);
            left -= count;
        }
        std::ranges::stable_sort(entries_, {}, [](const NotedEntry& e) { return e.entry.date; });
        for (auto& [entry, note] : entries_)
            if (!sink_.take(entry, note))
                return false;
        return makeExpenses(day);
    }

private:
    void addPerson(const DemoDay& day, std::uint32_t person, std::uint32_t count) {
        std::uint32_t minute = earliestStart + 15 * random_.below(7);
        for (std::uint32_t i = 0; i < count; ++i)
            minute = addEntry(day, person, minute);
    }

    // Returns when the next entry of the same person may begin.
    std::uint32_t addEntry(const DemoDay& day, std::uint32_t person, std::uint32_t minute) {
        const DemoClient& client = pickClient();
        auto& [entry, note] = entries_.emplace_back();
        entry.client = client.name;
        chooseWork(entry, client);
        const std::uint32_t length = chooseLength(entry);
        const bool timed = minute < latestStart && !random_.chance(20);
        entry.date = timed ? at(day.start, minute, 1) : day.start;
        chooseRate(entry, client, day, minute);
        chooseStatus(entry, client, day);
        chooseTexts(entry, client, person);
        entry.modified = entry.paidDate > day.start ? entry.paidDate : at(day.start, 20 * 60 + random_.below(180), 0);
        if (random_.chance(22))
            note = random_.pick(texts::notes);
        return minute + length + 15 * random_.below(3);
    }

    // The first clients are the busy ones.
    const DemoClient& pickClient() {
        const auto count = static_cast<std::uint32_t>(world_.clients.size());
        return world_.clients[std::min(random_.below(count), random_.below(count))];
    }

    void chooseWork(TimeEntry& entry, const DemoClient& client) {
        if (random_.chance(15)) {
            entry.task = random_.pick(client.tasks);
            return;
        }
        const DemoProject& project = random_.pick(client.projects);
        entry.project = project.name;
        entry.task = random_.pick(project.tasks);
        if (random_.chance(80))
            entry.phase = random_.pick(world_.phases);
        if (random_.chance(60))
            entry.custom2 = project.orderNumber;
    }

    // Sets duration and break and returns the minutes that both take.
    std::uint32_t chooseLength(TimeEntry& entry) {
        const std::uint32_t work = random_.chance(25) ? 10 * random_.between(1, 15) : 15 * random_.between(1, 12);
        const std::uint32_t rest = work >= 120 && random_.chance(40) ? 15 * random_.between(1, 3) : 0;
        entry.duration = billing::durationFromHours(work / 60.0, {}).value_or(0);
        entry.breakTime = billing::breakFromHours(rest / 60.0).value_or(0);
        return work + rest;
    }

    void chooseRate(TimeEntry& entry, const DemoClient& client, const DemoDay& day, std::uint32_t minute) {
        if (day.weekend)
            entry.rateType = RateType::weekend;
        else if (minute >= overtimeFrom)
            entry.rateType = RateType::overtime;
        else if (const std::uint32_t percent = random_.below(100); percent < 10)
            entry.rateType = percent < 3 ? RateType::fixed : RateType::discount;
        std::vector<std::int32_t> rates;
        for (const auto& rate : client.rates)
            if (rate.type == entry.rateType)
                rates.push_back(rate.hundredths);
        entry.rate = random_.pick(rates);
    }

    // Work is billed when its month is over, and paid a fixed time of the client's own later.
    void chooseStatus(TimeEntry& entry, const DemoClient& client, const DemoDay& day) {
        if (random_.chance(7)) {
            entry.status = EntryStatus::nonBillable;
            if (random_.chance(50))
                entry.rate = 0;
            return;
        }
        entry.status = statusOf(client, day, entry.paidDate);
    }

    static EntryStatus statusOf(const DemoClient& client, const DemoDay& day, FileTime& paidDate) {
        if (day.billedOn > day.last)
            return EntryStatus::billable;
        const FileTime paid{day.billedOn.ticks + client.paymentDays * platform::ticksPerDay};
        if (paid > day.last)
            return EntryStatus::billed;
        paidDate = paid;
        return EntryStatus::paid;
    }

    void chooseTexts(TimeEntry& entry, const DemoClient& client, std::uint32_t person) {
        entry.currency = client.currency;
        if (random_.chance(70))
            entry.billTo = client.contacts.front();
        if (random_.chance(45))
            entry.custom1 = random_.pick(world_.places);
        if (person > 0 || random_.chance(30))
            entry.custom3 = world_.consultants[person % world_.consultants.size()];
    }

    bool makeExpenses(const DemoDay& day) {
        for (std::uint32_t i = 0; i < day.entries; ++i) {
            if (random_.below(entriesOfAnExpense) != 0)
                continue;
            ExpenseEntry expense = makeExpense(day);
            if (!sink_.take(expense))
                return false;
        }
        return true;
    }

    ExpenseEntry makeExpense(const DemoDay& day) {
        const DemoClient& client = pickClient();
        ExpenseEntry expense;
        expense.date = day.start;
        expense.client = client.name;
        expense.currency = client.currency;
        if (random_.chance(75))
            expense.project = random_.pick(client.projects).name;
        if (random_.chance(60))
            expense.billTo = client.contacts.front();
        if (random_.chance(30))
            expense.custom1 = random_.pick(world_.places);
        expense.status = random_.chance(10) ? EntryStatus::nonBillable : statusOf(client, day, expense.paidDate);
        expense.modified = at(day.start, 20 * 60 + random_.below(180), 0);
        if (random_.chance(35))
            makeMileage(expense);
        else
            makeGeneral(expense);
        return expense;
    }

    void makeMileage(ExpenseEntry& expense) {
        expense.type = store::ExpenseType::mileage;
        expense.description = random_.pick(texts::drives);
        odometer_ += random_.between(5, 400);
        expense.startOdometer = odometer_;
        expense.distance = random_.between(4, 220);
        expense.amount = random_.chance(50) ? 35 : 42;
        odometer_ += expense.distance;
    }

    void makeGeneral(ExpenseEntry& expense) {
        const auto& kind = random_.pick(texts::expenses);
        expense.category = kind.category;
        expense.description = kind.description;
        expense.amount = random_.between(kind.least, kind.most) * 100;
        expense.amount += 5 * random_.below(20);
        expense.receipt = random_.chance(85);
        if (!expense.receipt)
            expense.note = u"Receipt lost.";
    }

    Random random_;
    const DemoWorld& world_;
    DemoSink& sink_;
    std::vector<NotedEntry> entries_;
    std::uint32_t odometer_ = 41'207;
};

} // namespace

bool makeDemoHistory(const DemoOptions& options, DemoSink& sink) {
    if (options.entries > maxDemoEntries)
        return false;
    const auto days = makeDemoCalendar(options.entries, options.seed, options.lastDay);
    if (!days)
        return false;
    const DemoWorld world = makeDemoWorld(options.entries, options.seed);
    if (!sink.take(world))
        return false;
    History history(options, world, sink);
    return std::ranges::all_of(*days, [&](const DemoDay& day) { return history.makeDay(day); });
}

} // namespace hourwright::app::demo
