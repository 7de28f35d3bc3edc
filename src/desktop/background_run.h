#pragma once

#include <QString>
#include <atomic>
#include <cstddef>
#include <functional>

class QWidget;

namespace hourwright::desktop {

/// How far work on another thread is, and whether it is to end early. Both sides may look at it at any time.
struct BackgroundProgress {
    std::atomic<std::size_t> done{0};
    std::atomic<bool> cancelled{false};
};

/// What is shown while work runs.
struct BackgroundTexts {
    QString label;
    std::size_t total = 0;  ///< steps; 0: not known
    bool mayCancel = false; ///< a Cancel button ends it early
};

/// Runs work on a thread of its own and returns when it has ended, with the window disabled, the wait cursor shown and,
/// once it takes longer than a moment, a progress bar. The window goes on painting meanwhile. The work must use a
/// connection and a locale of its own.
void runInBackground(QWidget* window, const BackgroundTexts& texts,
                     const std::function<void(BackgroundProgress&)>& work);

} // namespace hourwright::desktop
