#pragma once

#include "desktop/command_actions.h"

#include <QWidget>

namespace hourwright::desktop {

/// What an empty store shows instead of a list: how to begin.
class EmptyPage : public QWidget {
    Q_OBJECT

public:
    EmptyPage(CommandActions& actions, QWidget* parent);

signals:
    void demoRequested();
};

} // namespace hourwright::desktop
