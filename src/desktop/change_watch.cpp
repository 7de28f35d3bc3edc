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
    connect(&workspace_, &Workspace::changedElsewhere, this, [this] { static_cast<void>(openAnew()); });
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
    auto& objects = workspace_.stores().objects();
    if (objects.isReplaced())
        return followReplacement();
    const auto now = objects.changesByOthers();
    if (now && now != seen_ && openAnew())
        emit workspace_.recordsChanged();
}

// Another program may have wiped the store: the databases are others then. What fails now is tried again later.
bool ChangeWatch::openAnew() {
    const auto now = workspace_.stores().objects().changesByOthers();
    if (!now || !workspace_.stores().open())
        return false;
    seen_ = now;
    return true;
}

void ChangeWatch::followReplacement() {
    auto& objects = workspace_.stores().objects();
    if (objects.reopen() && openAnew()) {
        toldUnusable_ = false;
        emit workspace_.recordsChanged();
    } else if (!toldUnusable_) {
        toldUnusable_ = true;
        workspace_.messages().showError(platform::number(objects.lastError()));
    }
}

} // namespace hourwright::desktop
