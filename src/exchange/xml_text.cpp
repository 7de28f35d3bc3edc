#include "exchange/xml_text.h"

#include "exchange/markup_escape.h"
#include "platform/number_text.h"

namespace hourwright::exchange {

namespace {

constexpr std::u16string_view lineBreak = u"\r\n";

// Angle brackets are escaped before ampersands are, so theirs is escaped once more.
constexpr std::array<Escape, 5> escapes{
    {{u'<', u"&amp;lt;"}, {u'>', u"&amp;gt;"}, {u'&', u"&amp;"}, {u'"', u"&quot;"}, {u'\'', u"&apos;"}}};

} // namespace

void XmlText::declaration(std::u16string_view encodingName) {
    text_ += u"<?xml version=\"1.0\" ";
    if (!encodingName.empty())
        text_.append(u"encoding=\"").append(encodingName).append(u"\" ");
    text_.append(u"?>").append(lineBreak);
}

void XmlText::openStartTag(std::u16string_view name) {
    text_.append(u"<").append(name);
}

void XmlText::attribute(std::u16string_view name, std::u16string_view value) {
    text_.append(u" ").append(name).append(u"=\"");
    escapedText(value);
    text_ += u'"';
}

void XmlText::attribute(std::u16string_view name, std::int64_t value) {
    text_.append(u" ").append(name).append(u"=\"");
    platform::appendInteger(text_, value);
    text_ += u'"';
}

void XmlText::closeStartTag() {
    text_ += u'>';
}

void XmlText::closeStartTagAndLine() {
    closeStartTag();
    text_ += lineBreak;
}

void XmlText::startTag(std::u16string_view name) {
    openStartTag(name);
    closeStartTagAndLine();
}

void XmlText::endTag(std::u16string_view name) {
    text_.append(u"</").append(name).append(u">").append(lineBreak);
}

void XmlText::element(std::u16string_view name, std::u16string_view value) {
    openStartTag(name);
    closeStartTag();
    escapedText(value);
    endTag(name);
}

void XmlText::hundredthsElement(std::u16string_view name, std::int64_t value) {
    openStartTag(name);
    closeStartTag();
    hundredths(value);
    endTag(name);
}

void XmlText::emptyElement(std::u16string_view name) {
    text_.append(u"<").append(name).append(u" />").append(lineBreak);
}

void XmlText::escapedText(std::u16string_view text) {
    appendEscaped(text_, text, escapes);
}

void XmlText::hundredths(std::int64_t value) {
    platform::appendHundredths(text_, value);
}

void XmlText::twoDecimals(double value) {
    platform::appendFixedDecimals(text_, value, 2);
}

void XmlText::cdata(std::u16string_view text) {
    text_.append(u"<![CDATA[").append(lineBreak).append(text).append(lineBreak).append(u"]]>").append(lineBreak);
}

} // namespace hourwright::exchange
