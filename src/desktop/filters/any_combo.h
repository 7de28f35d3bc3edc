#pragma once

#include "desktop/completing_combo.h"

namespace hourwright::desktop {

/// A text field of a filter: any text may be typed; the empty one is shown, and offered first, as "[Any]".
class AnyCombo : public CompletingCombo {
    Q_OBJECT

public:
    explicit AnyCombo(QWidget* parent = nullptr);

    /// Replaces the texts offered; the text stays.
    void offer(std::span<const std::u16string> texts);
};

} // namespace hourwright::desktop
