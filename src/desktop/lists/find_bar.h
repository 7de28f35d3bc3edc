#pragma once

#include "desktop/main_window.h"

#include <QToolBar>

class QLabel;
class QLineEdit;

namespace hourwright::desktop {

/// Finds a text in the records shown. It appears at the lower edge of the window when it is called and goes with Esc,
/// which first ends a search that is going on.
class FindBar : public QToolBar {
    Q_OBJECT

public:
    explicit FindBar(MainWindow& window);

    /// Shows the bar with its text selected.
    void open();
    /// Goes to the next record with the text; opens the bar when there is none yet.
    void findNext();

    /// A search that went on by itself has ended.
    void searchEnded(bool found);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void tell(Found found);
    void cancel();

    MainWindow& window_;
    QLineEdit* text_;
    QLabel* result_;
    bool searching_ = false;
};

} // namespace hourwright::desktop
