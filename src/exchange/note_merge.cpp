#include "exchange/note_merge.h"

#include "exchange/rtf_scan.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

namespace hourwright::exchange {

namespace {

// The number behind a word anywhere in a group.
std::optional<std::int32_t> numberOf(std::string_view group, std::string_view word) {
    for (std::size_t at = group.find(word); at != std::string_view::npos; at = group.find(word, at + 1)) {
        const RtfWord found = scanRtfWord(group, at);
        if (found.name == word.substr(1))
            return found.number;
    }
    return std::nullopt;
}

// Word processors keep a picture's size in pixels or that on paper.
bool isPictureOf(std::string_view group, const InkPicture& picture) {
    return (numberOf(group, "\\picw") == picture.pixelWidth && numberOf(group, "\\pich") == picture.pixelHeight) ||
           (numberOf(group, "\\picwgoal") == picture.width && numberOf(group, "\\pichgoal") == picture.height);
}

// What shows nothing in other programs, so that nobody can have deleted it there.
bool isUnseen(const NoteItem& item) {
    if (const auto* drawing = std::get_if<InkDrawing>(&item))
        return !drawing->picture;
    if (const auto* group = std::get_if<ForeignGroup>(&item))
        return group->rtf.starts_with("{\\*\\hw");
    return std::holds_alternative<VoiceClip>(item);
}

// A second form of the picture before it, for old programs, and many times its size.
bool isSpareForm(const NoteItem& item) {
    const auto* group = std::get_if<ForeignGroup>(&item);
    return group != nullptr && group->rtf.starts_with("{\\nonshppict");
}

template<typename Wanted>
std::vector<NoteItem> itemsOf(const NoteDocument& note, Wanted wanted) {
    std::vector<NoteItem> items;
    for (const NoteParagraph& paragraph : note.paragraphs)
        std::ranges::copy_if(paragraph.items, std::back_inserter(items), wanted);
    return items;
}

// Takes away what is still there, as often as it is.
void takeOff(std::vector<NoteItem>& items, const std::vector<NoteItem>& still) {
    for (const NoteItem& item : still)
        if (const auto found = std::ranges::find(items, item); found != items.end())
            items.erase(found);
}

// Neighbours of one format, between which something was taken out, become one run.
void joinRuns(std::vector<NoteItem>& items) {
    std::vector<NoteItem> joined;
    for (NoteItem& item : items) {
        auto* const last = joined.empty() ? nullptr : std::get_if<TextRun>(&joined.back());
        const auto* const run = std::get_if<TextRun>(&item);
        if (last != nullptr && run != nullptr && last->format == run->format)
            last->text += run->text;
        else
            joined.push_back(std::move(item));
    }
    items = std::move(joined);
}

bool hasPicture(const NoteItem& item) {
    const auto* drawing = std::get_if<InkDrawing>(&item);
    return drawing != nullptr && drawing->picture;
}

// Puts the first fitting drawing in the place of a picture of it.
void giveBack(NoteItem& item, std::vector<NoteItem>& drawings) {
    const auto* group = std::get_if<ForeignGroup>(&item);
    if (group == nullptr || group->rtf.find("\\pict") == std::string::npos)
        return;
    const auto found = std::ranges::find_if(drawings, [&](const NoteItem& drawing) {
        return isPictureOf(group->rtf, *std::get<InkDrawing>(drawing).picture);
    });
    if (found == drawings.end())
        return;
    item = std::move(*found);
    drawings.erase(found);
}

} // namespace

NoteDocument withLostObjects(NoteDocument edited, const NoteDocument& before) {
    auto drawings = itemsOf(before, hasPicture);
    takeOff(drawings, itemsOf(edited, hasPicture));
    for (NoteParagraph& paragraph : edited.paragraphs) {
        if (std::erase_if(paragraph.items, isSpareForm) > 0)
            joinRuns(paragraph.items);
        for (NoteItem& item : paragraph.items)
            giveBack(item, drawings);
    }
    auto lost = itemsOf(before, isUnseen);
    takeOff(lost, itemsOf(edited, isUnseen));
    if (lost.empty())
        return edited;
    if (edited.paragraphs.empty())
        edited.paragraphs.emplace_back();
    std::ranges::move(lost, std::back_inserter(edited.paragraphs.back().items));
    return edited;
}

} // namespace hourwright::exchange
