#include "platform/message_box.h"

#include "platform/posix/terminal_message_box.h"
#include "support/child_process.h"
#include "support/recording_message_box.h"

#include <gtest/gtest.h>

namespace hourwright::platform {

namespace {

using resources::StringId;
using test::Pipe;

TEST(MessageBoxTest, HelpersShowTheirKindOfMessage) {
    test::RecordingMessageBox box;
    box.showCheck(StringId::taskMissing);
    box.showFailure(StringId::databaseNotLoaded);
    box.showError(112);
    box.showError(0x80070005);
    const std::vector<Message> expected = {
        {StringId::taskMissing, u"Please enter a task name.  You cannot have a blank Task field.", Icon::exclamation,
         Buttons::ok, Answer::ok},
        {StringId::databaseNotLoaded, u"Unable to load database.", Icon::stop, Buttons::ok, Answer::ok},
        {StringId::error, u"Error: 112", Icon::stop, Buttons::ok, Answer::ok},
        {StringId::error, u"Error: -2147024891", Icon::stop, Buttons::ok, Answer::ok},
    };
    EXPECT_EQ(box.shown, expected);
}

TEST(MessageBoxTest, OnlyYesIsYes) {
    test::RecordingMessageBox box({Answer::yes, Answer::no});
    EXPECT_TRUE(box.ask(StringId::cancelTimer));
    EXPECT_FALSE(box.ask(StringId::cancelTimer, Icon::question, Answer::yes));
    EXPECT_FALSE(box.ask(StringId::cancelTimer));
    const std::u16string text = u"Are you sure to cancel the timer?";
    const std::vector<Message> expected = {
        {StringId::cancelTimer, text, Icon::warning, Buttons::yesNo, Answer::no},
        {StringId::cancelTimer, text, Icon::question, Buttons::yesNo, Answer::yes},
        {StringId::cancelTimer, text, Icon::warning, Buttons::yesNo, Answer::no},
    };
    EXPECT_EQ(box.shown, expected);
}

TEST(MessageBoxTest, NumbersAreFilledInWithoutGrouping) {
    EXPECT_EQ(withNumber(StringId::timersCount, 1234567), u"Timers... (1234567)");
    EXPECT_EQ(withNumber(StringId::timersCount, -2147483647 - 1), u"Timers... (-2147483648)");
    EXPECT_EQ(withNumber(StringId::columnClient, 5), u"Client");
}

// Shows a message with this input to read from, and gives the answer and what was printed.
struct Session {
    Answer answer;
    std::string printed;
    std::string unread;
};

std::string readAll(const Pipe& pipe) {
    std::string text;
    for (char c = 0; read(pipe.output(), &c, 1) == 1;)
        text.push_back(c);
    return text;
}

Session show(const Message& message, TerminalOptions options, const std::string& typed) {
    Pipe input;
    Pipe output;
    EXPECT_EQ(write(input.input(), typed.data(), typed.size()), std::ssize(typed));
    input.closeInput();
    options.input = input.output();
    options.output = output.input();
    const Answer answer = TerminalMessageBox(options).show(message);
    output.closeInput();
    return {.answer = answer, .printed = readAll(output), .unread = readAll(input)};
}

Message question(Buttons buttons, Answer defaultAnswer) {
    return {.id = StringId::deleteClient,
            .text = u"Sure \u00E4?",
            .icon = Icon::warning,
            .buttons = buttons,
            .defaultAnswer = defaultAnswer};
}

TEST(TerminalMessageBoxTest, AsksUntilItIsAnswered) {
    struct Case {
        const char* typed;
        Buttons buttons;
        Answer defaultAnswer;
        Answer expected;
        const char* printed;
    };
    constexpr auto yesNo = Buttons::yesNo;
    constexpr auto okCancel = Buttons::okCancel;
    constexpr auto yesNoCancel = Buttons::yesNoCancel;
    const Case cases[] = {
        {"y\n", yesNo, Answer::no, Answer::yes, "Sure \u00E4? [y/N] "},
        {" YES\t\r\n", yesNo, Answer::no, Answer::yes, "Sure \u00E4? [y/N] "},
        {"n\n", yesNo, Answer::yes, Answer::no, "Sure \u00E4? [Y/n] "},
        {"No\n", yesNo, Answer::yes, Answer::no, "Sure \u00E4? [Y/n] "},
        {"\n", yesNo, Answer::no, Answer::no, "Sure \u00E4? [y/N] "},
        {" \n", yesNo, Answer::yes, Answer::yes, "Sure \u00E4? [Y/n] "},
        {"yesno\ny\n", yesNo, Answer::no, Answer::yes, "Sure \u00E4? [y/N] Sure \u00E4? [y/N] "},
        {"", yesNo, Answer::yes, Answer::no, "Sure \u00E4? [Y/n] \n"},
        {"y", yesNo, Answer::yes, Answer::no, "Sure \u00E4? [Y/n] \n"},
        {"ok\n", okCancel, Answer::cancel, Answer::ok, "Sure \u00E4? [ok/CANCEL] "},
        {"y\n", okCancel, Answer::cancel, Answer::ok, "Sure \u00E4? [ok/CANCEL] "},
        {"cancel\n", okCancel, Answer::ok, Answer::cancel, "Sure \u00E4? [OK/cancel] "},
        {"\n", okCancel, Answer::ok, Answer::ok, "Sure \u00E4? [OK/cancel] "},
        {"", okCancel, Answer::ok, Answer::cancel, "Sure \u00E4? [OK/cancel] \n"},
        {"yes\n", yesNoCancel, Answer::cancel, Answer::yes, "Sure \u00E4? [y/CANCEL] "},
        {"no\n", yesNoCancel, Answer::yes, Answer::cancel, "Sure \u00E4? [Y/cancel] "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        const Session session = show(question(c.buttons, c.defaultAnswer), {.interactive = true}, c.typed);
        EXPECT_EQ(session.answer, c.expected);
        EXPECT_EQ(session.printed, c.printed);
    }
}

TEST(TerminalMessageBoxTest, TakesOneLineAndNoMore) {
    const Session session = show(question(Buttons::yesNo, Answer::no), {.interactive = true}, "y\nnext\n");
    EXPECT_EQ(session.unread, "next\n");
}

TEST(TerminalMessageBoxTest, WithoutATerminalNothingIsRead) {
    struct Case {
        const char* what;
        Message message;
        bool yes;
        Answer expected;
        const char* printed;
    };
    const Case cases[] = {
        {"question", question(Buttons::yesNo, Answer::yes), false, Answer::no, "Sure \u00E4?\n"},
        {"confirmation", question(Buttons::okCancel, Answer::ok), false, Answer::cancel, "Sure \u00E4?\n"},
        {"question agreed to", question(Buttons::yesNo, Answer::no), true, Answer::yes, ""},
        {"confirmation agreed to", question(Buttons::okCancel, Answer::cancel), true, Answer::ok, ""},
        {"message", question(Buttons::ok, Answer::ok), false, Answer::ok, "Sure \u00E4?\n"},
        {"message with --yes", question(Buttons::ok, Answer::ok), true, Answer::ok, "Sure \u00E4?\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Session session = show(c.message, {.yes = c.yes}, "y\n");
        EXPECT_EQ(session.answer, c.expected);
        EXPECT_EQ(session.printed, c.printed);
        EXPECT_EQ(session.unread, "y\n");
    }
}

} // namespace

} // namespace hourwright::platform
