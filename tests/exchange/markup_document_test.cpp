#include "exchange/markup_document.h"

#include "platform/utf.h"

#include <chrono>
#include <gtest/gtest.h>

namespace hourwright::exchange {
namespace {

using platform::toUtf16;
using platform::toUtf8;

std::string textOf(const MarkupDocument& document) {
    return toUtf8(document.text());
}

MarkupDocument parsed(std::u16string_view text) {
    MarkupDocument document;
    EXPECT_TRUE(document.setText(text)) << toUtf8(text) << ": " << toUtf8(document.error());
    return document;
}

std::u16string repeated(std::u16string_view text, std::size_t count) {
    std::u16string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

TEST(MarkupDocumentTest, StartsWithoutElements) {
    MarkupDocument document;
    EXPECT_EQ(textOf(document), "");
    EXPECT_FALSE(document.isWellFormed());
    EXPECT_EQ(document.recordsUsed(), 1U);
    EXPECT_EQ(document.recordCapacity(), 8U);
    EXPECT_FALSE(document.addAttribute(u"a", u"b"));
    EXPECT_FALSE(document.addParentAttribute(u"a", u"b"));
    EXPECT_FALSE(document.intoElement());
    EXPECT_FALSE(document.outOfElement());
    EXPECT_FALSE(document.toFirstElement());
    EXPECT_FALSE(document.toNextElement());
    EXPECT_EQ(textOf(document), "");
}

TEST(MarkupDocumentTest, EscapesTextsAndAttributes) {
    struct Case {
        const char16_t* value;
        const char* text;
        const char* attribute;
    };
    const Case cases[] = {
        {u"", "", ""},
        {u"a<b & c", "a&lt;b &amp; c", "a&lt;b &amp; c"},
        {u"it's \"so\"", "it's \"so\"", "it&apos;s &quot;so&quot;"},
        {u"<&>'\"", "&lt;&amp;&gt;'\"", "&lt;&amp;&gt;&apos;&quot;"},
        {u"&lt;", "&amp;lt;", "&amp;lt;"},
        {u"]]>", "]]&gt;", "]]&gt;"},
        {u"\u00E9\u20AC\r\n\t|~", "\u00E9\u20AC\r\n\t|~", "\u00E9\u20AC\r\n\t|~"},
        {u"\u203C\u013E\u2026b\u0126", "\u203C\u013E\u2026b\u0126", "\u203C\u013E\u2026b\u0126"},
    };
    for (const Case& c : cases) {
        MarkupDocument document;
        EXPECT_TRUE(document.addElement(u"td", c.value));
        EXPECT_TRUE(document.addAttribute(u"id", c.value));
        EXPECT_EQ(textOf(document), std::string("<td id=\"") + c.attribute + "\">" + c.text + "</td>\r\n");
    }
}

TEST(MarkupDocumentTest, RefusesWhatIsNoName) {
    for (const char16_t* const name :
         {u"", u" ", u"a b", u"a\t", u"\na", u"a\r", u"<", u"a>", u"=", u"a/", u"a\\", u"?a", u"!a", u"a'b", u"a\"b"}) {
        SCOPED_TRACE(toUtf8(name));
        MarkupDocument document;
        EXPECT_FALSE(document.addElement(name));
        EXPECT_FALSE(document.addElement(name, u"value"));
        EXPECT_TRUE(document.addElement(u"html"));
        EXPECT_FALSE(document.addAttribute(name, u"value"));
        EXPECT_TRUE(document.intoElement());
        EXPECT_FALSE(document.addElement(name));
        EXPECT_FALSE(document.addParentAttribute(name, u"value"));
        EXPECT_EQ(textOf(document), "<html/>\r\n");
        EXPECT_EQ(document.recordsUsed(), 2U);
    }
    MarkupDocument document;
    EXPECT_TRUE(document.addElement(u"h:t-1.\u00E9"));
}

TEST(MarkupDocumentTest, BuildsAReport) {
    MarkupDocument page;
    EXPECT_TRUE(page.addElement(u"html"));
    EXPECT_TRUE(page.isWellFormed());
    EXPECT_TRUE(page.addAttribute(u"lang", u"en"));
    EXPECT_TRUE(page.intoElement());
    EXPECT_TRUE(page.addElement(u"title", u"R&D"));
    EXPECT_TRUE(page.addElement(u"table"));
    EXPECT_TRUE(page.intoElement());
    for (const char16_t* const hours : {u"1.50", u"0.25"}) {
        EXPECT_TRUE(page.addElement(u"tr"));
        EXPECT_TRUE(page.intoElement());
        EXPECT_TRUE(page.addElement(u"td", u"Acme"));
        EXPECT_TRUE(page.addElement(u"td", hours));
        EXPECT_TRUE(page.addAttribute(u"align", u"right"));
        EXPECT_TRUE(page.addAttribute(u"class", u"hours"));
        EXPECT_TRUE(page.outOfElement());
    }
    EXPECT_TRUE(page.addParentAttribute(u"border", u"1"));
    EXPECT_TRUE(page.outOfElement());
    EXPECT_TRUE(page.addAttribute(u"width", u"100%"));
    EXPECT_TRUE(page.addElement(u"hr"));
    EXPECT_TRUE(page.addParentAttribute(u"dir", u"ltr"));
    EXPECT_EQ(textOf(page), "<html lang=\"en\" dir=\"ltr\">\r\n"
                            "<title>R&amp;D</title>\r\n"
                            "<table border=\"1\" width=\"100%\">\r\n"
                            "<tr>\r\n"
                            "<td>Acme</td>\r\n"
                            "<td align=\"right\" class=\"hours\">1.50</td>\r\n"
                            "</tr>\r\n"
                            "<tr>\r\n"
                            "<td>Acme</td>\r\n"
                            "<td align=\"right\" class=\"hours\">0.25</td>\r\n"
                            "</tr>\r\n"
                            "</table>\r\n"
                            "<hr/>\r\n"
                            "</html>\r\n");
    EXPECT_TRUE(page.outOfElement());
    EXPECT_FALSE(page.outOfElement());
}

TEST(MarkupDocumentTest, PutsChildrenBehindAParentsText) {
    MarkupDocument document;
    EXPECT_TRUE(document.addElement(u"p", u"a"));
    EXPECT_TRUE(document.intoElement());
    EXPECT_TRUE(document.addElement(u"b", u"c"));
    EXPECT_EQ(textOf(document), "<p>a<b>c</b>\r\n</p>\r\n");
    EXPECT_TRUE(document.intoElement());
    EXPECT_TRUE(document.addElement(u"i"));
    EXPECT_EQ(textOf(document), "<p>a<b>c<i/>\r\n</b>\r\n</p>\r\n");
}

TEST(MarkupDocumentTest, GoesIntoAnElementAgain) {
    MarkupDocument document;
    EXPECT_TRUE(document.addElement(u"ul"));
    for (const char16_t* const item : {u"1", u"2", u"3"}) {
        EXPECT_TRUE(document.intoElement());
        EXPECT_TRUE(document.addElement(u"li", item));
        EXPECT_TRUE(document.outOfElement());
    }
    EXPECT_TRUE(document.addElement(u"p"));
    EXPECT_EQ(textOf(document), "<ul>\r\n<li>1</li>\r\n<li>2</li>\r\n<li>3</li>\r\n</ul>\r\n<p/>\r\n");
}

TEST(MarkupDocumentTest, AddsToAParsedText) {
    struct Case {
        const char* what;
        const char16_t* text;
        bool (*add)(MarkupDocument&);
        const char* expected;
    };
    const auto intoRoot = [](MarkupDocument& d) { return d.toFirstElement() && d.intoElement() && d.addElement(u"n"); };
    const Case cases[] = {
        {"behind the root", u"<?xml version=\"1.0\"?>\r\n<a/>",
         [](MarkupDocument& d) { return d.addElement(u"n", u"x"); }, "<?xml version=\"1.0\"?>\r\n<a/><n>x</n>\r\n"},
        {"into an empty root", u"<a b='c' />", intoRoot, "<a b='c'>\r\n<n/>\r\n</a>"},
        {"into an empty root with a line break", u"<a/>\n ", intoRoot, "<a>\r\n<n/>\r\n</a>\n "},
        {"into a root with text", u"<a >text</a >end", intoRoot, "<a >text<n/>\r\n</a >end"},
        {"behind the last child", u"<a><b/>\r\n<c>x</c>\r\n</a>", intoRoot, "<a><b/>\r\n<c>x</c>\r\n<n/>\r\n</a>"},
        {"before what follows the last child", u"<a><b/>text<!-- > --></a>", intoRoot,
         "<a><b/><n/>\r\ntext<!-- > --></a>"},
        {"between children", u"<a>1<b><c/></b>\n2<d/>3</a>",
         [](MarkupDocument& d) {
             return d.toFirstElement() && d.intoElement() && d.toFirstElement() && d.addElement(u"n") &&
                    d.addAttribute(u"k", u"v") && d.toNextElement() && d.addElement(u"m") && !d.toNextElement();
         },
         "<a>1<b><c/></b>\n<n k=\"v\"/>\r\n2<d/><m/>\r\n3</a>"},
        {"attributes", u"<a\n><b c = \"d/>\"\t/></a>",
         [](MarkupDocument& d) {
             return d.toFirstElement() && d.addAttribute(u"k", u"v") && d.intoElement() && d.toFirstElement() &&
                    d.addAttribute(u"l", u"w") && d.addParentAttribute(u"m", u"x");
         },
         "<a k=\"v\" m=\"x\"\n><b c = \"d/>\" l=\"w\"\t/></a>"},
        {"deep inside", u"<a><b><c></c></b></a>",
         [](MarkupDocument& d) {
             return d.toFirstElement() && d.intoElement() && d.toFirstElement() && d.intoElement() &&
                    d.toFirstElement() && d.intoElement() && d.addElement(u"n") && d.outOfElement() &&
                    d.addElement(u"m") && d.outOfElement() && d.addAttribute(u"k", u"v");
         },
         "<a><b k=\"v\"><c><n/>\r\n</c><m/>\r\n</b></a>"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        MarkupDocument document = parsed(c.text);
        EXPECT_EQ(textOf(document), toUtf8(c.text));
        EXPECT_TRUE(c.add(document));
        EXPECT_EQ(textOf(document), c.expected);
    }
}

// Building goes on in a parsed text as it would have in the document that the text came from.
TEST(MarkupDocumentTest, ABuiltTextIsParsedIntoTheSameDocument) {
    MarkupDocument built;
    EXPECT_TRUE(built.addElement(u"a", u"<"));
    EXPECT_TRUE(built.addAttribute(u"k", u"'>\""));
    EXPECT_TRUE(built.intoElement());
    EXPECT_TRUE(built.addElement(u"b"));
    EXPECT_TRUE(built.addElement(u"c", u""));
    MarkupDocument again = parsed(built.text());
    EXPECT_EQ(again.recordsUsed(), 4U);
    EXPECT_TRUE(again.toFirstElement() && again.intoElement());
    for (MarkupDocument* const document : {&built, &again}) {
        EXPECT_TRUE(document->addElement(u"d"));
        EXPECT_EQ(textOf(*document), "<a k=\"&apos;&gt;&quot;\">&lt;<b/>\r\n<c></c>\r\n<d/>\r\n</a>\r\n");
    }
}

TEST(MarkupDocumentTest, PassesOverWhatIsNoElement) {
    struct Case {
        const char16_t* text;
        std::size_t elements;
    };
    const Case cases[] = {
        {u"<a/>", 1},
        {u"text before <a></a>", 1},
        {u"<a></a><b></c>", 1},
        {u"<?xml a=\"<b>\" ?><a><?pi </a> ?></a>", 1},
        {u"<!-- <b> -- ' --><a><!----></a>", 1},
        {u"<a><!--></a>--><b/></a>", 2},
        {u"<a><![CDATA[</a> ]] ]> <b>]]><b/></a>", 2},
        {u"<!DOCTYPE html PUBLIC \"-//>//\" 'b'><html/>", 1},
        {u"<!DOCTYPE a [<!ENTITY b \"]>\"> <!-- don't ]> -->]><a/>", 1},
        {u"<a b=\">\" c='/>' d=e f=\"'\"></a>", 1},
        {u"< a >< b / ></ b ></ a >", 2},
        {u"<a b=it's></a>", 1},
        {u"<a/b></a>", 1},
        {u"<a></a b>", 1},
        {u"<\u00E9:x-1.2><b/><c></c><d/></\u00E9:x-1.2>", 4},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(toUtf8(c.text));
        const MarkupDocument document = parsed(c.text);
        EXPECT_TRUE(document.isWellFormed());
        EXPECT_EQ(toUtf8(document.error()), "");
        EXPECT_EQ(document.recordsUsed(), c.elements + 1);
        EXPECT_EQ(textOf(document), toUtf8(c.text));
    }
}

TEST(MarkupDocumentTest, SaysWhatIsWrong) {
    struct Case {
        const char16_t* text;
        const char* error;
    };
    const Case cases[] = {
        {u"", "Element tag not found"},
        {u"no tag > here", "Element tag not found"},
        {u"<?xml version=\"1.0\"?><!-- <a/> -->", "Element tag not found"},
        {u"</a>", "Element tag not found"},
        {u"<>", "Element tag not found"},
        {u"<=a>", "Element tag not found"},
        {u"<<a/>", "Element tag not found"},
        {u"<", "Abrupt end within tag"},
        {u"<a>< \r\n", "Abrupt end within tag"},
        {u"<?xml", "Abrupt end within tag"},
        {u"<a><!-- ->", "Abrupt end within tag"},
        {u"<!-", "Abrupt end within tag"},
        {u"<!", "Abrupt end within tag"},
        {u"<a><![CDATA[ ]>", "Abrupt end within tag"},
        {u"<!DOCTYPE a [ > <a/>", "Abrupt end within tag"},
        {u"<!DOCTYPE a \"><a/>", "Abrupt end within tag"},
        {u"<\"a\">", "Tag starts with quote"},
        {u"<a>< 'b'/></a>", "Tag starts with quote"},
        {u"<a", "End of tag not found"},
        {u"<a b=\"c\"", "End of tag not found"},
        {u"<a b=\"c></a>", "End of tag not found"},
        {u"<a /", "End of tag not found"},
        {u"<a <b/></a>", "End of tag not found"},
        {u"<a>", "End tag of a element not found"},
        {u"<a>text", "End tag of a element not found"},
        {u"<a><b></b><c/>", "End tag of a element not found"},
        {u"<a><b></a>", "End tag does not correspond to b"},
        {u"<a></A>", "End tag does not correspond to a"},
        {u"<a></ab>", "End tag does not correspond to a"},
        {u"<ab></a>", "End tag does not correspond to ab"},
        {u"<a></b", "End tag does not correspond to a"},
        {u"<a></'a'>", "End tag does not correspond to a"},
        {u"<a></", "Expecting end tag of element a"},
        {u"<a><b></b ", "Expecting end tag of element b"},
        {u"<a></a <b>", "Expecting end tag of element a"},
        {u"<a></>", "End tag not completed for element a"},
        {u"<a><%s></a>", "End tag does not correspond to %s"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(toUtf8(c.text));
        MarkupDocument document = parsed(u"<old><b/></old>");
        EXPECT_FALSE(document.setText(c.text));
        EXPECT_EQ(toUtf8(document.error()), c.error);
        EXPECT_FALSE(document.isWellFormed());
        EXPECT_EQ(document.recordsUsed(), 1U);
        EXPECT_EQ(textOf(document), toUtf8(c.text));
        EXPECT_FALSE(document.toFirstElement());
        EXPECT_FALSE(document.addAttribute(u"n", u"v"));
        const bool isEmpty = *c.text == 0;
        EXPECT_EQ(document.addElement(u"n"), isEmpty);
        EXPECT_EQ(textOf(document), isEmpty ? "<n/>\r\n" : toUtf8(c.text));
    }
}

TEST(MarkupDocumentTest, TheIndexGrowsByHalfAndWithTheText) {
    MarkupDocument document;
    std::vector<std::size_t> capacities;
    for (int i = 0; i < 40; ++i) {
        EXPECT_TRUE(document.addElement(u"a"));
        if (capacities.empty() || capacities.back() != document.recordCapacity())
            capacities.push_back(document.recordCapacity());
    }
    EXPECT_EQ(document.recordsUsed(), 41U);
    EXPECT_EQ(capacities, (std::vector<std::size_t>{8, 12, 18, 27, 40, 60}));

    EXPECT_TRUE(document.setText(u"<a/>"));
    EXPECT_EQ(document.recordsUsed(), 2U);
    EXPECT_EQ(document.recordCapacity(), 60U); // never smaller

    struct Case {
        std::size_t length;
        std::size_t capacity;
    };
    for (const Case& c : {Case{63, 8}, Case{64, 9}, Case{6400, 108}}) {
        SCOPED_TRACE(c.length);
        EXPECT_EQ(parsed(u"<a/>" + std::u16string(c.length - 4, u' ')).recordCapacity(), c.capacity);
    }
    // 7 + 32 * 4 units make room for 10 records, then 15, 22, 33, 49; 34 are needed.
    EXPECT_EQ(parsed(u"<a>" + repeated(u"<b/>", 32) + u"</a>").recordCapacity(), 49U);
}

// Each would take minutes, or end the process, if nesting used the stack or anything were looked through twice.
TEST(MarkupDocumentTest, HostileTextsEndSoon) {
    constexpr std::size_t depth = 100'000;
    constexpr std::size_t mega = std::size_t{1} << 20;
    struct Case {
        const char* what;
        std::u16string text;
        const char* error;
    };
    const Case cases[] = {
        {"deep", repeated(u"<a>", depth) + repeated(u"</a>", depth), ""},
        {"deep and open", repeated(u"<a>", depth), "End tag of a element not found"},
        {"wide", u"<a>" + repeated(u"<b/>", depth) + u"</a>", ""},
        {"long name", u"<" + std::u16string(mega, u'n') + u"></n>", nullptr},
        {"many attributes", u"<a " + repeated(u"b=\"c\" ", mega) + u"/>", ""},
        {"long attribute", u"<a b='" + std::u16string(mega, u'>') + u"'/>", ""},
        {"quotes", u"<a " + std::u16string(2 * mega + 1, u'"') + u"/>", "End of tag not found"},
        {"open comments", u"<a>" + repeated(u"<!--", mega), "Abrupt end within tag"},
        {"open sections", u"<a>" + repeated(u"<![CDATA[", mega), "Abrupt end within tag"},
        {"open document types", repeated(u"<!D [", mega), "Abrupt end within tag"},
        {"open instructions", repeated(u"<?", mega), "Abrupt end within tag"},
        {"angles", std::u16string(mega, u'<'), "Element tag not found"},
        {"blanks", u"<" + std::u16string(mega, u' '), "Abrupt end within tag"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        MarkupDocument document;
        const auto start = std::chrono::steady_clock::now();
        const bool ok = document.setText(c.text);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
        if (c.error) {
            EXPECT_EQ(ok, *c.error == 0);
            EXPECT_EQ(toUtf8(document.error()), c.error);
        } else {
            EXPECT_FALSE(ok);
            EXPECT_GT(document.error().size(), mega);
        }
        EXPECT_TRUE(document.text() == c.text);
    }
}

} // namespace
} // namespace hourwright::exchange
