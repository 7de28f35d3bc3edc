#pragma once

#include "platform/file_dialog.h"

namespace hourwright::platform {

/// The desktop's own dialog over the active window.
class QtFileDialog : public FileDialog {
public:
    [[nodiscard]] std::optional<SaveChoice> save(const SaveRequest& request) override;
};

} // namespace hourwright::platform
