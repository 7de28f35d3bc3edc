#pragma once

#include "resources/text.h"

/// What the window says about the copies of the records.
namespace hourwright::resources::copies {

inline constexpr Text label{11900, u"Copies:"};
inline constexpr Text none{11901, u"None yet; they are made daily in"};
inline constexpr Text newest{11902, u"The newest of %s, in"};

} // namespace hourwright::resources::copies
