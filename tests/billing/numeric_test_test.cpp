#include "billing/numeric_test.h"
#include "platform/utf.h"

#include <gtest/gtest.h>
#include <string>

using hourwright::billing::passesNumericTest;
using hourwright::platform::toUtf8;

namespace {

TEST(NumericTest, PassesWhatHasNoLetter) {
    for (const std::u16string text : {u"", u"12.5", u"12,50", u"-1", u"$ 4 + 5!", u"1\u00A0000", u"\u20AC5", u"\u0661",
                                      u"\U0001F600", u"\xD801", u"\xDC37", u"5\xD801"})
        EXPECT_TRUE(passesNumericTest(text)) << toUtf8(text);
}

TEST(NumericTest, RefusesEveryAlphabet) {
    for (const std::u16string text :
         {u"1e2", u"h", u"1.5h", u"\u00E4", u"5\u0416", u"\u4E00", u"\uFF21", u"\U00010437"})
        EXPECT_FALSE(passesNumericTest(text)) << toUtf8(text);
}

} // namespace
