#pragma once

#include "platform/file_time.h"
#include "platform/property.h"
#include "store/entry_types.h"
#include "store/record_store.h"

#include <cstdint>
#include <string>

/// The records of the client structure: the catalogue that entries are filled in from. Entries do not point into it,
/// they keep the names as texts; only these records carry the client id.
namespace hourwright::store {

/// Owner of the rates that are offered for every client. No client ever has this id, so that these rates can stand
/// beside those of the clients.
inline constexpr std::uint32_t defaultRatesOwner = 0;

struct ClientRecord {
    RecordId id = RecordId::none;
    std::uint32_t clientId = 0; ///< never 0 in a stored record
    std::u16string name;

    friend bool operator==(const ClientRecord&, const ClientRecord&) = default;
};

/// One task of one project. A project exists only as the records that carry its name.
struct ProjectRecord {
    RecordId id = RecordId::none;
    std::uint32_t clientId = 0;
    std::u16string project;
    std::u16string task; ///< empty: the project alone

    friend bool operator==(const ProjectRecord&, const ProjectRecord&) = default;
};

/// A task that belongs to the client itself, not to a project.
struct TaskRecord {
    RecordId id = RecordId::none;
    std::uint32_t clientId = 0;
    std::u16string name;

    friend bool operator==(const TaskRecord&, const TaskRecord&) = default;
};

/// Somebody at the client who can be billed.
struct ContactRecord {
    RecordId id = RecordId::none;
    std::uint32_t clientId = 0;
    std::u16string name;

    friend bool operator==(const ContactRecord&, const ContactRecord&) = default;
};

struct RateRecord {
    RecordId id = RecordId::none;
    std::uint32_t clientId = defaultRatesOwner;
    RateType type = RateType::normal;
    std::u16string description;
    bool flag = false;           ///< has no meaning yet; kept as stored
    std::int32_t rate = 0;       ///< hundredths of the currency unit, never negative
    platform::FileTime modified; ///< time of the last change
    std::uint16_t flags = 0;     ///< as stored

    friend bool operator==(const RateRecord&, const RateRecord&) = default;
};

/// Each kind of record has a database of its own.
template<typename Record>
inline constexpr DatabaseKind databaseOf{};
template<>
inline constexpr DatabaseKind databaseOf<ClientRecord> = DatabaseKind::clients;
template<>
inline constexpr DatabaseKind databaseOf<ProjectRecord> = DatabaseKind::projects;
template<>
inline constexpr DatabaseKind databaseOf<TaskRecord> = DatabaseKind::tasks;
template<>
inline constexpr DatabaseKind databaseOf<ContactRecord> = DatabaseKind::contacts;
template<>
inline constexpr DatabaseKind databaseOf<RateRecord> = DatabaseKind::rates;

/// Makes records of properties already read.
void readStructureRecord(RecordId id, const platform::PropertyBuffer& properties, ClientRecord& out);
void readStructureRecord(RecordId id, const platform::PropertyBuffer& properties, ProjectRecord& out);
void readStructureRecord(RecordId id, const platform::PropertyBuffer& properties, TaskRecord& out);
void readStructureRecord(RecordId id, const platform::PropertyBuffer& properties, ContactRecord& out);
void readStructureRecord(RecordId id, const platform::PropertyBuffer& properties, RateRecord& out);

} // namespace hourwright::store
