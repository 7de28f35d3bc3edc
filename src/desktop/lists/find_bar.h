#pragma once

#include "desktop/main_window.h"

#include <QToolBar>

class QLabel;
class QLineEdit;

namespace hourwright::desktop {

/// Finds a text in the records shown. It appears at the lower edge of the window when it is called and goes with Esc.
class FindBar : public QToolBar {
    Q_OBJECT

public:
    explicit FindBar(MainWindow& window);

    /// Shows the bar with its text selected.
    void open();
    /// Goes to the next record with the text; opens the bar when there is none yet.
    void findNext();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    MainWindow& window_;
    QLineEdit* text_;
    QLabel* result_;
};

} // namespace hourwright::desktop
