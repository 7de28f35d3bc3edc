#pragma once

#include <QFrame>

class QToolButton;

namespace hourwright::desktop {

/// The bar that says that a filter is on and takes it off.
class FilterBar : public QFrame {
    Q_OBJECT

public:
    explicit FilterBar(QWidget* parent);

    /// Shows what is filtered; an empty description hides the bar.
    void describe(const QString& description);

signals:
    void clearRequested();
    void editRequested();

private:
    QToolButton* text_;
};

} // namespace hourwright::desktop
