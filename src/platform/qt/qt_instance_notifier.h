#pragma once

#include "platform/instance_channel.h"

#include <QSocketNotifier>

namespace hourwright::platform {

/// Lets the toolkit's event loop serve the instance channel; it borrows the server.
class QtInstanceNotifier {
public:
    explicit QtInstanceNotifier(InstanceServer& server) : notifier_(server.descriptor(), QSocketNotifier::Read) {
        QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [&server] { server.service(); });
    }

private:
    QSocketNotifier notifier_;
};

} // namespace hourwright::platform
