#include "store/property_list.h"

namespace hourwright::store {

using platform::PropertyValue;

void PropertyList::text(std::uint16_t field, std::u16string_view value) {
    values_.push_back(PropertyValue::ofText(field, value));
}

void PropertyList::fileTime(std::uint16_t field, platform::FileTime value) {
    values_.push_back(PropertyValue::ofFileTime(field, value));
}

void PropertyList::ui2(std::uint16_t field, std::uint16_t value) {
    values_.push_back(PropertyValue::ofUi2(field, value));
}

void PropertyList::ui4(std::uint16_t field, std::uint32_t value) {
    values_.push_back(PropertyValue::ofUi4(field, value));
}

void PropertyList::textUnlessEmpty(std::uint16_t field, std::u16string_view value) {
    // What is cut at a leading NUL is empty as well.
    add(!value.empty() && value.front() != u'\0', PropertyValue::ofText(field, value));
}

void PropertyList::blobUnlessEmpty(std::uint16_t field, std::span<const std::byte> value) {
    add(!value.empty(), PropertyValue::ofBlob(field, value));
}

void PropertyList::fileTimeUnlessZero(std::uint16_t field, platform::FileTime value) {
    add(value.ticks != 0, PropertyValue::ofFileTime(field, value));
}

void PropertyList::ui2UnlessZero(std::uint16_t field, std::uint16_t value) {
    add(value != 0, PropertyValue::ofUi2(field, value));
}

void PropertyList::ui4UnlessZero(std::uint16_t field, std::uint32_t value) {
    add(value != 0, PropertyValue::ofUi4(field, value));
}

void PropertyList::booleanUnlessFalse(std::uint16_t field, bool value) {
    add(value, PropertyValue::ofBoolean(field, value));
}

void PropertyList::deleteProperty(platform::PropertyId id) {
    if (mode_ == Mode::update)
        values_.push_back(PropertyValue::deletionOf(id));
}

void PropertyList::add(bool present, const PropertyValue& value) {
    if (present)
        values_.push_back(value);
    else
        deleteProperty(value.id);
}

} // namespace hourwright::store
