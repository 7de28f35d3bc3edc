#include "desktop/bulk/progress_window.h"

#include "platform/qt/qt_text.h"
#include "resources/strings.h"
#include "resources/texts/exports.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

namespace hourwright::desktop {

namespace {

constexpr int shownAfterMilliseconds = 300;
constexpr int barWidth = 280;

int bounded(std::size_t steps) {
    return static_cast<int>(std::min<std::size_t>(steps, std::numeric_limits<int>::max()));
}

} // namespace

ProgressWindow::ProgressWindow(const QString& text, bool mayCancel, QWidget* parent)
    : QDialog(parent), bar_(new QProgressBar) {
    setWindowTitle(platform::toQString(resources::StringId::appTitle));
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowCloseButtonHint, mayCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(text));
    layout->addWidget(bar_);
    bar_->setRange(0, 0);
    bar_->setMinimumWidth(barWidth);
    bar_->setAccessibleName(text);
    if (mayCancel) {
        cancel_ = new QPushButton(platform::toQString(resources::exports::cancel));
        cancel_->setAutoDefault(false); // Enter that was meant for another window does not cancel
        connect(cancel_, &QPushButton::clicked, this, &ProgressWindow::reject);
        layout->addWidget(cancel_, 0, Qt::AlignRight);
    }
    running_.start();
}

// What was typed and clicked during the work is let go while the window still holds the others back.
ProgressWindow::~ProgressWindow() {
    if (isVisible())
        QCoreApplication::processEvents();
}

void ProgressWindow::look(std::size_t done, std::size_t total) {
    if (total > 0) {
        bar_->setRange(0, bounded(total));
        bar_->setValue(bounded(std::min(done, total)));
    }
    if (!isVisible() && running_.elapsed() >= shownAfterMilliseconds)
        show();
}

void ProgressWindow::reject() {
    if (cancel_ == nullptr)
        return;
    cancelled_ = true;
    cancel_->setEnabled(false);
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

} // namespace hourwright::desktop
