#include "exchange/note_edit.h"

#include "exchange/note_document.h"

#include <array>
#include <fstream>
#include <random>
#include <string>

namespace hourwright::exchange {

namespace {

namespace fs = std::filesystem;
using resources::StringId;

constexpr std::uint32_t firstWithRichText = 5;
// Far more than a note may hold, so that a mistaken huge file does not fill the memory.
constexpr std::uintmax_t readLimit = std::uintmax_t{64} << 20;

// The file for the time that it is needed.
class TemporaryFile {
public:
    explicit TemporaryFile(fs::path path) : path_(std::move(path)) { remove(); }
    ~TemporaryFile() { remove(); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const fs::path& path() const { return path_; }

private:
    void remove() const {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }

    fs::path path_;
};

platform::PlatformError writeFile(const fs::path& path, std::span<const std::byte> bytes, platform::Files& files) {
    const auto created = files.create(path);
    if (created.writer == nullptr)
        return created.error;
    const bool written = created.writer->write({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    return created.writer->close() && written ? platform::PlatformError::none : created.writer->error();
}

// An empty file is no note: a word processor writes more even for an empty text.
std::optional<std::vector<std::byte>> readBack(const fs::path& path) {
    std::error_code error;
    const auto size = fs::file_size(path, error);
    if (error || size == 0 || size > readLimit)
        return std::nullopt;
    std::vector<std::byte> bytes(static_cast<std::size_t>(size));
    std::ifstream file(path, std::ios::binary);
    if (!file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size)))
        return std::nullopt;
    if (!readNote(bytes))
        return std::nullopt;
    return bytes;
}

std::uint16_t anyNumber() {
    return static_cast<std::uint16_t>(std::random_device()());
}

} // namespace

fs::path noteEditPath(const fs::path& folder, std::uint32_t osMajorVersion, std::uint16_t number) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string name = "trn";
    for (int shift = 12; shift >= 0; shift -= 4)
        name.push_back(digits[(std::uint32_t{number} >> shift) & 0xFU]);
    return folder / (name + (osMajorVersion >= firstWithRichText ? ".rtf" : ".psw"));
}

std::optional<std::vector<std::byte>> editNote(std::span<const std::byte> blob, const NoteEditTools& tools) {
    const TemporaryFile file(noteEditPath(tools.folder, tools.osMajorVersion, anyNumber()));
    const auto note = readNote(blob);
    if (!note)
        return std::nullopt;
    const auto error = writeFile(file.path(), writeNote(*note), tools.files);
    if (error != platform::PlatformError::none) {
        tools.messages.showError(platform::number(error));
        return std::nullopt;
    }
    if (!tools.shell.open(file.path())) {
        tools.messages.showFailure(StringId::noteNotOpened);
        return std::nullopt;
    }
    const platform::Message prompt{.id = StringId::editNotePrompt,
                                   .text = std::u16string(resources::string(StringId::editNotePrompt)),
                                   .icon = platform::Icon::information,
                                   .buttons = platform::Buttons::okCancel,
                                   .defaultAnswer = platform::Answer::ok};
    if (tools.messages.show(prompt) != platform::Answer::ok)
        return std::nullopt;
    auto edited = readBack(file.path());
    if (!edited)
        tools.messages.showFailure(StringId::noteNotReadBack);
    return edited;
}

} // namespace hourwright::exchange
