#include "exchange/xml_options.h"

#include "app/settings_rules.h"

namespace hourwright::exchange {

XmlOptions xmlOptions(const app::AppSettings& settings) {
    return {.encoding = app::xmlEncoding(settings.encoding), .rules = app::timeRules(settings)};
}

} // namespace hourwright::exchange
