#pragma once

#include "platform/file_time.h"

#include <ostream>

namespace hourwright::platform {

/// Lets a failed expectation print the fields of a date.
inline void PrintTo(const SystemTime& t, std::ostream* out) {
    *out << t.year << '-' << t.month << '-' << t.day << " weekday " << t.dayOfWeek << ' ' << t.hour << ':' << t.minute
         << ':' << t.second << '.' << t.milliseconds;
}

} // namespace hourwright::platform
