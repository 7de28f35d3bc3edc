#pragma once

#include "app/app_settings.h"
#include "billing/entry_draft.h"
#include "cli/arguments.h"
#include "cli/environment.h"
#include "cli/output.h"
#include "platform/clock.h"
#include "platform/instance_channel.h"
#include "platform/locale.h"
#include "platform/named_mutex.h"
#include "platform/object_store.h"
#include "platform/registry.h"
#include "platform/store_copies.h"
#include "resources/text.h"
#include "store/stores.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace hourwright::cli {

/// What one command works with. Settings, stores and locale are opened when they are first asked for, so that a
/// command pays only for what it uses. Functions that open something show the message themselves when that fails and
/// return null; the command then ends as refused.
class Session {
public:
    /// Borrows everything. The global options of the line have been checked with `prepare`.
    Session(const CommandLine& line, Environment& environment, Output& out);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Takes over the global options; wrong usage is shown and returned.
    [[nodiscard]] ExitCode prepare();

    [[nodiscard]] Output& out() { return out_; }
    [[nodiscard]] bool json() const { return line_.arguments.has(option::json); }
    [[nodiscard]] const platform::Clock& clock() const { return *clock_; }
    [[nodiscard]] platform::Files& files() { return environment_.files; }

    /// Shows messages and asks questions.
    [[nodiscard]] platform::MessageBox& messages();
    [[nodiscard]] platform::Registry& registry();
    [[nodiscard]] app::AppSettings& settings();
    [[nodiscard]] const platform::Locales& locales();

    /// True when there is a store; opening it would make one.
    [[nodiscard]] bool hasStore();
    /// The volume; null when it cannot be opened.
    [[nodiscard]] platform::ObjectStore* objects();
    /// The program's record stores on it, made when missing; null when they cannot be opened.
    [[nodiscard]] store::Stores* stores();

    /// The copies of records and settings; never null.
    [[nodiscard]] std::unique_ptr<platform::StoreCopies> copies();
    /// Looks for damage in the settings, reports each finding as a line of text; true when there is none.
    [[nodiscard]] bool checkSettings(const std::function<void(std::string_view)>& report);
    /// Says which copy there is and how to restore records or settings from it, if there is one that has them.
    void hintAtCopies(platform::CopyPart part = platform::CopyPart::records);
    /// Refuses to go on without records when there were some, and says how to go back to a copy; true then.
    [[nodiscard]] bool refuseGoneRecords();
    /// As long as the result lives, no window can start; `otherRuns` when one is open.
    [[nodiscard]] platform::ClaimedInstance keepWindowAway();

    /// Begins to write to the stores, which are open: a change that can be undone under this name. Null on failure.
    [[nodiscard]] std::unique_ptr<platform::Transaction> begin(const resources::Text& name);

    /// The day that an accepted date means, at 00:00. Nothing, with the message shown, when it cannot be stored.
    [[nodiscard]] std::optional<platform::SystemTime> day(std::string_view date);

    /// Tells a running window when the command has changed records; it is not waited for.
    void announceChanges();

    /// Hands a timer command to the running window and waits a few seconds for the reply.
    [[nodiscard]] platform::InstanceReply askWindow(std::string payload);

    /// Shows a message of the string table, and below it what there is to add.
    ExitCode refuse(resources::StringId message, std::string_view reason = {});
    /// Shows "Error: %d".
    ExitCode fail(platform::PlatformError error, std::string_view reason = {});
    /// Shows "Error: %d" with the last error of the entries or the volume.
    ExitCode failWrite();
    /// Shows that the command line is wrong, for what only the command can find out.
    ExitCode misuse(std::string reason);

private:
    [[nodiscard]] const platform::Directories& directories();
    [[nodiscard]] app::SettingsDevice settingsDevice();
    void addReason(std::string_view reason);
    void openObjects();
    void openStores();
    void refuseStores();

    const CommandLine& line_;
    Environment& environment_;
    Output& out_;
    std::unique_ptr<platform::Clock> fixedClock_;
    const platform::Clock* clock_;
    std::unique_ptr<platform::MessageBox> messages_;
    std::optional<platform::Directories> directories_;
    std::unique_ptr<platform::Registry> registry_;
    std::optional<app::AppSettings> settings_;
    std::unique_ptr<platform::Locales> locales_;
    std::unique_ptr<platform::ObjectStore> objects_;
    std::unique_ptr<platform::NamedMutex> clientIdMutex_;
    std::unique_ptr<store::Stores> stores_;
    bool changed_ = false;
};

} // namespace hourwright::cli
