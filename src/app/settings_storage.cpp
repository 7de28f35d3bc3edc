#include "app/app_settings.h"
#include "app/setting_table.h"

#include <bit>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace hourwright::app {

namespace {

/// Version of keys that do not say theirs.
constexpr std::uint32_t unnumberedVersion = 250;
/// First versions with today's flags and tree options.
constexpr std::uint32_t flagsVersion = 270;
constexpr std::uint32_t treeOptionsVersion = 280;
/// The flags of the old layout when nothing is stored: a bold list.
constexpr std::uint32_t oldFlagsDefault = 0x10;

constexpr std::u16string_view obsoleteReport = u"DefReport";

struct OldFlag {
    std::uint32_t mask;
    StyleFlag flag;
};
constexpr OldFlag oldFlags[] = {
    {0x10, StyleFlag::boldList},     {0x2, StyleFlag::secondTapCommand}, {0x1, StyleFlag::billable},
    {0x8000, StyleFlag::weekNumber}, {0x4000, StyleFlag::granularity},   {0x2000, StyleFlag::preciseMinutes},
};

/// Numbers of 16 or 32 bits, one after the other, lowest byte first.
template<typename Number>
void appendNumber(std::vector<std::byte>& bytes, Number number) {
    for (std::size_t i = 0; i < sizeof number; ++i)
        bytes.push_back(static_cast<std::byte>((number >> (8 * i)) & 0xFF));
}
template<typename Number>
Number numberAt(std::span<const std::byte> bytes, std::size_t index) {
    std::uint32_t number = 0;
    for (std::size_t i = sizeof(Number); i-- > 0;)
        number = (number << 8) | std::to_integer<std::uint32_t>(bytes[index * sizeof(Number) + i]);
    return static_cast<Number>(number);
}

constexpr std::uint16_t platform::SystemTime::*dateFields[] = {
    &platform::SystemTime::year,   &platform::SystemTime::month,        &platform::SystemTime::dayOfWeek,
    &platform::SystemTime::day,    &platform::SystemTime::hour,         &platform::SystemTime::minute,
    &platform::SystemTime::second, &platform::SystemTime::milliseconds,
};
constexpr std::size_t dateSize = std::size(dateFields) * sizeof(std::uint16_t);

constexpr std::size_t viewCustomSize = sizeof(ViewCustom);
/// The form that lacked the fifth field.
constexpr std::size_t oldViewCustomSize = viewCustomSize - sizeof(std::uint32_t);

/// Loads one setting after the other from an open key into settings that hold the defaults.
class Loader {
public:
    Loader(const platform::RegistryKey& key, bool firstRun, AppSettings& out)
        : key_(key), firstRun_(firstRun), out_(out) {}

    void load(const Setting& setting) {
        name_ = setting.name;
        std::visit([this](auto member) { load(member, memberOf(out_, member)); }, setting.member);
    }

private:
    template<typename Member>
    void load(Member /*member*/, std::uint16_t& value) {
        value = static_cast<std::uint16_t>(dword(value)); // as wide as the member is
    }
    template<typename Member>
    void load(Member /*member*/, std::uint32_t& value) {
        value = dword(value);
    }
    template<typename Member>
    void load(Member /*member*/, bool& value) {
        value = dword(0) == 1;
    }
    template<typename Member, std::size_t units>
    void load(Member /*member*/, FixedText<units>& text) {
        if (const auto stored = key_.readString(name_, units))
            static_cast<void>(text.assign(*stored)); // what does not fit counts as missing
    }
    void load(VersionMember /*member*/, std::uint32_t& version) {
        if (!firstRun_)
            version = dword(unnumberedVersion);
    }
    template<typename Member>
    void load(Member /*member*/, StyleFlags& flags) {
        if (firstRun_)
            return;
        if (out_.version >= flagsVersion)
            flags = StyleFlags{dword(0)};
        else
            translateOldFlags(flags, dword(oldFlagsDefault));
    }
    template<typename Member>
    void load(Member /*member*/, TreeOptions& options) {
        if (!firstRun_ && out_.version >= treeOptionsVersion)
            options = TreeOptions{dword(0)};
    }
    template<typename Member>
    void load(Member /*member*/, ViewCustom& values) {
        if (const auto old = key_.readBinary(name_, oldViewCustomSize))
            values = viewCustomOf(*old, {0, 1, 2, 3, std::nullopt, 4});
        else if (const auto stored = key_.readBinary(name_, viewCustomSize))
            values = viewCustomOf(*stored, {0, 1, 2, 3, 4, 5});
    }
    template<typename Member>
    void load(Member /*member*/, platform::SystemTime& date) {
        const auto stored = key_.readBinary(name_, dateSize);
        for (std::size_t i = 0; stored && i < std::size(dateFields); ++i)
            date.*dateFields[i] = numberAt<std::uint16_t>(*stored, i);
    }

    [[nodiscard]] std::uint32_t dword(std::uint32_t otherwise) const {
        return key_.readDword(name_).value_or(otherwise);
    }

    /// Soft keys follow the device and vibration is on, as on a first run: both are newer than the old layout.
    static void translateOldFlags(StyleFlags& flags, std::uint32_t stored) {
        for (const OldFlag& old : oldFlags)
            flags.set(old.flag, (stored & old.mask) != 0);
    }

    using Sources = std::array<std::optional<std::size_t>, std::tuple_size_v<ViewCustom>>;
    static ViewCustom viewCustomOf(std::span<const std::byte> bytes, const Sources& sources) {
        ViewCustom values{};
        for (std::size_t i = 0; i < values.size(); ++i)
            if (sources[i])
                values[i] = numberAt<std::uint32_t>(bytes, *sources[i]);
        return values;
    }

    const platform::RegistryKey& key_;
    bool firstRun_;
    AppSettings& out_;
    std::u16string_view name_;
};

/// Saves one setting after the other to an open key.
class Saver {
public:
    Saver(platform::RegistryKey& key, const AppSettings& settings) : key_(key), settings_(settings) {}

    bool save(const Setting& setting) {
        const auto store = [&](auto member) { return save(setting.name, member, memberOf(settings_, member)); };
        return std::visit(store, setting.member);
    }

private:
    using Name = std::u16string_view;

    template<typename Member>
    bool save(Name name, Member /*member*/, std::uint32_t value) {
        return key_.writeDword(name, value); // narrower numbers and the yes/no value too
    }
    bool save(Name name, VersionMember /*member*/, std::uint32_t /*asLoaded*/) {
        return key_.writeDword(name, settingsVersion);
    }
    template<typename Member, typename Flag, unsigned size>
    bool save(Name name, Member /*member*/, const FlagSet<Flag, size>& flags) {
        return key_.writeDword(name, flags.bits());
    }
    template<typename Member, std::size_t units>
    bool save(Name name, Member /*member*/, const FixedText<units>& text) {
        return key_.writeString(name, text.text(), units);
    }
    bool save(Name name, ReportMember /*member*/, const ReportName& report) {
        return report.empty() ? key_.remove(name) : key_.writeString(name, report.text());
    }
    template<typename Member>
    bool save(Name name, Member /*member*/, const ViewCustom& values) {
        std::vector<std::byte> bytes;
        for (const std::uint32_t value : values)
            appendNumber(bytes, value);
        return key_.writeBinary(name, bytes);
    }
    template<typename Member>
    bool save(Name name, Member /*member*/, const platform::SystemTime& date) {
        std::vector<std::byte> bytes;
        for (const auto field : dateFields)
            appendNumber(bytes, date.*field);
        return key_.writeBinary(name, bytes);
    }

    platform::RegistryKey& key_;
    const AppSettings& settings_;
};

void removeObsolete(platform::RegistryKey& key) {
    if (key.query(obsoleteReport))
        key.remove(obsoleteReport);
}

} // namespace

AppSettings AppSettings::load(platform::Registry& registry, const SettingsDevice& device) {
    AppSettings settings(device);
    auto key = registry.open(platform::settingsKey);
    const bool firstRun = key == nullptr;
    if (firstRun)
        key = registry.create(platform::settingsKey);
    if (key == nullptr)
        return settings;
    Loader loader(*key, firstRun, settings);
    for (const Setting& setting : settingTable)
        loader.load(setting);
    removeObsolete(*key);
    return settings;
}

bool AppSettings::save(platform::Registry& registry) const {
    const auto key = registry.create(platform::settingsKey);
    if (key == nullptr)
        return false;
    const auto batch = key->batch();
    if (batch == nullptr)
        return false;
    Saver saver(*key, *this);
    bool saved = true;
    for (const Setting& setting : settingTable)
        saved = saver.save(setting) && saved;
    return batch->commit() && saved;
}

} // namespace hourwright::app
