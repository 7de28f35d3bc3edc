#include "cli/session.h"

#include "app/gone_records.h"
#include "cli/date_text.h"
#include "cli/help.h"
#include "cli/joined.h"
#include "platform/icu/icu_locale.h"
#include "platform/icu/icu_locales.h"
#include "platform/posix/flock_mutex.h"
#include "platform/posix/system_clock.h"
#include "platform/posix/unix_instance_channel.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "platform/sqlite/sqlite_registry.h"
#include "platform/sqlite/sqlite_store_copies.h"
#include "platform/utf.h"

#include <filesystem>

namespace hourwright::cli {

Session::Session(const CommandLine& line, Environment& environment, Output& out)
    : line_(line), environment_(environment), out_(out), clock_(&environment.clock) {}

Session::~Session() = default;

ExitCode Session::prepare() {
    if (const auto now = line_.arguments.value(option::now)) {
        fixedClock_ = std::make_unique<platform::FixedClock>(parseDateTime(*now).value_or(platform::SystemTime{}));
        clock_ = fixedClock_.get();
    }
    const auto locale = line_.arguments.value(option::locale);
    if (locale && !platform::makeIcuLocale(*locale))
        return misuse(joined({"unknown locale '", *locale, "'"}));
    return ExitCode::done;
}

const platform::Directories& Session::directories() {
    if (!directories_) {
        const auto home = line_.arguments.value(option::home);
        directories_ = platform::userDirectories(std::string(home.value_or("")), environment_.variable);
    }
    return *directories_;
}

platform::MessageBox& Session::messages() {
    if (!messages_)
        messages_ = environment_.makeMessageBox(line_.arguments.has(option::yes));
    return *messages_;
}

platform::Registry& Session::registry() {
    if (!registry_) {
        static_cast<void>(platform::makeDirectories(directories())); // a failure shows when the file is opened
        registry_ = platform::openSqliteRegistry(directories().settingsFile());
    }
    return *registry_;
}

app::SettingsDevice Session::settingsDevice() {
    app::SettingsDevice device;
    if (const auto major = line_.arguments.value(option::osMajor))
        device.osMajorVersion = numberOf(*major);
    device.personalFolder = platform::toUtf16(platform::documentsDirectory(environment_.variable).string());
    return device;
}

app::AppSettings& Session::settings() {
    if (!settings_)
        settings_ = app::AppSettings::load(registry(), settingsDevice());
    return *settings_;
}

const platform::Locales& Session::locales() {
    if (!locales_)
        locales_ = std::make_unique<platform::Locales>(
            platform::makeLocales(line_.arguments.value(option::locale), environment_.variable));
    return *locales_;
}

bool Session::hasStore() {
    std::error_code ignored;
    return std::filesystem::exists(directories().recordsFile(), ignored);
}

platform::ObjectStore* Session::objects() {
    if (!objects_)
        openObjects();
    return objects_.get();
}

void Session::openObjects() {
    if (refuseGoneRecords())
        return;
    static_cast<void>(platform::makeDirectories(directories())); // a failure shows when the file is opened
    auto opened =
        platform::openSqliteObjectStore(directories().recordsFile(), {.onCommitted = [this] { changed_ = true; }});
    objects_ = std::move(opened.store);
    if (objects_)
        return;
    refuse(resources::StringId::databaseNotOpened, opened.reason);
    if (opened.error == platform::PlatformError::fileCorrupt)
        hintAtCopies();
}

// To make an empty store now would hide from the next start that the records are gone.
bool Session::refuseGoneRecords() {
    const auto all = copies();
    if (!app::recordsAreGone(*all, directories().recordsFile()))
        return false;
    refuse(resources::StringId::recordsGone);
    hintAtCopies();
    addReason(joined({"To begin without records, move the copies away: ", all->folder().string()}));
    return true;
}

std::unique_ptr<platform::StoreCopies> Session::copies() {
    return platform::openStoreCopies(platform::copyPlaces(directories()));
}

bool Session::checkSettings(const std::function<void(std::string_view)>& report) {
    return platform::openSqliteRegistry(directories().settingsFile())->check(report);
}

// The copy is not verified here, which may take long; restoring it does.
void Session::hintAtCopies(platform::CopyPart part) {
    const bool ofSettings = part == platform::CopyPart::settings;
    for (const platform::StoreCopy& copy : copies()->list()) {
        if (ofSettings && !copy.hasSettings)
            continue;
        const std::string with =
            ofSettings ? std::string("settings") : std::to_string(copy.records) + std::string(" records");
        addReason(joined({"A copy of ", dateTimeText(copy.time), " with ", with, " is there; 'hwctl store restore",
                          ofSettings ? " --settings" : "", "' puts the newest sound one in place."}));
        return;
    }
}

platform::ClaimedInstance Session::keepWindowAway() {
    static_cast<void>(platform::makeDirectories(directories()));
    return platform::makeInstanceChannel(directories().runtime)->claim();
}

store::Stores* Session::stores() {
    if (!stores_ && objects())
        openStores();
    return stores_.get();
}

void Session::openStores() {
    clientIdMutex_ = platform::makeNamedMutex(directories().runtime, store::clientIdMutexName);
    auto stores = std::make_unique<store::Stores>(*objects_, *clientIdMutex_, registry());
    if (stores->open())
        stores_ = std::move(stores);
    else
        refuseStores();
}

void Session::refuseStores() {
    const platform::PlatformError error = objects_->lastError();
    refuse(resources::StringId::databaseNotOpened,
           joined({"platform error ", std::to_string(platform::number(error))}));
    if (error == platform::PlatformError::fileCorrupt)
        hintAtCopies();
}

std::unique_ptr<platform::Transaction> Session::begin(const resources::Text& name) {
    return objects_->begin({.name = name.text, .time = clock_->now()});
}

std::optional<platform::SystemTime> Session::day(std::string_view date) {
    const auto parsed = parseDate(date);
    const auto day = parsed ? resolveDate(*parsed, clock_->localTime()) : std::nullopt;
    if (!day)
        fail(platform::PlatformError::invalidParameter,
             joined({"The date '", date, "' is not in the years 1601 to 30827."}));
    return day;
}

void Session::announceChanges() {
    if (changed_)
        platform::makeInstanceChannel(directories().runtime)
            ->send({.kind = platform::InstanceMessageKind::dataChanged, .payload = {}}, {});
    changed_ = false;
}

platform::InstanceReply Session::askWindow(std::string payload) {
    constexpr std::chrono::milliseconds patience{5000};
    return platform::makeInstanceChannel(directories().runtime)
        ->send({.kind = platform::InstanceMessageKind::timerCommand, .payload = std::move(payload)}, patience);
}

void Session::addReason(std::string_view reason) {
    if (!reason.empty())
        environment_.writeError(std::string(reason) + '\n');
}

ExitCode Session::refuse(resources::StringId message, std::string_view reason) {
    messages().showCheck(message);
    addReason(reason);
    return ExitCode::refused;
}

ExitCode Session::fail(platform::PlatformError error, std::string_view reason) {
    messages().showError(platform::number(error));
    addReason(reason);
    return ExitCode::refused;
}

ExitCode Session::failWrite() {
    return fail(stores_ ? stores_->entries().lastError() : objects_->lastError());
}

ExitCode Session::misuse(std::string reason) {
    CommandLine line = line_;
    line.error = std::move(reason);
    environment_.writeError(usageError(line));
    return ExitCode::usage;
}

} // namespace hourwright::cli
