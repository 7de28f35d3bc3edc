#include "exchange/timer_messages.h"

#include <gtest/gtest.h>

namespace hourwright::exchange {

namespace {

const TimerRequest fullRequest{.action = TimerAction::edit,
                               .slot = 3,
                               .names = {u"Acme", u"大阪", u"Phase", u"Task"},
                               .start = platform::FileTime{134'000'000'000'000'000},
                               .duration = 2'147'483'647,
                               .breakTime = 0,
                               .note = u"",
                               .save = true};

const TimerReply fullReply{.outcome = TimerOutcome::refused,
                           .message = 9001,
                           .error = 112,
                           .record = 4'000'000'000,
                           .timers = {{.slot = 1,
                                       .paused = true,
                                       .start = {1},
                                       .duration = 5,
                                       .breakTime = 6,
                                       .names = {u"a", u"b", u"c", u"d"},
                                       .note = u"n"},
                                      {.slot = 2}}};

TEST(TimerMessages, ComeBackAsTheyWere) {
    EXPECT_EQ(unpackTimerRequest(packed(fullRequest)), fullRequest);
    EXPECT_EQ(unpackTimerRequest(packed(TimerRequest{})), TimerRequest{});
    EXPECT_EQ(unpackTimerReply(packed(fullReply)), fullReply);
    EXPECT_EQ(unpackTimerReply(packed(TimerReply{})), TimerReply{});
}

// A byte more or less, or one that stands for a value beyond its range, makes it no message.
TEST(TimerMessages, AreRefusedWhenDamaged) {
    auto request = packed(fullRequest);
    for (std::size_t size = 0; size < request.size(); ++size)
        EXPECT_FALSE(unpackTimerRequest(std::span(request).first(size))) << size;
    request.push_back(std::byte{0});
    EXPECT_FALSE(unpackTimerRequest(request));
    auto reply = packed(fullReply);
    for (std::size_t size = 0; size < reply.size(); ++size)
        EXPECT_FALSE(unpackTimerReply(std::span(reply).first(size))) << size;
    auto action = packed(TimerRequest{});
    action[0] = std::byte{7};
    EXPECT_FALSE(unpackTimerRequest(action));
    auto slot = packed(TimerRequest{});
    slot[1] = std::byte{4};
    EXPECT_FALSE(unpackTimerRequest(slot));
    auto startWithoutFlag = packed(TimerRequest{});
    startWithoutFlag[7] = std::byte{1};
    EXPECT_FALSE(unpackTimerRequest(startWithoutFlag));
}

} // namespace

} // namespace hourwright::exchange
