#include "platform/sqlite/copy_folder.h"

#include "platform/copy_description.h"
#include "platform/nettle/nettle_sha256.h"
#include "platform/posix/durable_files.h"
#include "platform/posix/posix_files.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/registry_file.h"

namespace hourwright::platform::sqlite {

namespace {

namespace fs = std::filesystem;

constexpr const char* recordsName = "hourwright.db";
constexpr const char* settingsName = "settings.db";
constexpr const char* descriptionName = "about.txt";
constexpr const char* digestsName = "SHA256SUMS";
constexpr std::size_t largestText = 64 * 1024;
constexpr const char* anyName = "2000-01-01_00-00-00"; // a copy has its name only in the end

const char* nameOf(CopyPart part) {
    return part == CopyPart::records ? recordsName : settingsName;
}

FileOutcome failed(PlatformError error, std::string reason) {
    return {.outcome = CopyOutcome::failed, .error = error, .reason = std::move(reason)};
}

FileOutcome cancelled() {
    return {.outcome = CopyOutcome::cancelled, .reason = {}};
}

std::string_view asText(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// A short file; nothing when it cannot be read or is not short.
std::optional<std::string> readText(const fs::path& file) {
    std::string text;
    const PlatformError error = readFile(file, [&text](std::span<const std::byte> piece) {
        text.append(asText(piece));
        return text.size() <= largestText;
    });
    return error == PlatformError::none && text.size() <= largestText ? std::optional(text) : std::nullopt;
}

PlatformError writeText(const fs::path& file, std::string_view text) {
    const auto created = PosixFiles().create(file);
    if (!created.writer)
        return created.error;
    return created.writer->write(text) && created.writer->close() ? PlatformError::none : created.writer->error();
}

// Nothing when it cannot be read or the work is to end.
std::optional<std::string> digestOf(const fs::path& file, const KeepGoing& keepGoing) {
    const auto digest = makeSha256();
    bool whole = true;
    const PlatformError error = readFile(file, [&](std::span<const std::byte> piece) {
        digest->add(piece);
        return whole = keepGoing();
    });
    return error == PlatformError::none && whole ? std::optional(digest->finish()) : std::nullopt;
}

// The digests beside the files; none unless each file that the copy says it has is among them.
FileDigests digestsIn(const fs::path& folder) {
    const auto text = readText(folder / digestsName);
    const auto description = readText(folder / descriptionName);
    const auto digests = text ? parseDigestLines(*text) : std::nullopt;
    const auto copy = description ? parseCopyDescription(anyName, *description) : std::nullopt;
    const bool complete = digests && copy && digests->contains(recordsName) && digests->contains(descriptionName) &&
                          digests->contains(settingsName) == copy->hasSettings;
    return complete ? *digests : FileDigests{};
}

CopyHealth verifyDigests(const fs::path& folder, const KeepGoing& keepGoing) {
    const FileDigests digests = digestsIn(folder);
    if (digests.empty())
        return CopyHealth::damaged;
    for (const auto& [name, expected] : digests) {
        const auto digest = digestOf(folder / name, keepGoing);
        if (!keepGoing())
            return CopyHealth::cancelled;
        if (digest != expected)
            return CopyHealth::damaged;
    }
    return CopyHealth::sound;
}

// Settings that cannot be read do not keep the records from being copied. A damaged value in them does no harm, it
// counts as absent.
bool copySettings(const fs::path& settings, const fs::path& folder, const KeepGoing& keepGoing) {
    const fs::path file = folder / settingsName;
    if (readFileHeader(settings).kind == FileHeader::Kind::sqlite &&
        copyDatabase(settings, file, keepGoing).outcome == CopyOutcome::done && isWholeSettingsFile(file))
        return true;
    std::error_code ignored;
    fs::remove(file, ignored);
    return false;
}

FileOutcome writeDigests(const StoreCopy& copy, const fs::path& folder, const KeepGoing& keepGoing) {
    FileDigests digests;
    for (const char* const name : {recordsName, settingsName, descriptionName}) {
        if (name == settingsName && !copy.hasSettings)
            continue;
        const auto digest = digestOf(folder / name, keepGoing);
        if (!keepGoing())
            return cancelled();
        if (!digest)
            return failed(PlatformError::readFault, "The copy cannot be read back.");
        digests.emplace(name, *digest);
    }
    const PlatformError error = writeText(folder / digestsName, digestLines(digests));
    return error == PlatformError::none ? FileOutcome{} : failed(error, "The copy cannot be written.");
}

PlatformError syncAll(const fs::path& folder) {
    std::error_code failure;
    for (const auto& entry : fs::directory_iterator(folder, failure)) {
        if (const PlatformError error = syncFile(entry.path()); error != PlatformError::none)
            return error;
        forgetCached(entry.path());
    }
    return failure ? PlatformError::readFault : syncFolder(folder);
}

FileOutcome bringToDisk(const fs::path& folder, const KeepGoing& keepGoing) {
    if (const PlatformError error = syncAll(folder); error != PlatformError::none)
        return failed(error, "The copy cannot be written.");
    switch (verifyDigests(folder, keepGoing)) {
    case CopyHealth::sound: return {};
    case CopyHealth::cancelled: return cancelled();
    case CopyHealth::damaged: break;
    }
    return failed(PlatformError::readFault, "The disk does not give back what was written to it.");
}

} // namespace

std::optional<StoreCopy> readCopyFolder(const fs::path& folder) {
    const std::string name = folder.filename().string();
    if (!timeInCopyName(name))
        return std::nullopt;
    const auto text = readText(folder / descriptionName);
    return text ? parseCopyDescription(name, *text) : std::nullopt;
}

FileOutcome fillCopyFolder(StoreCopy& copy, const fs::path& folder, const fs::path& records, const fs::path& settings,
                           const KeepGoing& keepGoing) {
    const fs::path file = folder / recordsName;
    FileOutcome outcome = copyDatabase(records, file, keepGoing);
    if (outcome.outcome == CopyOutcome::done)
        outcome = checkStoreFile(file, keepGoing, copy.records);
    if (outcome.outcome != CopyOutcome::done)
        return outcome;
    std::error_code unreadable;
    copy.bytes = fs::file_size(file, unreadable);
    copy.hasSettings = copySettings(settings, folder, keepGoing);
    if (const auto error = writeText(folder / descriptionName, describeCopy(copy)); error != PlatformError::none)
        return failed(error, "The copy cannot be written.");
    outcome = writeDigests(copy, folder, keepGoing);
    return outcome.outcome == CopyOutcome::done ? bringToDisk(folder, keepGoing) : outcome;
}

// The digests tell of every changed byte; the look inside tells of a file that was wrong when it was copied.
CopyHealth verifyCopyFolder(const fs::path& folder, const KeepGoing& keepGoing) {
    const CopyHealth health = verifyDigests(folder, keepGoing);
    if (health != CopyHealth::sound)
        return health;
    if (copyHas(folder, CopyPart::settings) && !isWholeSettingsFile(folder / settingsName))
        return CopyHealth::damaged;
    const CopyOutcome inside = checkStoredCopy(folder / recordsName, keepGoing).outcome;
    if (inside == CopyOutcome::cancelled)
        return CopyHealth::cancelled;
    return inside == CopyOutcome::done ? CopyHealth::sound : CopyHealth::damaged;
}

PlatformError fetchFromCopy(const fs::path& folder, CopyPart part, const fs::path& to) {
    const fs::path from = folder / nameOf(part);
    const FileDigests digests = digestsIn(folder);
    const auto expected = digests.find(nameOf(part));
    if (expected == digests.end())
        return PlatformError::fileCorrupt;
    const auto created = PosixFiles().create(to);
    if (!created.writer)
        return created.error;
    const PlatformError error =
        readFile(from, [&](std::span<const std::byte> piece) { return created.writer->write(asText(piece)); });
    if (!created.writer->close())
        return created.writer->error();
    if (error != PlatformError::none)
        return error;
    if (const PlatformError sync = syncFile(to); sync != PlatformError::none)
        return sync;
    forgetCached(to);
    return digestOf(to, [] { return true; }) == expected->second ? PlatformError::none : PlatformError::fileCorrupt;
}

bool copyHas(const fs::path& folder, CopyPart part) {
    std::error_code ignored;
    return fs::is_regular_file(fs::symlink_status(folder / nameOf(part), ignored));
}

} // namespace hourwright::platform::sqlite
