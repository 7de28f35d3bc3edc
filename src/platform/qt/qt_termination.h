#pragma once

#include "platform/posix/termination_signals.h"

#include <QSocketNotifier>
#include <functional>

namespace hourwright::platform {

/// Calls back from the toolkit's event loop when a signal asks the program to end.
class QtTermination {
public:
    explicit QtTermination(std::function<void()> end) : notifier_(signals_.descriptor(), QSocketNotifier::Read) {
        QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this, end = std::move(end)] {
            notifier_.setEnabled(false);
            end();
        });
    }

private:
    TerminationSignals signals_;
    QSocketNotifier notifier_;
};

} // namespace hourwright::platform
