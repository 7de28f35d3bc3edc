#include "platform/file_writer.h"

#include "platform/posix/posix_files.h"
#include "support/child_process.h"
#include "support/temporary_directory.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>

namespace hourwright::platform {

namespace {

using test::inChild;
using test::Pipe;
using test::succeeded;

std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

mode_t permissions(const std::filesystem::path& file) {
    struct stat status {};
    return stat(file.c_str(), &status) == 0 ? status.st_mode & 0777U : 0U;
}

// Lets standard output of this process be another file.
bool redirectOutput(int file) {
    return dup2(file, STDOUT_FILENO) == STDOUT_FILENO;
}

class FileWriterTest : public testing::Test {
protected:
    test::TemporaryDirectory directory_;
    PosixFiles files_;
};

TEST_F(FileWriterTest, WritesEveryByteInPiecesOfAnySize) {
    for (const std::size_t size : {0U, 1U, 1000U, 131'071U, 131'072U, 131'073U, 1'000'000U}) {
        SCOPED_TRACE(size);
        std::string expected;
        const auto created = files_.create(directory_ / "out");
        ASSERT_TRUE(created.writer);
        for (char c = 'a'; c < 'e'; ++c) {
            const std::string piece = std::string(size, c) + '\0' + "\r\n";
            EXPECT_TRUE(created.writer->write(piece));
            expected += piece;
        }
        EXPECT_TRUE(created.writer->close());
        EXPECT_EQ(created.writer->error(), PlatformError::none);
        EXPECT_TRUE(contents(directory_ / "out") == expected);
    }
}

TEST_F(FileWriterTest, GathersSmallPieces) {
    const auto created = files_.create(directory_ / "out");
    for (int i = 0; i < 6000; ++i)
        ASSERT_TRUE(created.writer->write("0123456789"));
    EXPECT_EQ(std::filesystem::file_size(directory_ / "out"), 0U);
    EXPECT_TRUE(created.writer->close());
    EXPECT_EQ(std::filesystem::file_size(directory_ / "out"), 60'000U);
}

TEST_F(FileWriterTest, EmptiesAnExistingFileAndKeepsItsPermissions) {
    const auto file = directory_ / "out";
    std::ofstream(file) << "long old contents";
    std::filesystem::permissions(file, std::filesystem::perms{0640});
    const auto created = files_.create(file);
    EXPECT_TRUE(created.writer->write("new"));
    EXPECT_TRUE(created.writer->close());
    EXPECT_EQ(contents(file), "new");
    EXPECT_EQ(permissions(file), 0640U);

    EXPECT_TRUE(files_.create(directory_ / "fresh").writer->close());
    EXPECT_EQ(permissions(directory_ / "fresh"), 0600U);
}

TEST_F(FileWriterTest, SaysWhyAFileCannotBeCreated) {
    std::ofstream(directory_ / "file").put('x');
    std::filesystem::create_symlink("loop", directory_ / "loop");
    struct Case {
        const char* what;
        std::filesystem::path path;
        PlatformError expected;
    };
    const Case cases[] = {
        {"no folder", directory_ / "missing/out", PlatformError::pathNotFound},
        {"a file for a folder", directory_ / "file/out", PlatformError::pathNotFound},
        {"a folder", directory_.path(), PlatformError::accessDenied},
        {"no name", "", PlatformError::pathNotFound},
        {"a link to itself", directory_ / "loop", PlatformError::pathNotFound},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto created = files_.create(c.path);
        EXPECT_FALSE(created.writer);
        EXPECT_EQ(number(created.error), number(c.expected));
    }
}

TEST_F(FileWriterTest, AFullDiskFailsAtTheLatestWhenClosing) {
    const auto small = files_.create("/dev/full");
    ASSERT_TRUE(small.writer);
    EXPECT_TRUE(small.writer->write("small"));
    EXPECT_FALSE(small.writer->close());
    EXPECT_EQ(small.writer->error(), PlatformError::diskFull);

    const auto large = files_.create("/dev/full");
    EXPECT_FALSE(large.writer->write(std::string(200'000, 'x')));
    EXPECT_EQ(large.writer->error(), PlatformError::diskFull);
    EXPECT_FALSE(large.writer->write("x"));
    EXPECT_FALSE(large.writer->close());
    EXPECT_EQ(large.writer->error(), PlatformError::diskFull);
}

TEST_F(FileWriterTest, AFileThatIsClosedTakesNoMore) {
    const auto created = files_.create(directory_ / "out");
    EXPECT_TRUE(created.writer->close());
    EXPECT_FALSE(created.writer->write("x"));
    EXPECT_FALSE(created.writer->close());
    EXPECT_EQ(created.writer->error(), PlatformError::invalidHandle);
}

TEST_F(FileWriterTest, TakesBackWhatAFileHolds) {
    struct Case {
        std::size_t written;
        std::uint64_t count;
        const char* expected; // of the first 4 bytes
        std::size_t size;
    };
    const Case cases[] = {
        {0, 0, "+", 1}, {3, 0, "xxx+", 4}, {3, 2, "x+", 2}, {3, 3, "+", 1}, {300'000, 299'998, "xx+", 3}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.written);
        const auto created = files_.create(directory_ / "out");
        EXPECT_TRUE(created.writer->canTakeBack());
        EXPECT_TRUE(created.writer->write(std::string(c.written, 'x')));
        EXPECT_TRUE(created.writer->takeBack(c.count));
        EXPECT_TRUE(created.writer->write("+"));
        EXPECT_TRUE(created.writer->close());
        EXPECT_EQ(contents(directory_ / "out").substr(0, 4), c.expected);
        EXPECT_EQ(contents(directory_ / "out").size(), c.size);
    }
}

TEST_F(FileWriterTest, TakesBackNothingElse) {
    const auto more = files_.create(directory_ / "out");
    EXPECT_TRUE(more.writer->write("xx"));
    EXPECT_FALSE(more.writer->takeBack(3));
    EXPECT_EQ(more.writer->error(), PlatformError::invalidParameter);

    const auto closed = files_.create(directory_ / "out");
    EXPECT_TRUE(closed.writer->close());
    EXPECT_FALSE(closed.writer->canTakeBack());
    EXPECT_FALSE(closed.writer->takeBack(0));

    EXPECT_FALSE(files_.create("-").writer->canTakeBack());
    const auto device = files_.create("/dev/null");
    EXPECT_FALSE(device.writer->canTakeBack());
    EXPECT_TRUE(device.writer->write("xx"));
    EXPECT_FALSE(device.writer->takeBack(1));
}

TEST_F(FileWriterTest, StandardOutputStaysOpen) {
    const auto file = directory_ / "stdout";
    EXPECT_TRUE(succeeded(inChild([&] {
        redirectOutput(open(file.c_str(), O_WRONLY | O_CREAT, 0600));
        for (const char* text : {"one\n", "two\n"}) {
            const auto created = files_.create("-");
            if (!created.writer->write(text) || !created.writer->close())
                return false;
        }
        return true;
    })));
    EXPECT_EQ(contents(file), "one\ntwo\n");

    EXPECT_TRUE(succeeded(inChild([&] {
        redirectOutput(open("/dev/full", O_WRONLY));
        const auto created = files_.create("-");
        return created.writer->write("x") && !created.writer->close() &&
               created.writer->error() == PlatformError::diskFull;
    })));
}

TEST_F(FileWriterTest, AClosedPipeIsAnErrorAndNoEnd) {
    Pipe pipe;
    pipe.closeOutput();
    EXPECT_TRUE(succeeded(inChild([&] {
        signal(SIGPIPE, SIG_DFL);
        redirectOutput(pipe.input());
        const auto created = files_.create("-");
        if (!created.writer->write("x") || created.writer->close() || created.writer->error() == PlatformError::none)
            return false;
        sigset_t pending;
        return sigpending(&pending) == 0 && sigismember(&pending, SIGPIPE) == 0;
    })));
    const pid_t child = inChild([&] {
        signal(SIGPIPE, SIG_DFL);
        redirectOutput(pipe.input());
        static_cast<void>(files_.create("-").writer->close());
        raise(SIGPIPE); // the process's own way with the signal is left as it was
        return true;
    });
    EXPECT_FALSE(succeeded(child));
}

TEST_F(FileWriterTest, ASlowReaderThatDoesNotBlockGetsEverything) {
    Pipe pipe;
    const std::string expected(500'000, 'x');
    const pid_t writer = inChild([&] {
        pipe.closeOutput();
        fcntl(pipe.input(), F_SETFL, O_NONBLOCK);
        redirectOutput(pipe.input());
        const auto created = files_.create("-");
        return created.writer->write(expected) && created.writer->close();
    });
    pipe.closeInput();
    std::string received;
    char buffer[3000];
    for (ssize_t got = 1; got > 0;) {
        got = read(pipe.output(), buffer, sizeof buffer);
        received.append(buffer, static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    }
    EXPECT_TRUE(succeeded(writer));
    EXPECT_TRUE(received == expected) << received.size();
}

} // namespace

} // namespace hourwright::platform
