#pragma once

#include <filesystem>

namespace hourwright::bench {

/// A walk over all entries of a store into TimeEntry values, beside a plain SQLite cursor that decodes the same rows
/// into the same values.
void measureWalk(const std::filesystem::path& storeFile);

} // namespace hourwright::bench
