#include "platform/calendar.h"
#include "platform/icu/icu_locale.h"
#include "platform/icu/locale_parts.h"
#include "platform/locale_names.h"
#include "platform/utf.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>
#include <tuple>
#include <vector>

namespace hourwright::platform {
namespace {

SystemTime date(std::uint16_t year, std::uint16_t month, std::uint16_t day) {
    return {.year = year, .month = month, .day = day};
}

SystemTime timeOfDay(std::uint16_t hour, std::uint16_t minute) {
    return {.year = 2010, .month = 3, .day = 1, .hour = hour, .minute = minute};
}

std::unique_ptr<Locale> locale(std::string_view name) {
    std::unique_ptr<Locale> made = makeIcuLocale(name);
    if (!made)
        throw std::invalid_argument(std::string(name));
    return made;
}

TEST(LocaleNamesTest, theFirstVariableThatSaysSomethingDecides) {
    const struct {
        const char* name;
        std::map<std::string, const char*> variables;
        const char* user;
        const char* system;
    } cases[] = {
        {"none", {}, "C", "C"},
        {"LANG alone", {{"LANG", "de_DE"}}, "de_DE", "de_DE"},
        {"LC_TIME is the user's only", {{"LC_TIME", "en_GB"}, {"LANG", "de_DE"}}, "en_GB", "de_DE"},
        {"LC_ALL over both", {{"LC_ALL", "ja_JP"}, {"LC_TIME", "en_GB"}, {"LANG", "de_DE"}}, "ja_JP", "ja_JP"},
        {"empty counts as not set", {{"LC_ALL", ""}, {"LC_TIME", ""}, {"LANG", "de_DE"}}, "de_DE", "de_DE"},
        {"others do not matter", {{"LC_NUMERIC", "fr_FR"}}, "C", "C"},
    };
    for (const auto& c : cases) {
        const auto lookup = [&c](const char* name) {
            const auto found = c.variables.find(name);
            return found != c.variables.end() ? found->second : nullptr;
        };
        EXPECT_EQ(userLocaleName(lookup), c.user) << c.name;
        EXPECT_EQ(systemLocaleName(lookup), c.system) << c.name;
    }
}

TEST(LocalePartsTest, takesNamesApart) {
    const struct {
        const char* name;
        LocaleParts expected;
    } cases[] = {
        {"de", {"de", "", ""}},
        {"de_DE", {"de", "", "DE"}},
        {"de_DE.UTF-8", {"de", "", "DE"}},
        {"de_DE.utf8@euro", {"de", "", "DE"}},
        {"ja_JP.eucJP", {"ja", "", "JP"}},
        {"sr_RS@latin", {"sr", "Latn", "RS"}},
        {"sr_RS.UTF-8@latin", {"sr", "Latn", "RS"}},
        {"uz_UZ@cyrillic", {"uz", "Cyrl", "UZ"}},
        {"zh_Hant_HK", {"zh", "Hant", "HK"}},
        {"ZH-hant-hk", {"zh", "Hant", "HK"}},
        {"es_419", {"es", "", "419"}},
        {"ckb_IQ", {"ckb", "", "IQ"}},
        {"C", {"en", "", "US"}},
        {"C.UTF-8", {"en", "", "US"}},
        {"POSIX", {"en", "", "US"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parseLocaleName(c.name), c.expected) << c.name;
}

TEST(LocalePartsTest, refusesWhatIsNoLocale) {
    for (const char* name :
         {"",       "d",        "german",     "xx_YY", "qq",    "de_",    "_DE",    "de_XX",       "de_DEU",
          "de__DE", "de_DE_AT", "de_DE_Latn", "d3",    "de DE", "de_DE.", "de_DE@", "de_DE.UTF 8", "de_DE.UTF-8@",
          "de/DE",  "../de",    "c",          "C_US",  "dé_DE"}) {
        EXPECT_FALSE(parseLocaleName(name)) << name;
        EXPECT_FALSE(makeIcuLocale(name)) << name;
    }
}

TEST(LocaleTest, shortDates) {
    const struct {
        const char* name;
        SystemTime date;
        std::u16string expected;
    } cases[] = {
        {"en_US", date(2010, 3, 1), u"3/1/10"},
        {"C", date(2010, 12, 31), u"12/31/10"},
        {"POSIX", date(2010, 12, 31), u"12/31/10"},
        {"en_GB", date(2010, 3, 1), u"01/03/2010"},
        {"de_DE.UTF-8", date(2010, 3, 1), u"01.03.10"},
        {"fr_FR", date(2004, 2, 29), u"29/02/2004"},
        {"sv_SE", date(1999, 12, 31), u"1999-12-31"},
        {"ja_JP.eucJP", date(2010, 3, 1), u"2010/03/01"},
        {"zh_TW", date(2010, 3, 1), u"2010/3/1"},
        {"sr_RS@latin", date(2010, 3, 1), u"1.3.10."},
        // Gregorian and in western digits, whatever is usual in the country.
        {"th_TH", date(2010, 3, 1), u"1/3/10"},
        {"fa_IR", date(2010, 3, 1), u"2010/3/1"},
        {"ar_SA", date(2010, 3, 1), u"1\u200F/3\u200F/2010"},
        // The ends of the range, and no Julian dates.
        {"fr_FR", date(1601, 1, 1), u"01/01/1601"},
        {"fr_FR", date(1700, 2, 28), u"28/02/1700"},
        {"fr_FR", date(30827, 12, 31), u"31/12/30827"},
        {"fr_FR", date(1600, 12, 31), u""},
        {"fr_FR", date(30828, 1, 1), u""},
        {"fr_FR", date(2010, 2, 29), u""},
        {"fr_FR", SystemTime{}, u""},
        // Nothing known about the language: neutral, not what the process is set to.
        {"wa_BE", date(2010, 3, 1), u"2010-03-01"},
        // Years of two digits, whatever the century; a word in the pattern.
        {"en_US", date(2000, 10, 20), u"10/20/00"},
        {"en_US", date(1905, 1, 31), u"1/31/05"},
        {"de_DE", date(30827, 12, 31), u"31.12.27"},
        {"bg_BG", date(2009, 3, 1), u"1.03.09 г."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(locale(c.name)->shortDate(c.date), c.expected) << c.name << ' ' << c.date.year;
}

TEST(LocaleTest, everyDayOfSomeYearsInAnyOrder) {
    const auto french = locale("fr_FR");
    const auto two = [](int n) {
        return std::string{static_cast<char>('0' + n / 10), static_cast<char>('0' + n % 10)};
    };
    SystemTime forward = date(1899, 12, 25);
    SystemTime backward = date(2012, 3, 5);
    for (int i = 0; i < 5000; ++i) {
        for (const SystemTime& day : {forward, backward}) {
            const std::string expected = two(day.day) + '/' + two(day.month) + '/' + std::to_string(day.year);
            ASSERT_EQ(toUtf8(french->shortDate(day)), expected);
        }
        ASSERT_TRUE(addDays(forward, 1) && addDays(backward, -1));
    }
}

TEST(LocaleTest, timesWithoutSeconds) {
    const struct {
        const char* name;
        SystemTime time;
        std::u16string expected;
    } cases[] = {
        {"en_US", timeOfDay(0, 0), u"12:00 AM"},   {"en_US", timeOfDay(9, 5), u"9:05 AM"},
        {"C", timeOfDay(12, 0), u"12:00 PM"},      {"en_US", timeOfDay(23, 59), u"11:59 PM"},
        {"de_DE", timeOfDay(9, 5), u"09:05"},      {"fr_CA", timeOfDay(15, 5), u"15 h 05"},
        {"da_DK", timeOfDay(15, 5), u"15.05"},     {"ja_JP", timeOfDay(9, 5), u"9:05"},
        {"ko_KR", timeOfDay(15, 5), u"오후 3:05"}, {"es_US", timeOfDay(15, 5), u"3:05 p. m."},
        {"en_US", timeOfDay(24, 0), u""},          {"en_US", timeOfDay(0, 60), u""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(locale(c.name)->timeWithoutSeconds(c.time), c.expected)
            << c.name << ' ' << c.time.hour << ':' << c.time.minute;
}

TEST(LocaleTest, secondsAreCutOff) {
    SystemTime time = timeOfDay(9, 5);
    time.second = 59;
    time.milliseconds = 999;
    EXPECT_EQ(locale("de_DE")->timeWithoutSeconds(time), u"09:05");
}

TEST(LocaleTest, noTimeZoneShiftsAnything) {
    const char* const before = std::getenv("TZ");
    const std::string saved = before != nullptr ? before : "";
    for (const char* zone : {"America/New_York", "Pacific/Kiritimati", "Europe/Berlin"}) {
        ::setenv("TZ", zone, 1);
        ::tzset();
        const auto english = locale("en_US");
        // Two o'clock does not exist on this day in New York.
        const SystemTime time{.year = 2010, .month = 3, .day = 14, .hour = 2, .minute = 30};
        EXPECT_EQ(english->shortDate(time), u"3/14/10") << zone;
        EXPECT_EQ(english->timeWithoutSeconds(time), u"2:30 AM") << zone;
    }
    before != nullptr ? ::setenv("TZ", saved.c_str(), 1) : ::unsetenv("TZ");
    ::tzset();
}

TEST(LocaleTest, numbers) {
    const struct {
        const char* name;
        std::u16string plain;
        std::u16string expected;
    } cases[] = {
        {"en_US", u"1234.50", u"1,234.50"},
        {"C", u"1234567.89", u"1,234,567.89"},
        {"en_US", u"999.00", u"999.00"},
        {"en_US", u"1000", u"1,000"},
        {"en_US", u"-1234.50", u"-1,234.50"},
        {"en_US", u"-123.50", u"-123.50"},
        {"en_US", u"-0.05", u"-0.05"},
        {"en_US", u"0.1234567890123456789", u"0.1234567890123456789"},
        {"en_US", u"12345678901234567890123.10", u"12,345,678,901,234,567,890,123.10"},
        {"de_DE", u"1234567.80", u"1.234.567,80"},
        {"de_DE", u"0.00", u"0,00"},
        {"fr_FR", u"1234.50", u"1\u202F234,50"},
        {"de_CH", u"1234.50", u"1\u2019234.50"},
        {"hi_IN", u"123456789.50", u"12,34,56,789.50"},
        {"hi_IN", u"1234.50", u"1,234.50"},
        {"es_ES", u"1234.50", u"1.234,50"},
        {"fa_IR", u"1234.50", u"1,234.50"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(locale(c.name)->number(c.plain), c.expected) << c.name << ' ' << toUtf8(c.plain);
}

TEST(LocaleTest, whatIsNoPlainNumberStaysAsItIs) {
    const auto german = locale("de_DE");
    for (const std::u16string text : {u"", u"-", u".", u"-.", u".50", u"-.50", u"1234.", u"1,234.50", u"1234.5.6",
                                      u"+1234", u"--1234", u"12 34", u"1e300", u"inf", u"nan", u"1234-", u"١٢٣٤"})
        EXPECT_EQ(german->number(text), text) << toUtf8(text);
}

struct OrderedTexts {
    const char* locale;
    std::vector<std::u16string> ascending;
};

TEST(LocaleTest, textsCompareInTheOrderOfTheLanguage) {
    const OrderedTexts cases[] = {
        {"en_US", {u"", u"-", u"1", u"10", u"2", u"a", u"A", u"á", u"ab", u"B", u"résumé", u"Z", u"я"}},
        {"de_DE", {u"Ofen", u"öffnen", u"Ohr", u"Strasse", u"Straße", u"z"}},
        {"sv_SE", {u"a", u"z", u"å", u"ä", u"ö"}},
        {"cs_CZ", {u"c", u"cz", u"č", u"h", u"ch", u"i"}},
        {"wa_BE", {u"a", u"á", u"b", u"z"}},
    };
    for (const OrderedTexts& c : cases) {
        const auto rules = locale(c.locale);
        for (std::size_t i = 0; i < c.ascending.size(); ++i) {
            for (std::size_t j = 0; j < c.ascending.size(); ++j) {
                const auto& [a, b] = std::tie(c.ascending[i], c.ascending[j]);
                const std::strong_ordering expected = i <=> j;
                const std::string shown = std::string(c.locale) + ": " + toUtf8(a) + " and " + toUtf8(b);
                EXPECT_EQ(rules->compare(a, b), std::weak_ordering(expected)) << shown;
                EXPECT_EQ(rules->compareStrictly(a, b), expected) << shown;
                EXPECT_EQ(rules->collationKey(a) <=> rules->collationKey(b), expected) << shown;
            }
        }
    }
}

TEST(LocaleTest, equalsOfTheLanguageDifferStrictly) {
    const auto german = locale("de_DE");
    const struct {
        const char* name;
        std::u16string first, second;
    } cases[] = {
        {"an accent apart", u"re\u0301sume\u0301", u"r\u00E9sum\u00E9"},
        {"accents in another order", u"a\u0301\u0323", u"a\u0323\u0301"},
        {"a soft hyphen", u"Zeitraum", u"Zeit\u00ADraum"},
        {"a zero", std::u16string(u"a"), std::u16string(u"a\0", 2)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(german->compare(c.first, c.second), std::weak_ordering::equivalent) << c.name;
        EXPECT_EQ(german->collationKey(c.first), german->collationKey(c.second)) << c.name;
        EXPECT_EQ(german->compareStrictly(c.first, c.second), std::strong_ordering::less) << c.name;
        EXPECT_EQ(german->compareStrictly(c.second, c.first), std::strong_ordering::greater) << c.name;
    }
    EXPECT_EQ(german->compareStrictly(u"same", u"same"), std::strong_ordering::equal);
}

TEST(LocaleTest, collationKeysOfLongTextsAreWhole) {
    const auto german = locale("de_DE");
    std::u16string text;
    for (int i = 0; i < 1000; ++i)
        text += u"日本のソフト";
    EXPECT_EQ(german->collationKey(text), german->collationKey(text));
    EXPECT_LT(german->collationKey(text), german->collationKey(text + u"a"));
    EXPECT_LT(german->collationKey(text + u"a"), german->collationKey(text + u"A"));
}

TEST(LocaleTest, codePagesFollowTheLanguage) {
    const struct {
        std::uint32_t number;
        std::vector<const char*> locales;
    } cases[] = {
        {1252, {"C", "POSIX", "en_US", "de_DE.UTF-8", "fr_CA", "sv_SE", "pt_BR", "is_IS", "hi_IN", "wa_BE"}},
        {1250, {"cs_CZ", "sk_SK", "pl_PL", "hu_HU", "sl_SI", "hr_HR", "ro_RO", "sq_AL", "bs_BA", "sr_RS@latin"}},
        {1251, {"ru_RU", "uk_UA", "bg_BG", "be_BY", "mk_MK", "sr_RS", "kk_KZ", "mn_MN", "az_AZ@cyrillic"}},
        {1253, {"el_GR", "el_CY"}},
        {1254, {"tr_TR", "az_AZ", "uz_UZ"}},
        {1255, {"he_IL", "yi_US"}},
        {1256, {"ar_EG", "fa_IR", "ur_PK", "pa_Arab_PK"}},
        {1257, {"lt_LT", "lv_LV", "et_EE"}},
        {1258, {"vi_VN"}},
        {874, {"th_TH"}},
        {932, {"ja_JP.eucJP"}},
        {936, {"zh_CN", "zh_SG", "zh", "zh_Hans_HK"}},
        {949, {"ko_KR"}},
        {950, {"zh_TW", "zh_HK", "zh_MO", "zh_Hant", "yue_HK"}},
    };
    for (const auto& c : cases)
        for (const char* name : c.locales)
            EXPECT_EQ(locale(name)->ansiCodePage().number(), c.number) << name;
}

TEST(LocaleTest, theNameIsKeptAsGiven) {
    EXPECT_EQ(locale("de_DE.UTF-8@euro")->name(), "de_DE.UTF-8@euro");
    EXPECT_EQ(locale("C")->name(), "C");
}

TEST(IsAlphabeticTest, lettersOfAnyScript) {
    for (const char32_t c : U"azAZéßıЖαאع日한ไⅧ\U00010400")
        EXPECT_EQ(isAlphabetic(c), c != 0) << static_cast<std::uint32_t>(c);
    for (const char32_t c : U"019 .,+-:/$€%_²½\u0301\u0663\u00A0\U0001F600")
        EXPECT_FALSE(isAlphabetic(c)) << static_cast<std::uint32_t>(c);
    for (const char32_t c : {char32_t{0xD800}, char32_t{0xDFFF}, char32_t{0x110000}, char32_t{0xFFFFFFFF}})
        EXPECT_FALSE(isAlphabetic(c)) << static_cast<std::uint32_t>(c);
}

} // namespace
} // namespace hourwright::platform
