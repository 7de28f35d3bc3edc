#include "desktop/empty_page.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/periods.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace hourwright::desktop {

using platform::toQString;
namespace periods = resources::periods;

EmptyPage::EmptyPage(CommandActions& actions, QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel(toQString(periods::emptyTitle));
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    large.setBold(true);
    title->setFont(large);
    title->setAlignment(Qt::AlignCenter);
    title->setWordWrap(true);
    auto* hint = new QLabel(toQString(periods::emptyHint));
    hint->setAlignment(Qt::AlignCenter);
    hint->setWordWrap(true);
    layout->addStretch();
    layout->addWidget(title);
    layout->addWidget(hint);
    layout->addSpacing(12);
    const auto addButton = [&](const resources::Text& text, const std::function<void()>& run) {
        auto* button = new QPushButton(toQString(text));
        button->setMinimumWidth(220);
        connect(button, &QPushButton::clicked, this, run);
        layout->addWidget(button, 0, Qt::AlignHCenter);
    };
    addButton(periods::addClient, [&actions] { actions.action(app::Command::setupClients)->trigger(); });
    addButton(periods::addEntry, [&actions] { actions.action(app::Command::newEntry)->trigger(); });
    addButton(periods::loadDemo, [this] { emit demoRequested(); });
    layout->addStretch();
}

} // namespace hourwright::desktop
