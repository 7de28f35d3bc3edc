#pragma once

#include "app/copy_plan.h"
#include "platform/locale.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace hourwright::app {

/// A copy as it is listed.
struct CopyRow {
    platform::StoreCopy copy;
    bool readable = true; ///< else its time is all that is known of it
    CopyAge age = CopyAge::none;
    std::optional<platform::CopyHealth> health; ///< nothing: it was not verified
};

/// The copies of the records with what is known of them, the newest first.
class CopyList {
public:
    /// Reads the folder anew; what was found out about copies stays known.
    void load(platform::StoreCopies& copies);
    [[nodiscard]] const std::vector<CopyRow>& rows() const { return rows_; }

    /// What verifying a copy has found.
    void note(const platform::StoreCopy& copy, platform::CopyHealth health);
    /// The copies of which it is not known whether they are sound.
    [[nodiscard]] std::vector<platform::StoreCopy> toVerify() const;

private:
    std::vector<CopyRow> rows_;
    std::map<std::string, platform::CopyHealth> known_; // by name
};

/// "845 kB", "1.2 MB", in steps of a thousand.
[[nodiscard]] std::u16string sizeText(std::uint64_t bytes, const platform::Locale& locale);

} // namespace hourwright::app
