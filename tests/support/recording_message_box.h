#pragma once

#include "platform/message_box.h"

#include <deque>
#include <vector>

namespace hourwright::test {

/// Records what it is shown. Answers come from the script; when that is used up, the default button is taken.
class RecordingMessageBox : public platform::MessageBox {
public:
    RecordingMessageBox() = default;
    explicit RecordingMessageBox(std::deque<platform::Answer> answers) : script(std::move(answers)) {}

    platform::Answer show(const platform::Message& message) override {
        shown.push_back(message);
        if (script.empty())
            return message.defaultAnswer;
        const platform::Answer answer = script.front();
        script.pop_front();
        return answer;
    }

    [[nodiscard]] std::vector<resources::StringId> ids() const {
        std::vector<resources::StringId> result;
        for (const platform::Message& message : shown)
            result.push_back(message.id);
        return result;
    }

    std::vector<platform::Message> shown;
    std::deque<platform::Answer> script;
};

} // namespace hourwright::test
