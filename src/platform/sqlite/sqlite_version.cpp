#include "platform/sqlite/sqlite_version.h"

#include <sqlite3.h>

namespace hourwright::platform {

std::string sqliteVersion() {
    return sqlite3_libversion();
}

} // namespace hourwright::platform
