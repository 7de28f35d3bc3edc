#pragma once

#include "exchange/export_target.h"
#include "platform/error.h"
#include "platform/file_writer.h"
#include "store/date_walk.h"

#include <functional>
#include <string_view>
#include <type_traits>
#include <utility>

namespace hourwright::exchange {

/// Decide which records of the range are exported.
using TimeEntryFilter = std::function<bool(const store::TimeEntry&)>;
using ExpenseFilter = std::function<bool(const store::ExpenseEntry&)>;

/// The records of a range that a filter accepts, in date order. Borrows the store.
template<typename Record>
class AcceptedRecords {
public:
    AcceptedRecords(store::RecordStore& store, const store::DateRange& range,
                    std::function<bool(const Record&)> accepts)
        : store_(store), accepts_(std::move(accepts)), walk_(store, range) {}

    /// Goes to the first or next one; false at the end and when reading failed.
    bool next() {
        started_ = true;
        do {
            lastRead_ = walk_.next(record_);
        } while (lastRead_ == store::ReadResult::ok && !accepts_(record_));
        return lastRead_ == store::ReadResult::ok;
    }
    [[nodiscard]] const Record& record() const { return record_; }
    /// The first one, unless it has been gone to already.
    void start() {
        if (!started_)
            next();
    }
    [[nodiscard]] bool atRecord() const { return lastRead_ == store::ReadResult::ok; }
    [[nodiscard]] bool failed() const { return lastRead_ == store::ReadResult::failed; }
    [[nodiscard]] platform::PlatformError error() const { return store_.lastError(); }

private:
    store::RecordStore& store_;
    std::function<bool(const Record&)> accepts_;
    store::DateWalk walk_;
    Record record_;
    store::ReadResult lastRead_ = store::ReadResult::noMore;
    bool started_ = false;
};

/// Creates the file, of which `makeFile` makes a text file, and writes a header, each record as the text that `textOf`
/// gives, and a footer. After a failure the file stays with what was written. `Text` is what the file takes.
template<typename Text = std::u16string_view, typename Record, typename MakeFile, typename TextOf>
[[nodiscard]] ExportResult writeExport(AcceptedRecords<Record>& records, const ExportTarget& target, MakeFile makeFile,
                                       std::type_identity_t<Text> header, TextOf textOf,
                                       std::type_identity_t<Text> footer = {}) {
    ExportResult result;
    const auto fail = [&result](ExportStatus status, platform::PlatformError error) {
        if (result.ok())
            result = {status, error, result.records};
        return false;
    };
    auto created = target.files.create(target.path);
    if (!created.writer)
        return {ExportStatus::notCreated, created.error};
    auto file = makeFile(std::move(created.writer));
    const auto write = [&](Text text) { return file.write(text) || fail(ExportStatus::writeFailed, file.error()); };
    if (write(header))
        records.start();
    while (result.ok() && records.atRecord() && write(textOf(records.record()))) {
        ++result.records;
        records.next();
    }
    if (records.failed())
        fail(ExportStatus::readFailed, records.error());
    if (result.ok())
        write(footer);
    if (!file.close())
        fail(ExportStatus::writeFailed, file.error());
    return result;
}

} // namespace hourwright::exchange
