#include "app/main_frame.h"

#include "platform/event_queue.h"
#include "store/time_entry.h"
#include "support/recording_message_box.h"
#include "support/store_fixture.h"

#include <fstream>

namespace hourwright::app {
namespace {

using platform::Answer;
using platform::EventKind;
using resources::StringId;
using Log = std::vector<std::string>;
using Ids = std::vector<StringId>;

class FakeWindow : public FrameWindow {
public:
    void createMenuBar(bool softKeys) override { log.emplace_back(softKeys ? "soft keys" : "menu bar"); }
    [[nodiscard]] OpenedStores openStores() override {
        log.emplace_back("open");
        return {.stores = stores, .declined = declined};
    }
    void loadFilters() override { log.emplace_back("filters"); }
    void createViews(const Rectangle& rectangle) override { log.push_back("views " + std::to_string(rectangle.width)); }
    void showToday() override { log.emplace_back("today"); }
    void comeForward() override { log.emplace_back("forward"); }
    void showPeriod(std::optional<PeriodKind> kind, const std::optional<platform::SystemTime>& date) override {
        log.push_back("period " + std::to_string(kind ? static_cast<int>(*kind) : 0) + ' ' +
                      std::to_string(date ? date->day : 0));
    }
    void newEntry() override { log.emplace_back("new"); }
    [[nodiscard]] unsigned timersInUse() const override { return timers; }
    bool translateAccelerator(const platform::QueuedEvent& event) override { return event.key == 7; }
    void quit(int code) override { log.push_back("quit " + std::to_string(code)); }

    Log log;
    store::Stores* stores = nullptr;
    bool declined = false;
    unsigned timers = 0;
};

class MainFrameTest : public test::StoreFixture {
protected:
    MainFrameTest() { window_.stores = &stores(); }

    void storeVersion(std::uint32_t version) {
        AppSettings::load(registry(), device_).save(registry());
        registry().create(platform::settingsKey)->writeDword(u"hwVersion", version);
    }

    // An entry as an earlier version kept it.
    store::RecordId addOldEntry() { return addEntry({platform::PropertyValue::ofBoolean(1009, true)}); }

    store::RecordId addEntry(std::vector<platform::PropertyValue> properties) {
        store::RecordId id = store::RecordId::none;
        properties.insert(properties.begin(), platform::PropertyValue::ofFileTime(1001, platform::FileTime{1}));
        change([&](platform::Transaction& transaction) {
            id = stores().entries().write(transaction, store::RecordId::none, properties);
        });
        return id;
    }

    [[nodiscard]] bool create() { return frame_.create({.left = 0, .top = 0, .width = 480, .height = 600}); }

    FakeWindow window_;
    test::RecordingMessageBox messages_;
    SettingsDevice device_{.osMajorVersion = 5, .personalFolder = u"/home"};
    MainFrame frame_{window_, registry(), messages_, device_};
};

TEST_F(MainFrameTest, IsMadeStepByStep) {
    ASSERT_TRUE(create());
    EXPECT_EQ(window_.log, (Log{"soft keys", "open", "filters", "views 480", "today", "forward"}));
    EXPECT_TRUE(messages_.shown.empty());
    EXPECT_EQ(frame_.captionFont().weight, 700);
    EXPECT_EQ(frame_.captionFont().quality, FontQuality::standard);
    EXPECT_EQ(frame_.listFont().tenthsOfPoint, 80);
}

TEST_F(MainFrameTest, FollowsTheSettings) {
    AppSettings settings = AppSettings::load(registry(), device_);
    settings.styleFlags.set(StyleFlag::softKeyMenus, false);
    settings.fontSize = 3;
    ASSERT_TRUE(settings.save(registry()));
    registry().create(u"Software\\Microsoft\\Shell")->writeDword(u"ClearType", 1);
    ASSERT_TRUE(create());
    EXPECT_EQ(window_.log.front(), "menu bar");
    EXPECT_EQ(frame_.captionFont().quality, FontQuality::clearType);
    EXPECT_EQ(frame_.listFont().tenthsOfPoint, 100);
}

TEST_F(MainFrameTest, IsNotMadeWithoutStores) {
    storeVersion(250);
    const int written = registry().writes;
    window_.stores = nullptr;
    EXPECT_FALSE(create());
    EXPECT_EQ(window_.log, (Log{"soft keys", "open"}));
    ASSERT_EQ(messages_.ids(), Ids{StringId::databaseNotOpened});
    EXPECT_EQ(messages_.shown.front().icon, platform::Icon::stop);
    EXPECT_EQ(messages_.shown.front().buttons, platform::Buttons::ok);
    EXPECT_EQ(registry().writes, written);

    messages_.shown.clear();
    window_.declined = true; // the user knows
    EXPECT_FALSE(create());
    EXPECT_TRUE(messages_.ids().empty());
}

TEST_F(MainFrameTest, AsksToUpgradeOldRecordsOnly) {
    struct Case {
        const char* name;
        std::uint32_t version;
        enum : std::uint8_t { none, today, old } records;
        bool asked;
    };
    const Case cases[] = {
        {"empty store", 260, Case::none, false},   {"records of today", 260, Case::today, false},
        {"old records", 260, Case::old, true},     {"old records of a later version", 261, Case::old, false},
        {"without a version", 0, Case::old, true},
    };
    for (const Case& c : cases) {
        if (c.records == Case::old)
            addOldEntry();
        if (c.records == Case::today)
            addEntry({});
        storeVersion(c.version);
        messages_.shown.clear();
        window_.log.clear();
        messages_.script = {Answer::no};
        ASSERT_TRUE(create());
        EXPECT_EQ(messages_.ids(), c.asked ? Ids{StringId::upgradeRecords} : Ids{}) << c.name;
        EXPECT_EQ(window_.log.back(), "forward");
    }
}

TEST_F(MainFrameTest, UpgradesOnYesOnly) {
    for (const Answer answer : {Answer::no, Answer::yes}) {
        const auto id = addOldEntry();
        storeVersion(250);
        messages_.script = {answer};
        ASSERT_TRUE(create());
        platform::PropertyBuffer properties;
        stores().entries().seek(platform::Seek::toId(id));
        ASSERT_EQ(stores().entries().read(properties), store::ReadResult::ok);
        const bool old = properties.find({1009, platform::ValueType::boolean}) != nullptr;
        EXPECT_EQ(old, answer == Answer::no);
        store::TimeEntry entry;
        readTimeEntry(id, properties, entry);
        EXPECT_EQ(entry.status, store::EntryStatus::billable);
    }
}

TEST_F(MainFrameTest, AsksBeforeClosingOnlyWhenWantedAndTimersRun) {
    struct Case {
        bool askClose;
        unsigned timers;
        std::optional<Answer> answer; // nothing: not asked
        bool closes;
    };
    const Case cases[] = {
        {false, 0, {}, true},         {false, 4, {}, true},         {true, 0, {}, true},
        {true, 1, Answer::yes, true}, {true, 1, Answer::no, false}, {true, 4, Answer::no, false},
    };
    ASSERT_TRUE(create());
    for (const Case& c : cases) {
        frame_.settings().askClose = c.askClose;
        window_.timers = c.timers;
        window_.log.clear();
        messages_.shown.clear();
        messages_.script.clear();
        if (c.answer)
            messages_.script.push_back(*c.answer);
        EXPECT_EQ(frame_.close(), c.closes) << c.askClose << c.timers;
        Log expected;
        if (c.answer)
            expected.emplace_back("forward");
        if (c.closes)
            expected.emplace_back("quit 0");
        EXPECT_EQ(window_.log, expected) << c.askClose << c.timers;
        ASSERT_EQ(messages_.ids(), c.answer ? Ids{StringId::closeWithTimers} : Ids{});
        for (const platform::Message& message : messages_.shown) {
            EXPECT_EQ(message.icon, platform::Icon::question);
            EXPECT_EQ(message.buttons, platform::Buttons::yesNo);
            EXPECT_EQ(message.defaultAnswer, Answer::no);
        }
    }
}

TEST_F(MainFrameTest, SavesTheSettingsWhenItCloses) {
    ASSERT_TRUE(create());
    frame_.settings().minTime = 6;
    frame_.settings().askClose = true;
    window_.timers = 1;
    EXPECT_FALSE(frame_.close());
    EXPECT_EQ(AppSettings::load(registry(), device_).minTime, 15);
    window_.timers = 0;
    EXPECT_TRUE(frame_.close());
    EXPECT_EQ(AppSettings::load(registry(), device_).minTime, 6);
}

TEST_F(MainFrameTest, DoesWhatCommandLinesSayOneAnIdleCall) {
    ASSERT_TRUE(create());
    window_.log.clear();
    EXPECT_FALSE(frame_.onIdle(0));
    EXPECT_TRUE(frame_.use({.newEntry = true, .view = PeriodKind::month, .date = platform::SystemTime{.day = 5}}));
    EXPECT_TRUE(frame_.use({}));
    EXPECT_TRUE(frame_.use({.error = "bad"}));
    EXPECT_TRUE(window_.log.empty());
    EXPECT_TRUE(frame_.onIdle(0));
    EXPECT_EQ(window_.log, (Log{"period 3 5", "new"}));
    EXPECT_TRUE(frame_.onIdle(1));
    EXPECT_TRUE(messages_.shown.empty());
    EXPECT_FALSE(frame_.onIdle(2));
    EXPECT_EQ(messages_.ids(), Ids{StringId::handOverUnreadable});
    EXPECT_EQ(window_.log.size(), 2U);
}

TEST_F(MainFrameTest, RefusesCommandLinesWhenTooManyWaitAndLosesNone) {
    ASSERT_TRUE(create());
    window_.log.clear();
    for (std::size_t i = 0; i < maxWaitingLines; ++i)
        ASSERT_TRUE(frame_.use({.newEntry = true}));
    EXPECT_FALSE(frame_.use({.newEntry = true}));
    frame_.onIdle(0);
    EXPECT_TRUE(frame_.use({.newEntry = true}));
    EXPECT_FALSE(frame_.use({.newEntry = true}));
    while (frame_.onIdle(1)) {
    }
    EXPECT_EQ(window_.log.size(), maxWaitingLines + 1);
}

TEST_F(MainFrameTest, RefusesFilesWithTheReason) {
    ASSERT_TRUE(create());
    const auto folder = file().parent_path();
    struct Case {
        const char* name;
        bool exists;
        StringId message;
    };
    const Case cases[] = {
        {"a.hwd", true, StringId::fileKindNotYet},      {"b.HWA", true, StringId::fileKindNotYet},
        {"c.hwc", true, StringId::fileKindNotYet},      {"d.csv", true, StringId::fileKindUnknown},
        {"hwd", true, StringId::fileKindUnknown},       {"e.hwd", false, StringId::fileNotFound},
        {"missing.csv", false, StringId::fileNotFound},
    };
    for (const Case& c : cases) {
        if (c.exists)
            std::ofstream(folder / c.name) << "x";
        messages_.shown.clear();
        EXPECT_TRUE(frame_.use({.file = folder / c.name}));
        frame_.onIdle(0);
        EXPECT_EQ(messages_.ids(), Ids{c.message}) << c.name;
    }
}

TEST_F(MainFrameTest, OffersKeysToTheAccelerators) {
    EXPECT_TRUE(frame_.preTranslateMessage({EventKind::keyPress, 7}));
    EXPECT_FALSE(frame_.preTranslateMessage({EventKind::keyPress, 8}));
    EXPECT_FALSE(frame_.preTranslateMessage({EventKind::other, 7}));
}

// Idle calls want `calls` more, then nothing.
class RecordingHooks : public MessageHooks {
public:
    bool onIdle(unsigned count) override {
        counts.push_back(count);
        return wanted > 0 && --wanted > 0;
    }
    bool preTranslateMessage(const platform::QueuedEvent& event) override { return event.key == 7; }

    std::vector<unsigned> counts;
    int wanted = 0;
};

// What a queue does while nothing waits.
void runIdle(MessageLoop& loop) {
    while (loop.wantsIdle())
        loop.idle();
}

TEST(MessageLoop, IsIdleUntilNothingIsLeftAndAnewAfterMessages) {
    RecordingHooks hooks;
    MessageLoop loop(hooks);
    hooks.wanted = 3;
    runIdle(loop);
    EXPECT_EQ(hooks.counts, (std::vector<unsigned>{0, 1, 2}));
    struct Case {
        EventKind kind;
        bool idleAgain;
    };
    using enum EventKind;
    for (const Case c :
         {Case{paint, false}, {systemTimer, false}, {mouseMove, false}, {keyPress, true}, {other, true}}) {
        hooks.counts.clear();
        hooks.wanted = 2;
        loop.handled({.kind = c.kind});
        runIdle(loop);
        EXPECT_EQ(hooks.counts, c.idleAgain ? (std::vector<unsigned>{0, 1}) : std::vector<unsigned>{})
            << static_cast<int>(c.kind);
    }
}

TEST(MessageLoop, AMessageBetweenIdleCallsStartsTheCountAgain) {
    RecordingHooks hooks;
    MessageLoop loop(hooks);
    hooks.wanted = 5;
    loop.idle();
    loop.idle();
    loop.handled({.kind = EventKind::paint});
    loop.idle();
    loop.handled({.kind = EventKind::other});
    runIdle(loop);
    EXPECT_EQ(hooks.counts, (std::vector<unsigned>{0, 1, 2, 0, 1}));
    EXPECT_TRUE(loop.preTranslate({.kind = EventKind::other, .key = 7}));
    EXPECT_FALSE(loop.preTranslate({.kind = EventKind::other, .key = 8}));
}

} // namespace
} // namespace hourwright::app
