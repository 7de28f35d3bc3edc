#include "desktop/options/options_dialog.h"

#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/options.h"

#include <QComboBox>
#include <QFormLayout>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace texts = resources::options;
using app::OptionFlag;
using app::OptionList;
using platform::toQString;

OptionsDialog::OptionsDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::title), "options", parent), draft_{.settings = workspace.settings(),
                                                                            .display = workspace.display()} {
    makePages();
    if (isHandheld())
        showAsList();
    else
        showAsTabs();
}

OptionPage* OptionsDialog::addPage(const resources::Text& title) {
    pages_.push_back(new OptionPage(draft_, title));
    return pages_.back();
}

void OptionsDialog::makePages() {
    using app::AppSettings;
    using store::EntryStatus;
    auto* page = addPage(texts::view);
    page->addGroup(texts::mainViewOptions);
    page->addList(texts::weekStart, OptionList::weekStart);
    page->addFlag(texts::weekNumber, OptionFlag::weekNumber);
    page->addList(texts::fontSize, OptionList::fontSize);
    page->addFlag(texts::bold, OptionFlag::bold);
    page->addList(texts::itemTap, OptionList::itemTap);
    page->addFlag(texts::softKeys, OptionFlag::softKeys);
    page = addPage(texts::customFields);
    page->addText(texts::customField1, &AppSettings::custom1Label);
    page->addText(texts::customField2, &AppSettings::custom2Label);
    page->addText(texts::customField3, &AppSettings::custom3Label);
    page = addPage(texts::expenseFields);
    page->addGroup(texts::expenseFieldsHeading);
    page->addText(texts::customField1, &AppSettings::expenseCustom1Label);
    page->addText(texts::customField2, &AppSettings::expenseCustom2Label);
    page = addPage(texts::exporting);
    page->addGroup(texts::xmlExport);
    page->addList(texts::encoding, OptionList::encoding);
    page->addGroup(texts::csvExport);
    page->addList(texts::lineBreak, OptionList::lineBreak);
    page->addList(texts::hourSymbol, OptionList::hourSymbol);
    page = addPage(texts::defaults);
    page->addGroup(texts::newEntryDefaults);
    page->addFlag(texts::billable, OptionFlag::billable);
    page->addText(texts::currency, &AppSettings::defaultCurrency);
    page->addFlagWithList(texts::granularity, OptionFlag::granularity, OptionList::granularity, texts::minutes);
    page = addPage(texts::display);
    page->addGroup(texts::displayElements);
    page->addList(texts::entryTime, OptionList::entryTime);
    page->addFlag(texts::clientName, OptionFlag::clientName);
    page->addFlag(texts::statusIcon, OptionFlag::statusIcon);
    page = addPage(texts::general);
    page->addGroup(texts::specialOptions);
    page->addFlag(texts::preciseMinutes, OptionFlag::preciseMinutes);
    page->addList(texts::durationInterval, OptionList::durationInterval);
    page = addPage(texts::colour);
    page->addColour(texts::nonBillableItem, EntryStatus::nonBillable);
    page->addColour(texts::billableItem, EntryStatus::billable);
    page->addColour(texts::billedItem, EntryStatus::billed);
    page->addColour(texts::paidItem, EntryStatus::paid);
    page = addPage(texts::timer);
    page->addFlag(texts::askClose, OptionFlag::askClose);
    page->addFlag(texts::vibrate, OptionFlag::vibrate);
    page->addList(texts::breakTime, OptionList::breakTime);
}

void OptionsDialog::showAsTabs() {
    auto* tabs = new QTabWidget;
    tabs->setObjectName("pages");
    tabs->setUsesScrollButtons(false);
    for (OptionPage* page : pages_)
        tabs->addTab(page, page->title());
    content()->addWidget(tabs);
}

void OptionsDialog::showAsList() {
    auto* names = new QComboBox;
    auto* stack = new QStackedWidget;
    names->setObjectName("pageNames");
    for (OptionPage* page : pages_) {
        names->addItem(page->title());
        stack->addWidget(page);
    }
    addForm()->addRow(toQString(texts::page), names);
    content()->addWidget(stack);
    connect(names, &QComboBox::currentIndexChanged, stack, &QStackedWidget::setCurrentIndex);
}

void OptionsDialog::accept() {
    for (OptionPage* page : pages_)
        page->store();
    const bool restart = app::needsRestart(workspace().settings(), draft_.settings);
    workspace().settings() = draft_.settings;
    workspace().display() = draft_.display;
    QDialog::accept();
    workspace().saveSettings();
    if (!restart)
        return;
    workspace().messages().show({.id = resources::StringId::softMenuChanged,
                                 .text = std::u16string(resources::string(resources::StringId::softMenuChanged)),
                                 .icon = platform::Icon::information});
    emit closeRequested();
}

} // namespace hourwright::desktop
