#include "app/options_draft.h"

#include "app/settings_fixture.h"

#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace hourwright::app {
namespace {

OptionsDraft freshDraft() {
    return {.settings = AppSettings(test::handheld), .display = {}};
}

constexpr auto lastList = OptionList::breakTime;
constexpr auto lastFlag = OptionFlag::vibrate;

template<typename Option, typename Use>
void forEach(Option last, Use use) {
    for (int number = 0; number <= static_cast<int>(last); ++number)
        use(static_cast<Option>(number));
}

TEST(OptionsDraftTest, EveryChoiceOfEveryListIsKept) {
    forEach(lastList, [](OptionList list) {
        const auto texts = optionTexts(list);
        EXPECT_EQ(std::set(texts.begin(), texts.end()).size(), texts.size()) << static_cast<int>(list);
        std::vector<OptionsDraft> drafts;
        for (int index = 0; index < static_cast<int>(texts.size()); ++index) {
            OptionsDraft draft = freshDraft();
            setOption(draft, list, index);
            EXPECT_EQ(optionIndex(draft, list), index) << static_cast<int>(list);
            for (const OptionsDraft& other : drafts)
                EXPECT_FALSE(other == draft) << static_cast<int>(list);
            drafts.push_back(draft);
        }
    });
}

TEST(OptionsDraftTest, EachFlagChangesItsOwnSettingOnly) {
    forEach(lastFlag, [](OptionFlag flag) {
        OptionsDraft draft = freshDraft();
        const bool before = optionFlag(draft, flag);
        setOption(draft, flag, !before);
        EXPECT_FALSE(draft == freshDraft());
        forEach(lastFlag, [&](OptionFlag other) {
            EXPECT_EQ(optionFlag(draft, other) != optionFlag(freshDraft(), other), other == flag);
        });
        setOption(draft, flag, before);
        EXPECT_TRUE(draft == freshDraft());
    });
}

TEST(OptionsDraftTest, ShowsTheStoredNumbersThatOtherProgramsKnow) {
    struct Case {
        std::function<void(AppSettings&)> change;
        OptionList list;
        int index;
    };
    const Case cases[] = {
        {[](AppSettings& settings) { settings.minTime = 6; }, OptionList::granularity, 0},
        {[](AppSettings& settings) { settings.minTime = 50; }, OptionList::granularity, 7},
        {[](AppSettings& settings) { settings.minTime = 7; }, OptionList::granularity, -1},
        {[](AppSettings& settings) { settings.timeInterval = 99; }, OptionList::durationInterval, 3},
        {[](AppSettings& settings) { settings.encoding = 99; }, OptionList::encoding, 0},
        {[](AppSettings& settings) { settings.breakSubstitute = 99; }, OptionList::lineBreak, 0},
        {[](AppSettings& settings) { settings.fontSize = 66; }, OptionList::fontSize, -1},
        {[](AppSettings& settings) { settings.breakOption = 2; }, OptionList::breakTime, 0},
    };
    for (const Case& testCase : cases) {
        OptionsDraft draft = freshDraft();
        testCase.change(draft.settings);
        EXPECT_EQ(optionIndex(draft, testCase.list), testCase.index) << static_cast<int>(testCase.list);
    }
}

TEST(OptionsDraftTest, OnlySoftKeysNeedARestart) {
    forEach(lastFlag, [](OptionFlag flag) {
        OptionsDraft draft = freshDraft();
        setOption(draft, flag, !optionFlag(draft, flag));
        EXPECT_EQ(needsRestart(freshDraft().settings, draft.settings), flag == OptionFlag::softKeys);
    });
}

} // namespace
} // namespace hourwright::app
