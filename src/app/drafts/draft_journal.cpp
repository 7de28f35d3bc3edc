#include "app/drafts/draft_journal.h"

#include "app/drafts/draft_bytes.h"
#include "platform/number_text.h"

#include <cstring>

namespace hourwright::app {

namespace {

constexpr std::u16string_view journalKey = u"Software\\Hourwright\\Drafts";

std::u16string valueName(std::size_t place) {
    std::u16string name = u"Draft";
    platform::appendInteger(name, static_cast<std::int64_t>(place));
    return name;
}

// A draft behind the time at which it was written.
std::optional<KeptDraft> readDraft(const platform::RegistryKey& key, std::size_t place) {
    const auto value = key.query(valueName(place));
    KeptDraft draft{.place = place};
    if (!value || value->type != platform::RegistryType::binary || value->data.size() < sizeof draft.written.ticks)
        return std::nullopt;
    std::memcpy(&draft.written.ticks, value->data.data(), sizeof draft.written.ticks);
    auto record = draftFromBytes(std::span(value->data).subspan(sizeof draft.written.ticks));
    if (!record)
        return std::nullopt;
    draft.record = std::move(*record);
    return draft;
}

} // namespace

bool DraftJournal::write(std::size_t place, const KeptRecord& record, platform::FileTime now) {
    const auto time = std::as_bytes(std::span(&now.ticks, 1));
    std::vector<std::byte> data(time.begin(), time.end());
    const auto bytes = draftBytes(record);
    data.insert(data.end(), bytes.begin(), bytes.end());
    const auto key = registry_.create(journalKey);
    return key != nullptr && key->writeBinary(valueName(place), data);
}

void DraftJournal::erase(std::size_t place) {
    if (const auto key = registry_.open(journalKey))
        key->remove(valueName(place));
}

std::vector<KeptDraft> DraftJournal::read() const {
    std::vector<KeptDraft> drafts;
    const auto key = registry_.open(journalKey);
    for (std::size_t place = 0; key != nullptr && place < placeCount; ++place)
        if (auto draft = readDraft(*key, place))
            drafts.push_back(std::move(*draft));
    return drafts;
}

} // namespace hourwright::app
