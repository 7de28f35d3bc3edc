#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace hourwright::platform {

/// A kind of file to choose from: its name and its pattern, "*.csv".
struct FileKind {
    std::u16string name;
    std::u16string pattern;
};

/// What a dialog for saving a file asks for.
struct SaveRequest {
    std::u16string title;
    std::filesystem::path folder; ///< where it starts
    std::u16string fileName;      ///< proposed
    std::vector<FileKind> kinds;
    std::u16string extension; ///< is added to a name without one, without the dot
};

/// The chosen file and the place of its kind in the request.
struct SaveChoice {
    std::filesystem::path file;
    std::size_t kind = 0;
};

/// Asks the user for files.
class FileDialog {
public:
    virtual ~FileDialog() = default;

    /// The file to save to; nothing when the user cancelled. Replacing an existing file has been confirmed.
    [[nodiscard]] virtual std::optional<SaveChoice> save(const SaveRequest& request) = 0;
};

/// The kinds of a filter text of name and pattern pairs, "CSV Files (*.csv)|*.csv|".
[[nodiscard]] std::vector<FileKind> fileKinds(std::u16string_view filter);

} // namespace hourwright::platform
