#include "cli/display_width.h"
#include "cli/json_writer.h"
#include "cli/text_table.h"

#include <gtest/gtest.h>
#include <limits>

namespace hourwright::cli {

namespace {

class StringFile : public platform::FileWriter {
public:
    [[nodiscard]] bool write(std::string_view bytes) override {
        text += bytes;
        return true;
    }
    [[nodiscard]] bool close() override { return true; }
    [[nodiscard]] platform::PlatformError error() const override { return platform::PlatformError::none; }

    std::string text;
};

class OutputTest : public testing::Test {
protected:
    StringFile file;
    Output out{file};
};

TEST_F(OutputTest, jsonNestsAndSeparates) {
    JsonWriter json(out);
    json.beginArray().beginObject().member("a", 1).key("b").beginArray().value(2).value(3).endArray().endObject();
    json.beginObject().endObject().beginArray().endArray().value(true).null().endArray().finish();
    EXPECT_EQ(file.text, "[\n{\"a\":1,\"b\":[2,3]},\n{},\n[],\ntrue,\nnull\n]\n");
}

TEST_F(OutputTest, jsonOfNothing) {
    JsonWriter(out).beginArray().endArray().finish();
    EXPECT_EQ(file.text, "[]\n");
}

TEST_F(OutputTest, jsonEscapesWhatMustBeAndKeepsTheRest) {
    JsonWriter json(out);
    json.value(std::u16string_view(u"\"\\/\n\r\t\b\u007F\u00E9\u9752\U0001F600"));
    EXPECT_EQ(file.text, "\"\\\"\\\\/\\n\\r\\t\\u0008\\u007f\u00E9\u9752\U0001F600\"");
}

TEST_F(OutputTest, jsonReplacesLoneSurrogates) {
    const char16_t units[] = {u'a', 0xD800, u'b', 0xDC00};
    JsonWriter(out).value(std::u16string_view(units, 4));
    EXPECT_EQ(file.text, "\"a\uFFFDb\uFFFD\"");
}

TEST_F(OutputTest, jsonNumbersAreShortestAndNeverInfinite) {
    JsonWriter json(out);
    json.beginObject().member("a", 1.5).member("b", 0.1).member("c", 1e21).member("d", -0.5);
    json.member("e", std::numeric_limits<double>::infinity()).member("f", std::numeric_limits<std::uint64_t>::max());
    json.endObject();
    EXPECT_EQ(file.text, R"({"a":1.5,"b":0.1,"c":1e+21,"d":-0.5,"e":null,"f":18446744073709551615})");
}

TEST_F(OutputTest, tableAlignsByWhatATerminalShows) {
    TextTable table(out, {{"Name"}, {"N", true}, {"End"}});
    table.add({"\u9752\u6728", "1", "x"});
    table.add({"e\u0301t\u00E9", "100", ""});
    table.finish();
    EXPECT_EQ(file.text, "Name    N  End\n\u9752\u6728    1  x\ne\u0301t\u00E9   100\n");
}

TEST_F(OutputTest, tablePagesWidenButNeverNarrow) {
    TextTable table(out, {{"A"}, {"B"}});
    table.add({"wide", "1"});
    for (std::size_t i = 1; i < TextTable::rowsOfPage; ++i)
        table.add({"x", "2"});
    EXPECT_FALSE(file.text.empty()); // a full page does not wait for the end
    const std::size_t firstPage = file.text.size();
    table.add({"x", "3"});
    table.add({"wider", "4"});
    table.finish();
    EXPECT_TRUE(file.text.starts_with("A     B\nwide  1\nx     2\n"));
    EXPECT_EQ(file.text.substr(firstPage), "x      3\nwider  4\n");
}

TEST_F(OutputTest, cellsAreOneLine) {
    EXPECT_EQ(cellText(u"a\nb\u001B[1mc\u0085"), "a b [1mc ");
}

} // namespace

} // namespace hourwright::cli
