#include "platform/sqlite/volume.h"

#include "platform/sqlite/sqlite_database.h"
#include "platform/utf.h"

#include <limits>

namespace hourwright::platform::sqlite {

Volume::Volume(Connection connection, JournalBounds bounds, std::function<void()> onCommitted)
    : connection_(std::move(connection)), shapes_(connection_), journal_(connection_, bounds),
      onCommitted_(std::move(onCommitted)) {}

bool Volume::finish(PlatformError error) {
    error_ = error;
    return error == PlatformError::none;
}

bool Volume::fail() {
    const PlatformError error = connection_.lastError();
    return finish(error == PlatformError::none ? PlatformError::invalidParameter : error) && false;
}

std::vector<DatabaseInfo> Volume::databases(std::optional<std::uint32_t> type) {
    std::vector<DatabaseInfo> found;
    Statement rows(connection_, type ? "SELECT id, name, type, sort_property FROM databases WHERE type = ?1 ORDER BY id"
                                     : "SELECT id, name, type, sort_property FROM databases ORDER BY id");
    if (rows && type)
        rows.bind(1, std::int64_t{*type});
    Step step = Step::failed;
    while ((step = rows.step()) == Step::row)
        found.push_back({.id = static_cast<ObjectId>(rows.integer(0)),
                         .name = toUtf16(rows.text(1)),
                         .type = static_cast<std::uint32_t>(rows.integer(2)),
                         .sortProperty = PropertyId(static_cast<std::uint32_t>(rows.integer(3)))});
    if (step == Step::failed)
        fail();
    else
        finish(PlatformError::none);
    return found;
}

std::shared_ptr<Table> Volume::table(ObjectId database) {
    const auto known = tables_.find(database);
    if (known != tables_.end())
        return known->second;
    Statement row(connection_, "SELECT name, type, sort_property FROM databases WHERE id = ?1");
    if (!row)
        return nullptr;
    row.bind(1, static_cast<std::int64_t>(database));
    if (row.step() != Step::row)
        return nullptr;
    DatabaseInfo info{.id = database,
                      .name = toUtf16(row.text(0)),
                      .type = static_cast<std::uint32_t>(row.integer(1)),
                      .sortProperty = PropertyId(static_cast<std::uint32_t>(row.integer(2)))};
    return tables_.emplace(database, std::make_shared<Table>(connection_, std::move(info))).first->second;
}

bool Volume::begin(const ChangeLabel& label) {
    if (writing_ || snapshots_ > 0)
        return finish(PlatformError::invalidParameter);
    releaseScans();
    if (connection_.isReadOnly())
        return finish(PlatformError::accessDenied);
    if (!begin_)
        begin_ = Statement(connection_, "BEGIN IMMEDIATE");
    if (!begin_.run())
        return fail();
    writing_ = true;
    spoiled_ = false;
    nextId_ = storedId_ = 0;
    if (journal_.begin(label))
        return finish(PlatformError::none);
    fail();
    const PlatformError cause = error_;
    rollback();
    return finish(cause);
}

bool Volume::commit() {
    if (!writing_)
        return finish(PlatformError::invalidParameter);
    releaseScans();
    if (spoiled_) {
        const PlatformError cause = error_ == PlatformError::none ? PlatformError::writeFault : error_;
        rollback();
        return finish(cause);
    }
    if (!commit_)
        commit_ = Statement(connection_, "COMMIT");
    if (!journal_.end() || !storeNextId() || !commit_.run()) {
        const bool failed = fail();
        const PlatformError cause = error_;
        rollback();
        finish(cause);
        return failed;
    }
    writing_ = false;
    if (onCommitted_)
        onCommitted_();
    return finish(PlatformError::none);
}

void Volume::rollback() {
    if (!writing_)
        return;
    releaseScans();
    if (connection_.inTransaction()) // a full disk may have rolled back already
        (void)connection_.execute("ROLLBACK");
    writing_ = false;
    forgetUncommitted();
}

void Volume::forgetUncommitted() {
    journal_.rolledBack();
    shapes_.forget();
    for (auto& [id, table] : tables_)
        table->reloadColumns();
}

std::optional<std::uint64_t> Volume::changesByOthers() {
    if (!dataVersion_)
        dataVersion_ = Statement(connection_, "PRAGMA data_version");
    const ResetGuard guard(dataVersion_);
    if (!dataVersion_ || dataVersion_.step() != Step::row)
        return {};
    return static_cast<std::uint64_t>(dataVersion_.integer(0));
}

void Volume::beginSnapshot() {
    if (snapshots_++ == 0 && !writing_)
        (void)connection_.execute("BEGIN");
}

void Volume::endSnapshot() {
    if (--snapshots_ > 0 || writing_)
        return;
    releaseScans();
    if (connection_.inTransaction())
        (void)connection_.execute("COMMIT");
}

ObjectId Volume::allocateId() {
    if (nextId_ == 0) {
        Statement row(connection_, "SELECT next_id FROM volume");
        if (row.step() != Step::row)
            return ObjectId::none;
        nextId_ = storedId_ = static_cast<std::uint64_t>(row.integer(0));
    }
    if (nextId_ == 0 || nextId_ > std::numeric_limits<std::uint32_t>::max())
        return ObjectId::none;
    return static_cast<ObjectId>(nextId_++);
}

bool Volume::storeNextId() {
    if (nextId_ == storedId_)
        return true;
    Statement update(connection_, "UPDATE volume SET next_id = ?1");
    if (!update)
        return false;
    update.bind(1, static_cast<std::int64_t>(nextId_));
    return update.run();
}

void Volume::releaseScans() {
    for (SqliteDatabase* const handle : handles_)
        handle->releaseScan();
}

} // namespace hourwright::platform::sqlite
