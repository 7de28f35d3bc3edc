#include "platform/named_mutex.h"

#include "platform/posix/flock_mutex.h"
#include "support/child_process.h"
#include "support/temporary_directory.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <thread>

namespace hourwright::platform {

namespace {

using namespace std::chrono_literals;
using test::inChild;
using test::Pipe;
using test::succeeded;

constexpr std::string_view mutexName = "Quellmarch.Hourwright.ClientID";

class NamedMutexTest : public testing::Test {
protected:
    [[nodiscard]] std::unique_ptr<NamedMutex> mutex(std::string_view name = mutexName) const {
        return makeNamedMutex(directory_, name);
    }

    // Waits for one byte from the other side of the pipe.
    static bool receive(const Pipe& pipe) {
        char c = 0;
        return read(pipe.output(), &c, 1) == 1;
    }
    static bool send(const Pipe& pipe) { return write(pipe.input(), "x", 1) == 1; }

    test::TemporaryDirectory parent_;
    std::filesystem::path directory_ = parent_ / "locks";
};

TEST_F(NamedMutexTest, MakesItsDirectoryForTheOwnerOnly) {
    const auto one = mutex();
    ASSERT_TRUE(one->lock());
    one->unlock();
    struct stat status {};
    ASSERT_EQ(stat(directory_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U);
}

TEST_F(NamedMutexTest, CannotBeHadWithoutAPlaceForItsFile) {
    EXPECT_FALSE(makeNamedMutex(parent_ / "missing" / "locks", mutexName)->lock());
    std::ofstream(parent_ / "file").put('x');
    EXPECT_FALSE(makeNamedMutex(parent_ / "file", mutexName)->lock());
    EXPECT_FALSE(mutex(std::string(300, 'x'))->lock());
    const auto none = makeNamedMutex(parent_ / "file", mutexName);
    EXPECT_FALSE(NamedMutexLock(*none).held());
}

TEST_F(NamedMutexTest, EveryNameIsAFileOfItsOwnInTheDirectory) {
    const std::string_view names[] = {"a", "A", "..", "/", "../a", "a/b", "a%2Fb", "a b", "\xC3\xA4", ""};
    std::vector<std::unique_ptr<NamedMutex>> held;
    for (const std::string_view name : names) {
        SCOPED_TRACE(name);
        held.push_back(mutex(name));
        EXPECT_TRUE(held.back()->lock());
    }
    const std::filesystem::directory_iterator files(directory_);
    EXPECT_EQ(std::distance(begin(files), end(files)), std::ssize(names));
    EXPECT_FALSE(std::filesystem::exists(parent_ / "a.lock"));
}

TEST_F(NamedMutexTest, ASecondObjectOfTheProcessWaits) {
    const auto first = mutex();
    ASSERT_TRUE(first->lock());
    ASSERT_TRUE(first->lock());
    std::atomic<bool> had = false;
    std::thread other([&] {
        const auto second = mutex();
        had = second->lock();
    });
    std::this_thread::sleep_for(50ms);
    EXPECT_FALSE(had);
    first->unlock();
    std::this_thread::sleep_for(50ms);
    EXPECT_FALSE(had) << "was locked twice and is unlocked once";
    first->unlock();
    other.join();
    EXPECT_TRUE(had);
}

TEST_F(NamedMutexTest, ProcessesTakeTurns) {
    const std::filesystem::path counter = parent_ / "counter";
    std::ofstream(counter) << 0;
    constexpr int rounds = 50;
    const auto count = [&] {
        const auto own = mutex();
        for (int i = 0; i < rounds; ++i) {
            const NamedMutexLock lock(*own);
            int value = 0;
            std::ifstream(counter) >> value;
            std::ofstream(counter) << value + 1;
        }
        return true;
    };
    const pid_t children[] = {inChild(count), inChild(count), inChild(count)};
    for (const pid_t child : children)
        EXPECT_TRUE(succeeded(child));
    int value = 0;
    std::ifstream(counter) >> value;
    EXPECT_EQ(value, 3 * rounds);
}

TEST_F(NamedMutexTest, IsFreeAgainWhenItsHolderIsKilled) {
    Pipe locked;
    const pid_t holder = inChild([&] {
        const auto own = mutex();
        if (!own->lock() || !send(locked))
            return false;
        pause();
        return true;
    });
    ASSERT_TRUE(receive(locked));
    std::atomic<bool> had = false;
    std::thread waiter([&] { had = mutex()->lock(); });
    std::this_thread::sleep_for(50ms);
    EXPECT_FALSE(had);
    kill(holder, SIGKILL);
    EXPECT_FALSE(succeeded(holder));
    waiter.join();
    EXPECT_TRUE(had);
}

TEST_F(NamedMutexTest, GoesOnWaitingAfterASignal) {
    Pipe ready;
    Pipe done;
    const auto first = mutex();
    ASSERT_TRUE(first->lock());
    const pid_t waiter = inChild([&] {
        struct sigaction action {};
        action.sa_handler = [](int) {};
        sigaction(SIGUSR1, &action, nullptr); // without SA_RESTART
        return send(ready) && mutex()->lock() && send(done);
    });
    ASSERT_TRUE(receive(ready));
    for (int i = 0; i < 5; ++i) {
        std::this_thread::sleep_for(20ms);
        kill(waiter, SIGUSR1);
    }
    // The waiter has inherited our open file, and must get the lock nevertheless.
    first->unlock();
    EXPECT_TRUE(receive(done));
    EXPECT_TRUE(succeeded(waiter));
}

} // namespace

} // namespace hourwright::platform
