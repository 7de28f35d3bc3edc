#include "desktop/change_watch.h"

#include <QGuiApplication>

namespace hourwright::desktop {

namespace {

constexpr int burstMilliseconds = 50;
constexpr int regularMilliseconds = 3000;

} // namespace

ChangeWatch::ChangeWatch(Workspace& workspace)
    : workspace_(workspace), seen_(workspace.stores().objects().changesByOthers()) {
    burst_.setSingleShot(true);
    burst_.setInterval(burstMilliseconds);
    regular_.setInterval(regularMilliseconds);
    connect(&burst_, &QTimer::timeout, this, &ChangeWatch::look);
    connect(&regular_, &QTimer::timeout, this, &ChangeWatch::look);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive)
            look();
    });
    regular_.start();
}

void ChangeWatch::noticed() {
    if (!burst_.isActive())
        burst_.start();
}

void ChangeWatch::look() {
    // A long change lets the window paint; it is looked again when it has ended.
    if (workspace_.isChanging())
        return;
    const auto now = workspace_.stores().objects().changesByOthers();
    if (!now || now == seen_)
        return;
    // Another program may have wiped the store: the databases are others then. What fails now is tried again later.
    if (!workspace_.stores().open())
        return;
    seen_ = now;
    emit workspace_.recordsChanged();
}

} // namespace hourwright::desktop
