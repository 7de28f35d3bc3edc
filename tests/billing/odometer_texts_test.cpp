#include "billing/odometer_texts.h"

#include "platform/utf.h"

#include <gtest/gtest.h>
#include <vector>

namespace hourwright::billing {
namespace {

using enum OdometerField;
using resources::StringId;

struct Typed {
    OdometerField field;
    std::u16string text;
};

TEST(OdometerTexts, theOtherReadingsFollowWhatIsTyped) {
    struct Row {
        const char* name;
        OdometerTexts opened;
        std::vector<Typed> typed;
        std::vector<std::u16string> shown; // start, end, distance
    };
    const Row rows[] = {
        {"opened", {u"1000", u"50"}, {}, {u"1000", u"1050", u"50"}},
        {"new", {u"1000", u""}, {}, {u"1000", u"", u""}},
        {"start moves the end", {u"1000", u"50"}, {{start, u"1200"}}, {u"1200", u"1250", u"50"}},
        {"distance moves the end", {u"1000", u"50"}, {{distance, u"7"}}, {u"1000", u"1007", u"7"}},
        {"end makes the distance", {u"1000", u""}, {{end, u"1080"}}, {u"1000", u"1080", u"80"}},
        {"a typed end stays", {u"1000", u""}, {{end, u"1080"}, {start, u"1050"}}, {u"1050", u"1080", u"30"}},
        {"end first, start digit by digit",
         {u"", u""},
         {{end, u"1080"}, {start, u"1"}, {start, u"10"}, {start, u"1000"}},
         {u"1000", u"1080", u"80"}},
        {"distance after end", {u"1000", u""}, {{end, u"1080"}, {distance, u"5"}}, {u"1000", u"1005", u"5"}},
        {"end on its way", {u"1000", u"50"}, {{end, u"10"}}, {u"1000", u"10", u""}},
        {"cleared end: distance counts", {u"1000", u""}, {{end, u""}, {distance, u"5"}}, {u"1000", u"1005", u"5"}},
        {"no number", {u"1000", u"50"}, {{start, u"x"}}, {u"x", u"", u"50"}},
        {"a stored sum past the largest", {u"4294967295", u"1"}, {}, {u"4294967295", u"4294967296", u"1"}},
    };
    for (const Row& row : rows) {
        OdometerTexts texts = row.opened;
        for (const Typed& typed : row.typed)
            texts.type(typed.field, typed.text);
        EXPECT_EQ((std::vector{texts.text(start), texts.text(end), texts.text(distance)}), row.shown) << row.name;
    }
}

TEST(OdometerTexts, onlyATypedEndIsChecked) {
    struct Row {
        std::u16string end;
        std::optional<FieldRefusal<OdometerField>> refusal;
    };
    const Row rows[] = {
        {u"", {}},
        {u"1000", {}},
        {u"999", FieldRefusal<OdometerField>{end, StringId::odometerEndBeforeStart}},
        {u"12a", FieldRefusal<OdometerField>{end, StringId::numericOnly}},
        {u"4294967296", cannotHold(end)},
    };
    for (const Row& row : rows) {
        OdometerTexts texts(u"1000", u"50");
        texts.type(end, row.end);
        EXPECT_EQ(texts.checkEnd(), row.refusal) << platform::printableUtf8(row.end);
    }
    EXPECT_EQ(OdometerTexts(u"4294967295", u"1").checkEnd(), std::nullopt);
}

} // namespace
} // namespace hourwright::billing
