#include "desktop/lists/list_view.h"

#include "app/column_layout.h"
#include "desktop/desktop_fixture.h"
#include "desktop/lists/record_tree.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

namespace hourwright::desktop {
namespace {

using app::ListStyle;
using store::RecordId;
using store::TimeEntry;

class ListViewTest : public test::DesktopFixture {
protected:
    RecordId entry(int day, const std::u16string& client, const std::u16string& task = u"") {
        TimeEntry made{.client = client, .task = task, .duration = 100};
        EXPECT_TRUE(
            store::setDateWithoutStart(made, {.year = 2026, .month = 11, .day = static_cast<std::uint16_t>(day)}));
        return add(made);
    }

    std::unique_ptr<ListView> show(ListStyle style = ListStyle::standard) {
        auto view = std::make_unique<ListView>(workspace(), style, nullptr);
        view->resize(600, 200);
        view->show();
        view->showView();
        return view;
    }
};

TEST_F(ListViewTest, ReloadKeepsSelectionCurrentRowAndScroll) {
    std::vector<RecordId> ids;
    for (int i = 0; i < 100; ++i)
        ids.push_back(entry(17, u"Client"));
    for (const ListStyle style : {ListStyle::standard, ListStyle::simple, ListStyle::tree}) {
        const auto view = show(style);
        const std::vector<RecordId> wanted{ids[60], ids[61], ids[70]};
        view->select(wanted);
        const auto before = view->tree().visualRect(view->tree().currentIndex()).top();
        entry(16, u"Earlier"); // a row above moves all others
        view->reload();
        EXPECT_EQ(view->selection(), wanted);
        EXPECT_EQ(view->tree().visualRect(view->tree().currentIndex()).top(), before) << static_cast<int>(style);
        EXPECT_GE(before, 0);
    }
}

TEST_F(ListViewTest, TheMenuBelowTheRowsIsNotAboutTheSelection) {
    const auto id = entry(17, u"Client");
    const auto view = show();
    QSignalSpy menus(view.get(), &RecordView::contextMenuRequested);
    const auto askAt = [&](QContextMenuEvent::Reason reason, QPoint at) {
        view->select(std::vector{id});
        QContextMenuEvent event(reason, at, view->tree().viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(view->tree().viewport(), &event);
        return view->selection().size();
    };
    const QPoint row = view->tree().visualRect(view->tree().currentIndex()).center();
    const QPoint below(10, view->tree().viewport()->height() - 5);
    EXPECT_EQ(askAt(QContextMenuEvent::Mouse, row), 1U);
    EXPECT_EQ(askAt(QContextMenuEvent::Keyboard, below), 1U);
    EXPECT_EQ(askAt(QContextMenuEvent::Mouse, below), 0U);
    EXPECT_EQ(menus.count(), 3);
}

TEST_F(ListViewTest, TheFontFollowsTheSettings) {
    settings().fontSize = 3;
    settings().styleFlags.set(app::StyleFlag::boldList);
    registry().create(u"Software\\Microsoft\\Shell")->writeDword(u"ClearType", 1);
    const QFont font = show()->tree().font();
    EXPECT_EQ(font.pointSizeF(), 10.0);
    EXPECT_TRUE(font.bold());
    EXPECT_EQ(font.styleStrategy(), QFont::PreferAntialias);
    settings().styleFlags.set(app::StyleFlag::boldList, false);
    registry().removeKey(u"Software\\Microsoft");
    EXPECT_FALSE(show()->tree().font().bold());
    EXPECT_EQ(show()->tree().font().styleStrategy(), QFont::PreferDefault);
}

TEST_F(ListViewTest, ColumnsAreKeptOverARestart) {
    entry(17, u"Client");
    {
        const auto view = show();
        QHeaderView* header = view->tree().header();
        header->moveSection(header->visualIndex(4), 0);
        header->resizeSection(1, 222);
    }
    const auto view = show();
    EXPECT_EQ(view->tree().header()->logicalIndex(0), 4);
    EXPECT_EQ(view->tree().header()->sectionSize(1), 222);
    EXPECT_EQ(app::loadColumnLayout(registry(), app::ColumnList::expenses),
              app::builtInColumnLayout(app::ColumnList::expenses));
}

TEST_F(ListViewTest, AnOrderOfElevenColumnsGetsTheNewerOnesBehindIt) {
    std::vector<std::byte> order;
    for (int column = 10; column >= 0; --column)
        order.insert(order.end(), {static_cast<std::byte>(column), {}, {}, {}});
    registry().create(platform::settingsKey)->writeBinary(u"ColOrder", order);
    const auto view = show();
    std::vector<int> shown;
    for (int place = 0; place < view->tree().header()->count(); ++place)
        shown.push_back(view->tree().header()->logicalIndex(place));
    EXPECT_EQ(shown, (std::vector{10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 11, 12, 13, 14, 15}));
}

TEST_F(ListViewTest, SwitchingToExpensesLeavesTheEntriesColumns) {
    entry(17, u"Client");
    const auto view = show();
    view->tree().header()->resizeSection(0, 199);
    workspace().view().showRecords(app::RecordKind::expenses);
    view->showView();
    EXPECT_EQ(view->tree().header()->count(), 15);
    EXPECT_EQ(view->tree().header()->sectionSize(0), 80);
    workspace().view().showRecords(app::RecordKind::entries);
    view->showView();
    EXPECT_EQ(view->tree().header()->sectionSize(0), 199);
    EXPECT_EQ(view->tree().header()->sectionSize(15), 60);
}

TEST_F(ListViewTest, OpensByEnterAndDoubleClick) {
    const RecordId id = entry(17, u"Client");
    const auto view = show();
    view->select(std::vector{id});
    QSignalSpy opened(view.get(), &RecordView::activated);
    QTest::keyClick(&view->tree(), Qt::Key_Return);
    EXPECT_EQ(opened.count(), 1);
    QTest::mouseDClick(view->tree().viewport(), Qt::LeftButton, {},
                       view->tree().visualRect(view->tree().currentIndex()).center());
    EXPECT_EQ(opened.count(), 2);
}

TEST_F(ListViewTest, FindsAroundTheEndAndByTyping) {
    const RecordId first = entry(17, u"Alpha", u"Phone");
    const RecordId second = entry(18, u"Beta", u"Visit");
    const auto view = show();
    EXPECT_EQ(view->findNext("VISIT"), Found::yes);
    EXPECT_EQ(view->selection(), std::vector{second});
    EXPECT_EQ(view->findNext("pho"), Found::yes);
    EXPECT_EQ(view->selection(), std::vector{first});
    EXPECT_EQ(view->findNext("nowhere"), Found::no);
    QTest::keyClicks(&view->tree(), "bet");
    EXPECT_EQ(view->selection(), std::vector{second});
}

TEST_F(ListViewTest, LoadsALongListInStepsAndACollapsedGroupStaysSo) {
    change([&](platform::Transaction& t) {
        for (int i = 0; i < 2'500; ++i) {
            TimeEntry made{.client = i % 2 == 0 ? u"Even" : u"Odd", .duration = 100};
            ASSERT_TRUE(store::setDateWithoutStart(made, {.year = 2026, .month = 11, .day = 17}));
            ASSERT_TRUE(store::insertTimeEntry(t, stores().entries(), made));
        }
    });
    const auto list = show();
    EXPECT_TRUE(list->isLoading());
    EXPECT_EQ(list->tree().model()->rowCount(), 2'000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !list->isLoading(); }));
    EXPECT_EQ(list->totals().items, 2'500U);
    EXPECT_EQ(list->tree().model()->rowCount(), 2'500);

    workspace().view().arrangeBy(1);
    const auto tree = show(ListStyle::tree);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !tree->isLoading(); }));
    auto& model = *tree->tree().model();
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_TRUE(tree->tree().isExpanded(model.index(1, 0)));
    tree->tree().collapse(model.index(0, 0));
    tree->reload();
    EXPECT_FALSE(tree->tree().isExpanded(model.index(0, 0)));
    EXPECT_TRUE(tree->tree().isExpanded(model.index(1, 0)));
}

} // namespace
} // namespace hourwright::desktop
