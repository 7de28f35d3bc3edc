#include "platform/posix/file_replacement.h"

#include "support/temporary_directory.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace hourwright::platform {
namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class FileReplacementTest : public testing::Test {
protected:
    void SetUp() override {
        std::ofstream(file_) << "old";
        fs::permissions(file_, fs::perms{0640});
    }
    [[nodiscard]] std::ptrdiff_t filesThere() const {
        return std::distance(fs::directory_iterator(directory_.path()), {});
    }

    test::TemporaryDirectory directory_;
    fs::path file_ = directory_ / "out";
};

TEST_F(FileReplacementTest, TakesTheNameOnlyWhenItIsKept) {
    {
        const FileReplacement given(file_);
        std::ofstream(given.path()) << "half";
        EXPECT_EQ(contents(file_), "old");
    }
    EXPECT_EQ(contents(file_), "old");
    EXPECT_EQ(filesThere(), 1);

    FileReplacement whole(file_);
    std::ofstream(whole.path()) << "new";
    EXPECT_EQ(whole.keep(), PlatformError::none);
    EXPECT_EQ(contents(file_), "new");
    EXPECT_EQ(fs::status(file_).permissions(), fs::perms{0640});
    EXPECT_EQ(filesThere(), 1);
}

TEST_F(FileReplacementTest, ANewFileIsItsOwnersAlone) {
    FileReplacement fresh(directory_ / "fresh");
    EXPECT_FALSE(fs::exists(directory_ / "fresh"));
    EXPECT_EQ(fresh.keep(), PlatformError::none);
    EXPECT_EQ(fs::status(directory_ / "fresh").permissions(), fs::perms{0600});
}

TEST_F(FileReplacementTest, WhatGoesAwayMeanwhileIsAnError) {
    FileReplacement gone(file_);
    fs::remove(gone.path());
    EXPECT_NE(gone.keep(), PlatformError::none);
    EXPECT_EQ(contents(file_), "old");
}

// Links, devices, standard output, and what cannot be made at all are left to the writer.
TEST_F(FileReplacementTest, OtherThingsAreWrittenDirectly) {
    fs::create_symlink("out", directory_ / "link");
    fs::create_hard_link(file_, directory_ / "twin");
    for (const fs::path& path : {directory_ / "link", directory_ / "twin", fs::path("/dev/full"), fs::path("-"),
                                 directory_.path() / "", directory_ / "missing" / "out"}) {
        SCOPED_TRACE(path);
        FileReplacement direct(path);
        EXPECT_EQ(direct.path(), path);
        EXPECT_EQ(direct.error(), PlatformError::none);
        EXPECT_EQ(direct.keep(), PlatformError::none);
    }
    EXPECT_EQ(filesThere(), 3);
}

} // namespace
} // namespace hourwright::platform
