#include "desktop/editor/rate_field.h"

#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/editor.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace hourwright::desktop {

namespace {

using platform::toQString;
namespace texts = resources::editor;

// How much of a typed rate is read.
constexpr int maxRateText = 16;
constexpr int leastRows = 3;
constexpr int mostRows = 8;
constexpr int mostRowsOnHandheld = 4;
constexpr int positionRole = Qt::UserRole;

QTreeWidgetItem* makeItem(const billing::RateNode& node) {
    auto* item = new QTreeWidgetItem({toQString(node.text)});
    item->setToolTip(0, item->text(0));
    if (node.rate)
        item->setData(0, positionRole, QVariant::fromValue(*node.rate));
    for (const billing::RateNode& child : node.children)
        item->addChild(makeItem(child));
    return item;
}

} // namespace

RateField::RateField(QWidget* parent)
    : QWidget(parent), tree_(new QTreeWidget), rate_(new QLineEdit), fixed_(new QCheckBox(toQString(texts::fixed))) {
    tree_->setHeaderHidden(true);
    tree_->setItemsExpandable(true);
    tree_->setExpandsOnDoubleClick(false);
    tree_->setTextElideMode(Qt::ElideMiddle);
    tree_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rate_->setMaxLength(maxRateText);
    rate_->setAccessibleName(toQString(texts::rateAmount));
    rate_->setAlignment(Qt::AlignRight);
    auto* line = new QHBoxLayout;
    line->addWidget(rate_, 1);
    line->addWidget(fixed_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tree_);
    layout->addLayout(line);
    setFocusProxy(tree_);
    connect(tree_, &QTreeWidget::currentItemChanged, this, &RateField::takeFromTree);
    connect(rate_, &QLineEdit::textEdited, this, [this](const QString& text) {
        choice_.type(platform::toU16(text));
        showChoice();
        emit changed();
    });
    connect(fixed_, &QCheckBox::toggled, this, [this](bool on) {
        choice_.setFixed(on);
        showChoice();
        emit changed();
    });
}

QWidget* RateField::tree() const {
    return tree_;
}

void RateField::show(const store::TimeEntry& entry, std::span<const store::RateRecord> offered) {
    choice_ = billing::RateChoice(entry);
    offered_.assign(offered.begin(), offered.end());
    fillTree();
    showChoice();
}

void RateField::restore(const billing::EntryDraft& draft, std::span<const store::RateRecord> offered) {
    choice_.takeFrom(draft);
    offered_.assign(offered.begin(), offered.end());
    fillTree();
    showChoice();
}

void RateField::changeRates(std::span<const store::RateRecord> offered) {
    choice_.changeRates(offered_, offered);
    offered_.assign(offered.begin(), offered.end());
    fillTree();
    showChoice();
    emit changed();
}

void RateField::suggest() {
    choice_.suggest(offered_);
    showChoice();
    emit changed();
}

void RateField::fillTree() {
    const QSignalBlocker quiet(tree_);
    tree_->clear();
    for (const billing::RateNode& node : billing::rateTree(offered_))
        tree_->addTopLevelItem(makeItem(node));
    tree_->expandAll();
    const int rows =
        std::clamp(static_cast<int>(offered_.size()) + 2, leastRows, isHandheld() ? mostRowsOnHandheld : mostRows);
    tree_->setFixedHeight(rows * tree_->sizeHintForRow(0) + 2 * tree_->frameWidth());
}

void RateField::showChoice() {
    const QSignalBlocker quietTree(tree_);
    const QSignalBlocker quietFixed(fixed_);
    const auto position = choice_.find(offered_);
    QTreeWidgetItem* item = position ? tree_->topLevelItem(0)->child(static_cast<int>(*position))
                                     : tree_->topLevelItem(tree_->topLevelItemCount() - 1);
    tree_->setCurrentItem(item);
    if (const QString text = toQString(choice_.text()); rate_->text() != text) {
        rate_->setText(text);
        rate_->setCursorPosition(0);
    }
    fixed_->setChecked(choice_.isFixed());
}

void RateField::takeFromTree() {
    const QTreeWidgetItem* item = tree_->currentItem();
    if (item == nullptr || item->childCount() > 0)
        return; // the heading of the rates is no rate
    const QVariant position = item->data(0, positionRole);
    if (position.isValid())
        choice_.choose(offered_[position.value<std::size_t>()]);
    else if (item->parent() == nullptr && item != tree_->topLevelItem(0))
        choice_.type(choice_.text());
    showChoice();
    emit changed();
}

void RateField::focusRate() {
    rate_->setFocus(Qt::OtherFocusReason);
    rate_->selectAll();
}

} // namespace hourwright::desktop
