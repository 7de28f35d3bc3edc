#include "desktop/filters/default_view_dialog.h"

#include "app/list_style.h"
#include "app/period_kind.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/filters.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace texts = resources::filters;
using platform::toQString;

namespace {

constexpr int calendarLayout = -1; // beside the numbers of the list styles

void choose(QComboBox* combo, int value) {
    combo->setCurrentIndex(combo->findData(value));
}

} // namespace

DefaultViewDialog::DefaultViewDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::defaultViewTitle), "defaultview", parent), tabs_(new QTabWidget),
      entryForm_(new EntryFilterForm(workspace, FilterExtent::stored)),
      expenseForm_(new ExpenseFilterForm(workspace, FilterExtent::stored)) {
    auto* hint = new QLabel(toQString(texts::defaultViewHint));
    hint->setWordWrap(true);
    content()->addWidget(hint);
    content()->addWidget(tabs_);
    entries_ = addPage(texts::timeEntries, entryForm_, true);
    expenses_ = addPage(texts::expenses, expenseForm_, false);
    entryForm_->display(workspace.entryFilter());
    expenseForm_->display(workspace.expenseFilter());
    displayViews();
    tabs_->setObjectName("tabs");
    tabs_->setCurrentIndex(workspace.view().records() == app::RecordKind::entries ? 0 : 1);
}

// The custom period is a choice only when its days are known.
DefaultViewDialog::Page DefaultViewDialog::addPage(const resources::Text& title, FilterForm* form, bool withCalendar) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* fields = Dialog::makeForm();
    layout->addLayout(fields);
    const Page result{new QComboBox, new QComboBox};
    result.period->setObjectName("period");
    result.layout->setObjectName("layout");
    result.period->addItem(toQString(texts::day), static_cast<int>(app::PeriodKind::day));
    result.period->addItem(toQString(texts::week), static_cast<int>(app::PeriodKind::week));
    result.period->addItem(toQString(texts::month), static_cast<int>(app::PeriodKind::month));
    const auto& settings = workspace().settings();
    if (app::Period::custom(settings.periodStart, settings.periodEnd))
        result.period->addItem(toQString(texts::customPeriod), static_cast<int>(app::PeriodKind::custom));
    if (withCalendar)
        result.layout->addItem(toQString(texts::calendar), calendarLayout);
    result.layout->addItem(toQString(texts::defaultList), static_cast<int>(app::ListStyle::standard));
    result.layout->addItem(toQString(texts::simpleList), static_cast<int>(app::ListStyle::simple));
    result.layout->addItem(toQString(texts::treeList), static_cast<int>(app::ListStyle::tree));
    fields->addRow(toQString(texts::show), result.period);
    fields->addRow(toQString(texts::layout), result.layout);
    auto* box = new QGroupBox(toQString(texts::filter));
    auto* inner = new QVBoxLayout(box);
    inner->addWidget(form);
    layout->addWidget(box);
    layout->addStretch();
    tabs_->addTab(page, toQString(title));
    return result;
}

void DefaultViewDialog::displayViews() {
    const auto& settings = workspace().settings();
    choose(entries_.period, static_cast<int>(app::periodKind(settings.view)));
    choose(expenses_.period, static_cast<int>(app::periodKind(settings.expView)));
    choose(entries_.layout,
           workspace().display().calendar ? calendarLayout : static_cast<int>(app::listStyle(settings.listStyle)));
    choose(expenses_.layout, static_cast<int>(app::listStyle(settings.expListStyle)));
}

// A choice that is not offered stays as it is.
void DefaultViewDialog::storeViews() {
    auto& settings = workspace().settings();
    const auto take = [](const QComboBox* combo, std::uint32_t& value) {
        if (combo->currentIndex() >= 0 && combo->currentData().toInt() >= 0)
            value = combo->currentData().toUInt();
    };
    take(entries_.period, settings.view);
    take(expenses_.period, settings.expView);
    take(entries_.layout, settings.listStyle);
    take(expenses_.layout, settings.expListStyle);
    workspace().display().calendar = entries_.layout->currentData().toInt() == calendarLayout;
}

void DefaultViewDialog::accept() {
    storeViews();
    entryForm_->store(workspace().entryFilter());
    expenseForm_->store(workspace().expenseFilter());
    QDialog::accept();
    workspace().saveSettings();
    workspace().saveFilters();
}

} // namespace hourwright::desktop
