#include "cli/command_runner.h"
#include "exchange/timer_messages.h"
#include "platform/posix/unix_instance_channel.h"
#include "platform/posix/user_directories.h"

#include <atomic>
#include <gtest/gtest.h>
#include <poll.h>
#include <thread>

namespace hourwright::test {

namespace {

using exchange::TimerAction;
using exchange::TimerOutcome;
using exchange::TimerReply;
using exchange::TimerRequest;

// A window that gives one prepared answer, and keeps what it was asked last.
class Window {
public:
    explicit Window(const CommandRunner& runner) {
        const auto variable = [](const char*) -> std::optional<std::string> { return std::nullopt; };
        const auto directories = platform::userDirectories(runner.home().string(), variable);
        EXPECT_EQ(platform::makeDirectories(directories), platform::PlatformError::none);
        server_ = platform::makeInstanceChannel(directories.runtime)->claim().server;
        server_->setHandler([this](const platform::InstanceMessage& message) -> std::optional<std::string> {
            const auto request = exchange::unpackTimerRequest(std::as_bytes(std::span(message.payload)));
            if (message.kind != platform::InstanceMessageKind::timerCommand || !request)
                return std::nullopt;
            requests.push_back(*request);
            return answer;
        });
        thread_ = std::thread([this] {
            while (!stop_) {
                pollfd wanted{.fd = server_->descriptor(), .events = POLLIN, .revents = 0};
                if (poll(&wanted, 1, 20) > 0)
                    server_->service();
            }
        });
    }
    ~Window() {
        stop_ = true;
        thread_.join();
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void willSay(const TimerReply& reply) {
        answer.emplace();
        for (const std::byte byte : exchange::packed(reply))
            *answer += static_cast<char>(byte);
    }

    std::optional<std::string> answer;  ///< nothing: not understood
    std::vector<TimerRequest> requests; ///< read between commands only

private:
    std::unique_ptr<platform::InstanceServer> server_;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

platform::FileTime at(std::uint16_t hour, std::uint16_t minute) {
    return platform::toFileTime({.year = 2026, .month = 11, .day = 16, .hour = hour, .minute = minute})
        .value_or(platform::FileTime{});
}

TimerReply oneTimer() {
    TimerReply reply;
    reply.timers.push_back({.slot = 1,
                            .paused = true,
                            .start = at(8, 30),
                            .duration = 3723,
                            .breakTime = 60,
                            .names = {.client = u"Acme", .project = u"Site", .phase = u"Design", .task = u"Work"},
                            .note = u"first\nsecond"});
    return reply;
}

struct Case {
    std::vector<std::string> words;
    TimerReply reply;
    CommandRunner::Result result;
    std::optional<TimerRequest> request; ///< what reaches the window last
};

const TimerReply done;
const TimerReply slotFree{.outcome = TimerOutcome::slotFree};

const std::vector<Case> cases{
    {{"timer", "list"},
     oneTimer(),
     {0,
      "Timer  State   Start                Duration     Break  Client  Project  Phase   Task  Note\n"
      "    2  paused  2026-11-16 08:30:00  01:02:03  00:01:00  Acme    Site     Design  Work  first\n",
      ""},
     TimerRequest{}},
    {{"timer", "list", "--json"},
     oneTimer(),
     {0,
      "[\n{\"timer\":2,\"state\":\"paused\",\"start\":\"2026-11-16 08:30:00\",\"duration_seconds\":3723,"
      "\"break_seconds\":60,\"client\":\"Acme\",\"project\":\"Site\",\"phase\":\"Design\",\"task\":\"Work\","
      "\"note\":\"first\\nsecond\"}\n]\n",
      ""},
     TimerRequest{}},
    {{"timer", "add", "--client", "Acme", "--task", "Work", "--start", "08:30", "--date", "2026-11-16", "--note", "n"},
     oneTimer(),
     {0, "2\n", ""},
     TimerRequest{.action = TimerAction::add,
                  .names = {.client = u"Acme", .project = {}, .phase = {}, .task = u"Work"},
                  .start = at(8, 30),
                  .note = u"n"}},
    {{"timer", "add"},
     {.outcome = TimerOutcome::noFreeSlot},
     {1, "", "All four timers are in use.\n"},
     TimerRequest{.action = TimerAction::add}},
    {{"timer", "pause", "4"}, done, {0, "", ""}, TimerRequest{.action = TimerAction::pause, .slot = 3}},
    {{"timer", "resume", "1"},
     slotFree,
     {1, "", "There is no such timer.\n"},
     TimerRequest{.action = TimerAction::resume}},
    {{"timer", "edit", "2", "--duration", "1:2:3", "--break", "0:0:0", "--note", ""},
     done,
     {0, "", ""},
     TimerRequest{.action = TimerAction::edit, .slot = 1, .duration = 3723, .breakTime = 0, .note = u""}},
    {{"timer", "complete", "1"}, oneTimer(), {0, "", ""}, TimerRequest{.action = TimerAction::complete}},
    {{"timer", "complete", "1", "--save"},
     {.record = 77},
     {0, "77\n", ""},
     TimerRequest{.action = TimerAction::complete, .save = true}},
    {{"timer", "complete", "1", "--save"},
     {.outcome = TimerOutcome::refused, .message = 9270},
     {1, "", "Please enter a name.\n"},
     TimerRequest{.action = TimerAction::complete, .save = true}},
    {{"timer", "complete", "1", "--save"},
     {.outcome = TimerOutcome::refused, .error = 112},
     {1, "", "Error: 112\n"},
     TimerRequest{.action = TimerAction::complete, .save = true}},
    {{"timer", "cancel", "2"}, oneTimer(), {1, "", "Are you sure to cancel the timer?\n"}, TimerRequest{}},
    {{"timer", "cancel", "1", "--yes"}, oneTimer(), {1, "", "There is no such timer.\n"}, TimerRequest{}},
    {{"timer", "cancel", "2", "--yes"},
     oneTimer(),
     {0, "", ""},
     TimerRequest{.action = TimerAction::cancel, .slot = 1}},
};

TEST(TimerCommand, handsOverWhatIsAskedAndPrintsTheAnswer) {
    CommandRunner runner;
    Window window(runner);
    for (const Case& row : cases) {
        window.requests.clear();
        window.willSay(row.reply);
        const auto result = runner.run(row.words);
        const std::string name = row.words[1] + ", " + row.words.back();
        EXPECT_EQ(result.exitCode, row.result.exitCode) << name;
        EXPECT_EQ(result.out, row.result.out) << name;
        EXPECT_EQ(result.err, row.result.err) << name;
        ASSERT_FALSE(window.requests.empty()) << name;
        EXPECT_EQ(window.requests.back(), row.request) << name;
    }
}

TEST(TimerCommand, refusesWhatTheWindowDoesNotUnderstandAndAnswersThatCannotBeRead) {
    CommandRunner runner;
    Window window(runner);
    for (const auto& answer : {std::optional<std::string>(), std::optional<std::string>("nonsense")}) {
        window.answer = answer;
        const auto result = runner.run({"timer", "list", "--json"});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err.find("The running window"), std::string::npos) << result.err;
    }
}

TEST(TimerCommand, takesNoTimeThatIsNone) {
    CommandRunner runner;
    Window window(runner);
    window.willSay(done);
    for (const char* const text : {"", "1", "1:2", "1:2:", "1:2:3:4", "1:-2:3", "1:x:3", "999999999:0:0"})
        EXPECT_EQ(runner.run({"timer", "edit", "1", "--duration", text}).exitCode, 2) << text;
    EXPECT_EQ(runner.run({"timer", "pause", "5"}).exitCode, 2);
    EXPECT_TRUE(window.requests.empty());
}

} // namespace

} // namespace hourwright::test
