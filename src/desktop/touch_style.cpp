#include "desktop/touch_style.h"

#include "desktop/screen_size.h"

#include <algorithm>

namespace hourwright::desktop {

QSize TouchStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton:
    case CT_ComboBox:
    case CT_LineEdit:
    case CT_SpinBox:
    case CT_CheckBox:
    case CT_RadioButton:
    case CT_MenuItem:
    case CT_MenuBarItem:
    case CT_TabBarTab:
    case CT_ToolButton:
    case CT_ItemViewItem:
    case CT_HeaderSection: result.setHeight(std::max(result.height(), touchTarget)); break;
    default: break;
    }
    return result;
}

int TouchStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const int native = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight: return std::max(native, touchTarget / 2);
    default: return native;
    }
}

} // namespace hourwright::desktop
