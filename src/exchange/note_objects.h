#pragma once

#include "exchange/note_document.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// A drawing read from its group, and whether the next group is its picture.
struct InkGroup {
    InkDrawing drawing;
    bool pictureFollows = false;
};

/// The RTF groups in which drawings and recordings are kept, see docs/note-format.md. Reading gives nothing for a group
/// of a later version, a damaged one and one that this program would write in another way.
[[nodiscard]] std::optional<InkGroup> readInkGroup(std::string_view group);
[[nodiscard]] std::optional<InkPicture> readPictureGroup(std::string_view group);
[[nodiscard]] std::optional<VoiceClip> readVoiceGroup(std::string_view group);

/// Appends the group of a drawing, followed by that of its picture when it has one.
void appendInkGroup(std::string& out, const InkDrawing& drawing);
void appendVoiceGroup(std::string& out, const VoiceClip& clip);

/// The number of bytes that a drawing without its picture is packed into.
[[nodiscard]] std::size_t packedInkSize(const InkDrawing& drawing);

} // namespace hourwright::exchange
