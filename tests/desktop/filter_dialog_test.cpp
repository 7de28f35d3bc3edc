#include "desktop/filters/filter_dialog.h"

#include "app/filter_description.h"
#include "desktop/desktop_fixture.h"
#include "desktop/filters/custom_period_dialog.h"
#include "desktop/filters/default_view_dialog.h"
#include "desktop/main_window.h"
#include "desktop/views.h"
#include "store/client_structure.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QTabWidget>
#include <QTest>

namespace hourwright::desktop {
namespace {

using resources::StringId;

template<typename Widget>
Widget* child(QWidget& parent, const char* name) {
    auto* widget = parent.findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
}

QStringList items(const QComboBox& combo) {
    QStringList texts;
    for (int i = 0; i < combo.count(); ++i)
        texts.append(combo.itemText(i));
    return texts;
}

class FilterDialogTest : public test::DesktopFixture {
protected:
    FilterDialogTest() {
        change([&](platform::Transaction& transaction) {
            EXPECT_NE(store::addClient(transaction, stores(), u"Acme"), 0U);
            EXPECT_NE(store::addClient(transaction, stores(), u"Zenith"), 0U);
        });
        add(store::TimeEntry{
            .client = u"Acme", .project = u"Bridge", .phase = u"I", .task = u"Survey", .billTo = u"Ms Lind"});
        add(store::TimeEntry{.client = u"Zenith", .project = u"Tunnel", .task = u"Design"});
    }
    std::optional<platform::RegistryValue> stored(std::u16string_view name) {
        return registry().open(platform::settingsKey)->query(name);
    }
    std::optional<std::uint32_t> number(std::u16string_view name) {
        return registry().open(platform::settingsKey)->readDword(name);
    }
    std::u16string text(std::u16string_view name) {
        return registry().open(platform::settingsKey)->readString(name, 64).value_or(u"(none)");
    }
};

TEST_F(FilterDialogTest, StoresWhatIsChosen) {
    EntryFilterDialog dialog(workspace(), nullptr);
    child<AnyCombo>(dialog, "client")->setText(u"Acme");
    child<AnyCombo>(dialog, "custom1")->setText(u"x");
    child<QComboBox>(dialog, "rateType")->setCurrentIndex(2);
    child<QCheckBox>(dialog, "status3")->setChecked(false);
    child<QGroupBox>(dialog, "range")->setChecked(true);
    child<QDateEdit>(dialog, "firstDay")->setDate(QDate(2026, 11, 1));
    child<QDateEdit>(dialog, "lastDay")->setDate(QDate(2026, 11, 15));
    dialog.accept();
    const app::EntryFilter& filter = workspace().entryFilter();
    EXPECT_EQ(filter.client, u"Acme");
    EXPECT_EQ(filter.custom1, u"x");
    EXPECT_EQ(filter.rateType, 1U);
    EXPECT_FALSE(filter.showPaid);
    EXPECT_TRUE(filter.showNonBillable && filter.showBillable && filter.showBilled);
    EXPECT_EQ(text(u"fClient"), u"Acme");
    EXPECT_EQ(number(u"fFlags"), 0x31U);
    EXPECT_EQ(number(u"fRateType"), 1U);
    EXPECT_FALSE(stored(u"fProject") || stored(u"fCustom1"));
    EXPECT_EQ(filterDescription(workspace()),
              "Client Acme, Custom 1 x, Overtime Rate, Unpaid only, 11/1/26 – 11/15/26");
}

TEST_F(FilterDialogTest, AcceptedUnchangedItKeepsTheFilter) {
    app::EntryFilter filter{{.rangeStart = {.year = 2026, .month = 11, .dayOfWeek = 0, .day = 1},
                             .rangeEnd = {.year = 2026, .month = 11, .dayOfWeek = 1, .day = 2},
                             .showBilled = false},
                            u"a",
                            u"b",
                            u"c",
                            u"d",
                            u"e",
                            u"f",
                            u"g",
                            u"h",
                            u"i",
                            9};
    workspace().entryFilter() = filter;
    EntryFilterDialog(workspace(), nullptr).accept();
    EXPECT_EQ(workspace().entryFilter(), filter);
    app::ExpenseFilter expenses{{.showPaid = false}, u"a", u"b", u"c", u"d", u"e", u"f", u"g", 1, 0};
    workspace().expenseFilter() = expenses;
    ExpenseFilterDialog(workspace(), nullptr).accept();
    EXPECT_EQ(workspace().expenseFilter(), expenses);
}

TEST_F(FilterDialogTest, AClientNarrowsWhatTheOthersOffer) {
    EntryFilterDialog dialog(workspace(), nullptr);
    EXPECT_EQ(items(*child<AnyCombo>(dialog, "project")), (QStringList{"[Any]", "Bridge", "Tunnel"}));
    child<AnyCombo>(dialog, "project")->setText(u"Bri");
    child<AnyCombo>(dialog, "client")->setText(u"Acme");
    EXPECT_EQ(items(*child<AnyCombo>(dialog, "project")), (QStringList{"[Any]", "Bridge"}));
    EXPECT_EQ(child<AnyCombo>(dialog, "project")->text(), u"Bri");
    EXPECT_EQ(items(*child<AnyCombo>(dialog, "billTo")), (QStringList{"[Any]", "Ms Lind"}));
    EXPECT_EQ(items(*child<AnyCombo>(dialog, "phase")), (QStringList{"[Any]", "I"}));
}

TEST_F(FilterDialogTest, AnyIsTheEmptyText) {
    AnyCombo combo;
    combo.offer(std::vector<std::u16string>{u"Acme"});
    combo.setText(u"Acme");
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Up);
    EXPECT_EQ(combo.text(), u"");
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(combo.text(), u"Acme");
}

TEST_F(FilterDialogTest, RefusesDatesInTheWrongOrder) {
    EntryFilterDialog dialog(workspace(), nullptr);
    dialog.show();
    child<QGroupBox>(dialog, "range")->setChecked(true);
    child<QDateEdit>(dialog, "firstDay")->setDate(QDate(2026, 11, 2));
    child<QDateEdit>(dialog, "lastDay")->setDate(QDate(2026, 11, 1));
    dialog.accept();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(messages().ids(), std::vector{StringId::periodEndBeforeStart});
    EXPECT_EQ(dialog.focusWidget(), child<QDateEdit>(dialog, "lastDay"));
    EXPECT_EQ(workspace().entryFilter(), app::EntryFilter{});
    child<QGroupBox>(dialog, "range")->setChecked(false);
    dialog.accept();
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FilterDialogTest, ExpensesHaveTypeAndReceipt) {
    ExpenseFilterDialog dialog(workspace(), nullptr);
    child<QComboBox>(dialog, "type")->setCurrentText("Mileage");
    child<QComboBox>(dialog, "receipt")->setCurrentText("Without receipt");
    child<AnyCombo>(dialog, "category")->setText(u"Travel");
    dialog.accept();
    EXPECT_EQ(number(u"fExpType"), 1U);
    EXPECT_EQ(number(u"fExpReceipt"), 0U);
    EXPECT_EQ(text(u"fExpCategory"), u"Travel");
}

TEST_F(FilterDialogTest, CommandsActOnTheRecordsShown) {
    MainWindow window(workspace());
    const auto run = [&](app::Command command) { window.commands().run(command); };
    run(app::Command::filterUnpaid);
    EXPECT_FALSE(workspace().entryFilter().showPaid);
    EXPECT_TRUE(workspace().expenseFilter().showPaid);
    run(app::Command::switchRecords);
    run(app::Command::filterUnpaid);
    EXPECT_FALSE(workspace().expenseFilter().showPaid);
    run(app::Command::filterAll);
    EXPECT_TRUE(workspace().expenseFilter().showPaid);
    EXPECT_FALSE(workspace().entryFilter().showPaid);
}

TEST_F(FilterDialogTest, TheCustomPeriodIsStoredAndShown) {
    CustomPeriodDialog dialog(workspace(), nullptr);
    dialog.show();
    EXPECT_EQ(child<QDateEdit>(dialog, "firstDay")->date(), QDate(2026, 11, 15));
    EXPECT_EQ(child<QDateEdit>(dialog, "lastDay")->date(), QDate(2026, 11, 21));
    child<QDateEdit>(dialog, "lastDay")->setDate(QDate(2026, 11, 1));
    dialog.accept();
    EXPECT_EQ(messages().ids(), std::vector{StringId::periodEndBeforeStart});
    EXPECT_EQ(workspace().view().kind(), app::PeriodKind::week);
    child<QDateEdit>(dialog, "firstDay")->setDate(QDate(2026, 10, 30));
    dialog.accept();
    EXPECT_EQ(workspace().view().kind(), app::PeriodKind::custom);
    const auto loaded = app::AppSettings::load(registry(), {});
    EXPECT_EQ(loaded.view, 4U);
    EXPECT_EQ(loaded.periodStart.day, 30);
    EXPECT_EQ(loaded.periodEnd.day, 1);
    CustomPeriodDialog again(workspace(), nullptr);
    EXPECT_EQ(child<QDateEdit>(again, "firstDay")->date(), QDate(2026, 10, 30));
}

TEST_F(FilterDialogTest, TheDefaultViewIsStoredAndTransientConditionsStay) {
    workspace().entryFilter().custom2 = u"kept";
    DefaultViewDialog dialog(workspace(), nullptr);
    auto* entries = child<QTabWidget>(dialog, "tabs")->widget(0);
    auto* expenses = child<QTabWidget>(dialog, "tabs")->widget(1);
    child<QComboBox>(*entries, "period")->setCurrentText("Month");
    child<QComboBox>(*entries, "layout")->setCurrentText("Calendar");
    child<AnyCombo>(*entries, "client")->setText(u"Acme");
    child<QComboBox>(*expenses, "period")->setCurrentText("Day");
    child<QComboBox>(*expenses, "layout")->setCurrentText("Tree list");
    EXPECT_LT(child<QComboBox>(*expenses, "layout")->findText("Calendar"), 0);
    EXPECT_LT(child<QComboBox>(*expenses, "period")->findText("Custom period"), 0);
    dialog.accept();
    const auto loaded = app::AppSettings::load(registry(), {});
    EXPECT_EQ(loaded.view, 3U);
    EXPECT_EQ(loaded.listStyle, 0U);
    EXPECT_EQ(loaded.expView, 1U);
    EXPECT_EQ(loaded.expListStyle, 2U);
    EXPECT_TRUE(app::DisplaySettings::load(registry()).calendar);
    EXPECT_EQ(app::EntryFilter::load(registry()).client, u"Acme");
    EXPECT_EQ(workspace().entryFilter().custom2, u"kept");
    EXPECT_EQ(workspace().view().kind(), app::PeriodKind::month);
}

} // namespace
} // namespace hourwright::desktop
