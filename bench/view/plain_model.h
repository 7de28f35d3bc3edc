#pragma once

#include <QAbstractTableModel>

namespace hourwright::bench {

/// A table of so many rows with a short text in every cell, which costs nothing to make: what is left is the toolkit's
/// own work.
class PlainModel : public QAbstractTableModel {
public:
    PlainModel(int rows, int columns) : rows_(rows), columns_(columns) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : columns_;
    }
    [[nodiscard]] QVariant data(const QModelIndex& /*index*/, int role) const override {
        return role == Qt::DisplayRole ? QVariant(text_) : QVariant();
    }

private:
    int rows_;
    int columns_;
    QString text_ = "Site visit 2";
};

} // namespace hourwright::bench
