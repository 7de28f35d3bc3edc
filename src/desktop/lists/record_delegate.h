#pragma once

#include "desktop/lists/record_model.h"
#include "desktop/status_look.h"

#include <QStyledItemDelegate>

namespace hourwright::desktop {

/// Paints the cells of the default and tree style, with the status icon in the first column shown.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    CellDelegate(Workspace& workspace, RecordModel& model, QObject* parent);

    /// The column that shows the icon.
    void setIconColumn(int column) { iconColumn_ = column; }
    void forgetIcons() { icons_.clear(); }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    [[nodiscard]] QIcon iconOf(std::size_t row, int size, const QWidget* widget) const;

    Workspace& workspace_;
    RecordModel& model_;

private:
    int iconColumn_ = 0;
    mutable StatusIcons icons_;
};

/// Paints the two lines of a row in the simple style.
class SimpleDelegate : public CellDelegate {
    Q_OBJECT

public:
    using CellDelegate::CellDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace hourwright::desktop
