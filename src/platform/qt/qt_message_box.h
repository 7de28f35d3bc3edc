#pragma once

#include "platform/message_box.h"

namespace hourwright::platform {

/// Messages as modal boxes over the active window.
class QtMessageBox : public MessageBox {
public:
    Answer show(const Message& message) override;
};

} // namespace hourwright::platform
