#pragma once

#include "platform/error.h"
#include "platform/file_time.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::platform {

/// What a file looks like from outside. As long as nothing is written to it, that stays the same; empty: no file.
struct FileStamp {
    std::string text;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// The files of the user as they look now, or as they looked just before they were copied.
struct SourceStamps {
    FileStamp records;
    FileStamp settings;
};

/// A copy of the records and the settings, as its description says; whether it is sound, `verify` finds out.
struct StoreCopy {
    std::string name;          ///< "2026-11-21_15-21-10", with "_2" and so on when there was one of that second
    SystemTime time;           ///< local time at which it was made
    std::uint64_t records = 0; ///< in all its databases
    std::uint64_t bytes = 0;   ///< of the records
    bool hasSettings = false;
    SourceStamps source;
};

/// The local time in a copy's name; nothing when it is no such name.
[[nodiscard]] std::optional<SystemTime> timeInCopyName(std::string_view name);
/// The name of the `ordinal`th copy, counted from 1, of that second.
[[nodiscard]] std::string copyNameAt(const SystemTime& time, unsigned ordinal = 1);

/// True when `left` was made after `right`, as their names say.
[[nodiscard]] bool isNewer(const StoreCopy& left, const StoreCopy& right);

/// How the making or the verifying of a copy ended.
enum class CopyOutcome : std::uint8_t {
    done,
    noSource,      ///< there are no records yet
    sourceDamaged, ///< what was copied does not hold what its checksums say
    cancelled,
    busy,  ///< another program is at the copies
    failed ///< the files could not be read or written; `error` says why
};

struct MadeCopy {
    CopyOutcome outcome = CopyOutcome::failed;
    PlatformError error = PlatformError::none;
    std::string reason; ///< in plain words, for people; may be empty
    StoreCopy copy;     ///< when done
};

enum class CopyHealth : std::uint8_t { sound, damaged, cancelled };

/// Which file of a copy is meant.
enum class CopyPart : std::uint8_t { records, settings };

enum class RestoreOutcome : std::uint8_t {
    done,
    copyDamaged, ///< nothing was touched
    inUse,       ///< another program uses the file or the copies; nothing was touched
    failed       ///< everything is as it was
};

struct RestoredCopy {
    RestoreOutcome outcome = RestoreOutcome::failed;
    PlatformError error = PlatformError::none;
    std::filesystem::path kept; ///< where the file went that was there before; empty when there was none
};

/// Asked now and then during long work, on the same thread; false ends the work.
using KeepGoing = std::function<bool()>;

/// The copies of one store in their folder. Every copy has a folder of its own there with the records, the settings, a
/// description and the SHA-256 of each of them. A copy appears as a whole or not at all, whatever happens meanwhile,
/// and an old one is never written to. Used by one thread; other processes may use the same folder.
class StoreCopies {
public:
    virtual ~StoreCopies() = default;

    /// The whole copies, the newest first.
    [[nodiscard]] virtual std::vector<StoreCopy> list() = 0;
    /// What has the name of a copy, but no description that could be read: damaged copies, of which name and time are
    /// all that is known. The newest first.
    [[nodiscard]] virtual std::vector<StoreCopy> unreadable() = 0;
    /// The files as they are now.
    [[nodiscard]] virtual SourceStamps present() = 0;
    [[nodiscard]] virtual const std::filesystem::path& folder() const = 0;

    /// Copies records and settings as they are at one moment each, and reads them back from the disk. Others may write
    /// to the store meanwhile.
    [[nodiscard]] virtual MadeCopy make(const SystemTime& now, const KeepGoing& keepGoing) = 0;

    /// Reads the whole copy: its digests, the structure of the records' file and the checksums in it.
    [[nodiscard]] virtual CopyHealth verify(const StoreCopy& copy, const KeepGoing& keepGoing) = 0;

    /// Deletes a copy; false when that failed. What is left of it then is no copy any more.
    virtual bool remove(const StoreCopy& copy) = 0;

    /// Puts a file of a copy, verified once more, in the place of the present one, which is kept beside it under a name
    /// with `now` in it. The caller sees to it that nothing in this process has the file open.
    [[nodiscard]] virtual RestoredCopy restore(const StoreCopy& copy, CopyPart part, const SystemTime& now) = 0;
};

} // namespace hourwright::platform
