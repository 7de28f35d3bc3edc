#include "app/copy_keeping.h"
#include "app/copy_notice.h"
#include "desktop/copies/daily_copy.h"
#include "desktop/desktop_fixture.h"
#include "platform/sqlite/sqlite_store_copies.h"

#include <QSignalSpy>
#include <fstream>

namespace hourwright::desktop {
namespace {

using platform::Answer;
using resources::StringId;

class DailyCopyTest : public test::DesktopFixture {
protected:
    DailyCopyTest() {
        store::TimeEntry entry;
        entry.task = u"Uncommon task";
        entry.date = clock().now();
        add(entry);
    }

    [[nodiscard]] platform::StoreCopyPlaces places() { return platform::copyPlaces(workspace().directories()); }
    [[nodiscard]] std::vector<platform::StoreCopy> copies() { return platform::openStoreCopies(places())->list(); }

    // As the window does some time after its start; true when it wants to end.
    bool look() {
        DailyCopy daily(workspace(), platform::openStoreCopies(places()));
        QSignalSpy ended(&daily, &DailyCopy::ended);
        QSignalSpy restart(&daily, &DailyCopy::restartWanted);
        daily.look();
        daily.look(); // while the first is at work
        EXPECT_TRUE(ended.wait(20'000));
        return !restart.isEmpty();
    }

    void damageTask() {
        std::fstream stream(file(), std::ios::in | std::ios::out | std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        const auto place = bytes.find("Uncommon");
        ASSERT_NE(place, std::string::npos);
        stream.clear();
        stream.seekp(static_cast<std::streamoff>(place));
        stream.put('u');
    }
};

TEST_F(DailyCopyTest, OneADayWhenSomethingWasRecorded) {
    EXPECT_FALSE(look());
    EXPECT_EQ(copies().size(), 1U);
    look();
    EXPECT_EQ(copies().size(), 1U);
    clock().set({.year = 2026, .month = 11, .day = 17, .hour = 8});
    look();
    EXPECT_EQ(copies().size(), 1U) << "nothing was recorded";
    add(store::TimeEntry{});
    look();
    EXPECT_EQ(copies().size(), 2U);
    EXPECT_TRUE(messages().ids().empty());
}

TEST_F(DailyCopyTest, AFailureIsToldOnceUntilOneWasMade) {
    std::ofstream(places().copies) << "a file where the folder should be";
    look();
    look();
    EXPECT_EQ(messages().ids(), std::vector{StringId::automaticCopyFailed});
    std::filesystem::remove(places().copies);
    look();
    EXPECT_EQ(copies().size(), 1U);
    std::filesystem::remove_all(places().copies);
    std::ofstream(places().copies) << "again";
    look();
    EXPECT_EQ(messages().ids().size(), 2U);
}

TEST_F(DailyCopyTest, DamageIsFoundAndTheNextStartGoesBackWhenTheUserWants) {
    look();
    clock().set({.year = 2026, .month = 11, .day = 17, .hour = 8});
    add(store::TimeEntry{});
    damageTask();
    EXPECT_FALSE(look()) << "the default is No";
    EXPECT_EQ(messages().ids(), std::vector{StringId::recordsDamaged});
    EXPECT_EQ(copies().size(), 1U);
    EXPECT_FALSE(look());
    EXPECT_EQ(messages().shown.size(), 1U) << "told once";

    registry().open(platform::settingsKey)->remove(u"CopyTroubleTold");
    messages().script = {Answer::yes};
    EXPECT_TRUE(look());
    messages().shown.clear();
    const auto all = platform::openStoreCopies(places());
    app::restoreWishedCopy(*all, registry(), clock().localTime(), messages());
    app::restoreWishedCopy(*all, registry(), clock().localTime(), messages());
    EXPECT_EQ(messages().ids(), std::vector{StringId::copyRestored});
    reopen();
    EXPECT_TRUE(objects().check([](std::string_view finding) { ADD_FAILURE() << finding; }));
}

TEST_F(DailyCopyTest, AfterDamageTheNewestSoundCopyIsOffered) {
    const auto nextDay = [this](std::uint16_t day) {
        clock().set({.year = 2026, .month = 11, .day = day, .hour = 8});
        add(store::TimeEntry{});
    };
    look();
    nextDay(17);
    look();
    ASSERT_EQ(copies().size(), 2U);
    std::ofstream(places().copies / copies().front().name / "SHA256SUMS") << "cut off";
    nextDay(18);
    damageTask();
    messages().script = {Answer::yes};
    EXPECT_TRUE(look());
    const auto all = platform::openStoreCopies(places());
    app::restoreWishedCopy(*all, registry(), clock().localTime(), messages());
    EXPECT_EQ(messages().ids(),
              (std::vector{StringId::recordsDamaged, StringId::restoreAtNextStart, StringId::copyRestored}));
    reopen();
    EXPECT_EQ(entries().size(), 1U);
}

TEST_F(DailyCopyTest, TheEndDoesNotWaitForIt) {
    {
        DailyCopy daily(workspace(), platform::openStoreCopies(places()));
        daily.look();
    }
    EXPECT_LE(copies().size(), 1U);
}

} // namespace
} // namespace hourwright::desktop
