#include "app/drafts/draft_journal.h"
#include "app/timer_recovery.h"
#include "desktop/editor/entry_dialog.h"
#include "desktop/frame_host.h"
#include "platform/posix/unix_instance_channel.h"
#include "platform/qt/qt_event_queue.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "platform/sqlite/sqlite_registry.h"
#include "support/temporary_directory.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace hourwright {
namespace {

using namespace std::chrono_literals;
using platform::Claim;
using platform::Delivery;
using platform::InstanceMessage;
using platform::InstanceMessageKind;
using Words = std::vector<std::string>;

// The toolkit must be there before the first widget and outlive the last.
class ApplicationEnvironment : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(argc_, argv_);
    }
    void TearDown() override { application_.reset(); }

private:
    int argc_ = 1;
    char name_[14] = "programs_test";
    char* argv_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> application_;
};

const auto* const environment = testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

// The environment with these in place of its own settings; "NAME" without a value takes one away.
std::vector<std::string> environmentWith(const Words& changes) {
    std::vector<std::string> result;
    const auto nameOf = [](const std::string& text) { return text.substr(0, text.find('=')); };
    for (char** variable = environ; *variable != nullptr; ++variable)
        if (std::ranges::none_of(changes, [&](const auto& c) { return nameOf(c) == nameOf(*variable); }))
            result.emplace_back(*variable);
    std::ranges::copy_if(changes, std::back_inserter(result),
                         [](const auto& c) { return c.find('=') != std::string::npos; });
    return result;
}

pid_t start(const std::string& program, const Words& words, const Words& changes, const std::string& errors) {
    const auto pointers = [](const std::vector<std::string>& texts) {
        std::vector<char*> result;
        for (const std::string& text : texts)
            result.push_back(const_cast<char*>(text.c_str())); // NOLINT: the call takes it so
        result.push_back(nullptr);
        return result;
    };
    Words arguments{program};
    arguments.insert(arguments.end(), words.begin(), words.end());
    const auto variables = environmentWith(changes);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t child = -1;
    const int result =
        posix_spawn(&child, program.c_str(), &files, nullptr, pointers(arguments).data(), pointers(variables).data());
    posix_spawn_file_actions_destroy(&files);
    return result == 0 ? child : -1;
}

// Exit code once the process has ended; -1 when it runs on after the time, -2 when it was killed.
int exitCode(pid_t child, std::chrono::milliseconds patience = 20s) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > deadline)
            return -1;
        std::this_thread::sleep_for(5ms);
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -2;
}

void end(pid_t child) {
    kill(child, SIGTERM);
    exitCode(child);
}

class WindowProgramsTest : public testing::Test {
protected:
    [[nodiscard]] std::filesystem::path home() const { return directory_.path() / "home"; }
    [[nodiscard]] std::unique_ptr<platform::InstanceChannel> channel() const {
        return platform::makeInstanceChannel(home() / "runtime");
    }

    pid_t hourwright(Words words, const Words& changes = {"QT_QPA_PLATFORM=offscreen"}) {
        words.insert(words.begin(), {"--home", home().string()});
        return start(HOURWRIGHT, words, changes, errors());
    }
    int hwctl(Words words) {
        words.insert(words.begin(), {"--home", home().string()});
        return exitCode(start(HWCTL, words, {}, errors()));
    }
    [[nodiscard]] std::string errors() const { return (directory_.path() / "errors").string(); }
    [[nodiscard]] std::string errorText() const {
        QFile file(QString::fromStdString(errors()));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string("no file");
    }

    // Waits until a window answers.
    [[nodiscard]] bool answers(InstanceMessageKind kind = InstanceMessageKind::comeForward) const {
        for (int i = 0; i < 400; ++i) {
            if (channel()->send({kind, ""}, 5s).delivery == Delivery::answered)
                return true;
            std::this_thread::sleep_for(25ms);
        }
        return false;
    }

    // Takes the messages of one second start, in place of a window.
    std::vector<InstanceMessage> messagesOf(const Words& words) {
        auto claimed = channel()->claim();
        EXPECT_EQ(claimed.claim, Claim::first);
        std::vector<InstanceMessage> messages;
        claimed.server->setHandler([&](const InstanceMessage& message) {
            messages.push_back(message);
            return "";
        });
        const pid_t second = hourwright(words, {"QT_QPA_PLATFORM=offscreen", "XDG_ACTIVATION_TOKEN=token-7"});
        int code = -1;
        for (int i = 0; i < 1000 && code == -1; ++i) {
            pollfd wanted{.fd = claimed.server->descriptor(), .events = POLLIN, .revents = 0};
            if (poll(&wanted, 1, 10) > 0)
                claimed.server->service();
            code = exitCode(second, 0ms);
        }
        EXPECT_EQ(code, 0);
        return messages;
    }

    void SetUp() override { std::filesystem::create_directory(home()); }

private:
    test::TemporaryDirectory directory_;
};

TEST_F(WindowProgramsTest, ASecondStartBringsTheFirstForward) {
    const pid_t first = hourwright({});
    ASSERT_TRUE(answers());
    EXPECT_EQ(exitCode(hourwright({})), 0);
    EXPECT_EQ(exitCode(hourwright({"--view", "month", "--date", "2026-01-05"})), 0);
    EXPECT_EQ(exitCode(first, 0ms), -1); // runs on
    end(first);
}

TEST_F(WindowProgramsTest, ASecondStartHandsOverExactlyItsLine) {
    std::filesystem::create_directory(home() / "runtime");
    const InstanceMessage forward{InstanceMessageKind::comeForward, "token-7"};
    EXPECT_EQ(messagesOf({}), std::vector{forward});
    EXPECT_EQ(messagesOf({"--locale", "de_DE"}), std::vector{forward});
    EXPECT_EQ(messagesOf({"--view=week", "--new-entry"}),
              (std::vector{platform::handOverMessage(u"--new-entry --view week"), forward}));
    const auto ofFile = messagesOf({"/tmp/M\xC3\xBCller 1.hwd"});
    ASSERT_EQ(ofFile.size(), 2U);
    EXPECT_EQ(ofFile.front(), platform::handOverMessage(u"\"/tmp/M\u00fcller 1.hwd\""));
    EXPECT_EQ(ofFile.front().payload.size(), (19U + 1) * 2);
}

TEST_F(WindowProgramsTest, OfManyStartsAtOnceOneStays) {
    std::vector<pid_t> starts;
    for (int i = 0; i < 20; ++i)
        starts.push_back(hourwright({}));
    ASSERT_TRUE(answers());
    std::vector<pid_t> running = starts;
    for (int i = 0; i < 400 && running.size() > 1; ++i) {
        std::erase_if(running, [](pid_t child) {
            const int code = exitCode(child, 0ms);
            EXPECT_TRUE(code == 0 || code == -1) << code;
            return code != -1;
        });
        std::this_thread::sleep_for(50ms);
    }
    std::this_thread::sleep_for(200ms);
    EXPECT_EQ(running.size(), 1U);
    EXPECT_TRUE(answers());
    for (const pid_t child : running)
        end(child);
}

TEST_F(WindowProgramsTest, WithoutADisplayThereIsOneLine) {
    const Words none = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
    const std::vector<Words> cases = {none,
                                      {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY=:65000"},
                                      {"QT_QPA_PLATFORM=nonsense", "DISPLAY", "WAYLAND_DISPLAY"}};
    for (const Words& changes : cases) {
        EXPECT_EQ(exitCode(hourwright({}, changes)), 1);
        const std::string text = errorText();
        EXPECT_TRUE(text.starts_with("hourwright: ")) << text;
        EXPECT_EQ(std::ranges::count(text, '\n'), 1) << text;
    }
    EXPECT_FALSE(exists(home() / "hourwright.db"));
    EXPECT_EQ(exitCode(hourwright({"--help"}, none)), 0);
    EXPECT_EQ(exitCode(hourwright({"--bad"}, none)), 1);
}

// One window in this process, so that its reloading can be seen; the other program is a real one.
class OpenWindowTest : public WindowProgramsTest {
protected:
    void SetUp() override {
        WindowProgramsTest::SetUp();
        open({});
    }

    void open(const app::StartOptions& options) {
        const auto directories = platform::userDirectories(home(), platform::processEnvironment);
        ASSERT_EQ(platform::makeDirectories(directories), platform::PlatformError::none);
        host_.reset();
        host_ = std::make_unique<desktop::FrameHost>(options, directories, queue_, channel()->claim().server);
        ASSERT_TRUE(host_->create({.left = 0, .top = 0, .width = 700, .height = 500}));
        QObject::connect(&host_->window().workspace(), &desktop::Workspace::recordsChanged, [this] { ++reloads_; });
    }

    platform::QtEventQueue queue_;
    std::unique_ptr<desktop::FrameHost> host_;
    int reloads_ = 0;
};

TEST_F(OpenWindowTest, ReloadsAtOnceWhenAnotherProgramWrites) {
    ASSERT_EQ(hwctl({"client", "add", "Acme"}), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return reloads_ == 1; }, 1000)); // sooner than the regular look
    ASSERT_EQ(hwctl({"entry", "add", "--client", "Acme", "--task", "T", "--duration", "1"}), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return reloads_ == 2; }, 1000));
    EXPECT_TRUE(host_->window().workspace().stores().holdRecords());
    ASSERT_EQ(hwctl({"entry", "list"}), 0);
    ASSERT_EQ(hwctl({"settings", "set", "MinTime", "6"}), 0);
    QTest::qWait(200);
    EXPECT_EQ(reloads_, 2); // reading and settings are none
}

// As the end of a session does it, with a timer running: nothing is asked, the next start knows everything.
TEST_F(WindowProgramsTest, EndsInOrderWhenTheSystemSaysSo) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const pid_t window = hourwright({});
        ASSERT_TRUE(answers());
        if (signal == SIGHUP) {
            ASSERT_EQ(hwctl({"timer", "add", "--client", "Acme"}), 0);
        }
        kill(window, signal);
        EXPECT_EQ(exitCode(window), 0) << errorText();
        EXPECT_EQ(hwctl({"registry", "get", "WindowPlace"}), 0) << signal;
        EXPECT_EQ(hwctl({"registry", "delete", "WindowPlace"}), 0);
    }
    const auto directories = platform::userDirectories(home(), platform::processEnvironment);
    const auto journal = platform::openSqliteRegistry(directories.state / "timers.db");
    const auto left = app::TimerJournal(*journal).read().timers;
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left.front().timer.names().client, u"Acme");
}

// Told to end, the program loses nothing of what is being edited: the next one offers it.
TEST_F(OpenWindowTest, OffersWhatWasBeingEditedWhenItHadToEnd) {
    host_->window().commands().run(app::Command::newEntry);
    auto* editor = host_->window().findChild<desktop::EntryDialog*>();
    ASSERT_NE(editor, nullptr);
    editor->findChild<QTextEdit*>()->insertPlainText("The whole morning");
    QTimer::singleShot(0, [] { kill(getpid(), SIGTERM); });
    EXPECT_EQ(QApplication::exec(), 0);
    host_.reset();

    const auto file = platform::userDirectories(home(), platform::processEnvironment).state / "drafts.db";
    struct stat info {};
    ASSERT_EQ(stat(file.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0600U);

    open({});
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [] {
        if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            question->button(QMessageBox::Yes)->click();
    });
    answer.start(20ms);
    ASSERT_TRUE(QTest::qWaitFor([&] {
        editor = host_->window().findChild<desktop::EntryDialog*>();
        return editor != nullptr;
    }));
    EXPECT_EQ(editor->findChild<QTextEdit*>()->toPlainText(), "The whole morning");
    editor->done(QDialog::Rejected);
    const auto journal = platform::openSqliteRegistry(file);
    EXPECT_TRUE(app::DraftJournal(*journal).read().empty());
}

TEST_F(OpenWindowTest, KeepsItsPlaceAndItsSettings) {
    EXPECT_EQ(host_->window().size(), QSize(700, 500));
    host_->window().setGeometry(40, 30, 610, 420);
    host_->frame().settings().minTime = 6;
    EXPECT_TRUE(host_->window().close());
    open({});
    EXPECT_EQ(host_->window().geometry(), QRect(40, 30, 610, 420));
    EXPECT_EQ(host_->frame().settings().minTime, 6);
}

TEST_F(OpenWindowTest, DoesWhatItsOwnLineAndALaterOneSay) {
    open(app::parseStartOptions(Words{"--view", "month", "--date", "2026-01-05"}));
    app::MessageLoop loop(host_->frame());
    loop.idle();
    const auto& view = host_->window().workspace().view();
    EXPECT_EQ(view.kind(), app::PeriodKind::month);
    EXPECT_EQ(view.period().currentDate().month, 1);
    EXPECT_EQ(channel()->send(platform::handOverMessage(u"--view day --date 2025-12-31"), 0ms).delivery,
              Delivery::unanswered);
    QTest::qWait(100);
    loop.handled({});
    loop.idle();
    EXPECT_EQ(view.kind(), app::PeriodKind::day);
    EXPECT_EQ(view.period().currentDate().year, 2025);
}

TEST_F(OpenWindowTest, OwnChangesAreNoNotice) {
    EXPECT_TRUE(host_->window().workspace().change(u"", [&](platform::Transaction& transaction) {
        const std::array properties = {platform::PropertyValue::ofFileTime(1001, platform::FileTime{1})};
        return host_->window().workspace().stores().entries().write(transaction, store::RecordId::none, properties) !=
               store::RecordId::none;
    }));
    EXPECT_EQ(reloads_, 1);
    EXPECT_EQ(channel()->send({InstanceMessageKind::dataChanged, ""}, 0ms).delivery, Delivery::unanswered);
    QTest::qWait(300);
    EXPECT_EQ(reloads_, 1);
}

TEST_F(OpenWindowTest, OutlivesAWipeByAnotherProgram) {
    ASSERT_EQ(hwctl({"entry", "add", "--client", "A", "--task", "T", "--duration", "1"}), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return reloads_ == 1; }, 1000));
    ASSERT_EQ(hwctl({"wipe", "all", "--yes"}), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return reloads_ == 2; }, 1000));
    EXPECT_FALSE(host_->window().workspace().stores().holdRecords());
    ASSERT_EQ(hwctl({"entry", "add", "--client", "A", "--task", "T", "--duration", "1"}), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return reloads_ == 3; }, 1000));
    EXPECT_TRUE(host_->window().workspace().stores().holdRecords());
}

TEST_F(OpenWindowTest, SeesWritersThatSayNothing) {
    const auto other = platform::openSqliteObjectStore(home() / "hourwright.db");
    ASSERT_TRUE(other.store);
    const auto transaction = other.store->begin();
    ASSERT_NE(other.store->createDatabase(
                  *transaction,
                  {.name = u"other", .type = 1, .sortProperty = {1001, platform::ValueType::fileTime}, .legend = {}}),
              platform::ObjectId::none)
        << platform::number(other.store->lastError());
    ASSERT_TRUE(transaction->commit());
    EXPECT_TRUE(QTest::qWaitFor([&] { return reloads_ == 1; }, 8000));
}

} // namespace
} // namespace hourwright
