#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <cstddef>

class QProgressBar;

namespace hourwright::desktop {

/// Keeps the window alive during a long change: lets paints and timers run every few milliseconds, and shows a bar over
/// the window once the change has taken a moment. It cannot be cancelled or closed. What is typed and clicked
/// meanwhile goes nowhere.
class ProgressWindow : public QDialog {
    Q_OBJECT

public:
    ProgressWindow(const QString& text, QWidget* parent);
    ~ProgressWindow() override;

    /// To be called as often as one likes.
    void advance(std::size_t done);

    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QProgressBar* bar_;
    QElapsedTimer running_;
    qint64 lastTurn_ = 0;
};

} // namespace hourwright::desktop
