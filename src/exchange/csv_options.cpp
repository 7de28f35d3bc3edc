#include "exchange/csv_options.h"

#include "app/export_options.h"
#include "app/settings_rules.h"

namespace hourwright::exchange {

CsvOptions csvOptions(const app::AppSettings& settings) {
    return {
        .captions = {settings.custom1Label.text(), settings.custom2Label.text(), settings.custom3Label.text()},
        .expenseCaptions = {settings.expenseCustom1Label.text(), settings.expenseCustom2Label.text()},
        .lineBreak = std::u16string(app::lineBreakSubstitute(settings.breakSubstitute)),
        .rules = app::timeRules(settings),
    };
}

} // namespace hourwright::exchange
