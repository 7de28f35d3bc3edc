#pragma once

#include "resources/text.h"

/// What the window says about the copies of the records.
namespace hourwright::resources::copies {

inline constexpr Text label{11900, u"Copies:"};
inline constexpr Text none{11901, u"None yet; they are made daily in"};
inline constexpr Text newest{11902, u"The newest of %s, in"};

inline constexpr Text looking{11903, u"Looking for a sound copy of the records…"};
inline constexpr Text restoring{11904, u"Putting the copy in place…"};
inline constexpr Text making{11905, u"Making a copy…"};
inline constexpr Text verifying{11906, u"Verifying copies…"};

inline constexpr Text title{11910, u"Copies of the Records"};
inline constexpr Text intro{11911, u"Made daily while the window is open and something was recorded. They are in\n%s"};
inline constexpr Text list{11912, u"Co&pies:"};
inline constexpr Text empty{11913, u"There are no copies yet."};
inline constexpr Text made{11914, u"Made"};
inline constexpr Text records{11915, u"Records"};
inline constexpr Text size{11916, u"Size"};
inline constexpr Text keptFor{11917, u"Kept for"};
inline constexpr Text state{11918, u"State"};
inline constexpr Text day{11919, u"Its day"};
inline constexpr Text week{11920, u"Its week"};
inline constexpr Text month{11921, u"Its month"};
inline constexpr Text notVerified{11922, u"Not verified"};
inline constexpr Text sound{11923, u"Sound"};
inline constexpr Text damaged{11924, u"Damaged"};
inline constexpr Text makeNow{11925, u"&Make a Copy Now"};
inline constexpr Text verifyAll{11926, u"&Verify All"};
inline constexpr Text restore{11927, u"&Restore..."};

} // namespace hourwright::resources::copies
