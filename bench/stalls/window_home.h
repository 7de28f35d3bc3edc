#pragma once

#include "demo_home.h"
#include "desktop/workspace.h"
#include "no_shell.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/system_clock.h"
#include "support/recording_message_box.h"

#include <cstdio>
#include <optional>
#include <string>

namespace hourwright::bench {

/// Always chooses the same file.
class FixedFileDialog : public platform::FileDialog {
public:
    explicit FixedFileDialog(std::filesystem::path file) : file_(std::move(file)) {}
    std::optional<platform::SaveChoice> save(const platform::SaveRequest& /*request*/) override {
        return platform::SaveChoice{.file = file_, .kind = 0};
    }

private:
    std::filesystem::path file_;
};

/// What a window works with, on a store of made-up entries, all of which the current view shows.
class WindowHome {
public:
    [[nodiscard]] bool fill(std::uint64_t entries) {
        if (!home_.fill(entries))
            return false;
        settings_.periodStart = {.year = 1990, .month = 1, .day = 1};
        settings_.periodEnd = {.year = 2026, .month = 12, .day = 31};
        workspace_.emplace(desktop::WorkspaceParts{
            .stores = home_.stores,
            .registry = home_.registry,
            .settings = settings_,
            .locales = locales_,
            .clock = clock_,
            .messages = messages_,
            .files = files_,
            .shell = shell_,
            .directories = {.data = folder_, .config = folder_, .state = folder_, .runtime = folder_, .ownHome = true},
            .variable = [](const char*) { return std::optional<std::string>(); },
            .fileDialogs = &fileDialogs_});
        return workspace_->view().setKind(app::PeriodKind::custom);
    }

    [[nodiscard]] desktop::Workspace& workspace() { return *workspace_; }
    [[nodiscard]] test::RecordingMessageBox& messages() { return messages_; }
    [[nodiscard]] std::filesystem::path exported() const { return folder_ / "exported"; }

private:
    Home home_;
    std::filesystem::path folder_ = home_.directory.path();
    app::AppSettings settings_ = app::AppSettings::load(home_.registry, {.osMajorVersion = 4, .personalFolder = u""});
    platform::Locales locales_{platform::makeIcuLocale("en_US"), platform::makeIcuLocale("en_US")};
    platform::FixedClock clock_{{.year = 2026, .month = 6, .day = 19}};
    test::RecordingMessageBox messages_;
    platform::PosixFiles files_;
    NoShell shell_;
    FixedFileDialog fileDialogs_{folder_ / "exported"};
    std::optional<desktop::Workspace> workspace_;
};

/// One figure as a line for people and programs: "name value unit".
inline void printFigure(const std::string& name, double value, const char* unit) {
    std::printf("%s %.1f %s\n", name.c_str(), value, unit);
    std::fflush(stdout);
}

} // namespace hourwright::bench
