#pragma once

#include "desktop/structure/structure_row.h"
#include "store/client_tree.h"

#include <QTreeWidget>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace hourwright::desktop {

/// The clients with all that belongs to them. Anew shown, it keeps what was expanded and selected; a search leaves the
/// rows that have the text, with those above and below them. Letters typed into it go to the search.
class StructureTree : public QTreeWidget {
    Q_OBJECT

public:
    explicit StructureTree(QWidget* parent = nullptr);

    void showClients(std::span<const store::ClientTree> clients, std::span<const store::RateRecord> defaultRates);
    void search(const QString& text);
    /// Selects what was just made or renamed, once it is shown.
    void selectRow(const StructureRow& row);

    /// The row that is selected; nothing without one.
    [[nodiscard]] std::optional<StructureRow> current() const;
    /// The client of the selected row as a row; nothing without a selection.
    [[nodiscard]] std::optional<billing::StructureItem> currentClient() const;
    /// The project that the selected row is or belongs to.
    [[nodiscard]] std::optional<std::u16string> currentProject() const;

signals:
    void typed(const QString& text);
    /// Enter or a double click on a row.
    void opened();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QTreeWidgetItem* add(QTreeWidgetItem* parent, StructureRow row);
    void addChildren(QTreeWidgetItem* clientItem, const store::ClientTree& client);
    void remember(QTreeWidgetItem* item);
    void restore(QTreeWidgetItem* item);
    void restoreAll();
    bool filter(QTreeWidgetItem* item, bool aboveMatches);
    [[nodiscard]] const StructureRow& rowOf(const QTreeWidgetItem* item) const;

    std::vector<StructureRow> rows_;
    QString searched_;
    std::set<QString> expanded_;
    QString selected_;
};

} // namespace hourwright::desktop
