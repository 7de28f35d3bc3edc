#include "billing/typed_text.h"

namespace hourwright::billing {

std::size_t noteCharacters(std::u16string_view text) {
    text = text.substr(0, text.find(u'\0'));
    std::size_t size = text.size();
    for (std::size_t found = text.find(u"\r\n"); found != text.npos; found = text.find(u"\r\n", found + 2))
        --size;
    return size;
}

} // namespace hourwright::billing
