#include "desktop/copies/daily_copy.h"

#include "app/copy_keeping.h"
#include "app/copy_notice.h"
#include "desktop/copies/copy_work.h"

#include <chrono>

namespace hourwright::desktop {

namespace {

constexpr std::chrono::seconds afterStart{5};
constexpr std::chrono::hours betweenLooks{1};

} // namespace

DailyCopy::DailyCopy(Workspace& workspace, std::unique_ptr<platform::StoreCopies> copies)
    : workspace_(workspace), copies_(std::move(copies)) {
    first_.setSingleShot(true);
    first_.setInterval(afterStart);
    regular_.setInterval(betweenLooks);
    connect(&first_, &QTimer::timeout, this, &DailyCopy::look);
    connect(&regular_, &QTimer::timeout, this, &DailyCopy::look);
}

DailyCopy::~DailyCopy() {
    stop_ = true;
    if (worker_.joinable())
        worker_.join();
}

void DailyCopy::start() {
    first_.start();
    regular_.start();
}

void DailyCopy::look() {
    if (worker_.joinable())
        return;
    worker_ = std::thread([this, now = workspace_.clock().localTime()] {
        auto made = app::makeDueCopy(*copies_, now, [this] { return !stop_; });
        QMetaObject::invokeMethod(
            this, [this, result = std::move(made)] { finish(result); }, Qt::QueuedConnection);
    });
}

// Joined in the end only: as long as the user is being told, no other copy is begun.
void DailyCopy::finish(const std::optional<platform::MadeCopy>& made) {
    const bool restart =
        app::tellOfCopy(made, *copies_, workspace_.registry(), workspace_.locale(), workspace_.messages(), runCopyWork);
    worker_.join();
    emit ended();
    if (restart)
        emit restartWanted();
}

} // namespace hourwright::desktop
