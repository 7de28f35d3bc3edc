#include "app/copy_keeping.h"

#include "app/copy_list.h"
#include "platform/icu/icu_locale.h"
#include "support/named_copies.h"

#include <gtest/gtest.h>
#include <map>

namespace hourwright::app {
namespace {

using platform::StoreCopy;
using platform::SystemTime;
using test::NamedCopies;

SystemTime dayAt(std::uint64_t day, std::uint16_t hour = 9) {
    const auto first = platform::toFileTime({.year = 2026, .month = 1, .day = 5, .hour = hour})->ticks; // a Monday
    return *platform::toSystemTime({first + day * platform::ticksPerDay});
}

bool always() {
    return true;
}

void makeDaily(NamedCopies& copies, std::uint64_t from, std::uint64_t to) {
    for (std::uint64_t day = from; day < to; ++day)
        static_cast<void>(makeCopy(copies, dayAt(day), always));
}

TEST(CopyKeeping, ADamagedCopyTakesNoSoundOnesPlace) {
    for (const bool hasDescription : {true, false}) {
        NamedCopies copies;
        makeDaily(copies, 0, 7); // a week
        const std::string sunday = platform::copyNameAt(dayAt(6));
        (hasDescription ? copies.damaged : copies.withoutDescription).insert(sunday);
        makeDaily(copies, 7, 20);
        EXPECT_TRUE(copies.has(dayAt(5))) << "the newest sound one stands for its week";
        EXPECT_TRUE(copies.has(dayAt(6))) << "it may still be of use";
        EXPECT_FALSE(copies.has(dayAt(4)));
    }
}

TEST(CopyKeeping, TheLastSoundOneStaysWhateverTheDamage) {
    NamedCopies copies;
    makeDaily(copies, 0, 1);
    const StoreCopy first = copies.all.front();
    for (std::uint64_t day = 1; day < 600; ++day) {
        static_cast<void>(makeCopy(copies, dayAt(day), always));
        copies.damaged.insert(platform::copyNameAt(dayAt(day))); // as soon as it is made
        ASSERT_TRUE(copies.has(first.time)) << "day " << day;
    }
    EXPECT_LT(copies.all.size(), 40U) << "damaged ones do not pile up";
}

TEST(CopyKeeping, NothingIsDeletedWhenTheVerifyingIsCancelled) {
    NamedCopies copies;
    makeDaily(copies, 0, 7);
    copies.cancels = true;
    makeDaily(copies, 7, 10);
    EXPECT_EQ(copies.all.size(), 10U);
    copies.cancels = false;
    makeDaily(copies, 10, 11);
    EXPECT_LT(copies.all.size(), 10U);
}

TEST(CopyKeeping, OnlyWhatTakesAPlaceIsVerified) {
    NamedCopies copies;
    makeDaily(copies, 0, 7);
    EXPECT_TRUE(copies.verified.empty()) << "nothing was to be deleted";
    makeDaily(copies, 7, 8);
    EXPECT_EQ(copies.verified.size(), 6U) << "the six kept ones but the one just made";
}

TEST(CopyKeeping, ADamagedNewestIsReasonForAnother) {
    NamedCopies copies;
    makeDaily(copies, 0, 2);
    EXPECT_FALSE(makeDueCopy(copies, dayAt(2), always)) << "nothing was written";
    copies.damaged.insert(copies.all.front().name);
    EXPECT_FALSE(makeDueCopy(copies, dayAt(2), always)) << "the one before is as good";
    copies.damaged.insert(copies.all.back().name);
    EXPECT_TRUE(makeDueCopy(copies, dayAt(2), always));
    EXPECT_EQ(copies.soundOnes(), 1U);
    EXPECT_FALSE(makeDueCopy(copies, dayAt(2, 18), always)) << "one a day";
}

TEST(CopyList, RemembersWhatVerifyingFound) {
    NamedCopies copies;
    makeDaily(copies, 0, 4);
    copies.withoutDescription.insert(copies.all[1].name);
    CopyList list;
    list.load(copies);
    ASSERT_EQ(list.rows().size(), 4U);
    EXPECT_EQ(list.rows()[1].copy.name, copies.all[1].name) << "in its place by time";
    EXPECT_FALSE(list.rows()[1].readable);
    EXPECT_EQ(list.rows()[1].health, platform::CopyHealth::damaged);
    ASSERT_EQ(list.toVerify().size(), 3U);
    list.note(copies.all[0], platform::CopyHealth::sound);
    list.note(copies.all[2], platform::CopyHealth::damaged);
    list.note(copies.all[3], platform::CopyHealth::cancelled);
    makeDaily(copies, 4, 5);
    list.load(copies);
    ASSERT_EQ(list.toVerify().size(), 2U);
    EXPECT_EQ(list.toVerify()[0].name, copies.all[0].name);
    EXPECT_EQ(list.toVerify()[1].name, copies.all[4].name);
    EXPECT_EQ(list.rows()[1].health, platform::CopyHealth::sound);
    EXPECT_EQ(list.rows()[3].health, platform::CopyHealth::damaged);
}

TEST(CopyList, SizesAreLegible) {
    const auto locale = platform::makeIcuLocale("de_DE");
    const std::map<std::uint64_t, std::u16string> cases{{0, u"0 kB"},
                                                        {4'096, u"4 kB"},
                                                        {999'400, u"999 kB"},
                                                        {1'000'000, u"1,0 MB"},
                                                        {12'345'678, u"12,3 MB"},
                                                        {2'500'000'000, u"2,5 GB"},
                                                        {7'000'000'000'000'000, u"7.000,0 TB"}};
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(sizeText(bytes, *locale), text) << bytes;
}

TEST(CopyKeeping, TheNewestSoundOneThatHasThePartIsFound) {
    NamedCopies copies;
    makeDaily(copies, 0, 4);
    copies.all[2].hasSettings = copies.all[0].hasSettings = true;
    copies.damaged.insert(copies.all[0].name);
    EXPECT_EQ(newestSoundCopy(copies)->name, copies.all[1].name);
    EXPECT_EQ(newestSoundCopy(copies, platform::CopyPart::settings)->name, copies.all[2].name);
}

} // namespace
} // namespace hourwright::app
