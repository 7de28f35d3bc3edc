#include "billing/rate_choice.h"

#include <gtest/gtest.h>

namespace hourwright::billing {

namespace {

using store::RateRecord;
using store::RateType;
using store::TimeEntry;

RateRecord rateOf(RateType type, std::u16string description, std::int32_t rate) {
    RateRecord record;
    record.type = type;
    record.description = std::move(description);
    record.rate = rate;
    return record;
}

const RateRecord standard = rateOf(RateType::normal, u"Standard", 4550);
const RateRecord late = rateOf(RateType::overtime, u"Late", 6000);
const RateRecord flat = rateOf(RateType::fixed, u"Flat", 25000);

TimeEntry entryOf(std::int32_t rate, RateType type) {
    TimeEntry entry;
    entry.task = u"Review";
    entry.duration = 150;
    entry.rate = rate;
    entry.rateType = type;
    return entry;
}

TEST(RateChoice, theClientsOwnRatesComeFirstAndHideDefaultsOfTheSameName) {
    const RateRecord defaultLate = rateOf(RateType::overtime, u"Late", 5000);
    const RateRecord sameWord = rateOf(RateType::normal, u"Late", 5000);
    EXPECT_EQ(offeredRates(std::vector{late}, std::vector{defaultLate, sameWord, standard}),
              (std::vector{late, sameWord, standard}));
    EXPECT_EQ(offeredRates({}, std::vector{standard}), std::vector{standard});
}

TEST(RateChoice, ratesStandUnderDefaultRatesBesideTheCustomRate) {
    const std::vector<RateNode> expected{
        {u"(Default Rates)", {}, {{u"Normal Rate, Standard: 45.50", 0, {}}, {u"Fixed Rate, Flat: 250.00", 1, {}}}},
        {u"(Custom Rate)", {}, {}}};
    EXPECT_EQ(rateTree(std::vector{standard, flat}), expected);
}

TEST(RateChoice, choosingSetsRateAndTypeAndFixedGivesTheTypeBack) {
    struct Row {
        const char* name;
        void (*act)(RateChoice&);
        std::u16string text;
        RateType type;
        double total; // of 1.5 hours
    };
    const Row rows[] = {
        {"untouched", [](RateChoice&) {}, u"20.00", RateType::weekend, 30.0},
        {"chosen", [](RateChoice& c) { c.choose(late); }, u"60.00", RateType::overtime, 90.0},
        {"fixed",
         [](RateChoice& c) {
             c.choose(late);
             c.setFixed(true);
         },
         u"60.00", RateType::fixed, 60.0},
        {"no longer fixed",
         [](RateChoice& c) {
             c.choose(late);
             c.setFixed(true);
             c.setFixed(false);
         },
         u"60.00", RateType::overtime, 90.0},
        {"the entry's own type",
         [](RateChoice& c) {
             c.setFixed(true);
             c.setFixed(false);
         },
         u"20.00", RateType::weekend, 30.0},
        {"chosen as fixed",
         [](RateChoice& c) {
             c.choose(flat);
             c.setFixed(false);
         },
         u"250.00", RateType::normal, 375.0},
        {"an hourly rate ends fixed",
         [](RateChoice& c) {
             c.setFixed(true);
             c.choose(standard);
         },
         u"45.50", RateType::normal, 68.25},
        {"typed",
         [](RateChoice& c) {
             c.choose(late);
             c.type(u"10");
         },
         u"10", RateType::normal, 15.0},
        {"typed while fixed",
         [](RateChoice& c) {
             c.setFixed(true);
             c.type(u"10");
         },
         u"10", RateType::fixed, 10.0},
    };
    for (const Row& row : rows) {
        const TimeEntry entry = entryOf(2000, RateType::weekend);
        RateChoice choice(entry);
        row.act(choice);
        EXPECT_EQ(choice.text(), row.text) << row.name;
        EXPECT_EQ(choice.type(), row.type) << row.name;
        EXPECT_EQ(choice.total(entry, {}), row.total) << row.name;
    }
}

TEST(RateChoice, goesIntoTheEntryByTheDraft) {
    TimeEntry entry = entryOf(201, RateType::normal); // "2.01" read back would be cut to 200
    RateChoice choice(entry);
    EntryDraft draft;
    choice.putInto(draft);
    ASSERT_EQ(applyDraft(draft, {}, entry), std::nullopt);
    EXPECT_EQ(entry, entryOf(201, RateType::normal));

    choice.choose(late);
    choice.putInto(draft);
    ASSERT_EQ(applyDraft(draft, {}, entry), std::nullopt);
    EXPECT_EQ(entry, entryOf(6000, RateType::overtime));

    choice.type(u"12x");
    EXPECT_EQ(choice.total(entry, {}), std::nullopt);
    choice.putInto(draft);
    EXPECT_EQ(applyDraft(draft, {}, entry)->message, resources::StringId::rateInvalid);
    choice.type(u"-1");
    EXPECT_EQ(choice.total(entry, {}), std::nullopt);
    choice.type(u"12.509");
    choice.putInto(draft);
    ASSERT_EQ(applyDraft(draft, {}, entry), std::nullopt);
    EXPECT_EQ(entry, entryOf(1250, RateType::normal));
}

TEST(RateChoice, anotherClientKeepsWhatFits) {
    struct Row {
        const char* name;
        TimeEntry entry;
        std::vector<RateRecord> offered;
        std::u16string text;
        RateType type;
    };
    const RateRecord dearer = rateOf(RateType::overtime, u"Late", 7000);
    const Row rows[] = {
        {"offered here too", entryOf(6000, RateType::overtime), {standard, late}, u"60.00", RateType::overtime},
        {"same name", entryOf(6000, RateType::overtime), {standard, dearer}, u"70.00", RateType::overtime},
        {"not offered", entryOf(6000, RateType::overtime), {standard}, u"0.00", RateType::normal},
        {"no rate of the former client", entryOf(6100, RateType::overtime), {standard}, u"61.00", RateType::overtime},
    };
    for (const Row& row : rows) {
        RateChoice choice(row.entry);
        choice.changeRates(std::vector{late, flat}, row.offered);
        EXPECT_EQ(choice.text(), row.text) << row.name;
        EXPECT_EQ(choice.type(), row.type) << row.name;
    }
    RateChoice typed(entryOf(0, RateType::normal));
    typed.type(u"60");
    typed.changeRates(std::vector{rateOf(RateType::normal, u"", 0)}, {});
    EXPECT_EQ(typed.text(), u"60");
    EXPECT_EQ(typed.find(std::vector{standard}), std::nullopt);
    EXPECT_EQ(RateChoice(entryOf(25000, RateType::fixed)).find(std::vector{standard, flat}), 1U);
}

} // namespace

} // namespace hourwright::billing
