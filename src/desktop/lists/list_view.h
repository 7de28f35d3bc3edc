#pragma once

#include "app/list_rows.h"
#include "app/list_style.h"
#include "desktop/lists/row_finder.h"
#include "desktop/record_view.h"
#include "desktop/workspace.h"

#include <QTimer>
#include <functional>
#include <memory>
#include <set>

namespace hourwright::desktop {

class CellDelegate;
class ListColumns;
class RecordModel;
class RecordTree;

/// The list of time entries or expenses in one of the three styles. A long list shows its first rows at once and loads
/// the others in steps; an arranged one appears when it is complete. Reloading, it shows the former rows until the new
/// ones are there.
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
    [[nodiscard]] Found findNext(const QString& text) override;
    void cancelFind() override;

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
    [[nodiscard]] app::ListQuery query() const;
    [[nodiscard]] std::unique_ptr<app::ListRows> makeRows() const;
    void setRows(std::unique_ptr<app::ListRows> rows);
    void loadStep();
    void takeComing();
    void loaded();
    void onceLoaded(std::function<void()> then);
    void expandGroups(const std::set<QString>& toggled);
    [[nodiscard]] Place place() const;
    void restore(const Place& place);
    void selectPositions(std::vector<std::size_t> positions);
    [[nodiscard]] std::vector<std::size_t> positionsOf(std::span<const store::RecordId> ids) const;
    [[nodiscard]] std::vector<std::size_t> selectedPositions() const;
    [[nodiscard]] bool canFind(const QString& text) const;
    [[nodiscard]] RowFinder::Request findRequest(const QString& text, std::size_t behindCurrent) const;
    Found findNow(const QString& text);
    void goTo(std::size_t position);

    Workspace& workspace_;
    app::ListStyle style_;
    RecordModel* model_;
    RecordTree* tree_;
    CellDelegate* delegate_;
    std::unique_ptr<ListColumns> columns_;
    RowFinder* finder_;
    QTimer loading_;
    std::unique_ptr<app::ListRows> coming_; // by a reload
    std::function<void()> whenLoaded_;
};

} // namespace hourwright::desktop
