#include "desktop/timers/timer_row_delegate.h"

#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/timers.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTreeWidget>

namespace hourwright::desktop {

namespace {

constexpr int margin = 6; // pixels

class TwoLineDelegate : public QStyledItemDelegate {
public:
    explicit TwoLineDelegate(QTreeWidget& list) : QStyledItemDelegate(&list), list_(list) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width(), twoLineHeight(list_)};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        const QIcon sign = item.icon;
        item.text.clear();
        item.icon = {};
        QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, &list_);
        const auto text = [&](int column) { return index.siblingAtColumn(column).data().toString(); };
        QStringList names;
        for (int column = 2; column <= 5; ++column)
            if (!text(column).isEmpty())
                names.append(text(column));
        const QRect area = option.rect.adjusted(margin, margin, -margin, -margin);
        const int half = area.height() / 2;
        sign.paint(painter, QRect(area.topLeft(), QSize(half, half)));
        const QRect above(area.left() + half + margin, area.top(), area.width() - half - margin, half);
        const auto role = (option.state & QStyle::State_Selected) != 0 ? QPalette::HighlightedText : QPalette::Text;
        painter->setPen(option.palette.color(role));
        const QFont plain = painter->font();
        QFont bold = plain;
        bold.setBold(true);
        painter->setFont(bold);
        painter->drawText(above, Qt::AlignLeft | Qt::AlignVCenter, text(0));
        painter->setFont(plain);
        painter->drawText(above, Qt::AlignRight | Qt::AlignVCenter,
                          text(1) + "   " + platform::toQString(resources::timers::breakTime) + ' ' + text(6));
        const QRect below(above.left(), area.top() + half, above.width(), half);
        painter->drawText(below, Qt::AlignLeft | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(names.join(" · "), Qt::ElideRight, below.width()));
    }

private:
    QTreeWidget& list_;
};

} // namespace

int twoLineHeight(const QTreeWidget& list) {
    return std::max(touchTarget, 2 * list.fontMetrics().height() + 3 * margin);
}

void showAsTwoLines(QTreeWidget& list) {
    list.setItemDelegate(new TwoLineDelegate(list));
    list.setHeaderHidden(true);
    for (int column = 1; column < list.columnCount(); ++column)
        list.setColumnHidden(column, true);
    list.header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

} // namespace hourwright::desktop
