#include "app/copy_keeping.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace hourwright::app {
namespace {

using platform::CopyHealth;
using platform::StoreCopy;
using platform::SystemTime;

SystemTime dayAt(std::uint64_t day, std::uint16_t hour = 9) {
    const auto first = platform::toFileTime({.year = 2026, .month = 1, .day = 5, .hour = hour})->ticks; // a Monday
    return *platform::toSystemTime({first + day * platform::ticksPerDay});
}

// Copies that are only names; which are damaged is said from outside.
class NamedCopies : public platform::StoreCopies {
public:
    std::vector<StoreCopy> all;
    std::set<std::string> damaged;
    std::set<std::string> withoutDescription;
    std::vector<std::string> verified;
    std::string written = "records"; ///< what the present records look like
    bool cancels = false;

    [[nodiscard]] std::vector<StoreCopy> list() override { return those(false); }
    [[nodiscard]] std::vector<StoreCopy> unreadable() override { return those(true); }
    [[nodiscard]] platform::SourceStamps present() override { return {.records = {written}, .settings = {}}; }
    [[nodiscard]] const std::filesystem::path& folder() const override { return folder_; }
    [[nodiscard]] platform::MadeCopy make(const SystemTime& now, const platform::KeepGoing&) override {
        const StoreCopy copy{
            .name = platform::copyNameAt(now), .time = now, .source = {.records = {written}, .settings = {}}};
        all.insert(all.begin(), copy);
        return {.outcome = platform::CopyOutcome::done, .reason = {}, .copy = copy};
    }
    [[nodiscard]] CopyHealth verify(const StoreCopy& copy, const platform::KeepGoing&) override {
        verified.push_back(copy.name);
        if (cancels)
            return CopyHealth::cancelled;
        return isSound(copy) ? CopyHealth::sound : CopyHealth::damaged;
    }
    bool remove(const StoreCopy& copy) override {
        return std::erase_if(all, [&](const StoreCopy& other) { return other.name == copy.name; }) == 1;
    }
    [[nodiscard]] platform::RestoredCopy restore(const StoreCopy&, platform::CopyPart, const SystemTime&) override {
        return {.outcome = platform::RestoreOutcome::failed, .error = {}, .kept = {}};
    }

    [[nodiscard]] bool isSound(const StoreCopy& copy) const {
        return !damaged.contains(copy.name) && !withoutDescription.contains(copy.name);
    }
    [[nodiscard]] bool has(const SystemTime& time) const {
        return std::ranges::find(all, platform::copyNameAt(time), &StoreCopy::name) != all.end();
    }
    [[nodiscard]] std::size_t soundOnes() const {
        return static_cast<std::size_t>(
            std::ranges::count_if(all, [this](const StoreCopy& copy) { return isSound(copy); }));
    }

private:
    std::vector<StoreCopy> those(bool unreadable) {
        std::vector<StoreCopy> found;
        for (const StoreCopy& copy : all)
            if (withoutDescription.contains(copy.name) == unreadable)
                found.push_back(copy);
        return found;
    }

    std::filesystem::path folder_ = "/nonexistent";
};

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
