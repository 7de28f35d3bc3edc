#pragma once

#include "app/app_settings.h"
#include "app/export_options.h"
#include "billing/time_rules.h"

namespace hourwright::exchange {

/// What the user's settings decide about XML files.
struct XmlOptions {
    app::XmlEncoding encoding = app::XmlEncoding::unnamed;
    billing::TimeRules rules; ///< by which amounts are calculated
};

[[nodiscard]] XmlOptions xmlOptions(const app::AppSettings& settings);

} // namespace hourwright::exchange
