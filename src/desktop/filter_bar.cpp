#include "desktop/filter_bar.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/periods.h"

#include <QHBoxLayout>
#include <QToolButton>

namespace hourwright::desktop {

using platform::toQString;

FilterBar::FilterBar(QWidget* parent) : QFrame(parent), text_(new QToolButton(this)) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    text_->setAutoRaise(true);
    text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* clear = new QToolButton(this);
    clear->setText(toQString(resources::periods::clearFilter));
    layout->addWidget(text_, 1);
    layout->addWidget(clear);
    connect(text_, &QToolButton::clicked, this, &FilterBar::editRequested);
    connect(clear, &QToolButton::clicked, this, &FilterBar::clearRequested);
    hide();
}

void FilterBar::describe(const QString& description) {
    const QString text = toQString(resources::periods::filterOn).replace("%s", description);
    text_->setText(text);
    text_->setAccessibleName(text);
    text_->setToolTip(text);
    setVisible(!description.isEmpty());
}

} // namespace hourwright::desktop
