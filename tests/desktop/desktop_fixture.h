#pragma once

#include "desktop/workspace.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/posix_files.h"
#include "support/fake_clock.h"
#include "support/recording_message_box.h"
#include "support/store_fixture.h"

#include <QApplication>
#include <filesystem>
#include <string>
#include <vector>

namespace hourwright::test {

/// Remembers what was to be opened.
class RecordingShell : public platform::Shell {
public:
    bool open(const std::filesystem::path& file) override {
        opened.push_back(file);
        return succeeds;
    }
    bool openPage(const std::filesystem::path& page, const std::string& anchor) override {
        pages.push_back(page.filename().string() + '#' + anchor);
        return succeeds;
    }

    std::vector<std::filesystem::path> opened;
    std::vector<std::string> pages;
    bool succeeds = true;
};

/// Chooses the file that a test has said, and remembers what was asked.
class ScriptedFileDialog : public platform::FileDialog {
public:
    std::optional<platform::SaveChoice> save(const platform::SaveRequest& request) override {
        requests.push_back(request);
        return choice;
    }

    std::optional<platform::SaveChoice> choice;
    std::vector<platform::SaveRequest> requests;
};

/// A workspace over a fresh store, with a clock that stands still on Monday, 16 November 2026, 09:00, American English,
/// and message boxes that answer from a script. Widgets are off-screen.
class DesktopFixture : public StoreFixture {
protected:
    DesktopFixture() {
        static_cast<void>(platform::makeDirectories(directories_));
        workspace_ = std::make_unique<desktop::Workspace>(
            desktop::WorkspaceParts{.stores = stores(),
                                    .registry = registry(),
                                    .settings = settings_,
                                    .locales = locales_,
                                    .clock = clock_,
                                    .messages = messages_,
                                    .files = files_,
                                    .shell = shell_,
                                    .directories = directories_,
                                    .variable = [](const char*) { return std::optional<std::string>(); },
                                    .fileDialogs = &fileDialogs_});
    }

    [[nodiscard]] desktop::Workspace& workspace() { return *workspace_; }
    [[nodiscard]] app::AppSettings& settings() { return settings_; }
    [[nodiscard]] RecordingMessageBox& messages() { return messages_; }
    [[nodiscard]] RecordingShell& shell() { return shell_; }
    [[nodiscard]] ScriptedFileDialog& fileDialogs() { return fileDialogs_; }
    [[nodiscard]] FakeClock& clock() { return clock_; }
    [[nodiscard]] std::filesystem::path home() const { return home_.path(); }

    /// Stores an entry as the user does and returns its id.
    store::RecordId add(store::TimeEntry entry);
    store::RecordId add(store::ExpenseEntry expense);
    /// The entries of the store in date order.
    [[nodiscard]] std::vector<store::TimeEntry> entries();
    [[nodiscard]] std::vector<store::ExpenseEntry> expenses();

private:
    TemporaryDirectory home_;
    platform::Directories directories_{.data = file().parent_path(),
                                       .config = home_.path(),
                                       .state = home_.path(),
                                       .runtime = home_.path() / "run",
                                       .ownHome = true};
    app::AppSettings settings_ =
        app::AppSettings::load(registry(), {.osMajorVersion = 4, .personalFolder = home_.path().u16string()});
    platform::Locales locales_{platform::makeIcuLocale("en_US"), platform::makeIcuLocale("en_US")};
    FakeClock clock_;
    RecordingMessageBox messages_;
    platform::PosixFiles files_;
    RecordingShell shell_;
    ScriptedFileDialog fileDialogs_;
    std::unique_ptr<desktop::Workspace> workspace_;
};

} // namespace hourwright::test
