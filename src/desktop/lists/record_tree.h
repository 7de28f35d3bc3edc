#pragma once

#include "desktop/lists/record_model.h"

#include <QElapsedTimer>
#include <QTreeView>

namespace hourwright::desktop {

/// The widget of all three list styles: rows of groups across all columns, and what mouse, finger and keyboard do.
class RecordTree : public QTreeView {
    Q_OBJECT

public:
    RecordTree(Workspace& workspace, RecordModel& model, QWidget* parent);

    void keyboardSearch(const QString& typed) override;

signals:
    void opened(const QModelIndex& index);
    void menuRequested(QPoint globalPosition);
    /// Letters were typed one soon after the other.
    void typed(const QString& text, bool further);

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void drawGroup(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void tapped(const QModelIndex& index, QPoint globalPosition);

    Workspace& workspace_;
    RecordModel& model_;
    QString typed_;
    QElapsedTimer sinceTyped_;
};

} // namespace hourwright::desktop
