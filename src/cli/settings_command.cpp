#include "app/setting_values.h"
#include "cli/display_width.h"
#include "cli/handlers.h"
#include "cli/json_writer.h"
#include "cli/session.h"
#include "cli/text_table.h"
#include "platform/utf.h"

namespace hourwright::cli {

namespace {

using app::SettingRefusal;
using app::SettingValue;

void writeJson(JsonWriter& json, const SettingValue& value) {
    std::visit([&json](const auto& v) { json.value(v); }, value);
}

std::string line(const SettingValue& value) {
    return cellText(app::settingText(value));
}

std::string_view reasonOf(SettingRefusal refusal) {
    switch (refusal) {
    case SettingRefusal::none: break;
    case SettingRefusal::unknownName: return "There is no setting of this name.";
    case SettingRefusal::fixed: return "The version cannot be changed.";
    case SettingRefusal::wrongKind: return "The value is not of the setting's kind.";
    case SettingRefusal::outOfRange: return "The value is not among the setting's choices.";
    case SettingRefusal::tooLong: return "The text is too long for the setting.";
    }
    return "";
}

} // namespace

ExitCode settingsList(Session& session, const Arguments&) {
    const app::AppSettings& settings = session.settings();
    if (session.json()) {
        JsonWriter json(session.out());
        json.beginObject();
        for (const std::u16string_view name : app::settingNames()) {
            json.key(platform::printableUtf8(name));
            writeJson(json, app::settingValue(settings, name).value_or(SettingValue{}));
        }
        json.endObject().finish();
        return ExitCode::done;
    }
    TextTable table(session.out(), {{"Name"}, {"Value"}});
    for (const std::u16string_view name : app::settingNames())
        table.add({platform::printableUtf8(name), line(app::settingValue(settings, name).value_or(SettingValue{}))});
    table.finish();
    return ExitCode::done;
}

ExitCode settingsGet(Session& session, const Arguments& arguments) {
    const auto value = app::settingValue(session.settings(), platform::toUtf16(arguments.positionals().front()));
    if (!value)
        return session.fail(platform::PlatformError::invalidParameter, reasonOf(SettingRefusal::unknownName));
    if (session.json()) {
        JsonWriter json(session.out());
        writeJson(json, *value);
        json.finish();
    } else {
        session.out().writeLine(line(*value));
    }
    return ExitCode::done;
}

ExitCode settingsSet(Session& session, const Arguments& arguments) {
    app::AppSettings& settings = session.settings();
    const auto refusal = app::setSetting(settings, platform::toUtf16(arguments.positionals()[0]),
                                         platform::toUtf16(arguments.positionals()[1]));
    if (refusal != SettingRefusal::none)
        return session.fail(platform::PlatformError::invalidParameter, reasonOf(refusal));
    if (!settings.save(session.registry()))
        return session.fail(platform::PlatformError::writeFault, "The settings could not be saved.");
    return ExitCode::done;
}

} // namespace hourwright::cli
