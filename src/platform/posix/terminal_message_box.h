#pragma once

#include "platform/message_box.h"

#include <string>

namespace hourwright::platform {

/// How questions are answered, and where messages go to and answers come from (file descriptors, borrowed).
struct TerminalOptions {
    /// Answer Yes or OK to every question without asking.
    bool yes = false;
    /// Somebody is there to be asked; see hasTerminal.
    bool interactive = false;
    int input = 0;
    int output = 2;
};

/// True when standard input and standard error are both a terminal.
[[nodiscard]] bool hasTerminal();

/// Messages as lines of text. A question that nobody can answer, and one left at the end of input, is answered No or
/// Cancel; its text is shown all the same, so that the user sees what was refused.
class TerminalMessageBox : public MessageBox {
public:
    explicit TerminalMessageBox(const TerminalOptions& options) : options_(options) {}

    Answer show(const Message& message) override;

private:
    Answer askUser(const Message& question);
    void print(const std::string& text);

    TerminalOptions options_;
};

} // namespace hourwright::platform
