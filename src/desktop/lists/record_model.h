#pragma once

#include "app/list_rows.h"
#include "app/list_style.h"
#include "desktop/workspace.h"

#include <QAbstractItemModel>
#include <memory>
#include <optional>

namespace hourwright::desktop {

/// The rows of a list for the toolkit's views: flat in the default and simple style, below the rows of their groups in
/// the tree style. Cells are made when they are painted.
class RecordModel : public QAbstractItemModel {
    Q_OBJECT

public:
    RecordModel(Workspace& workspace, app::ListStyle style, QObject* parent);

    /// Takes the place of all rows before. Rows that are not shown at once appear when all are loaded.
    void setRows(std::unique_ptr<app::ListRows> rows, app::RecordKind records, bool atOnce);
    /// Loads further rows and shows them; true while there are more.
    bool loadMore(std::size_t limit);

    [[nodiscard]] app::ListRows* rows() const { return rows_.get(); }
    [[nodiscard]] app::RecordKind records() const { return records_; }
    [[nodiscard]] std::size_t rowCountShown() const { return shown_; }

    /// The position of a record's row; nothing for the row of a group.
    [[nodiscard]] std::optional<std::size_t> position(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex indexOf(std::size_t position, int column = 0) const;
    /// The group that a row stands for; null for that of a record.
    [[nodiscard]] const app::RowGroup* group(const QModelIndex& index) const;
    [[nodiscard]] QString groupTitle(const app::RowGroup& group) const;
    [[nodiscard]] QString groupTotals(const app::RowGroup& group) const;
    [[nodiscard]] QString columnTitle(std::size_t column) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    [[nodiscard]] QVariant rowText(std::size_t row, int column) const;

    Workspace& workspace_;
    app::ListStyle style_;
    app::RecordKind records_ = app::RecordKind::entries;
    std::unique_ptr<app::ListRows> rows_;
    bool atOnce_ = true;
    std::size_t shown_ = 0; ///< rows that the views know of
};

} // namespace hourwright::desktop
