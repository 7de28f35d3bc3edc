#include "app/gone_records.h"

#include "app/copy_keeping.h"
#include "platform/icu/icu_locale.h"
#include "support/named_copies.h"
#include "support/recording_message_box.h"
#include "support/temporary_directory.h"

#include <fstream>
#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

using platform::Answer;
using platform::RestoreOutcome;
using platform::StoreCopy;
using resources::StringId;
using Ids = std::vector<StringId>;

constexpr platform::SystemTime now{.year = 2026, .month = 11, .day = 16, .hour = 9};

StoreCopy copyOfDay(std::uint16_t day) {
    const platform::SystemTime time{.year = 2026, .month = 11, .day = day, .hour = 17};
    return {.name = platform::copyNameAt(time), .time = time, .records = 1234, .source = {}};
}

const std::string newest = copyOfDay(14).name;
const std::string older = copyOfDay(13).name;

class GoneRecordsTest : public testing::Test {
protected:
    GoneRecordsTest() {
        copies_.all = {copyOfDay(14), copyOfDay(13)};
        copies_.outcome = RestoreOutcome::done;
    }

    [[nodiscard]] bool settle(const CopyWorkRunner& run = runAtOnce) {
        return settleGoneRecords(copies_, file_, now, *locale_, messages_, run);
    }

    test::TemporaryDirectory folder_;
    std::filesystem::path file_ = folder_.path() / "hourwright.db";
    test::NamedCopies copies_;
    test::RecordingMessageBox messages_;
    std::unique_ptr<platform::Locale> locale_ = platform::makeIcuLocale("en_US");
};

TEST_F(GoneRecordsTest, NothingIsAskedWhileNothingIsMissing) {
    std::ofstream(file_) << "no database any more, which opening it will tell";
    EXPECT_TRUE(settle());
    std::filesystem::remove(file_);
    copies_.all.clear(); // the first start
    EXPECT_TRUE(settle());
    EXPECT_EQ(messages_.ids(), Ids{});
    EXPECT_TRUE(copies_.verified.empty());
}

TEST_F(GoneRecordsTest, TheUserDecides) {
    struct Case {
        const char* name;
        std::set<std::string> damaged;
        Answer answer;
        RestoreOutcome outcome;
        bool goesOn;
        std::vector<std::string> restored;
        Ids shown;
    };
    const std::vector<Case> cases{
        {"yes", {}, Answer::yes, RestoreOutcome::done, true, {newest}, {StringId::recordsGoneOffer}},
        {"the newest is damaged",
         {newest},
         Answer::yes,
         RestoreOutcome::done,
         true,
         {older},
         {StringId::recordsGoneOffer}},
        {"begin without", {}, Answer::no, RestoreOutcome::done, true, {}, {StringId::recordsGoneOffer}},
        {"end", {}, Answer::cancel, RestoreOutcome::done, false, {}, {StringId::recordsGoneOffer}},
        {"the window was closed", {}, Answer::ok, RestoreOutcome::done, false, {}, {StringId::recordsGoneOffer}},
        {"it cannot be restored",
         {},
         Answer::yes,
         RestoreOutcome::inUse,
         false,
         {newest},
         {StringId::recordsGoneOffer, StringId::recordsInUse}},
        {"no sound one, begin",
         {newest, older},
         Answer::yes,
         RestoreOutcome::done,
         true,
         {},
         {StringId::recordsGoneNoCopy}},
        {"no sound one, end",
         {newest, older},
         Answer::no,
         RestoreOutcome::done,
         false,
         {},
         {StringId::recordsGoneNoCopy}},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        copies_.damaged = test.damaged;
        copies_.outcome = test.outcome;
        copies_.restored.clear();
        messages_.shown.clear();
        messages_.script = {test.answer};
        EXPECT_EQ(settle(), test.goesOn);
        EXPECT_EQ(copies_.restored, test.restored);
        EXPECT_EQ(messages_.ids(), test.shown);
    }
    EXPECT_EQ(withCopy(StringId::recordsGoneOffer, copies_.all.front(), *locale_).find(u"%s"), std::u16string::npos);
}

TEST_F(GoneRecordsTest, AnEmptyFileHoldsNoRecordsEither) {
    std::ofstream(file_) << "";
    messages_.script = {Answer::yes};
    EXPECT_TRUE(settle());
    EXPECT_EQ(copies_.restored, std::vector{newest});
}

TEST_F(GoneRecordsTest, CopiesWithoutADescriptionAreCopiesToo) {
    copies_.withoutDescription = {newest, older};
    messages_.script = {Answer::no};
    EXPECT_FALSE(settle());
    EXPECT_EQ(messages_.ids(), Ids{StringId::recordsGoneNoCopy});
}

// The search stops at the first sound one, and where the user ends it; both are work that the face may run elsewhere.
TEST_F(GoneRecordsTest, TheSearchVerifiesNoMoreThanItMust) {
    std::vector<std::u16string_view> works;
    const CopyWorkRunner run = [&](const CopyWork& work, const auto& body) {
        works.push_back(work.label.text);
        body([&] { return copies_.verified.empty() || !work.mayCancel; });
    };
    messages_.script = {Answer::yes};
    EXPECT_TRUE(settle(run));
    EXPECT_EQ(copies_.verified, std::vector{newest});
    EXPECT_EQ(works.size(), 2U);

    copies_.verified.clear();
    copies_.damaged = {newest};
    messages_.shown.clear();
    messages_.script = {Answer::no};
    EXPECT_FALSE(settle(run));
    EXPECT_EQ(copies_.verified, std::vector{newest}) << "ended before the second";
    EXPECT_EQ(messages_.ids(), Ids{StringId::recordsGoneNoCopy});
}

} // namespace
} // namespace hourwright::app
