#include "desktop/bulk/progress_window.h"

#include "platform/qt/qt_text.h"
#include "resources/strings.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace {

constexpr int turnMilliseconds = 25;
constexpr int shownAfterMilliseconds = 300;
constexpr int barWidth = 280;

} // namespace

ProgressWindow::ProgressWindow(const QString& text, QWidget* parent) : QDialog(parent), bar_(new QProgressBar) {
    setWindowTitle(platform::toQString(resources::StringId::appTitle));
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowCloseButtonHint, false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(text));
    layout->addWidget(bar_);
    bar_->setRange(0, 0);
    bar_->setMinimumWidth(barWidth);
    bar_->setAccessibleName(text);
    running_.start();
}

// What was typed and clicked during the change is let go while the window still holds the others back.
ProgressWindow::~ProgressWindow() {
    if (isVisible())
        QCoreApplication::processEvents();
}

void ProgressWindow::advance(std::size_t /*done*/) {
    const qint64 now = running_.elapsed();
    if (now - lastTurn_ < turnMilliseconds)
        return;
    if (!isVisible() && now >= shownAfterMilliseconds)
        show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    lastTurn_ = running_.elapsed();
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
}

} // namespace hourwright::desktop
