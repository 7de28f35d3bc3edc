#include "desktop/dialog.h"

#include "desktop/screen_size.h"

#include <QFormLayout>
#include <QFrame>
#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace hourwright::desktop {

namespace {

// A scroll area that asks for as much room as its content wants, so that it scrolls only when the screen is too small.
class ContentArea : public QScrollArea {
public:
    using QScrollArea::QScrollArea;

    [[nodiscard]] QSize sizeHint() const override {
        const QSize content = widget()->sizeHint();
        return {std::max(content.width(), widget()->minimumSizeHint().width()) +
                    verticalScrollBar()->sizeHint().width(),
                content.height() + 2};
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {isHandheld() ? 0 : widget()->minimumSizeHint().width(), touchTarget};
    }
};

} // namespace

Dialog::Dialog(Workspace& workspace, const QString& title, std::string helpAnchor, QWidget* parent)
    : QDialog(parent), workspace_(workspace), helpAnchor_(std::move(helpAnchor)) {
    setWindowTitle(title);
    auto* area = new ContentArea;
    auto* inner = new QWidget;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(inner);
    content_ = new QVBoxLayout(inner);
    content_->setContentsMargins(0, 0, 0, 0);
    buttons_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area);
    layout->addWidget(buttons_);
    connect(buttons_, &QDialogButtonBox::accepted, this, [this] { accept(); });
    connect(buttons_, &QDialogButtonBox::rejected, this, [this] { reject(); });
    connect(buttons_, &QDialogButtonBox::helpRequested, this, [this] { workspace_.showHelp(helpAnchor_); });
}

QFormLayout* Dialog::makeForm(QWidget* owner) {
    auto* form = owner == nullptr ? new QFormLayout : new QFormLayout(owner);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    if (isHandheld())
        form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    return form;
}

QFormLayout* Dialog::addForm() {
    auto* form = makeForm();
    content_->addLayout(form);
    return form;
}

void Dialog::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::HelpContents)) {
        workspace_.showHelp(helpAnchor_);
        return;
    }
    QDialog::keyPressEvent(event);
}

void Dialog::showEvent(QShowEvent* event) {
    if (isHandheld())
        setWindowState(windowState() | Qt::WindowMaximized);
    QDialog::showEvent(event);
}

} // namespace hourwright::desktop
