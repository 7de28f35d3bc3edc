#include "platform/instance_channel.h"

namespace hourwright::platform {

InstanceMessage handOverMessage(std::u16string_view commandLine) {
    InstanceMessage message{.kind = InstanceMessageKind::handOver, .payload = {}};
    const auto add = [&](char16_t unit) {
        message.payload.push_back(static_cast<char>(unit & 0xFF));
        message.payload.push_back(static_cast<char>(unit >> 8));
    };
    for (const char16_t unit : commandLine)
        add(unit);
    add(u'\0');
    return message;
}

std::optional<std::u16string> handedOverLine(const InstanceMessage& message) {
    const std::string& bytes = message.payload;
    if (message.kind != InstanceMessageKind::handOver || bytes.size() < 2 || bytes.size() % 2 != 0)
        return std::nullopt;
    std::u16string line;
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        line.push_back(static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                             static_cast<unsigned char>(bytes[i + 1]) << 8));
    if (line.find(u'\0') != line.size() - 1)
        return std::nullopt;
    line.pop_back();
    return line;
}

} // namespace hourwright::platform
