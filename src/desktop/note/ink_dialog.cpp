#include "desktop/note/ink_dialog.h"

#include "desktop/icons.h"
#include "desktop/note/ink_image.h"
#include "desktop/note/ink_pad.h"
#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/notes.h"

#include <QButtonGroup>
#include <QPainter>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace {

using platform::toQString;
namespace texts = resources::notes;

struct Pen {
    resources::Text name;
    QRgb colour;
};
constexpr Pen pens[] = {{texts::black, 0xFF1A1A1A},
                        {texts::blue, 0xFF1F4FA8},
                        {texts::red, 0xFFC62828},
                        {texts::green, 0xFF2E7D32},
                        {texts::orange, 0xFFE67700}};

struct Tip {
    resources::Text name;
    std::uint32_t width; // hundredths of a millimetre
};
constexpr Tip tips[] = {{texts::thin, 30}, {texts::medium, 60}, {texts::thick, 140}};

// A dot of ink on paper, so that colours and widths look as they will.
QIcon dot(QRgb colour, double diameter) {
    constexpr int side = 48;
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(paperColour);
    painter.drawEllipse(1, 1, side - 2, side - 2);
    painter.setBrush(QColor::fromRgba(colour));
    painter.drawEllipse(QPointF(side / 2.0, side / 2.0), diameter / 2, diameter / 2);
    return picture;
}

} // namespace

InkDialog::InkDialog(Workspace& workspace, const exchange::InkDrawing& drawing, QWidget* parent)
    : Dialog(workspace, toQString(texts::inkTitle), "addnew", parent), pad_(new InkPad) {
    pad_->setDrawing(drawing);
    pad_->setAccessibleName(toQString(texts::inkPad));
    auto* pensRow = new QHBoxLayout;
    auto* toolsRow = isHandheld() ? new QHBoxLayout : pensRow;
    addPens(*pensRow);
    addWidths(*toolsRow);
    addSteps(*toolsRow);
    pensRow->setSpacing(2);
    toolsRow->setSpacing(2);
    content()->addLayout(pensRow);
    if (toolsRow != pensRow) {
        pensRow->addStretch(1);
        content()->addLayout(toolsRow);
    }
    content()->addWidget(pad_, 1);
    pad_->setFocus();
}

QToolButton* InkDialog::addButton(QHBoxLayout& row, const QIcon& image, const QString& name) {
    auto* button = new QToolButton;
    button->setIcon(image);
    button->setAutoRaise(true);
    button->setToolTip(name);
    button->setAccessibleName(name);
    button->setFocusPolicy(Qt::TabFocus);
    if (isHandheld())
        button->setMinimumSize(touchTarget, touchTarget);
    row.addWidget(button);
    return button;
}

void InkDialog::addPens(QHBoxLayout& row) {
    auto* group = new QButtonGroup(this);
    for (const Pen& pen : pens) {
        QToolButton* const button = addButton(row, dot(pen.colour, 30), toQString(pen.name));
        button->setCheckable(true);
        button->setChecked(&pen == pens);
        group->addButton(button);
        connect(button, &QToolButton::clicked, this, [this, colour = pen.colour] {
            pad_->setColour(colour);
            pad_->setErasing(false);
        });
    }
    pad_->setColour(pens[0].colour);
    QToolButton* const eraser = addButton(row, icon("eraser"), toQString(texts::eraser));
    eraser->setCheckable(true);
    group->addButton(eraser);
    connect(eraser, &QToolButton::clicked, this, [this] { pad_->setErasing(true); });
    row.addSpacing(12);
}

void InkDialog::addWidths(QHBoxLayout& row) {
    auto* group = new QButtonGroup(this);
    for (const Tip& tip : tips) {
        QToolButton* const button = addButton(row, dot(pens[0].colour, 6 + tip.width / 6.0), toQString(tip.name));
        button->setCheckable(true);
        button->setChecked(&tip == &tips[1]);
        group->addButton(button);
        connect(button, &QToolButton::clicked, this, [this, width = tip.width] { pad_->setTip(width); });
    }
    pad_->setTip(tips[1].width);
    row.addSpacing(12);
}

void InkDialog::addSteps(QHBoxLayout& row) {
    QToolButton* const undo = addButton(row, icon("edit-undo"), toQString(texts::undo));
    QToolButton* const redo = addButton(row, icon("edit-redo"), toQString(texts::redo));
    auto* clear = addButton(row, QIcon(), toQString(texts::clear));
    clear->setText(toQString(texts::clear));
    row.addStretch(1);
    connect(undo, &QToolButton::clicked, pad_, &InkPad::undo);
    connect(redo, &QToolButton::clicked, pad_, &InkPad::redo);
    connect(clear, &QToolButton::clicked, pad_, &InkPad::clear);
    connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, pad_, &InkPad::undo);
    connect(new QShortcut(QKeySequence::Redo, this), &QShortcut::activated, pad_, &InkPad::redo);
    const auto show = [this, undo, redo, clear] {
        undo->setEnabled(pad_->canUndo());
        redo->setEnabled(pad_->canRedo());
        clear->setEnabled(!pad_->strokes().empty());
    };
    connect(pad_, &InkPad::changed, this, show);
    show();
}

exchange::InkDrawing InkDialog::drawing() const {
    exchange::InkDrawing result = pad_->drawing();
    addInkPicture(result);
    return result;
}

} // namespace hourwright::desktop
