#include "desktop/structure/button_column.h"

#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"

#include <QGridLayout>

namespace hourwright::desktop {

ButtonColumn::ButtonColumn(QBoxLayout& layout, QWidget* list) {
    if (isHandheld()) {
        layout.addWidget(list, 1);
        grid_ = new QGridLayout;
        layout.addLayout(grid_);
        return;
    }
    auto* row = new QHBoxLayout;
    row->addWidget(list, 1);
    column_ = new QVBoxLayout;
    column_->addStretch();
    row->addLayout(column_);
    layout.addLayout(row, 1);
}

QPushButton* ButtonColumn::add(const resources::Text& text, std::function<void()> clicked) {
    auto* button = new QPushButton(platform::toQString(text));
    button->setAutoDefault(false);
    if (clicked)
        QObject::connect(button, &QPushButton::clicked, button, std::move(clicked));
    if (grid_ != nullptr)
        grid_->addWidget(button, count_ / 2, count_ % 2);
    else
        column_->insertWidget(count_, button);
    ++count_;
    return button;
}

} // namespace hourwright::desktop
