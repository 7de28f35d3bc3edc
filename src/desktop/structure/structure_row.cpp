#include "desktop/structure/structure_row.h"

#include "desktop/structure/rate_dialog.h"
#include "desktop/structure/structure_names.h"
#include "platform/number_text.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/structure.h"

namespace hourwright::desktop {

namespace texts = resources::structure;
using billing::StructureItem;
using billing::StructureKind;
using platform::toQString;
using store::RateRecord;

QString rowName(const StructureRow& row) {
    if (const auto* rate = std::get_if<RateRecord>(&row))
        return toQString(rate->description);
    const auto& item = std::get<StructureItem>(row);
    return item.name.empty() ? toQString(texts::noProject) : toQString(item.name);
}

QString rowKind(const StructureRow& row) {
    if (const auto* rate = std::get_if<RateRecord>(&row))
        return rateTypeText(rate->type) + u' ' + QString::fromStdString(platform::hundredths(rate->rate));
    const auto& item = std::get<StructureItem>(row);
    const bool defaultRates = item.kind == StructureKind::client && item.clientId == 0;
    return defaultRates ? toQString(texts::ratesName) : kindText(item.kind);
}

QString rowKey(const StructureRow& row) {
    if (const auto* rate = std::get_if<RateRecord>(&row))
        return QString("rate %1").arg(static_cast<std::uint32_t>(rate->id));
    const auto& item = std::get<StructureItem>(row);
    if (item.kind == StructureKind::client)
        return QString("client %1").arg(item.clientId);
    return QString("%1 %2 ").arg(static_cast<int>(item.kind)).arg(item.clientId) + toQString(item.project) + u'\n' +
           toQString(item.name);
}

std::optional<billing::SummaryScope> scopeOf(const StructureRow& row, const std::u16string& client) {
    const auto* item = std::get_if<StructureItem>(&row);
    if (item == nullptr || item->clientId == 0 || item->kind == StructureKind::contact)
        return std::nullopt;
    billing::SummaryScope scope{.client = client, .project = item->project, .task = {}};
    if (item->kind == StructureKind::project)
        scope.project = item->name;
    else if (item->kind != StructureKind::client)
        scope.task = item->name;
    return scope;
}

} // namespace hourwright::desktop
