#pragma once

#include "resources/text.h"

/// The lists of time entries and expenses.
namespace hourwright::resources::lists {

inline constexpr Text listName{10300, u"List of records"};
inline constexpr Text noText{10301, u"(none)"};

inline constexpr Text find{10310, u"&Find:"};
inline constexpr Text findNext{10311, u"&Next"};
inline constexpr Text closeFind{10312, u"Close"};
inline constexpr Text notFound{10313, u"Not found"};
inline constexpr Text searching{10314, u"Searching… (Esc cancels)"};

inline constexpr Text customize{10320, u"Customize"};
inline constexpr Text groups{10321, u"Rows of groups in the tree list"};
inline constexpr Text itemCounts{10322, u"Number of &items"};
inline constexpr Text hours{10323, u"&Hours"};
inline constexpr Text amounts{10324, u"&Amounts"};
inline constexpr Text expanded{10325, u"&Open at first"};
inline constexpr Text ascending{10326, u"A&scending order"};
inline constexpr Text columns{10327, u"&Columns of the default and tree list"};
inline constexpr Text moveUp{10328, u"Move &Up"};
inline constexpr Text moveDown{10329, u"Move &Down"};
inline constexpr Text reset{10330, u"&Built-in Columns"};

} // namespace hourwright::resources::lists
