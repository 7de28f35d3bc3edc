#include "desktop/options/colour_button.h"

#include "desktop/icons.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/options.h"

#include <QColorDialog>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace hourwright::desktop {

namespace texts = resources::options;
using platform::toQString;

namespace {

constexpr QSize sampleSize{150, 24};
constexpr int margin = 4;

// How an item of the list looks: the status icon and a text in the colour, on the ground of the lists.
QIcon sampleOf(const QWidget& widget, store::EntryStatus status, const QColor& colour) {
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap pixmap(sampleSize * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(widget.palette().color(QPalette::Base));
    QPainter painter(&pixmap);
    const int side = sampleSize.height() - 2 * margin;
    statusIcon(status, false).paint(&painter, QRect(margin, margin, side, side));
    painter.setFont(widget.font());
    painter.setPen(colour);
    painter.drawText(QRect(QPoint(side + 3 * margin, 0), sampleSize), Qt::AlignVCenter | Qt::AlignLeft,
                     toQString(texts::sample));
    return pixmap;
}

} // namespace

ColourButton::ColourButton(store::EntryStatus status, const QString& name, QWidget* parent)
    : QWidget(parent), status_(status), pick_(new QToolButton), reset_(new QToolButton) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(pick_);
    layout->addWidget(reset_);
    layout->addStretch();
    pick_->setIconSize(sampleSize);
    pick_->setFocusPolicy(Qt::StrongFocus);
    pick_->setAccessibleName(name);
    reset_->setFocusPolicy(Qt::StrongFocus);
    reset_->setText(toQString(texts::followStyle));
    reset_->setAccessibleName(name + ' ' + toQString(texts::followStyle));
    connect(pick_, &QToolButton::clicked, this, &ColourButton::pick);
    connect(reset_, &QToolButton::clicked, this, [this] { setColour({}); });
    setColour({});
}

void ColourButton::setColour(app::StatusColour colour) {
    colour_ = colour;
    refresh();
}

void ColourButton::refresh() {
    const QColor colour =
        colour_.followsStyle() ? palette().color(QPalette::Text) : QColor::fromRgb(static_cast<QRgb>(colour_.rgb));
    pick_->setIcon(sampleOf(*this, status_, colour));
    const QString name = colour_.followsStyle() ? toQString(texts::ofStyle) : colour.name();
    pick_->setToolTip(name);
    pick_->setAccessibleDescription(name);
    reset_->setEnabled(!colour_.followsStyle());
}

void ColourButton::pick() {
    const QColor before =
        colour_.followsStyle() ? palette().color(QPalette::Text) : QColor::fromRgb(static_cast<QRgb>(colour_.rgb));
    const QColor chosen = QColorDialog::getColor(before, this, pick_->accessibleName());
    if (chosen.isValid())
        setColour({.rgb = chosen.rgb() & 0xFF'FFFFU});
}

void ColourButton::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        refresh();
    QWidget::changeEvent(event);
}

} // namespace hourwright::desktop
