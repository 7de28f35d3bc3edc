#pragma once

#include "platform/file_writer.h"

namespace hourwright::platform {

/// The files of the machine. New files belong to their owner alone; an existing file keeps its permissions. Standard
/// output is not closed at the end, but what could not be written to it is an error all the same.
class PosixFiles : public Files {
public:
    [[nodiscard]] CreatedFile create(const std::filesystem::path& path) override;
};

} // namespace hourwright::platform
