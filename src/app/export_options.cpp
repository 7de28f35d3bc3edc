#include "app/export_options.h"

#include <array>

namespace hourwright::app {

namespace {

constexpr std::array<std::u16string_view, xmlEncodingCount> names{u"",           u"UTF-8", u"UTF-16",
                                                                  u"ISO-8859-1", u"Big-5", u"Shift-JIS"};
constexpr std::array<std::u16string_view, lineBreakSubstituteCount> substitutes{u" ", u"  ", u"~`", u"|"};

} // namespace

XmlEncoding xmlEncoding(std::uint32_t index) {
    return index < xmlEncodingCount ? static_cast<XmlEncoding>(index) : XmlEncoding::unnamed;
}

std::u16string_view declaredName(XmlEncoding encoding) {
    return names[static_cast<std::size_t>(encoding)];
}

std::u16string_view lineBreakSubstitute(std::uint32_t index) {
    return substitutes[index < lineBreakSubstituteCount ? index : 0];
}

} // namespace hourwright::app
