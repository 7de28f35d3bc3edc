#include "desktop/filters/any_combo.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/filters.h"

#include <QLineEdit>
#include <vector>

namespace hourwright::desktop {

namespace {

constexpr std::u16string_view any = resources::filters::any.text;

} // namespace

AnyCombo::AnyCombo(QWidget* parent) : CompletingCombo(parent) {
    lineEdit()->setPlaceholderText(platform::toQString(any));
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (index == 0)
            setEditText({}); // the item stays the current one, so that the arrow keys go on from it
    });
}

void AnyCombo::offer(std::span<const std::u16string> texts) {
    std::vector<std::u16string> items{std::u16string(any)};
    items.insert(items.end(), texts.begin(), texts.end());
    setChoices(items);
}

} // namespace hourwright::desktop
