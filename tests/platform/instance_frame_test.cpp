#include "platform/instance_frame.h"

#include "platform/instance_channel.h"

#include <gtest/gtest.h>

namespace hourwright::platform {
namespace {

using namespace std::string_literals;

TEST(InstanceFrame, CarriesAnyPayload) {
    for (const std::string& payload : {""s, "a"s, "\0\xFF\n"s, std::string(maxInstancePayload, 'x')}) {
        const auto bytes = encodeFrame(3, payload);
        ASSERT_TRUE(bytes);
        EXPECT_LE(bytes->size(), 65536U);
        FrameReader reader;
        for (const char byte : *bytes) {
            EXPECT_FALSE(reader.frame());
            ASSERT_TRUE(reader.add({&byte, 1}));
        }
        EXPECT_EQ(reader.frame(), (InstanceFrame{3, payload})) << payload.size();
    }
    EXPECT_FALSE(encodeFrame(3, std::string(maxInstancePayload + 1, 'x')));
}

TEST(InstanceFrame, RefusesWhatIsNone) {
    struct Case {
        const char* name;
        std::string bytes;
    };
    const Case cases[] = {
        {"other words", "GET / HTTP/1.1\r\n"s},        {"other version", "HWi2\1\0\0\0\0"s},
        {"too long", "HWi1\1\xF1\xFF\0\0"s},           {"far too long", "HWi1\1\0\0\0\xFF"s},
        {"more than its length", "HWi1\1\1\0\0\0ab"s},
    };
    for (const Case& c : cases) {
        FrameReader reader;
        EXPECT_FALSE(reader.add(c.bytes)) << c.name;
        EXPECT_FALSE(reader.add("HWi1\1\0\0\0\0"s)) << c.name;
        EXPECT_FALSE(reader.frame()) << c.name;
    }
}

TEST(InstanceFrame, HandsOverTextWithItsZero) {
    for (const std::u16string& line : {u""s, u"backup.hwd"s, u"M\u00fcller \xd83d\xde00"s}) {
        const InstanceMessage message = handOverMessage(line);
        EXPECT_EQ(message.payload.size(), (line.size() + 1) * 2);
        EXPECT_EQ(handedOverLine(message), line);
    }
    EXPECT_EQ(handOverMessage(u"a\u20ac").payload, "a\0\xAC\x20\0\0"s);
}

TEST(InstanceFrame, RefusesBytesThatAreNoLine) {
    const std::string cases[] = {""s, "\0"s, "a\0"s, "a\0\0"s, "a\0\0\0b\0\0\0"s};
    for (const std::string& bytes : cases)
        EXPECT_FALSE(handedOverLine({.kind = InstanceMessageKind::handOver, .payload = bytes})) << bytes.size();
    EXPECT_FALSE(handedOverLine({.kind = InstanceMessageKind::comeForward, .payload = "\0\0"s}));
}

} // namespace
} // namespace hourwright::platform
