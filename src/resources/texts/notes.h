#pragma once

#include "resources/text.h"

/// The note page: its buttons, what stands in a note besides text, the ink pad.
namespace hourwright::resources::notes {

inline constexpr Text note{11000, u"Note"};
inline constexpr Text bold{11001, u"Bold"};
inline constexpr Text italic{11002, u"Italic"};
inline constexpr Text underline{11003, u"Underline"};
inline constexpr Text bullets{11004, u"Bullets"};
inline constexpr Text draw{11005, u"Draw..."};
inline constexpr Text record{11006, u"Record Voice"};
inline constexpr Text stopRecording{11007, u"Stop Recording"};
inline constexpr Text exportNotes{11008, u"E&xport Notes..."};
inline constexpr Text openObject{11009, u"Open Drawing or Play Recording"};
inline constexpr Text foreignNote{11010,
                                  u"This note comes from another program and cannot be shown. It is kept as it is."};
inline constexpr Text placeholder{11011, u"Type a note, draw, or record your voice"};
inline constexpr Text noMicrophone{11012, u"There is no microphone, so nothing can be recorded."};
inline constexpr Text recordingFor{11013, u"Recording %s"};
inline constexpr Text foreignPicture{11016, u"Picture"};
inline constexpr Text editNote{11017, u"Edit N&ote"};
inline constexpr Text keepAsText{11018, u"Click to open; Delete removes it."};

inline constexpr Text inkTitle{11030, u"Drawing"};
inline constexpr Text inkPad{11031, u"Drawing area"};
inline constexpr Text pen{11032, u"Pen"};
inline constexpr Text eraser{11033, u"Eraser"};
inline constexpr Text undo{11034, u"Undo"};
inline constexpr Text redo{11035, u"Redo"};
inline constexpr Text clear{11036, u"Clear"};
inline constexpr Text width{11037, u"Width"};
inline constexpr Text thin{11038, u"Thin"};
inline constexpr Text medium{11039, u"Medium"};
inline constexpr Text thick{11040, u"Thick"};
inline constexpr Text black{11041, u"Black"};
inline constexpr Text blue{11042, u"Blue"};
inline constexpr Text red{11043, u"Red"};
inline constexpr Text green{11044, u"Green"};
inline constexpr Text orange{11045, u"Orange"};

} // namespace hourwright::resources::notes
