#include "cli/property_text.h"

#include <gtest/gtest.h>

namespace hourwright::cli {

namespace {

TEST(PropertyText, readsBackWhatItPrints) {
    for (const std::string_view line :
         {"1001 FILETIME 2026-11-16 14:30:15.250", "1001 FILETIME 18446744073709551615", "1002 LPWSTR a=b:c \u9752",
          "1002 LPWSTR two\\u000alines", "1002 LPWSTR back\\slash", "1002 LPWSTR ", "1008 UI4 4294967295",
          "1006 UI2 65535", "1009 BOOL 1", "1012 BLOB 00ff7a", "1012 BLOB "}) {
        std::string argument(line);
        argument[argument.find(' ')] = ':';
        argument[argument.find(' ')] = '=';
        const auto property = parseProperty(argument);
        ASSERT_TRUE(property) << line;
        EXPECT_EQ(propertyLine(property->value()), line);
    }
}

TEST(PropertyText, refusesWhatIsNoProperty) {
    for (const std::string_view text :
         {"", "1001", "1001:UI2", "1001=UI2:5", ":UI2=5", "x:UI2=5", "65536:UI2=5", "1001:ui2=5",
          "1001:UI2=", "1001:UI2=5x", "1001:UI2=-5", "1001:FILETIME=2026-02-30 00:00:00.000", "1012:BLOB=0",
          "1012:BLOB=0g", "1009:BOOL=true"})
        EXPECT_FALSE(parseProperty(text)) << text;
}

TEST(PropertyText, deletesWithADash) {
    const auto property = parseProperty("1012:BLOB=-");
    ASSERT_TRUE(property);
    EXPECT_TRUE(property->deletion);
    EXPECT_EQ(property->id, platform::PropertyId(1012, platform::ValueType::blob));
}

} // namespace

} // namespace hourwright::cli
