#include "desktop/summaries/breakdown_dialog.h"

#include "app/view_totals.h"
#include "billing/summary_row.h"
#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/exports.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>
#include <array>

namespace hourwright::desktop {

using platform::toQString;
namespace exports = resources::exports;

namespace {

enum Column { nameColumn, hoursColumn, hoursPartColumn, amountColumn, amountPartColumn, columnCount };
constexpr int partRole = Qt::UserRole;
constexpr int barWidth = 120; // pixels

// A percentage with a bar of that length behind it.
class BarDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const double part = std::clamp(index.data(partRole).toDouble(), 0.0, 1.0);
        QRectF bar = option.rect.adjusted(2, 3, -2, -3);
        bar.setWidth(bar.width() * part);
        QColor colour = option.palette.color(QPalette::Highlight);
        colour.setAlphaF(0.35F);
        painter->fillRect(bar, colour);
        QStyledItemDelegate::paint(painter, option, index);
    }
};

void setPart(QTreeWidgetItem& item, int column, double part) {
    item.setText(column, toQString(billing::percentText(part)));
    item.setData(column, partRole, part);
    item.setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
}

} // namespace

BreakdownDialog::BreakdownDialog(Workspace& workspace, const billing::Breakdown& breakdown, QWidget* parent)
    : Dialog(workspace, toQString(exports::breakdown), "summary", parent), tree_(new QTreeWidget) {
    tree_->setColumnCount(columnCount);
    QStringList titles;
    for (const resources::Text& text :
         {exports::name, exports::hours, exports::hoursPart, exports::amount, exports::amountPart})
        titles.append(toQString(text));
    tree_->setHeaderLabels(titles);
    tree_->setUniformRowHeights(true);
    tree_->setAccessibleName(toQString(exports::breakdown));
    tree_->setItemDelegateForColumn(hoursPartColumn, new BarDelegate(tree_));
    tree_->setItemDelegateForColumn(amountPartColumn, new BarDelegate(tree_));
    fill(breakdown);
    tree_->header()->setStretchLastSection(false);
    tree_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    tree_->header()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
    for (const int column : {hoursPartColumn, amountPartColumn})
        if (!isHandheld()) {
            tree_->header()->setSectionResizeMode(column, QHeaderView::Fixed);
            tree_->setColumnWidth(column, barWidth);
        }
    // The bars carry the numbers on a screen that is too narrow for both.
    tree_->setColumnHidden(hoursColumn, isHandheld());
    tree_->setColumnHidden(amountColumn, isHandheld());
    tree_->setMinimumSize(isHandheld() ? 300 : 680, 360);
    content()->addWidget(tree_);
    buttons()->setStandardButtons(QDialogButtonBox::Close | QDialogButtonBox::Help);
    auto* copy = buttons()->addButton(toQString(exports::copy), QDialogButtonBox::ActionRole);
    copy->setAutoDefault(false);
    buttons()->button(QDialogButtonBox::Close)->setDefault(true);
    connect(copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(asText()); });
}

// Each row stands below the last one of the level above it.
void BreakdownDialog::fill(const billing::Breakdown& breakdown) {
    std::array<QTreeWidgetItem*, 4> last{tree_->invisibleRootItem()};
    for (const billing::BreakdownRow& row : breakdown.rows) {
        const auto level = static_cast<std::size_t>(std::clamp(row.level, 0, 2));
        auto* item = new QTreeWidgetItem(last[level]);
        setRow(*item, row, breakdown);
        last[level + 1] = item;
        item->setExpanded(level == 0);
    }
    addTotal(breakdown);
}

// Amounts in several currencies make no sum; each has a row of its own below the hours.
void BreakdownDialog::addTotal(const billing::Breakdown& whole) {
    auto* total = new QTreeWidgetItem(tree_);
    total->setText(nameColumn, toQString(exports::total));
    setHours(*total, whole.hours, whole);
    if (whole.amounts.size() < 2)
        setAmounts(*total, whole.amounts, whole);
    QFont bold = total->font(nameColumn);
    bold.setBold(true);
    for (int column = 0; column < columnCount; ++column)
        total->setFont(column, bold);
    if (whole.amounts.size() < 2)
        return;
    for (const auto& [currency, amount] : whole.amounts)
        setAmounts(*new QTreeWidgetItem(total), {{currency, amount}}, whole);
    total->setExpanded(true);
}

void BreakdownDialog::setRow(QTreeWidgetItem& item, const billing::BreakdownRow& row, const billing::Breakdown& whole) {
    item.setText(nameColumn, row.name.empty() ? toQString(exports::noName) : toQString(row.name));
    setHours(item, row.hours, whole);
    setAmounts(item, row.amounts, whole);
}

void BreakdownDialog::setHours(QTreeWidgetItem& item, double hours, const billing::Breakdown& whole) {
    item.setText(hoursColumn, number(hours));
    setPart(item, hoursPartColumn, billing::partOf(hours, whole.hours));
    item.setTextAlignment(hoursColumn, Qt::AlignRight | Qt::AlignVCenter);
}

void BreakdownDialog::setAmounts(QTreeWidgetItem& item, const billing::Amounts& amounts,
                                 const billing::Breakdown& whole) {
    if (whole.amounts.size() > 1)
        item.setText(amountColumn,
                     toQString(app::amountsText(app::ViewTotals{.amounts = amounts}, workspace().locale())));
    else
        item.setText(amountColumn, number(amounts.empty() ? 0.0 : amounts.begin()->second));
    if (const auto part = billing::partOf(amounts, whole.amounts))
        setPart(item, amountPartColumn, *part);
    item.setTextAlignment(amountColumn, Qt::AlignRight | Qt::AlignVCenter);
}

QString BreakdownDialog::number(double value) {
    return toQString(workspace().locale().number(billing::amountText(value)));
}

QString BreakdownDialog::asText() const {
    QString text;
    for (QTreeWidgetItemIterator row(tree_); *row != nullptr; ++row) {
        QStringList cells;
        for (int column = 0; column < columnCount; ++column)
            cells.append((*row)->text(column));
        text += cells.join('\t') + '\n';
    }
    return text;
}

} // namespace hourwright::desktop
