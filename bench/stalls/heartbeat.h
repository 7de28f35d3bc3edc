#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <ctime>

namespace hourwright::bench {

/// Measures how long the event loop was away: its timer is due every millisecond, and the longest time between two
/// calls is what a user would have waited for a reaction. Beside the time by the clock, which a busy machine lengthens,
/// it has the processor time that this thread used meanwhile.
class Heartbeat {
public:
    Heartbeat() {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { beat(); });
        since_.start();
        processor_ = atFirst_ = processorTime();
        timer_.start(1);
    }

    /// The longest in milliseconds, with the time that runs now.
    [[nodiscard]] double longest() {
        beat();
        return longest_;
    }
    [[nodiscard]] double longestBusy() const { return longestBusy_; }
    /// All processor time of this thread.
    [[nodiscard]] double allBusy() const { return processor_ - atFirst_; }

private:
    static double processorTime() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    }

    void beat() {
        longest_ = std::max(longest_, static_cast<double>(since_.nsecsElapsed()) / 1e6);
        since_.start();
        const double now = processorTime();
        longestBusy_ = std::max(longestBusy_, now - processor_);
        processor_ = now;
    }

    QTimer timer_;
    QElapsedTimer since_;
    double processor_ = 0;
    double atFirst_ = 0;
    double longest_ = 0;
    double longestBusy_ = 0;
};

} // namespace hourwright::bench
