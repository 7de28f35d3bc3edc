#include "platform/code_page.h"

#include <algorithm>

namespace hourwright::platform {

std::string CodePage::convertCut(std::u16string_view text) const {
    std::string bytes = convert(text);
    bytes.resize(std::min(bytes.size(), text.size()));
    return bytes;
}

} // namespace hourwright::platform
