#include "platform/posix/unix_instance_channel.h"

#include "support/child_process.h"
#include "support/temporary_directory.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <future>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <vector>

namespace hourwright::platform {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using test::inChild;
using test::Pipe;
using test::succeeded;
using Kind = InstanceMessageKind;

constexpr uid_t nobodyElse = 65534;

// Serves on a thread of its own as a window does, woken by the descriptor alone.
class Serving {
public:
    explicit Serving(std::unique_ptr<InstanceServer> server, InstanceHandler handler) : server_(std::move(server)) {
        server_->setHandler(std::move(handler));
        thread_ = std::thread([this] {
            while (!stop_) {
                pollfd wanted{.fd = server_->descriptor(), .events = POLLIN, .revents = 0};
                if (poll(&wanted, 1, 20) > 0) {
                    ++wakeUps_;
                    server_->service();
                }
            }
        });
    }
    ~Serving() {
        stop_ = true;
        thread_.join();
    }
    Serving(const Serving&) = delete;
    Serving& operator=(const Serving&) = delete;

    [[nodiscard]] int wakeUps() const { return wakeUps_; }

private:
    std::unique_ptr<InstanceServer> server_;
    std::atomic<bool> stop_ = false;
    std::atomic<int> wakeUps_ = 0;
    std::thread thread_;
};

class InstanceChannelTest : public testing::Test {
protected:
    [[nodiscard]] std::filesystem::path folder() const { return directory_ / "run"; }
    [[nodiscard]] std::filesystem::path socketFile() const { return folder() / "instance.sock"; }
    [[nodiscard]] std::unique_ptr<InstanceChannel> channel() const { return makeInstanceChannel(folder()); }

    [[nodiscard]] std::unique_ptr<InstanceServer> first() const {
        auto claimed = channel()->claim();
        EXPECT_EQ(claimed.claim, Claim::first);
        return std::move(claimed.server);
    }

    // Answers timer commands with the payload twice, keeps the rest.
    [[nodiscard]] InstanceHandler handler() {
        return [this](const InstanceMessage& message) -> std::optional<std::string> {
            received_.push_back(message);
            if (message.kind == Kind::timerCommand)
                return message.payload + message.payload;
            return message.kind == Kind::dataChanged ? std::optional<std::string>("") : std::nullopt;
        };
    }

    // A connection that says what it likes.
    [[nodiscard]] int rawConnection() const {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        socketFile().string().copy(address.sun_path, sizeof address.sun_path - 1);
        const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (connect(file, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) // NOLINT
            return file;
        close(file);
        return -1;
    }

    // True when the other end closes without a word within the time.
    static bool isClosed(int file, int milliseconds) {
        pollfd wanted{.fd = file, .events = POLLIN, .revents = 0};
        char byte = 0;
        return poll(&wanted, 1, milliseconds) == 1 && recv(file, &byte, 1, 0) <= 0;
    }

    std::vector<InstanceMessage> received_;

private:
    test::TemporaryDirectory directory_;
};

TEST_F(InstanceChannelTest, OneIsFirstAsLongAsItLives) {
    auto server = first();
    EXPECT_EQ(channel()->claim().claim, Claim::otherRuns);
    server.reset();
    server = first();
    EXPECT_TRUE(server);
}

TEST_F(InstanceChannelTest, KeepsOthersOut) {
    const auto server = first();
    struct stat status {};
    ASSERT_EQ(stat(folder().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U);
    ASSERT_EQ(stat(socketFile().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(InstanceChannelTest, AnswersAnyLengthAndSaysWhatItDoesNotKnow) {
    const Serving serving(first(), handler());
    const std::string large(maxInstancePayload / 2, 'x');
    const auto sender = channel();
    EXPECT_EQ(sender->send({Kind::timerCommand, "ab\0"s}, 5s).payload, "ab\0ab\0"s);
    EXPECT_EQ(sender->send({Kind::timerCommand, large}, 5s).payload, large + large);
    EXPECT_EQ(sender->send({Kind::timerCommand, large + "xx"}, 5s).delivery, Delivery::refused); // the reply's length
    EXPECT_EQ(sender->send({Kind::timerCommand, large + large + "x"}, 5s).delivery, Delivery::refused);
    EXPECT_EQ(sender->send({static_cast<Kind>(99), ""}, 5s).delivery, Delivery::refused);
    EXPECT_EQ(sender->send({Kind::dataChanged, ""}, 5s).delivery, Delivery::answered);
}

TEST_F(InstanceChannelTest, TakesMessagesOfSendersThatDoNotWait) {
    auto server = first();
    const auto sender = channel();
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(sender->send({Kind::dataChanged, ""}, 0ms).delivery, Delivery::unanswered);
    EXPECT_EQ(sender->send(handOverMessage(u"x"), 50ms).delivery, Delivery::unanswered);
    server->setHandler(handler());
    server->service();
    EXPECT_EQ(received_.size(), 4U);
    EXPECT_EQ(received_.back(), handOverMessage(u"x"));
}

TEST_F(InstanceChannelTest, FindsNobody) {
    const auto sender = channel();
    EXPECT_EQ(sender->send({Kind::dataChanged, ""}, 5s).delivery, Delivery::nobody);
    EXPECT_FALSE(exists(folder()));
    static_cast<void>(first()); // came and went
    EXPECT_EQ(sender->send({Kind::dataChanged, ""}, 5s).delivery, Delivery::nobody);
    std::ofstream(socketFile()) << "no socket";
    EXPECT_EQ(sender->send({Kind::dataChanged, ""}, 5s).delivery, Delivery::nobody);
}

TEST_F(InstanceChannelTest, GoesOnAfterACrash) {
    Pipe ready;
    const pid_t child = inChild([&] {
        const auto server = first();
        const bool told = write(ready.input(), "!", 1) == 1;
        pause();
        return told;
    });
    char byte = 0;
    ASSERT_EQ(read(ready.output(), &byte, 1), 1);
    EXPECT_EQ(channel()->claim().claim, Claim::otherRuns);
    kill(child, SIGKILL);
    EXPECT_FALSE(succeeded(child));
    ASSERT_TRUE(exists(socketFile()));
    EXPECT_EQ(channel()->send({Kind::dataChanged, ""}, 5s).delivery, Delivery::nobody);
    const Serving serving(first(), handler());
    EXPECT_EQ(channel()->send({Kind::dataChanged, ""}, 5s).delivery, Delivery::answered);
}

TEST_F(InstanceChannelTest, BadSendersHurtNobody) {
    const Serving serving(first(), handler());
    const int garbage = rawConnection();
    ASSERT_EQ(write(garbage, "hello\n", 6), 6);
    EXPECT_TRUE(isClosed(garbage, 1000));
    const int hasty = rawConnection();
    ASSERT_EQ(write(hasty, "HWi1\1\2\0\0\0a", 10), 10);
    close(hasty);
    const int slow = rawConnection();
    ASSERT_EQ(write(slow, "HWi1", 4), 4);
    EXPECT_EQ(channel()->send({Kind::dataChanged, ""}, 1s).delivery, Delivery::answered);
    EXPECT_FALSE(isClosed(slow, 500));
    EXPECT_TRUE(isClosed(slow, 3000));
    EXPECT_EQ(received_.size(), 1U);
    EXPECT_LT(serving.wakeUps(), 40); // waits, does not spin
    close(garbage);
    close(slow);
}

TEST_F(InstanceChannelTest, ManySilentSendersKeepNobodyOut) {
    const Serving serving(first(), handler());
    std::vector<int> silent;
    for (int i = 0; i < 200; ++i)
        silent.push_back(rawConnection());
    EXPECT_EQ(channel()->send({Kind::dataChanged, ""}, 1s).delivery, Delivery::answered);
    for (const int file : silent)
        close(file);
}

// As many as the system lets wait.
TEST_F(InstanceChannelTest, ACrowdOfCompleteMessagesIsHeardToTheLast) {
    const auto server = first();
    server->setHandler(handler());
    std::vector<int> crowd;
    for (int i = 0; i < 65; ++i) {
        crowd.push_back(rawConnection());
        ASSERT_EQ(write(crowd.back(), "HWi1\3\0\0\0\0", 9), 9);
    }
    for (int i = 0; i < 10; ++i)
        server->service();
    EXPECT_EQ(received_.size(), 65U);
    for (const int file : crowd)
        close(file);
}

TEST_F(InstanceChannelTest, WaitsForRoomInACrowd) {
    auto server = first();
    std::vector<int> crowd;
    for (int i = 0; i < 65; ++i)
        crowd.push_back(rawConnection());
    EXPECT_EQ(channel()->send({Kind::dataChanged, ""}, 30ms).delivery, Delivery::unanswered);
    auto reply = std::async(std::launch::async, [&] { return channel()->send({Kind::dataChanged, ""}, 5s).delivery; });
    std::this_thread::sleep_for(50ms);
    const Serving serving(std::move(server), handler());
    EXPECT_EQ(reply.get(), Delivery::answered);
    for (const int file : crowd)
        close(file);
}

TEST_F(InstanceChannelTest, OfManyAtOnceOneIsFirst) {
    Pipe go;
    Pipe results;
    std::vector<pid_t> children;
    for (int i = 0; i < 20; ++i)
        children.push_back(inChild([&] {
            char byte = 0;
            go.closeInput();
            const bool started = read(go.output(), &byte, 1) == 0;
            const auto claimed = channel()->claim();
            const char result = claimed.claim == Claim::first ? 'f' : claimed.claim == Claim::otherRuns ? 'o' : 'x';
            const bool told = write(results.input(), &result, 1) == 1;
            std::this_thread::sleep_for(300ms);
            return started && told;
        }));
    go.closeInput();
    for (const pid_t child : children)
        EXPECT_TRUE(succeeded(child));
    results.closeInput();
    std::string all(32, ' ');
    all.resize(static_cast<std::size_t>(read(results.output(), all.data(), all.size())));
    EXPECT_EQ(std::ranges::count(all, 'f'), 1) << all;
    EXPECT_EQ(std::ranges::count(all, 'o'), 19) << all;
}

TEST_F(InstanceChannelTest, ListensToItsOwnUserOnly) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be somebody else";
    const Serving serving(first(), handler());
    chmod(folder().parent_path().c_str(), 0777);
    chmod(folder().c_str(), 0777);
    chmod(socketFile().c_str(), 0777);
    EXPECT_TRUE(succeeded(inChild([&] {
        if (seteuid(nobodyElse) != 0)
            return false;
        // The server may have hung up already.
        std::signal(SIGPIPE, SIG_IGN);
        const int file = rawConnection();
        static_cast<void>(write(file, "HWi1\3\0\0\0\0", 9) == 9);
        return file >= 0 && isClosed(file, 1000);
    })));
    EXPECT_TRUE(received_.empty());
}

TEST_F(InstanceChannelTest, TalksToItsOwnUserOnly) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be somebody else";
    ASSERT_EQ(mkdir(folder().c_str(), 0700), 0);
    Pipe ready;
    const pid_t spy = inChild([&] {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        socketFile().string().copy(address.sun_path, sizeof address.sun_path - 1);
        const int file = socket(AF_UNIX, SOCK_STREAM, 0);
        const bool bound = bind(file, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0; // NOLINT
        if (!bound || seteuid(nobodyElse) != 0 || listen(file, 1) != 0 || write(ready.input(), "!", 1) != 1)
            return false;
        const int connection = accept(file, nullptr, nullptr);
        char byte = 0;
        return recv(connection, &byte, 1, 0) == 0; // closed without a word
    });
    char byte = 0;
    ASSERT_EQ(read(ready.output(), &byte, 1), 1);
    EXPECT_EQ(channel()->send({Kind::comeForward, "secret"}, 1s).delivery, Delivery::nobody);
    EXPECT_TRUE(succeeded(spy));
    ASSERT_EQ(chown(folder().c_str(), nobodyElse, nobodyElse), 0);
    EXPECT_EQ(channel()->claim().claim, Claim::unavailable);
}

TEST_F(InstanceChannelTest, TheFolderMayLieDeep) {
    std::filesystem::path deep = folder();
    for (int i = 0; i < 10; ++i)
        deep /= std::string(30, 'd');
    create_directories(deep);
    const auto channel = makeInstanceChannel(deep);
    auto claimed = channel->claim();
    ASSERT_EQ(claimed.claim, Claim::first);
    const Serving serving(std::move(claimed.server), handler());
    EXPECT_EQ(channel->send({Kind::dataChanged, ""}, 1s).delivery, Delivery::answered);
}

TEST_F(InstanceChannelTest, WithoutAFolderThereIsNoChannel) {
    const auto channel = makeInstanceChannel(folder() / "missing" / "run");
    EXPECT_EQ(channel->claim().claim, Claim::unavailable);
    EXPECT_EQ(channel->send({Kind::dataChanged, ""}, 1s).delivery, Delivery::nobody);
    EXPECT_EQ(makeInstanceChannel({})->claim().claim, Claim::unavailable);
}

} // namespace
} // namespace hourwright::platform
