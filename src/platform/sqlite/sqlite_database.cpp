#include "platform/sqlite/sqlite_database.h"

#include "platform/utf.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace hourwright::platform::sqlite {

namespace {

// The largest number that a property of a type may hold; FILETIMEs are kept as signed 64-bit integers.
std::uint64_t largestNumber(ValueType type) {
    switch (type) {
    case ValueType::boolean: return 1;
    case ValueType::ui2: return std::numeric_limits<std::uint16_t>::max();
    case ValueType::ui4: return std::numeric_limits<std::uint32_t>::max();
    default: return static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    }
}

std::vector<TextTest> testsOf(std::span<const PropertyValue> texts) {
    std::vector<TextTest> tests;
    for (const PropertyValue& value : texts)
        tests.push_back({value.id, toUtf8(value.text)});
    return tests;
}

const PropertyValue* findIn(std::span<const PropertyValue> values, PropertyId id) {
    const auto found = std::ranges::find(values, id, &PropertyValue::id);
    return found != values.end() ? &*found : nullptr;
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
    if (!volume_.writing())
        return failedWrite(PlatformError::invalidParameter);
    const PlatformError error = normalise(properties);
    if (error != PlatformError::none)
        return failedWrite(error);
    return id == ObjectId::none ? insert() : update(id);
}

// Checks the list and brings it into its stored form: texts end at a NUL, the last of several values for a property
// counts.
PlatformError SqliteDatabase::normalise(std::span<const PropertyValue> properties) {
    given_.clear();
    std::uint64_t seen = 0; // a bit for some properties each: most lists need no look for doubles
    for (PropertyValue value : properties) {
        if (!isKnownType(value.id.type()) || value.number > largestNumber(value.id.type()))
            return PlatformError::invalidParameter;
        value.text = value.text.substr(0, value.text.find(u'\0'));
        const std::uint64_t bit = std::uint64_t{1} << (value.id.number() % 64);
        const auto same = (seen & bit) == 0 ? given_.end() : std::ranges::find(given_, value.id, &PropertyValue::id);
        seen |= bit;
        if (same != given_.end())
            *same = value;
        else
            given_.push_back(value);
    }
    return PlatformError::none;
}

ObjectId SqliteDatabase::insert() {
    std::erase_if(given_, [](const PropertyValue& value) { return value.deletion; });
    const ObjectId id = volume_.allocateId();
    if (id == ObjectId::none)
        return failedWrite(PlatformError::diskFull);
    if (!writer_.insert(id, given_))
        return failedWrite(volume_.connection().lastError());
    merged_ = given_;
    return written(id, true);
}

ObjectId SqliteDatabase::update(ObjectId id) {
    bool sortChanged = false;
    const PlatformError error = mergeInto(id, sortChanged);
    if (error != PlatformError::none)
        return failedWrite(error);
    if (!writer_.update(id, merged_, sortChanged))
        return failedWrite(volume_.connection().lastError());
    return written(id, sortChanged);
}

// The written record becomes the current one; a scan that stands on it goes on unless the order changed.
ObjectId SqliteDatabase::written(ObjectId id, bool orderChanged) {
    table_->contentChanged();
    if (orderChanged)
        table_->orderChanged();
    if (!hasPlace_ || place_.id != id || orderChanged) {
        releaseScan();
        const PropertyValue* const key = findIn(merged_, sortProperty_);
        place_ = key != nullptr ? placeOf(*key) : RecordPlace{};
        place_.id = id;
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

// The record as it will be: its properties in their places with the given values, without the deleted ones, and the
// new ones behind. A record whose checksum does not fit is not touched, or its damage could not be found any more.
PlatformError SqliteDatabase::mergeInto(ObjectId id, bool& sortChanged) {
    const PlatformError error = readStored(id);
    if (error != PlatformError::none)
        return error;
    merged_.clear();
    for (const PropertyId property : storedShape_) {
        const PropertyValue* const change = findIn(given_, property);
        if (change == nullptr)
            merged_.push_back(*stored_.find(property));
        else if (!change->deletion)
            merged_.push_back(*change);
    }
    for (const PropertyValue& value : given_)
        if (!value.deletion && std::ranges::find(storedShape_, value.id) == storedShape_.end())
            merged_.push_back(value);
    sortChanged = sortProperty_ != table_->info().sortProperty || !hasSortValue(storedPlace_, merged_);
    return PlatformError::none;
}

// True when the properties give a record the sort value of a place.
bool SqliteDatabase::hasSortValue(const RecordPlace& place, std::span<const PropertyValue> properties) const {
    const PropertyValue* const key = findIn(properties, sortProperty_);
    if (key == nullptr || !place.hasKey)
        return (key == nullptr) == !place.hasKey;
    const RecordPlace other = placeOf(*key);
    return other.number == place.number && other.text == place.text;
}

// Reads the record as it is stored, as far as it is not written over; a scan that stands on it has it at hand.
PlatformError SqliteDatabase::readStored(ObjectId id) {
    if (standsOnFreshRow() && place_.id == id && scan_ == full_.get() &&
        decodeStored(*scan_, scan_->row()) == RowReader::Result::ok)
        return PlatformError::none;
    for (int attempt = 0; attempt < 2; ++attempt) {
        RecordScan& full = fullScan();
        const Step step = full.find(id);
        const ResetGuard guard(full.found());
        if (step == Step::failed)
            return volume_.connection().lastError();
        if (step == Step::done)
            return PlatformError::invalidParameter;
        const RowReader::Result result = decodeStored(full, full.found());
        if (result == RowReader::Result::ok)
            return PlatformError::none;
        if (result == RowReader::Result::damaged)
            return PlatformError::fileCorrupt;
        table_->reloadColumns();
    }
    return PlatformError::fileCorrupt;
}

RowReader::Result SqliteDatabase::decodeStored(RecordScan& scan, const Statement& row) {
    const RowReader::Result result = scan.reader().verify(row);
    if (result != RowReader::Result::ok)
        return result;
    scan.takePlace(row, storedPlace_);
    storedShape_ = *volume_.shapes().find(row.integer(RowReader::shapeColumn));
    kept_.clear();
    for (const PropertyId property : storedShape_)
        if (findIn(given_, property) == nullptr)
            kept_.push_back(property);
    return kept_.empty() ? RowReader::Result::ok : scan.reader().decode(row, stored_, kept_);
}

bool SqliteDatabase::deleteCurrent(Transaction&) {
    if (!volume_.writing())
        return volume_.finish(PlatformError::invalidParameter);
    if (!hasPlace_ || !hasRecord_)
        return volume_.finish(PlatformError::noMoreItems);
    if (!writer_.remove(place_.id)) {
        volume_.spoil();
        return volume_.fail();
    }
    table_->contentChanged();
    table_->orderChanged();
    hasRecord_ = false;
    return volume_.finish(PlatformError::none);
}

} // namespace hourwright::platform::sqlite
