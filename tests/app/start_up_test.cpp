#include "app/start_up.h"

#include <deque>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace hourwright::app {
namespace {

using platform::Claim;
using platform::Delivery;
using platform::InstanceMessage;
using platform::InstanceMessageKind;
using Log = std::vector<std::string>;

class FakeServer : public platform::InstanceServer {
public:
    void setHandler(platform::InstanceHandler /*handler*/) override {}
    [[nodiscard]] int descriptor() const override { return -1; }
    void service() override {}
};

// Claims and deliveries from a script; the last of each stays.
class ScriptedChannel : public platform::InstanceChannel {
public:
    ScriptedChannel(std::deque<Claim> claims, std::deque<Delivery> deliveries)
        : claims_(std::move(claims)), deliveries_(std::move(deliveries)) {}

    [[nodiscard]] platform::ClaimedInstance claim() override {
        const Claim claim = next(claims_);
        return {claim, claim == Claim::first ? std::make_unique<FakeServer>() : nullptr};
    }
    platform::InstanceReply send(const InstanceMessage& message, std::chrono::milliseconds patience) override {
        EXPECT_GT(patience.count(), 0);
        sent.push_back(message);
        return {.delivery = next(deliveries_), .payload = {}};
    }

    std::vector<InstanceMessage> sent;

private:
    template<typename Value>
    static Value next(std::deque<Value>& values) {
        const Value value = values.front();
        if (values.size() > 1)
            values.pop_front();
        return value;
    }

    std::deque<Claim> claims_;
    std::deque<Delivery> deliveries_;
};

class RecordingSteps : public StartUpSteps {
public:
    void waitForOther() override { log.emplace_back("wait"); }
    [[nodiscard]] bool initControls(ControlLibrary library) override {
        log.push_back("controls " + std::to_string(static_cast<int>(library)));
        return library != failing;
    }
    void refusedByOther() override { log.emplace_back("refused"); }
    void initModule() override { log.emplace_back("module"); }
    [[nodiscard]] WorkArea workArea() override { return {{.left = 1, .top = 2, .width = 480, .height = 600}, 192}; }
    [[nodiscard]] bool createFrame(std::u16string_view title, const Rectangle& rectangle,
                                   std::unique_ptr<platform::InstanceServer> server) override {
        EXPECT_EQ(title, u"Hourwright");
        EXPECT_EQ(rectangle, (Rectangle{.left = 1, .top = 2, .width = 480, .height = 548}));
        log.emplace_back(server ? "frame" : "frame alone");
        return frameCreated;
    }
    int runMessageLoop() override {
        log.emplace_back("loop");
        return loopResult;
    }
    void destroyFrame() override { log.emplace_back("destroy"); }
    void terminateModule() override { log.emplace_back("terminate"); }

    Log log;
    std::optional<ControlLibrary> failing;
    bool frameCreated = true;
    int loopResult = 0;
};

TEST(StartUp, TakesEveryWayInOrder) {
    struct Case {
        const char* name;
        Claim claim;
        std::optional<ControlLibrary> failing;
        bool frameCreated;
        int loopResult;
        int code;
        Log log;
    };
    const Case cases[] = {
        {"normal",
         Claim::first,
         {},
         true,
         0,
         0,
         {"controls 0", "controls 1", "controls 2", "module", "frame", "loop", "destroy", "terminate"}},
        {"the loop's result",
         Claim::first,
         {},
         true,
         7,
         7,
         {"controls 0", "controls 1", "controls 2", "module", "frame", "loop", "destroy", "terminate"}},
        {"no frame",
         Claim::first,
         {},
         false,
         0,
         1,
         {"controls 0", "controls 1", "controls 2", "module", "frame", "destroy", "terminate"}},
        {"no display", Claim::first, ControlLibrary::shellExtras, true, 0, 1, {"controls 0"}},
        {"no folder for the channel",
         Claim::unavailable,
         {},
         true,
         0,
         0,
         {"controls 0", "controls 1", "controls 2", "module", "frame alone", "loop", "destroy", "terminate"}},
        {"another copy", Claim::otherRuns, {}, true, 0, 0, {}},
    };
    for (const Case& c : cases) {
        ScriptedChannel channel({c.claim}, {Delivery::answered});
        RecordingSteps steps;
        steps.failing = c.failing;
        steps.frameCreated = c.frameCreated;
        steps.loopResult = c.loopResult;
        EXPECT_EQ(startUp(channel, {}, steps), c.code) << c.name;
        EXPECT_EQ(steps.log, c.log) << c.name;
        EXPECT_EQ(channel.sent.size(), c.claim == Claim::otherRuns ? 1U : 0U) << c.name;
    }
}

TEST(StartUp, HandsOverOnlyWhatThereIs) {
    const InstanceMessage forward{InstanceMessageKind::comeForward, "token"};
    for (const std::u16string line : {u"", u"x.hwd"}) {
        ScriptedChannel channel({Claim::otherRuns}, {Delivery::answered});
        RecordingSteps steps;
        EXPECT_EQ(startUp(channel, {.commandLine = line, .activationToken = "token"}, steps), 0);
        if (line.empty()) {
            EXPECT_EQ(channel.sent, std::vector{forward});
        } else {
            EXPECT_EQ(channel.sent, (std::vector{platform::handOverMessage(line), forward}));
            EXPECT_EQ(channel.sent.front().payload.size(), (line.size() + 1) * 2);
        }
    }
}

TEST(StartUp, SaysThatTheOtherCopyRefused) {
    ScriptedChannel channel({Claim::otherRuns}, {Delivery::refused, Delivery::answered});
    RecordingSteps steps;
    EXPECT_EQ(startUp(channel, {.commandLine = u"x.hwd", .activationToken = {}}, steps), 1);
    EXPECT_EQ(steps.log, Log{"refused"});
}

TEST(StartUp, BearsWithACopyThatIsStartingOrEnding) {
    struct Case {
        const char* name;
        std::deque<Claim> claims;
        std::deque<Delivery> deliveries;
        Claim outcome;
        std::size_t waits;
        std::size_t sent;
    };
    using enum Claim;
    using enum Delivery;
    const Case cases[] = {
        {"not listening yet", {otherRuns}, {nobody, nobody, answered}, otherRuns, 2, 4},
        {"just gone", {otherRuns, first}, {nobody}, first, 1, 1},
        {"gone after the line was taken", {otherRuns}, {answered, nobody}, otherRuns, 0, 2},
        {"busy", {otherRuns}, {unanswered}, otherRuns, 0, 2},
        {"older than this message", {otherRuns}, {refused}, otherRuns, 0, 2},
        {"never listening", {otherRuns}, {nobody}, otherRuns, 60, 60},
    };
    for (const Case& c : cases) {
        ScriptedChannel channel(c.claims, c.deliveries);
        RecordingSteps steps;
        EXPECT_EQ(findRunningInstance(channel, {.commandLine = u"x", .activationToken = {}}, steps).claim, c.outcome)
            << c.name;
        EXPECT_EQ(steps.log.size(), c.waits) << c.name;
        EXPECT_EQ(channel.sent.size(), c.sent) << c.name;
    }
}

} // namespace
} // namespace hourwright::app
