#include "platform/message_box.h"

#include <charconv>

namespace hourwright::platform {

namespace {

std::u16string decimal(std::int32_t number) {
    char digits[16];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return {std::begin(digits), end};
}

Message plain(resources::StringId id, Icon icon) {
    return {.id = id, .text = std::u16string(resources::string(id)), .icon = icon};
}

} // namespace

std::u16string withNumber(resources::StringId id, std::int32_t number) {
    constexpr std::u16string_view place = u"%d";
    std::u16string text(resources::string(id));
    const std::size_t at = text.find(place);
    return at == std::u16string::npos ? text : text.replace(at, place.size(), decimal(number));
}

void MessageBox::showCheck(resources::StringId id) {
    show(plain(id, Icon::exclamation));
}

void MessageBox::showFailure(resources::StringId id) {
    show(plain(id, Icon::stop));
}

void MessageBox::showError(std::uint32_t errorNumber) {
    Message message = plain(resources::StringId::error, Icon::stop);
    message.text = withNumber(message.id, static_cast<std::int32_t>(errorNumber));
    show(message);
}

bool MessageBox::ask(resources::StringId id, Icon icon, Answer defaultAnswer) {
    Message question = plain(id, icon);
    question.buttons = Buttons::yesNo;
    question.defaultAnswer = defaultAnswer;
    return show(question) == Answer::yes;
}

} // namespace hourwright::platform
