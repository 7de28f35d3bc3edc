#pragma once

#include "platform/object_store.h"
#include "platform/sqlite/record_merge.h"
#include "platform/sqlite/record_scan.h"
#include "platform/sqlite/row_writer.h"
#include "platform/sqlite/volume.h"

#include <memory>
#include <vector>

namespace hourwright::platform::sqlite {

/// An open database of the volume. Under a transaction or snapshot a scan stays open between calls, so that walking
/// costs one step a record; otherwise every call lets go of the file again.
class SqliteDatabase final : public Database {
public:
    SqliteDatabase(Volume& volume, std::shared_ptr<Table> table, PropertyId sortProperty);
    ~SqliteDatabase() override;

    ObjectId seek(const Seek& where) override;
    [[nodiscard]] bool read(PropertyBuffer& out, std::span<const PropertyId> wanted) override;
    ObjectId write(Transaction& transaction, ObjectId id, std::span<const PropertyValue> properties) override;
    [[nodiscard]] bool deleteCurrent(Transaction& transaction) override;
    [[nodiscard]] ObjectId id() const override { return table_->info().id; }
    [[nodiscard]] std::uint64_t recordCount() override;

    /// Ends a running scan; the current record stays where it is.
    void releaseScan();

private:
    [[nodiscard]] RecordScan& fullScan();
    [[nodiscard]] RecordScan& scanOver(const Seek& where);
    [[nodiscard]] bool scanIsUsable(Direction direction) const;
    [[nodiscard]] Step locate(const Seek& where);
    [[nodiscard]] Step locateById(ObjectId id);
    [[nodiscard]] Step locateKey(const Seek& where);
    [[nodiscard]] Step move(std::int64_t distance);
    [[nodiscard]] Step walk(std::int64_t records);
    [[nodiscard]] RecordPlace placeOf(const PropertyValue& key) const;
    [[nodiscard]] bool keyEquals(const RecordPlace& key) const;
    [[nodiscard]] bool readById(PropertyBuffer& out, std::span<const PropertyId> wanted);
    [[nodiscard]] PlatformError decodeError(RowReader::Result result) const;

    [[nodiscard]] PlatformError mergeNew(RecordChange& change);
    [[nodiscard]] PlatformError mergeStored(RecordChange& change);
    [[nodiscard]] PlatformError carryOut(const RecordChange& change);
    [[nodiscard]] PlatformError describeRemoval(RecordChange& removal);
    template<typename Use>
    [[nodiscard]] PlatformError withStored(ObjectId id, Use use);
    [[nodiscard]] RecordPlace placeOf(ObjectId id, std::span<const StoredValue> values) const;
    [[nodiscard]] bool standsOnFreshRow() const;
    ObjectId written(ObjectId id);
    ObjectId failedWrite(PlatformError error);

    Volume& volume_;
    std::shared_ptr<Table> table_;
    PropertyId sortProperty_;
    RowWriter writer_;
    std::unique_ptr<RecordScan> full_;
    std::unique_ptr<RecordScan> partial_;
    std::vector<PropertyId> partialColumns_;
    std::vector<TextTest> partialTests_;
    RecordScan* scan_ = nullptr; // the one that stands on the current record, if any
    std::uint64_t scanOrderVersion_ = 0;
    RecordPlace place_;
    bool hasPlace_ = false;
    std::uint64_t rowContentVersion_ = 0;
    bool hasRecord_ = false; // false after the record at the place was deleted
    RecordMerge merge_;
    RecordPlace writtenPlace_;
    bool reordered_ = false; // by the change being written
};

} // namespace hourwright::platform::sqlite
