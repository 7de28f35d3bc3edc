#include "billing/stored_number.h"

#include <cmath>

namespace hourwright::billing {

std::optional<std::int32_t> storedFromThousandths(double thousandths, std::int32_t largest) {
    const double stored = std::trunc(thousandths / 10.0);
    if (!(stored >= 0.0 && stored <= static_cast<double>(largest)))
        return std::nullopt;
    return static_cast<std::int32_t>(stored);
}

} // namespace hourwright::billing
