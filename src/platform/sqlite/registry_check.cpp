#include "platform/sqlite/registry_checksum.h"
#include "platform/sqlite/registry_file.h"

namespace hourwright::platform::sqlite {

bool RegistryFile::check(const std::function<void(std::string_view)>& report) {
    if (!open()) {
        if (!problem_.empty())
            report(problem_);
        return problem_.empty();
    }
    bool sound = true;
    Statement structure(connection_, "PRAGMA integrity_check");
    Step step = structure.step();
    for (; step == Step::row; step = structure.step())
        if (structure.text(0) != "ok") {
            sound = false;
            report(structure.text(0));
        }
    if (step == Step::failed) {
        report(connection_.message());
        return false;
    }
    return hasChecksums_ ? checkValues(report) && checkDamaged(report) && sound : sound;
}

bool RegistryFile::checkValues(const std::function<void(std::string_view)>& report) {
    bool sound = true;
    Statement rows(connection_, "SELECT name, type, data, checksum, key FROM value ORDER BY place");
    Step step = rows.step();
    for (; step == Step::row; step = rows.step())
        if (!fitsChecksum(rows, rows.integer(4))) {
            sound = false;
            report(damagedText(rows.text(0)));
        }
    if (step == Step::failed)
        report(connection_.message());
    return sound && step == Step::done;
}

bool RegistryFile::checkDamaged(const std::function<void(std::string_view)>& report) {
    bool sound = true;
    Statement rows(connection_, "SELECT name FROM damaged");
    Step step = rows.step();
    for (; step == Step::row; step = rows.step()) {
        sound = false;
        report(damagedText(rows.text(0)) + " and another was stored in its place");
    }
    return sound && step == Step::done;
}

bool isWholeSettingsFile(const std::filesystem::path& file) {
    const FileHeader header = readFileHeader(file);
    if (header.kind != FileHeader::Kind::sqlite || header.applicationId != RegistryFile::applicationId)
        return false;
    Connection connection = Connection::asItLies(file);
    Statement structure(connection, "PRAGMA integrity_check(1)");
    Statement tables(connection,
                     "SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name IN ('key', 'value')");
    return structure.step() == Step::row && structure.text(0) == "ok" && tables.step() == Step::row &&
           tables.integer(0) == 2;
}

} // namespace hourwright::platform::sqlite
