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
    std::atomic<std::size_t> total{0}; ///< 0: not known
    std::atomic<bool> cancelled{false};
};

/// What is shown while work runs.
struct BackgroundTexts {
    QString label;
    bool mayCancel = false; ///< a Cancel button ends it early
};

/// Runs work on a thread of its own and returns when it has ended. The event loop goes on meanwhile, and `look` is
/// called every few milliseconds; what the user types and clicks waits while `takesInput` says no. The work must use a
/// connection and a locale of its own.
void runOnThread(const std::function<void()>& work, const std::function<void()>& look,
                 const std::function<bool()>& takesInput);

/// The same with the wait cursor and, once it takes longer than a moment, a progress bar over the window, which goes on
/// painting and takes no input.
void runInBackground(QWidget* window, const BackgroundTexts& texts,
                     const std::function<void(BackgroundProgress&)>& work);

} // namespace hourwright::desktop
