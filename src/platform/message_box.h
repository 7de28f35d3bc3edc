#pragma once

#include "resources/strings.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace hourwright::platform {

enum class Icon : std::uint8_t { exclamation, stop, question, warning, information };
enum class Buttons : std::uint8_t { ok, okCancel, yesNo, yesNoCancel };
enum class Answer : std::uint8_t { ok, cancel, yes, no };

/// A message or a question to the user, titled "Hourwright". `text` is the message as shown: the string of the number
/// with its places filled in.
struct Message {
    resources::StringId id;
    std::u16string text;
    Icon icon = Icon::exclamation;
    Buttons buttons = Buttons::ok;
    Answer defaultAnswer = Answer::ok;

    friend bool operator==(const Message&, const Message&) = default;
};

/// The string with this number, its first "%d" replaced by a decimal number.
[[nodiscard]] std::u16string withNumber(resources::StringId id, std::int32_t number);

/// Shows messages and waits for the answer.
class MessageBox {
public:
    virtual ~MessageBox() = default;

    virtual Answer show(const Message& message) = 0;

    /// A failed check: exclamation icon, OK.
    void showCheck(resources::StringId id);
    /// A failure: stop icon, OK.
    void showFailure(resources::StringId id);
    /// "Error: %d" with a platform error number (shown signed, as "%d" does), stop icon.
    void showError(std::uint32_t errorNumber);
    /// A Yes/No question; true for Yes.
    [[nodiscard]] bool ask(resources::StringId id, Icon icon = Icon::warning, Answer defaultAnswer = Answer::no);
};

} // namespace hourwright::platform
