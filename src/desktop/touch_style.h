#pragma once

#include <QProxyStyle>

namespace hourwright::desktop {

/// The native style with controls large enough for a finger. Used on handheld screens only.
class TouchStyle : public QProxyStyle {
public:
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

} // namespace hourwright::desktop
