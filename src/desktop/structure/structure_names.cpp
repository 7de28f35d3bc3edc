#include "desktop/structure/structure_names.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/structure.h"

namespace hourwright::desktop {

namespace texts = resources::structure;
using billing::StructureKind;

QString kindText(StructureKind kind) {
    switch (kind) {
    case StructureKind::client: return platform::toQString(texts::client);
    case StructureKind::project: return platform::toQString(texts::project);
    case StructureKind::projectTask:
    case StructureKind::task: return platform::toQString(texts::task);
    case StructureKind::contact: return platform::toQString(texts::contact);
    }
    return {};
}

std::u16string undoText(const resources::Text& text, StructureKind kind) {
    return platform::toU16(platform::toQString(text).arg(kindText(kind)));
}

} // namespace hourwright::desktop
