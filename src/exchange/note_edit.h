#pragma once

#include "platform/file_writer.h"
#include "platform/message_box.h"
#include "platform/shell.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

namespace hourwright::exchange {

/// What a note is edited in the word processor with. The folder exists and belongs to the user alone.
struct NoteEditTools {
    platform::Files& files;
    platform::Shell& shell;
    platform::MessageBox& messages;
    std::filesystem::path folder;
    std::uint32_t osMajorVersion = 5;
};

/// Where a note lies while it is edited: "trn", a number of four hexadecimal digits, and ".rtf", before version 5 of
/// the operating system ".psw".
[[nodiscard]] std::filesystem::path noteEditPath(const std::filesystem::path& folder, std::uint32_t osMajorVersion,
                                                 std::uint16_t number);

/// Lets the user edit a note in the word processor and waits until he says that he has finished. Gives the edited
/// bytes; nothing when he cancelled or something failed, which was shown. The file is gone in every case.
[[nodiscard]] std::optional<std::vector<std::byte>> editNote(std::span<const std::byte> blob,
                                                             const NoteEditTools& tools);

} // namespace hourwright::exchange
