#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <cstddef>

class QProgressBar;
class QPushButton;

namespace hourwright::desktop {

/// Shows that long work goes on: a bar over the window, once it has taken a moment. It closes with the work only; its
/// Cancel button, if there is one, and Esc ask the work to end. What is typed and clicked elsewhere meanwhile goes
/// nowhere.
class ProgressWindow : public QDialog {
    Q_OBJECT

public:
    ProgressWindow(const QString& text, bool mayCancel, QWidget* parent);
    ~ProgressWindow() override;

    /// To be called every few milliseconds. A total of 0 is one that is not known.
    void look(std::size_t done, std::size_t total);
    [[nodiscard]] bool wasCancelled() const { return cancelled_; }

    void accept() override {}
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QProgressBar* bar_;
    QPushButton* cancel_ = nullptr;
    QElapsedTimer running_;
    bool cancelled_ = false;
};

} // namespace hourwright::desktop
