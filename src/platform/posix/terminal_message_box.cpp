#include "platform/posix/terminal_message_box.h"

#include "platform/posix/posix_io.h"
#include "platform/utf.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string_view>
#include <unistd.h>

namespace hourwright::platform {

namespace {

// The two answers to a question, and how they are offered when the one or the other is the default. Of three answers
// a terminal has the first and the last.
struct Choice {
    Answer accept;
    Answer refuse;
    std::string_view acceptIsDefault;
    std::string_view refuseIsDefault;
};

constexpr Choice yesOrNo{Answer::yes, Answer::no, " [Y/n] ", " [y/N] "};
constexpr Choice yesOrCancel{Answer::yes, Answer::cancel, " [Y/cancel] ", " [y/CANCEL] "};
constexpr Choice okOrCancel{Answer::ok, Answer::cancel, " [OK/cancel] ", " [ok/CANCEL] "};
constexpr std::array<std::string_view, 4> acceptingWords{"y", "yes", "o", "ok"};
constexpr std::array<std::string_view, 4> refusingWords{"n", "no", "c", "cancel"};

const Choice& choiceOf(Buttons buttons) {
    switch (buttons) {
    case Buttons::yesNo: return yesOrNo;
    case Buttons::yesNoCancel: return yesOrCancel;
    case Buttons::ok:
    case Buttons::okCancel: break;
    }
    return okOrCancel;
}

// One line without its end, byte by byte so that nothing behind it is taken; nothing at the end of input.
std::optional<std::string> readLine(int file) {
    std::string line;
    for (;;) {
        char c = 0;
        const ssize_t got = ::read(file, &c, 1);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return std::nullopt;
        if (c == '\n')
            return line;
        line.push_back(c);
    }
}

// Lower-case letters of a line, without the blanks around them.
std::string word(std::string_view line) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = line.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    std::string result(line.substr(first, line.find_last_not_of(blanks) - first + 1));
    for (char& c : result)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + ('a' - 'A'));
    return result;
}

} // namespace

bool hasTerminal() {
    return ::isatty(STDIN_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1;
}

Answer TerminalMessageBox::show(const Message& message) {
    const bool question = message.buttons != Buttons::ok;
    if (question && options_.yes)
        return choiceOf(message.buttons).accept;
    if (question && options_.interactive)
        return askUser(message);
    print(printableUtf8(message.text) + '\n');
    return question ? choiceOf(message.buttons).refuse : Answer::ok;
}

Answer TerminalMessageBox::askUser(const Message& question) {
    const Choice& choice = choiceOf(question.buttons);
    const bool acceptIsDefault = question.defaultAnswer == choice.accept;
    const std::string prompt =
        printableUtf8(question.text) + std::string(acceptIsDefault ? choice.acceptIsDefault : choice.refuseIsDefault);
    for (;;) {
        print(prompt);
        const auto line = readLine(options_.input);
        if (!line) {
            print("\n");
            return choice.refuse;
        }
        const std::string answer = word(*line);
        if (answer.empty())
            return acceptIsDefault ? choice.accept : choice.refuse;
        if (std::ranges::find(acceptingWords, answer) != acceptingWords.end())
            return choice.accept;
        if (std::ranges::find(refusingWords, answer) != refusingWords.end())
            return choice.refuse;
    }
}

// There is nowhere to report that a message could not be shown.
void TerminalMessageBox::print(const std::string& text) {
    static_cast<void>(writeAll(options_.output, text));
}

} // namespace hourwright::platform
