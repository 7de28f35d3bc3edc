#pragma once

#include "app/column_layout.h"
#include "app/list_style.h"
#include "desktop/lists/record_delegate.h"
#include "desktop/lists/record_tree.h"

#include <QTimer>
#include <vector>

namespace hourwright::desktop {

/// The columns of a list: they come from the registry, the user moves, widens and clicks them, and what has become of
/// them is stored a moment later. The simple list shows none.
class ListColumns : public QObject {
    Q_OBJECT

public:
    ListColumns(Workspace& workspace, RecordModel& model, RecordTree& tree, CellDelegate& delegate,
                app::ListStyle style);
    ~ListColumns() override;

    /// To be called around a change of the model's columns: stores what the user did to the old ones, then lays out the
    /// new ones and marks the one that the list is arranged by.
    void beginChange();
    void endChange();

    /// The columns shown, from left to right; for the simple list those that the others would show.
    [[nodiscard]] std::vector<std::size_t> shown() const;

private:
    void setUpHeader();
    void arrangeBy(int column);
    void changed();
    void place();
    void markArranged();
    void store();
    void updateIconColumn();
    [[nodiscard]] app::ColumnList list() const;

    Workspace& workspace_;
    RecordModel& model_;
    RecordTree& tree_;
    CellDelegate& delegate_;
    app::ListStyle style_;
    QTimer saving_;
    bool applying_ = false; ///< the header changes by program
};

} // namespace hourwright::desktop
