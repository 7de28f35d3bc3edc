#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::test {

/// One command of a case file and what it must do.
struct CaseStep {
    int line = 0;    ///< where the command stands in its file
    std::string why; ///< the comment above it
    std::vector<std::string> words;
    std::string out;
    std::string err;
    int exitCode = 0;
};

/// A file of commands that run one after the other in a fresh home:
///
///     # One sentence why.
///     $ hwctl entry add --task 'Site visit' --duration 2
///     > {id}
///     $ hwctl entry show 99
///     ! Error: 87
///     = 1
///
/// `>` is a line of standard output, `!` one of standard error, `=` an exit code other than 0. A line that ends with
/// "\r" ends with CR LF. A name in braces stands for a number: where it comes first, any number that is printed there
/// is kept, later it is that number. A first line "locale: NAME" says which locale the output belongs to; without it,
/// the output is the same in every locale.
struct CaseFile {
    std::string locale;
    std::vector<CaseStep> steps;
};

[[nodiscard]] CaseFile readCaseFile(const std::filesystem::path& path);

/// The numbers kept so far, by name.
using CaseNumbers = std::map<std::string, std::string>;

/// A text with the known names in braces replaced by their numbers.
[[nodiscard]] std::string withNumbers(std::string_view text, const CaseNumbers& numbers);

/// Keeps the numbers that `actual` has where `expected` has unknown names, so that `withNumbers` can replace them.
void keepNumbers(std::string_view expected, std::string_view actual, CaseNumbers& numbers);

} // namespace hourwright::test
