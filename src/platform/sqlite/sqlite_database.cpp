#include "platform/sqlite/sqlite_database.h"

#include "platform/utf.h"

#include <algorithm>
#include <utility>

namespace hourwright::platform::sqlite {

namespace {

std::vector<TextTest> testsOf(std::span<const PropertyValue> texts) {
    std::vector<TextTest> tests;
    for (const PropertyValue& value : texts)
        tests.push_back({value.id, toUtf8(value.text)});
    return tests;
}

} // namespace

SqliteDatabase::SqliteDatabase(Volume& volume, std::shared_ptr<Table> table, PropertyId sortProperty)
    : volume_(volume), table_(std::move(table)), sortProperty_(sortProperty),
      writer_(volume.connection(), *table_, volume.shapes()) {
    volume_.attach(*this);
}

SqliteDatabase::~SqliteDatabase() {
    volume_.detach(*this);
}

void SqliteDatabase::releaseScan() {
    if (scan_ != nullptr)
        scan_->release();
    scan_ = nullptr;
}

RecordScan& SqliteDatabase::fullScan() {
    if (!full_ || !full_->reader().isCurrent()) {
        if (scan_ == full_.get())
            releaseScan();
        full_ = std::make_unique<RecordScan>(volume_.connection(), *table_, volume_.shapes(), sortProperty_);
    }
    return *full_;
}

RecordScan& SqliteDatabase::scanOver(const Seek& where) {
    if (where.columns.empty() && where.texts.empty())
        return fullScan();
    std::vector<TextTest> tests = testsOf(where.texts);
    if (!partial_ || !partial_->reader().isCurrent() || !std::ranges::equal(partialColumns_, where.columns) ||
        partialTests_ != tests) {
        if (scan_ == partial_.get())
            releaseScan();
        partialColumns_.assign(where.columns.begin(), where.columns.end());
        partialTests_ = std::move(tests);
        partial_ = std::make_unique<RecordScan>(volume_.connection(), *table_, volume_.shapes(), sortProperty_,
                                                partialColumns_, partialTests_);
    }
    return *partial_;
}

ObjectId SqliteDatabase::seek(const Seek& where) {
    const Step step = locate(where);
    hasRecord_ = step == Step::row;
    if (step == Step::failed)
        volume_.fail();
    else
        volume_.finish(hasRecord_ ? PlatformError::none : PlatformError::noMoreItems);
    if (!hasRecord_) {
        hasPlace_ = false;
        releaseScan();
        return ObjectId::none;
    }
    hasPlace_ = true;
    rowContentVersion_ = table_->contentVersion();
    scanOrderVersion_ = table_->orderVersion();
    if (!volume_.holdsReadLock())
        releaseScan();
    return place_.id;
}

Step SqliteDatabase::locate(const Seek& where) {
    switch (where.mode) {
    case SeekMode::objectId: return locateById(where.id);
    case SeekMode::current: return hasPlace_ ? move(where.distance) : Step::done;
    case SeekMode::firstEqual:
    case SeekMode::nextEqual:
    case SeekMode::greater: return locateKey(where);
    case SeekMode::beginning:
    case SeekMode::end: break;
    }
    if (where.distance < 0)
        return Step::done;
    releaseScan();
    scan_ = &scanOver(where);
    scan_->startAtEnd(where.mode == SeekMode::beginning ? Direction::forward : Direction::backward);
    return walk(std::int64_t{where.distance} + 1);
}

Step SqliteDatabase::locateById(ObjectId id) {
    releaseScan();
    RecordScan& full = fullScan();
    const Step step = full.find(id);
    const ResetGuard guard(full.found());
    if (step == Step::row)
        full.takePlace(full.found(), place_);
    return step;
}

Step SqliteDatabase::locateKey(const Seek& where) {
    if (where.key.id != sortProperty_)
        return Step::done;
    const RecordPlace key = placeOf(where.key);
    if (where.mode == SeekMode::nextEqual) {
        const Step step = hasPlace_ ? move(1) : Step::done;
        return step == Step::row && !keyEquals(key) ? Step::done : step;
    }
    releaseScan();
    scan_ = &scanOver(where);
    scan_->startAtKey(key, where.mode == SeekMode::firstEqual);
    const Step step = walk(1);
    if (step != Step::row)
        return step;
    const bool accepted = where.mode == SeekMode::firstEqual ? keyEquals(key) : place_.hasKey;
    return accepted ? Step::row : Step::done;
}

Step SqliteDatabase::move(std::int64_t distance) {
    if (distance == 0)
        return locateById(place_.id);
    const Direction direction = distance > 0 ? Direction::forward : Direction::backward;
    if (!scanIsUsable(direction)) {
        const bool usePartial = scan_ != nullptr && scan_ == partial_.get() && partial_->reader().isCurrent();
        releaseScan();
        scan_ = usePartial ? partial_.get() : &fullScan();
        scan_->startFrom(place_, direction);
    }
    return walk(distance > 0 ? distance : -distance);
}

bool SqliteDatabase::scanIsUsable(Direction direction) const {
    return scan_ != nullptr && scan_->isRunning() && scan_->direction() == direction &&
           scanOrderVersion_ == table_->orderVersion() && scan_->reader().isCurrent();
}

Step SqliteDatabase::walk(std::int64_t records) {
    Step step = Step::done;
    while (records-- > 0 && (step = scan_->next(place_)) == Step::row) {
    }
    return step;
}

RecordPlace SqliteDatabase::placeOf(const PropertyValue& key) const {
    RecordPlace place{.hasKey = true, .number = static_cast<std::int64_t>(key.number)};
    if (sortProperty_.type() == ValueType::text)
        place.text = toUtf8(key.text);
    return place;
}

bool SqliteDatabase::keyEquals(const RecordPlace& key) const {
    return place_.hasKey && place_.number == key.number && place_.text == key.text;
}

PlatformError SqliteDatabase::decodeError(RowReader::Result result) const {
    return result == RowReader::Result::ok ? PlatformError::none : PlatformError::fileCorrupt;
}

bool SqliteDatabase::read(PropertyBuffer& out, std::span<const PropertyId> wanted) {
    if (!hasPlace_ || !hasRecord_)
        return volume_.finish(PlatformError::noMoreItems);
    if (standsOnFreshRow() && scan_->reader().covers(wanted)) {
        const RowReader::Result result = scan_->reader().decode(scan_->row(), out, wanted);
        if (result != RowReader::Result::stale)
            return volume_.finish(decodeError(result));
    }
    return readById(out, wanted);
}

// True when the scan's row is the current record as it is stored.
bool SqliteDatabase::standsOnFreshRow() const {
    return hasPlace_ && hasRecord_ && scan_ != nullptr && scan_->isRunning() &&
           rowContentVersion_ == table_->contentVersion();
}

bool SqliteDatabase::readById(PropertyBuffer& out, std::span<const PropertyId> wanted) {
    RowReader::Result result = RowReader::Result::stale;
    for (int attempt = 0; attempt < 2 && result == RowReader::Result::stale; ++attempt) {
        if (attempt > 0)
            table_->reloadColumns(); // another process gave the table a column
        RecordScan& full = fullScan();
        const Step step = full.find(place_.id);
        const ResetGuard guard(full.found());
        if (step == Step::failed)
            return volume_.fail();
        if (step == Step::done)
            return volume_.finish(PlatformError::noMoreItems);
        result = full.reader().decode(full.found(), out, wanted);
    }
    return volume_.finish(decodeError(result));
}

std::uint64_t SqliteDatabase::recordCount() {
    Statement count(volume_.connection(), "SELECT count(*) FROM " + table_->name());
    if (count.step() != Step::row) {
        volume_.fail();
        return 0;
    }
    volume_.finish(PlatformError::none);
    return static_cast<std::uint64_t>(count.integer(0));
}

ObjectId SqliteDatabase::write(Transaction&, ObjectId id, std::span<const PropertyValue> properties) {
    if (!volume_.writing() || !merge_.take(properties))
        return failedWrite(PlatformError::invalidParameter);
    RecordChange& change = merge_.change();
    change.database = table_->info().id;
    change.record = id;
    const PlatformError error = id == ObjectId::none ? mergeNew(change) : mergeStored(change);
    if (error != PlatformError::none)
        return failedWrite(error);
    if (change.columns.empty() && change.before == change.after)
        return written(change.record); // nothing of it is new
    const PlatformError result = carryOut(change);
    return result == PlatformError::none ? written(change.record) : failedWrite(result);
}

PlatformError SqliteDatabase::mergeNew(RecordChange& change) {
    change.record = volume_.allocateId();
    if (change.record == ObjectId::none)
        return PlatformError::diskFull;
    merge_.makeNew();
    change.before = {};
    reordered_ = true;
    writtenPlace_ = placeOf(change.record, merge_.values());
    const bool ready =
        writer_.findHead(change.record, merge_.values(), change.after) && volume_.journal().record(change);
    return ready ? PlatformError::none : volume_.connection().lastError();
}

// The record as it will be. One whose checksum does not fit is not touched, or its damage could not be found any more.
PlatformError SqliteDatabase::mergeStored(RecordChange& change) {
    return withStored(change.record, [&](RecordScan& scan, const Statement& row) -> std::optional<PlatformError> {
        const RowReader::Result result = scan.reader().verify(row);
        if (result != RowReader::Result::ok)
            return result == RowReader::Result::stale ? std::nullopt : std::optional(PlatformError::fileCorrupt);
        merge_.layOver(scan.reader().stored());
        change.before = change.after = RowReader::head(row);
        if (!hasPlace_ || place_.id != change.record)
            scan.takePlace(row, writtenPlace_);
        reordered_ = false;
        if (change.columns.empty())
            return PlatformError::none;
        reordered_ = sortProperty_ != table_->info().sortProperty || merge_.changes(sortProperty_);
        if (reordered_)
            writtenPlace_ = placeOf(change.record, merge_.values());
        const bool ready =
            writer_.findHead(change.record, merge_.values(), change.after) && volume_.journal().record(change);
        return ready ? PlatformError::none : volume_.connection().lastError();
    });
}

// Calls `use` while a statement stands on a record's row; a scan that stands on it has it at hand. Nothing returned
// means that the row has a column which the statement does not know.
template<typename Use>
PlatformError SqliteDatabase::withStored(ObjectId id, Use use) {
    if (standsOnFreshRow() && place_.id == id && scan_ == full_.get())
        if (const auto done = use(*scan_, scan_->row()))
            return *done;
    for (int attempt = 0; attempt < 2; ++attempt) {
        RecordScan& full = fullScan();
        const Step step = full.find(id);
        const ResetGuard guard(full.found());
        if (step == Step::failed)
            return volume_.connection().lastError();
        if (step == Step::done)
            return PlatformError::invalidParameter;
        if (const auto done = use(full, full.found()))
            return *done;
        table_->reloadColumns(); // another process gave the table a column
    }
    return PlatformError::fileCorrupt;
}

PlatformError SqliteDatabase::carryOut(const RecordChange& change) {
    switch (writer_.apply(change)) {
    case RowWriter::Outcome::written: break;
    case RowWriter::Outcome::otherRow: return PlatformError::fileCorrupt;
    case RowWriter::Outcome::failed: return volume_.connection().lastError();
    }
    table_->contentChanged();
    if (reordered_)
        table_->orderChanged();
    return PlatformError::none;
}

// The written record becomes the current one; a scan that stands on it goes on unless the order changed.
ObjectId SqliteDatabase::written(ObjectId id) {
    if (!hasPlace_ || place_.id != id || reordered_) {
        releaseScan();
        place_ = writtenPlace_;
    }
    hasPlace_ = true;
    hasRecord_ = true;
    volume_.finish(PlatformError::none);
    return id;
}

ObjectId SqliteDatabase::failedWrite(PlatformError error) {
    if (error != PlatformError::invalidParameter)
        volume_.spoil();
    hasPlace_ = false;
    hasRecord_ = false;
    releaseScan();
    volume_.finish(error == PlatformError::none ? PlatformError::writeFault : error);
    return ObjectId::none;
}

bool SqliteDatabase::deleteCurrent(Transaction&) {
    if (!volume_.writing())
        return volume_.finish(PlatformError::invalidParameter);
    if (!hasPlace_ || !hasRecord_)
        return volume_.finish(PlatformError::noMoreItems);
    RecordChange& removal = merge_.change();
    removal.kind = ChangeKind::remove;
    removal.database = table_->info().id;
    removal.record = place_.id;
    PlatformError error = describeRemoval(removal);
    reordered_ = true;
    if (error == PlatformError::none)
        error = carryOut(removal);
    if (error != PlatformError::none) {
        volume_.spoil();
        return volume_.finish(error);
    }
    hasRecord_ = false;
    return true;
}

// A damaged record may be deleted. One whose shape is unknown cannot be described, so that its step cannot be undone.
PlatformError SqliteDatabase::describeRemoval(RecordChange& removal) {
    return withStored(removal.record, [&](RecordScan& scan, const Statement& row) -> std::optional<PlatformError> {
        const RowReader::Result result = scan.reader().fetch(row);
        if (result == RowReader::Result::stale)
            return std::nullopt;
        removal.before = RowReader::head(row);
        removal.after = {};
        removal.columns.clear();
        if (result == RowReader::Result::damaged) {
            volume_.journal().giveUp();
            return PlatformError::none;
        }
        for (const StoredValue& value : scan.reader().stored())
            removal.columns.push_back({.id = value.id, .hadValue = true, .before = value});
        return volume_.journal().record(removal) ? PlatformError::none : volume_.connection().lastError();
    });
}

RecordPlace SqliteDatabase::placeOf(ObjectId id, std::span<const StoredValue> values) const {
    const auto key = std::ranges::find(values, sortProperty_, &StoredValue::id);
    if (key == values.end())
        return {.id = id};
    RecordPlace place{.id = id, .hasKey = true, .number = static_cast<std::int64_t>(key->number)};
    if (sortProperty_.type() == ValueType::text)
        place.text = asText(key->bytes);
    return place;
}

} // namespace hourwright::platform::sqlite
