#pragma once

#include "resources/text.h"

#include <QBoxLayout>
#include <QPushButton>
#include <functional>
#include <vector>

namespace hourwright::desktop {

/// Buttons beside a list: in a column at its right or, on a handheld, two in a row below it. None of them is pressed by
/// Enter unless it has the focus.
class ButtonColumn {
public:
    /// Puts the list and the buttons into the layout.
    ButtonColumn(QBoxLayout& layout, QWidget* list);

    QPushButton* add(const resources::Text& text, std::function<void()> clicked = {});

private:
    QBoxLayout* column_ = nullptr;
    class QGridLayout* grid_ = nullptr;
    int count_ = 0;
};

} // namespace hourwright::desktop
