// Puts any values of any type and size under the names that the program reads. Loading must give something within its
// range, and what was loaded must come back from saving as it is.

#include "app/app_settings.h"
#include "app/column_layout.h"
#include "app/display_settings.h"
#include "app/entry_filter.h"
#include "app/expense_filter.h"
#include "app/list_style.h"
#include "app/period_kind.h"
#include "app/setting_values.h"
#include "app/settings_rules.h"
#include "app/timer_recovery.h"
#include "billing/timer_completion.h"
#include "cli/registry_text.h"
#include "fuzz/input.h"
#include "fuzz/memory_registry.h"
#include "fuzz/require.h"

namespace hourwright::fuzz {

using namespace app;

namespace {

const SettingsDevice device{.osMajorVersion = 5, .personalFolder = u"/home/someone/Documents"};

template<typename Value, typename Load>
Value loadAndSave(MemoryRegistry& registry, Load load) {
    const Value loaded = load(registry);
    require(loaded.save(registry));
    return loaded;
}

// A text that is a setting's value is taken for it, unless it was stored beyond what may be chosen. (Of a day the text
// leaves out the time.)
void tryTexts(const AppSettings& settings) {
    static const auto names = settingNames();
    AppSettings changed = settings;
    for (const std::u16string_view name : names) {
        const std::u16string text = settingText(settingValue(settings, name).value());
        const SettingRefusal refusal = setSetting(changed, name, text);
        require(refusal == SettingRefusal::none || refusal == SettingRefusal::outOfRange ||
                refusal == SettingRefusal::fixed);
        require(settingText(settingValue(changed, name).value()) == text);
    }
}

void tryPeriods(const AppSettings& settings) {
    const platform::SystemTime today{.year = 2026, .month = 11, .dayOfWeek = 6, .day = 21};
    for (const std::uint32_t view : {settings.view, settings.expView})
        if (const auto period = periodOf(settings, periodKind(view), today))
            require(platform::toSystemTime(period->start()) && platform::toSystemTime(period->end()));
    require(static_cast<std::uint32_t>(listStyle(settings.listStyle)) <= 2);
    require(timeRules(settings).granularityMinutes == settings.minTime);
    require(settings.createListFont(0, true).tenthsOfPoint >= 70);
}

void trySettings(MemoryRegistry& registry) {
    const auto load = [](MemoryRegistry& from) { return AppSettings::load(from, device); };
    AppSettings settings = loadAndSave<AppSettings>(registry, load);
    tryTexts(settings);
    tryPeriods(settings);
    settings.version = settingsVersion;
    require(load(registry) == settings);
}

template<typename Filter>
void tryFilter(MemoryRegistry& registry) {
    const auto filter = loadAndSave<Filter>(registry, [](MemoryRegistry& from) { return Filter::load(from); });
    require(Filter::load(registry) == filter);
    require(!filter.storedValues().empty());
}

void tryColumns(MemoryRegistry& registry, ColumnList list) {
    const ColumnLayout layout = loadColumnLayout(registry, list);
    std::vector<std::uint32_t> places = layout.order;
    std::ranges::sort(places);
    require(places.size() == layout.widths.size() && places == builtInColumnLayout(list).order);
    require(saveColumnLayout(registry, list, layout));
    require(loadColumnLayout(registry, list) == layout);
}

void tryDisplay(MemoryRegistry& registry) {
    const auto load = [](MemoryRegistry& from) { return DisplaySettings::load(from); };
    const auto settings = loadAndSave<DisplaySettings>(registry, load);
    require(load(registry) == settings);
    require(static_cast<std::uint32_t>(settings.entryTime) < entryTimeShownCount);
}

void tryTimers(MemoryRegistry& registry) {
    billing::TimerCompletion completion;
    completion.encodeNote = [](std::u16string_view) { return std::vector<std::byte>(); };
    for (RecoveredTimer& recovered : TimerJournal(registry).read().timers) {
        require(recovered.slot < billing::TimerSet::slotCount && !recovered.timer.isFree());
        recovered.timer.addElapsed(1'000'000);
        require(recovered.timer.duration() >= 0 && recovered.timer.breakTime() >= 0);
        require(platform::toFileTime(recovered.timer.start()).has_value());
        const store::TimeEntry entry = billing::completedEntry(recovered.timer, completion);
        require(entry.duration >= 0 && entry.duration <= 65'535 && entry.breakTime >= 0 && entry.breakTime <= 65'535);
    }
}

std::string argumentOf(const platform::RegistryValue& value) {
    if (value.type == platform::RegistryType::string)
        return "sz:" + platform::toUtf8(cli::registryString(value));
    return (cli::registryDword(value) ? "dword:" : "hex:") + cli::registryText(value);
}

// What a value is shown as is taken for it again; a DWORD of another size can be shown only.
void tryValueTexts(const MemoryRegistry& registry) {
    for (const platform::RegistryValue& value : registry.values()) {
        const std::string argument = argumentOf(value);
        const auto again = cli::parseRegistryArgument(platform::toUtf8(value.name), argument);
        require(again && argumentOf(*again) == argument && again->name == value.name);
        if (value.type == platform::RegistryType::binary || cli::registryDword(value))
            require(again->type == value.type && again->data == value.data);
    }
}

// Any text at all: what is taken comes back from its own text. Arguments hold no NUL.
void tryArgument(std::string_view text) {
    text = text.substr(0, text.find('\0'));
    if (const auto value = cli::parseRegistryArgument("Name", text)) {
        const auto again = cli::parseRegistryArgument("Name", argumentOf(*value));
        require(again && *again == *value);
    }
}

constexpr std::u16string_view otherNames[] = {
    u"fClient",         u"fProject",   u"fPhase",       u"fTask",       u"fBillTo",       u"fCurrency",
    u"fFlags",          u"fRateType",  u"ColOrder",     u"ExpColOrder", u"Column0",       u"Column9",
    u"Column15",        u"ExpColumn0", u"ExpColumn13",  u"DisplayTime", u"DisplayClient", u"DisplayIcon",
    u"DisplayCalendar", u"ColourPaid", u"ColourBilled", u"DefReport",   u"Written",       u"State0",
    u"Duration0",       u"Break0",     u"Source0",      u"Start0",      u"Note0",         u"Client0",
    u"Task0",           u"State3",     u"Duration3",    u"Break3",      u"Start3",        u"COLUMN1",
    u"efClient",        u"",
};

// The names that are known, and those that filters of expenses have.
const std::vector<std::u16string>& names() {
    static const std::vector<std::u16string> all = [] {
        std::vector<std::u16string> result(std::begin(otherNames), std::end(otherNames));
        for (const std::u16string_view name : settingNames())
            result.emplace_back(name);
        for (const StoredFilterValue& value : ExpenseFilter().storedValues())
            result.emplace_back(value.name);
        return result;
    }();
    return all;
}

void fill(MemoryRegistry& registry, Input& input) {
    constexpr std::size_t most = 24;
    constexpr platform::RegistryType types[] = {platform::RegistryType::string, platform::RegistryType::binary,
                                                platform::RegistryType::dword, platform::RegistryType::dword};
    for (std::size_t i = 0; i < most && !input.atEnd(); ++i) {
        platform::RegistryValue value{.name = names()[input.below(names().size())], .data = {}};
        value.type = types[input.below(std::size(types))];
        const Bytes data = input.bytes();
        value.data.assign(data.begin(), data.end());
        registry.set(value);
    }
}

} // namespace

void registryValues(Bytes bytes) {
    Input input(bytes);
    const std::size_t what = input.below(9);
    if (what == 8)
        return tryArgument(input.restChars());
    MemoryRegistry registry;
    fill(registry, input);
    switch (what) {
    case 0: return tryFilter<EntryFilter>(registry);
    case 1: return tryFilter<ExpenseFilter>(registry);
    case 2: return tryColumns(registry, ColumnList::entries);
    case 3: return tryColumns(registry, ColumnList::expenses);
    case 4: return tryDisplay(registry);
    case 5: return tryTimers(registry);
    case 6: return tryValueTexts(registry);
    default: return trySettings(registry);
    }
}

} // namespace hourwright::fuzz
