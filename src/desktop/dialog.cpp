#include "desktop/dialog.h"

#include "desktop/screen_size.h"

#include <QFormLayout>
#include <QFrame>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

namespace hourwright::desktop {

namespace {

constexpr int leastWidth = 360; // so that the title can be read

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

// The buttons were there before the fields; they come after them, and the first field has the focus unless another was
// given it.
void orderFocus(QDialog& dialog, const QWidget& fields, const QDialogButtonBox& buttons) {
    QWidget* first = nullptr;
    QWidget* last = nullptr;
    for (QWidget* widget = dialog.nextInFocusChain(); widget != &dialog; widget = widget->nextInFocusChain())
        if (fields.isAncestorOf(widget) && (widget->focusPolicy() & Qt::TabFocus) != 0) {
            if (first == nullptr && widget->isEnabledTo(&dialog) && widget->isVisibleTo(&dialog))
                first = widget;
            last = widget;
        }
    if (last == nullptr)
        return;
    for (QAbstractButton* button : buttons.buttons()) {
        QWidget::setTabOrder(last, button);
        last = button;
    }
    if (dialog.focusWidget() == nullptr && first != nullptr)
        first->setFocus(Qt::OtherFocusReason);
}

} // namespace

Dialog::Dialog(Workspace& workspace, const QString& title, std::string helpAnchor, QWidget* parent)
    : QDialog(parent), workspace_(workspace), helpAnchor_(std::move(helpAnchor)) {
    setWindowTitle(title);
    // When a question and the dialog that asked it close at the same moment, some window managers leave the keyboard to
    // neither.
    connect(this, &QDialog::finished, this, [this] {
        if (parentWidget() != nullptr)
            parentWidget()->window()->activateWindow();
    });
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
    if (!isHandheld())
        setMinimumWidth(leastWidth);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area);
    layout->addWidget(buttons_);
    connect(buttons_, &QDialogButtonBox::accepted, this, [this] { accept(); });
    connect(buttons_, &QDialogButtonBox::rejected, this, [this] { reject(); });
    connect(buttons_, &QDialogButtonBox::helpRequested, this, [this] { workspace_.showHelp(helpAnchor_); });
    for (const char* const keys : {"Ctrl+Return", "Ctrl+Enter", "Ctrl+S"})
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, [this] { pressOk(); });
}

// Enter alone begins a line in a note. A button that cannot be pressed is not pressed by its keys either.
void Dialog::pressOk() {
    if (auto* ok = buttons_->button(QDialogButtonBox::Ok); ok != nullptr && ok->isEnabled())
        accept();
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
    orderFocus(*this, *content_->parentWidget(), *buttons_);
    if (isHandheld())
        setWindowState(windowState() | Qt::WindowMaximized);
    QDialog::showEvent(event);
}

} // namespace hourwright::desktop
