#include "exchange/xml_export.h"

#include "exchange/memory_files.h"
#include "exchange/note_bytes.h"
#include "exchange/note_document.h"
#include "exchange/time_entry_xml.h"
#include "exchange/xml_text.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/posix_files.h"
#include "platform/utf.h"
#include "support/store_fixture.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace hourwright::exchange {
namespace {

using app::XmlEncoding;
using platform::PlatformError;
using platform::toUtf8;
using store::TimeEntry;

constexpr std::string_view head = "<?xml version=\"1.0\" ?>\r\n<ITEMS Version=\"300\" xmlns=\"entry-schema\">\r\n";
constexpr std::string_view foot = "</ITEMS>\r\n";

platform::FileTime instant(std::uint16_t day, std::uint16_t hour = 0, std::uint16_t minute = 0,
                           std::uint16_t second = 0) {
    return *platform::toFileTime(
        {.year = 2026, .month = 11, .day = day, .hour = hour, .minute = minute, .second = second});
}

std::vector<std::byte> inkNote() {
    return writeNote({.paragraphs = {{.items = {InkDrawing{.strokes = {{.points = {{1, 2, 3}, {4, 5, 6}}}}}}}}});
}

// An entry of which only the day and the client are set.
std::string itemFor(std::string_view date, std::string_view client) {
    return "<ITEM Status=\"0\">\r\n<DATE>" + std::string(date) + "</DATE>\r\n<CLIENT>" + std::string(client) +
           "</CLIENT>\r\n<PROJECT></PROJECT>\r\n<PHASE></PHASE>\r\n<TASK></TASK>\r\n<DURATION>0.00</DURATION>\r\n"
           "<CURRENCY></CURRENCY>\r\n<RATE />\r\n<AMOUNT>0.00</AMOUNT>\r\n<BILLTO></BILLTO>\r\n"
           "<CUSTOM1></CUSTOM1>\r\n<CUSTOM2></CUSTOM2>\r\n<CUSTOM3></CUSTOM3>\r\n<NOTES />\r\n</ITEM>\r\n";
}

TEST(XmlTextTest, EscapesAmpersandsAfterAngleBrackets) {
    struct Case {
        const char16_t* text;
        const char* expected;
    };
    const Case cases[] = {
        {u"", ""},
        {u"A<B", "A&amp;lt;B"},
        {u"A>B", "A&amp;gt;B"},
        {u"Smith & Co", "Smith &amp; Co"},
        {u"&lt;", "&amp;lt;"},
        {u"\"it's\"", "&quot;it&apos;s&quot;"},
        {u"<&>'\"\r\n\u00E9\u0001", "&amp;lt;&amp;&amp;gt;&apos;&quot;\r\n\u00E9\u0001"},
    };
    for (const Case& c : cases) {
        XmlText xml;
        xml.element(u"TASK", c.text);
        xml.attribute(u"a", c.text);
        EXPECT_EQ(toUtf8(xml.text()), std::string("<TASK>") + c.expected + "</TASK>\r\n a=\"" + c.expected + "\"");
    }
}

TEST(TimeEntryXmlTest, WritesEveryField) {
    TimeEntry entry;
    entry.date = instant(16, 9, 15, 1);
    entry.client = u"Smith & Co";
    entry.project = u"\"P\"";
    entry.phase = u"it's";
    entry.task = u"A<B";
    entry.duration = 125;
    entry.breakTime = 25;
    entry.status = store::EntryStatus::paid;
    entry.currency = u"\u20AC";
    entry.rate = 4550;
    entry.rateType = store::RateType::weekend;
    entry.billTo = u"Ms. X";
    entry.custom1 = u"1";
    entry.custom2 = u" 2 ";
    entry.custom3 = u"3>";
    entry.note = bytesOf("a<b> & ]]>\r\nc'\"");
    entry.paidDate = instant(20);
    TimeEntryXml xml({});
    EXPECT_EQ(toUtf8(xml.item(entry)), "<ITEM Status=\"3\">\r\n"
                                       "<DATE>2026-11-16</DATE>\r\n"
                                       "<CLIENT>Smith &amp; Co</CLIENT>\r\n"
                                       "<PROJECT>&quot;P&quot;</PROJECT>\r\n"
                                       "<PHASE>it&apos;s</PHASE>\r\n"
                                       "<TASK>A&amp;lt;B</TASK>\r\n"
                                       "<START>09:15:00</START>\r\n"
                                       "<BREAKTIME>0.25</BREAKTIME>\r\n"
                                       "<END>10:45:00</END>\r\n"
                                       "<DURATION>1.25</DURATION>\r\n"
                                       "<CURRENCY>\u20AC</CURRENCY>\r\n"
                                       "<RATE Type=\"2\">45.50</RATE>\r\n"
                                       "<AMOUNT>56.88</AMOUNT>\r\n" // 56.875 is exact and goes to the even digit
                                       "<BILLTO>Ms. X</BILLTO>\r\n"
                                       "<CUSTOM1>1</CUSTOM1>\r\n"
                                       "<CUSTOM2> 2 </CUSTOM2>\r\n"
                                       "<CUSTOM3>3&amp;gt;</CUSTOM3>\r\n"
                                       "<NOTES>\r\n"
                                       "<![CDATA[\r\n"
                                       "a<b> & ]]>\r\n"
                                       "c'\"\r\n"
                                       "]]>\r\n"
                                       "</NOTES>\r\n"
                                       "</ITEM>\r\n");
}

TEST(TimeEntryXmlTest, LeavesOutWhatIsNotThere) {
    TimeEntry entry;
    entry.date = instant(2);
    TimeEntryXml xml({});
    EXPECT_EQ(toUtf8(xml.item(entry)), itemFor("2026-11-02", ""));

    entry.date = instant(2, 9, 30, 2); // a time of day, but no start
    entry.breakTime = 50;
    EXPECT_EQ(toUtf8(xml.item(entry)), itemFor("2026-11-02", ""));

    entry.note = inkNote();
    std::string withoutNotes = itemFor("2026-11-02", "");
    withoutNotes.erase(withoutNotes.find("<NOTES />\r\n"), 11);
    EXPECT_EQ(toUtf8(xml.item(entry)), withoutNotes);

    entry.note.clear();
    entry.date.ticks = platform::lastFileTime.ticks + 1;
    EXPECT_EQ(toUtf8(xml.item(entry)), itemFor("", ""));
    entry.date = platform::lastFileTime;
    EXPECT_EQ(toUtf8(xml.item(entry)), itemFor("30827-12-31", ""));
    entry.date = {};
    EXPECT_EQ(toUtf8(xml.item(entry)), itemFor("1601-01-01", ""));
}

TEST(TimeEntryXmlTest, StartEndRateAndAmount) {
    struct Case {
        const char* what;
        std::uint16_t hour, minute;
        std::int32_t duration, breakTime;
        store::EntryStatus status;
        std::int32_t rate;
        store::RateType rateType;
        bool precise;
        const char* times;
        const char* money;
    };
    using enum store::EntryStatus;
    using enum store::RateType;
    const Case cases[] = {
        {"an hour and a half", 9, 15, 150, 0, billable, 0, normal, false,
         "<START>09:15:00</START>\r\n<BREAKTIME>0.00</BREAKTIME>\r\n<END>10:45:00</END>\r\n"
         "<DURATION>1.50</DURATION>\r\n",
         "<RATE />\r\n<AMOUNT>0.00</AMOUNT>\r\n"},
        {"past midnight", 23, 59, 100, 2, billed, 0, normal, false,
         "<START>23:59:00</START>\r\n<BREAKTIME>0.02</BREAKTIME>\r\n<END>01:00:00</END>\r\n"
         "<DURATION>1.00</DURATION>\r\n",
         "<RATE />\r\n<AMOUNT>0.00</AMOUNT>\r\n"},
        {"not billable, with a rate", 0, 0, 200, 0, nonBillable, 1005, discount, false,
         "<START>00:00:00</START>\r\n<BREAKTIME>0.00</BREAKTIME>\r\n<END>02:00:00</END>\r\n"
         "<DURATION>2.00</DURATION>\r\n",
         "<RATE Type=\"4\">10.05</RATE>\r\n<AMOUNT>20.10</AMOUNT>\r\n"},
        {"fixed rate", 8, 5, 17, 0, billable, 10000, fixed, false,
         "<START>08:05:00</START>\r\n<BREAKTIME>0.00</BREAKTIME>\r\n<END>08:15:00</END>\r\n"
         "<DURATION>0.17</DURATION>\r\n",
         "<RATE Type=\"3\">100.00</RATE>\r\n<AMOUNT>100.00</AMOUNT>\r\n"},
        {"hundredths", 8, 5, 17, 0, billable, 6000, normal, false,
         "<START>08:05:00</START>\r\n<BREAKTIME>0.00</BREAKTIME>\r\n<END>08:15:00</END>\r\n"
         "<DURATION>0.17</DURATION>\r\n",
         "<RATE Type=\"0\">60.00</RATE>\r\n<AMOUNT>10.20</AMOUNT>\r\n"},
        {"precise minutes", 8, 5, 17, 0, billable, 6000, normal, true,
         "<START>08:05:00</START>\r\n<BREAKTIME>0.00</BREAKTIME>\r\n<END>08:15:00</END>\r\n"
         "<DURATION>0.17</DURATION>\r\n",
         "<RATE Type=\"0\">60.00</RATE>\r\n<AMOUNT>10.00</AMOUNT>\r\n"},
    };
    for (const Case& c : cases) {
        TimeEntry entry;
        entry.date = instant(16, c.hour, c.minute, 1);
        entry.duration = c.duration;
        entry.breakTime = c.breakTime;
        entry.status = c.status;
        entry.rate = c.rate;
        entry.rateType = c.rateType;
        TimeEntryXml xml({.rules = {.preciseMinutes = c.precise}});
        const std::string item = toUtf8(xml.item(entry));
        EXPECT_NE(
            item.find(std::string("<TASK></TASK>\r\n") + c.times + "<CURRENCY></CURRENCY>\r\n" + c.money + "<BILLTO>"),
            std::string::npos)
            << c.what << ":\n"
            << item;
    }
}

class XmlExportTest : public test::StoreFixture {
protected:
    void add(platform::FileTime date, std::u16string client) {
        TimeEntry entry;
        entry.date = date;
        entry.client = std::move(client);
        change([&](platform::Transaction& transaction) {
            ASSERT_TRUE(store::insertTimeEntry(transaction, stores().entries(), entry));
        });
    }

    ExportResult run(
        const store::DateRange& range = {}, const TimeEntryFilter& accepts = [](const auto&) { return true; }) {
        return exportXml(stores().entries(), range, accepts, options_, {files_, "out.xml", *system_});
    }

    test::MemoryFiles files_;
    std::unique_ptr<platform::Locale> system_ = platform::makeIcuLocale("en_US");
    XmlOptions options_;
};

TEST_F(XmlExportTest, NothingInTheRangeLeavesTheRoot) {
    add(instant(2), u"too early");
    EXPECT_EQ(run({.after = instant(2), .last = instant(3)}), ExportResult{});
    EXPECT_EQ(files_.content, std::string(head) + std::string(foot));
    EXPECT_TRUE(files_.closed);
}

// After the first instant, up to and with the last, in date order.
TEST_F(XmlExportTest, TakesWhatTheFilterAcceptsOfTheRange) {
    add(instant(5), u"last");
    add(instant(2), u"first instant");
    add(instant(3), u"b");
    add(instant(2, 1), u"a");
    add(instant(4), u"no");
    add(instant(5, 1), u"too late");
    const auto accepts = [](const TimeEntry& entry) { return entry.client != u"no"; };
    EXPECT_EQ(run({.after = instant(2), .last = instant(5)}, accepts),
              (ExportResult{ExportStatus::done, PlatformError::none, 3}));
    EXPECT_EQ(files_.content, std::string(head) + itemFor("2026-11-02", "a") + itemFor("2026-11-03", "b") +
                                  itemFor("2026-11-05", "last") + std::string(foot));
}

// The declared name is a label; only UTF-16 has bytes of its own.
TEST_F(XmlExportTest, DeclaresAnEncodingAndWritesTheCodePage) {
    struct Case {
        XmlEncoding encoding;
        std::string_view declaration;
    };
    const Case cases[] = {
        {XmlEncoding::unnamed, "<?xml version=\"1.0\" ?>\r\n"},
        {XmlEncoding::utf8, "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n"},
        {XmlEncoding::latin1, "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n"},
        {XmlEncoding::big5, "<?xml version=\"1.0\" encoding=\"Big-5\" ?>\r\n"},
        {XmlEncoding::shiftJis, "<?xml version=\"1.0\" encoding=\"Shift-JIS\" ?>\r\n"},
    };
    add(instant(2), u"M\u00FCller \u20AC\u0416\U0001F600");
    for (const Case& c : cases) {
        options_.encoding = c.encoding;
        EXPECT_TRUE(run().ok());
        EXPECT_EQ(files_.content, std::string(c.declaration) + "<ITEMS Version=\"300\" xmlns=\"entry-schema\">\r\n" +
                                      itemFor("2026-11-02", "M\xFCller \x80???") + std::string(foot));
    }
}

TEST_F(XmlExportTest, WritesUtf16WithItsMark) {
    options_.encoding = XmlEncoding::utf16;
    add(instant(2), u"\u20AC\U0001F600\xD800");
    for (const char* const locale : {"en_US", "ja_JP"}) {
        system_ = platform::makeIcuLocale(locale);
        EXPECT_TRUE(run().ok());
        const std::string before = "<?xml version=\"1.0\" encoding=\"UTF-16\" ?>\r\n"
                                   "<ITEMS Version=\"300\" xmlns=\"entry-schema\">\r\n";
        const std::string item = itemFor("2026-11-02", "*");
        std::string expected = "\xFF\xFE";
        for (const char c : before + item + std::string(foot))
            expected += c == '*' ? std::string("\xAC\x20\x3D\xD8\x00\xDE\x00\xD8", 8) : std::string{c, '\0'};
        EXPECT_EQ(files_.content, expected) << locale;
    }
}

// As many bytes as the document has units: each character of two bytes costs the end of the file one byte, wherever it
// stands. Bytes that cannot be taken back are not written in the first place.
TEST_F(XmlExportTest, ADoubleByteCodePageCutsTheEnd) {
    struct Case {
        const char* what;
        std::u16string client;
        std::string bytes;
        std::size_t missing;
    };
    std::string kanji;
    for (int i = 0; i < 12; ++i)
        kanji += "\x8A\xBF";
    const Case cases[] = {
        {"single bytes", u"a\uFF76", "a\xB6", 0},
        {"two characters", u"\u6F22\u5B57", "\x8A\xBF\x8E\x9A", 2},
        {"into the last item", std::u16string(12, u'\u6F22') + u"\uFF76", kanji + "\xB6", 12},
    };
    system_ = platform::makeIcuLocale("ja_JP");
    add(instant(2), u"");
    add(instant(3), u"later");
    const auto first = stores().entries().seek(platform::Seek::toBeginning());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        TimeEntry entry;
        entry.id = first;
        entry.date = instant(2);
        entry.client = c.client;
        change([&](platform::Transaction& transaction) {
            ASSERT_TRUE(store::updateTimeEntry(transaction, stores().entries(), entry));
        });
        std::string expected =
            std::string(head) + itemFor("2026-11-02", c.bytes) + itemFor("2026-11-03", "later") + std::string(foot);
        expected.resize(expected.size() - c.missing);
        for (const bool takesBack : {false, true}) {
            files_.takesBack = takesBack;
            EXPECT_EQ(run(), (ExportResult{ExportStatus::done, PlatformError::none, 2}));
            EXPECT_EQ(files_.content, expected) << takesBack;
        }
    }
}

TEST_F(XmlExportTest, CutsALargeFileOnDisk) {
    system_ = platform::makeIcuLocale("ja_JP");
    const std::u16string client(30'000, u'\u6F22');
    for (std::uint16_t day = 1; day <= 9; ++day)
        add(instant(day), client);
    test::TemporaryDirectory directory;
    platform::PosixFiles files;
    const auto file = directory / "out.xml";
    EXPECT_TRUE(
        exportXml(stores().entries(), {}, [](const auto&) { return true; }, options_, {files, file, *system_}).ok());
    EXPECT_TRUE(run().ok());
    std::ifstream stream(file, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(content.size(), head.size() + foot.size() + 9 * (itemFor("2026-11-01", "").size() + client.size()));
    EXPECT_TRUE(content == files_.content); // the one is cut, the other was held back
}

TEST_F(XmlExportTest, TellsFailuresApart) {
    add(instant(2), u"a");
    add(instant(3), u"b");

    files_.denied = true;
    EXPECT_EQ(run(), (ExportResult{ExportStatus::notCreated, PlatformError::accessDenied, 0}));
    files_.denied = false;

    const std::string first = std::string(head) + itemFor("2026-11-02", "a");
    const std::string second = first + itemFor("2026-11-03", "b");
    struct Case {
        std::size_t room;
        std::uint64_t records;
        std::string_view content;
    };
    for (const Case& c : {Case{10, 0, ""}, Case{first.size(), 1, first}, Case{second.size() + 1, 2, second}}) {
        files_.room = c.room;
        files_.closed = false;
        EXPECT_EQ(run(), (ExportResult{ExportStatus::writeFailed, PlatformError::diskFull, c.records}));
        EXPECT_EQ(files_.content, c.content);
        EXPECT_TRUE(files_.closed);
    }
    files_.room = 10'000;
    files_.closeFails = true;
    EXPECT_EQ(run(), (ExportResult{ExportStatus::writeFailed, PlatformError::diskFull, 2}));
}

TEST_F(XmlExportTest, AStoreThatCannotBeReadLeavesTheFile) {
    files_.content = "old";
    stores().entries().close();
    const ExportResult result = run();
    EXPECT_EQ(result.status, ExportStatus::readFailed);
    EXPECT_NE(result.error, PlatformError::none);
    EXPECT_EQ(files_.content, "old");
}

TEST(XmlOptionsTest, ComeFromTheSettings) {
    struct Case {
        std::uint16_t encoding;
        XmlEncoding expected;
    };
    const Case cases[] = {{0, XmlEncoding::unnamed}, {1, XmlEncoding::utf8},       {2, XmlEncoding::utf16},
                          {3, XmlEncoding::latin1},  {4, XmlEncoding::big5},       {5, XmlEncoding::shiftJis},
                          {6, XmlEncoding::unnamed}, {65535, XmlEncoding::unnamed}};
    for (const Case& c : cases) {
        app::AppSettings settings({});
        settings.encoding = c.encoding;
        EXPECT_EQ(xmlOptions(settings).encoding, c.expected) << c.encoding;
        EXPECT_FALSE(xmlOptions(settings).rules.preciseMinutes);
    }
    app::AppSettings settings({});
    settings.styleFlags.set(app::StyleFlag::preciseMinutes);
    EXPECT_TRUE(xmlOptions(settings).rules.preciseMinutes);
}

} // namespace
} // namespace hourwright::exchange
