#include "cli/command_runner.h"

#include "cli/run.h"
#include "platform/posix/posix_files.h"
#include "platform/utf.h"

#include <functional>

namespace hourwright::test {

namespace {

using platform::PlatformError;

// Standard output in a string.
class StringWriter : public platform::FileWriter {
public:
    StringWriter(std::string& out, std::size_t capacity, PlatformError whenFull)
        : out_(out), capacity_(capacity), whenFull_(whenFull) {}

    [[nodiscard]] bool write(std::string_view bytes) override {
        if (bytes.size() > capacity_ - out_.size())
            error_ = whenFull_;
        else
            out_ += bytes;
        return error_ == PlatformError::none;
    }
    [[nodiscard]] bool close() override { return error_ == PlatformError::none; }
    [[nodiscard]] PlatformError error() const override { return error_; }

private:
    std::string& out_;
    std::size_t capacity_;
    PlatformError whenFull_;
    PlatformError error_ = PlatformError::none;
};

// Real files, but for standard output.
class TestFiles : public platform::PosixFiles {
public:
    using MakeOut = std::function<std::unique_ptr<platform::FileWriter>()>;
    explicit TestFiles(MakeOut makeOut) : makeOut_(std::move(makeOut)) {}

    [[nodiscard]] platform::CreatedFile create(const std::filesystem::path& path) override {
        return path == "-" ? platform::CreatedFile{.writer = makeOut_()} : PosixFiles::create(path);
    }

private:
    MakeOut makeOut_;
};

// Shows messages as lines; a question is answered Yes only when that was asked for.
class LineMessageBox : public platform::MessageBox {
public:
    LineMessageBox(std::string& err, bool yes) : err_(err), yes_(yes) {}

    platform::Answer show(const platform::Message& message) override {
        if (message.buttons == platform::Buttons::ok || !yes_)
            err_ += platform::printableUtf8(message.text) + '\n';
        switch (message.buttons) {
        case platform::Buttons::ok: return platform::Answer::ok;
        case platform::Buttons::okCancel: return yes_ ? platform::Answer::ok : platform::Answer::cancel;
        case platform::Buttons::yesNoCancel: return yes_ ? platform::Answer::yes : platform::Answer::cancel;
        case platform::Buttons::yesNo: break;
        }
        return yes_ ? platform::Answer::yes : platform::Answer::no;
    }

private:
    std::string& err_;
    bool yes_;
};

} // namespace

CommandRunner::Result CommandRunner::run(const std::vector<std::string>& words) {
    Result result;
    const PlatformError whenFull = outBroken ? PlatformError::brokenPipe : PlatformError::diskFull;
    TestFiles files([&] { return std::make_unique<StringWriter>(result.out, outCapacity, whenFull); });
    const auto variable = [this](const char* name) -> std::optional<std::string> {
        if (std::string_view(name) == "HOURWRIGHT_HOME")
            return directory_.path().string();
        const auto found = variables.find(name);
        return found != variables.end() ? std::optional(found->second) : std::nullopt;
    };
    cli::Environment environment{
        .files = files,
        .clock = clock,
        .variable = variable,
        .makeMessageBox = [&](bool yes) { return std::make_unique<LineMessageBox>(result.err, yes); },
        .writeError = [&](std::string_view text) { result.err += text; },
    };
    result.exitCode = cli::run(std::vector<std::string_view>(words.begin(), words.end()), environment);
    return result;
}

} // namespace hourwright::test
