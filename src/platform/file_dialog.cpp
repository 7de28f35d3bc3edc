#include "platform/file_dialog.h"

namespace hourwright::platform {

std::vector<FileKind> fileKinds(std::u16string_view filter) {
    std::vector<FileKind> kinds;
    for (;;) {
        const auto name = filter.find(u'|');
        const auto pattern = name == std::u16string_view::npos ? name : filter.find(u'|', name + 1);
        if (pattern == std::u16string_view::npos)
            return kinds;
        kinds.push_back(
            {std::u16string(filter.substr(0, name)), std::u16string(filter.substr(name + 1, pattern - name - 1))});
        filter.remove_prefix(pattern + 1);
    }
}

} // namespace hourwright::platform
