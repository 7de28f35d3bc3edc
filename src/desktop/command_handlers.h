#pragma once

#include "app/command.h"

#include <functional>
#include <map>

namespace hourwright::desktop {

/// What the main window's commands do. A command without a handler does not appear in the menus.
class CommandHandlers {
public:
    void set(app::Command command, std::function<void()> handler) { handlers_[command] = std::move(handler); }
    [[nodiscard]] bool has(app::Command command) const { return handlers_.contains(command); }
    void run(app::Command command) const {
        if (const auto found = handlers_.find(command); found != handlers_.end())
            found->second();
    }

private:
    std::map<app::Command, std::function<void()>> handlers_;
};

} // namespace hourwright::desktop
