#include "desktop/bulk/criteria_dialog.h"
#include "desktop/bulk/paid_date_dialog.h"
#include "desktop/bulk/replace_dialog.h"
#include "desktop/filters/custom_period_dialog.h"
#include "desktop/filters/default_view_dialog.h"
#include "desktop/filters/filter_dialog.h"
#include "desktop/options/about_dialog.h"
#include "desktop/options/options_dialog.h"
#include "desktop/screens/screens.h"

#include <QComboBox>
#include <QTabWidget>
#include <array>

namespace hourwright::desktop {

namespace {

template<typename Window>
Screen screenOf(const char* name) {
    return {name, [](MainWindow& window) -> QWidget* { return new Window(window.workspace(), &window); }};
}

Screen optionsScreen(const char* name, int page) {
    return {name, [page](MainWindow& window) -> QWidget* {
                auto* dialog = new OptionsDialog(window.workspace(), &window);
                if (auto* tabs = dialog->findChild<QTabWidget*>("pages"))
                    tabs->setCurrentIndex(page);
                else
                    dialog->findChild<QComboBox*>("pageNames")->setCurrentIndex(page);
                return dialog;
            }};
}

void addOptionsPages(std::vector<Screen>& screens) {
    constexpr std::array names{"options-view",    "options-custom",  "options-export", "options-defaults",
                               "options-display", "options-general", "options-colour", "options-timer"};
    for (std::size_t page = 0; page < names.size(); ++page)
        screens.push_back(optionsScreen(names.at(page), static_cast<int>(page)));
}

} // namespace

void addOptionsScreens(std::vector<Screen>& screens) {
    screens.push_back({"list-filtered", [](MainWindow& window) {
                           window.workspace().entryFilter().showUnpaidOnly();
                           window.workspace().saveFilters();
                           return &window;
                       }});
    screens.push_back(screenOf<EntryFilterDialog>("filter-entries"));
    screens.push_back(screenOf<ExpenseFilterDialog>("filter-expenses"));
    screens.push_back(screenOf<CustomPeriodDialog>("custom-period"));
    screens.push_back(screenOf<DefaultViewDialog>("default-view"));
    addOptionsPages(screens);
    screens.push_back({"bulk-criteria", [](MainWindow& window) -> QWidget* {
                           return new CriteriaDialog(window.workspace(), app::BulkKind::markPaid, &window);
                       }});
    screens.push_back(screenOf<PaidDateDialog>("bulk-paid-date"));
    screens.push_back(screenOf<ReplaceDialog>("bulk-replace"));
    screens.push_back(screenOf<AboutDialog>("about"));
}

} // namespace hourwright::desktop
