#pragma once

#include "app/column_layout.h"
#include "app/list_rows.h"
#include "app/list_style.h"
#include "desktop/record_view.h"
#include "desktop/workspace.h"

#include <QTimer>
#include <set>

namespace hourwright::desktop {

class CellDelegate;
class RecordModel;
class RecordTree;

/// The list of time entries or expenses in one of the three styles. A long list shows its first rows at once and loads
/// the others in steps; an arranged one appears when it is complete.
class ListView : public RecordView {
    Q_OBJECT

public:
    ListView(Workspace& workspace, app::ListStyle style, QWidget* parent);
    ~ListView() override;

    void showView() override;
    void reload() override;
    [[nodiscard]] app::ViewTotals totals() const override;
    [[nodiscard]] std::vector<store::RecordId> selection() const override;
    void select(std::span<const store::RecordId> ids) override;
    void selectAll() override;
    [[nodiscard]] QString selectedText() const override;
    bool findNext(const QString& text) override;

    [[nodiscard]] RecordTree& tree() { return *tree_; }
    [[nodiscard]] bool isLoading() const { return loading_.isActive(); }

protected:
    void changeEvent(QEvent* event) override;

private:
    /// What is kept over a reload.
    struct Place {
        std::vector<store::RecordId> selected;
        store::RecordId current = store::RecordId::none;
        store::RecordId top = store::RecordId::none; ///< the first visible record
        int topOffset = 0;
        int horizontal = 0;
        std::set<QString> toggledGroups; ///< that are not as the options have them at first
    };

    void connectTree();
    void setUpHeader();
    [[nodiscard]] app::ListQuery query() const;
    void makeRows();
    void loadStep();
    void loadRest();
    void applyLook();
    void applyLayout();
    void storeLayout();
    void layoutChanged();
    void arrangeByColumn(int column);
    void updateIconColumn();
    void expandGroups(const std::set<QString>& toggled);
    [[nodiscard]] Place place() const;
    void restore(const Place& place);
    void selectPositions(std::vector<std::size_t> positions);
    [[nodiscard]] std::vector<std::size_t> positionsOf(std::span<const store::RecordId> ids) const;
    [[nodiscard]] std::vector<std::size_t> selectedPositions() const;
    [[nodiscard]] std::vector<std::size_t> shownColumns() const;
    bool findFrom(std::size_t first, std::size_t rows, const QString& text);
    void goTo(std::size_t position);
    [[nodiscard]] app::ColumnList list() const;

    Workspace& workspace_;
    app::ListStyle style_;
    RecordModel* model_;
    RecordTree* tree_;
    CellDelegate* delegate_;
    QTimer loading_;
    QTimer saving_;
    bool applying_ = false; ///< the header changes by program
};

} // namespace hourwright::desktop
