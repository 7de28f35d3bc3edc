#pragma once

#include "app/main_frame.h"
#include "desktop/change_watch.h"
#include "desktop/copies/daily_copy.h"
#include "desktop/drafts/draft_keeper.h"
#include "desktop/main_window.h"
#include "desktop/timers/timer_desk.h"
#include "desktop/workspace.h"
#include "platform/posix/led_class_vibrator.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/system_clock.h"
#include "platform/qt/qt_file_dialog.h"
#include "platform/qt/qt_instance_notifier.h"
#include "platform/qt/qt_message_box.h"
#include "platform/qt/qt_shell.h"
#include "platform/qt/qt_system_timer.h"
#include "platform/qt/qt_termination.h"
#include "platform/qt/session_idle_time.h"

#include <memory>

namespace hourwright::desktop {

/// Everything of one running window: it opens what the frame's creation asks for, in its order, and owns it. Programs
/// that look for the running copy are answered here.
class FrameHost : public app::FrameWindow {
public:
    /// `queue` is borrowed; `server` is null when other copies cannot reach this one.
    FrameHost(const app::StartOptions& options, platform::Directories directories, platform::EventQueue& queue,
              std::unique_ptr<platform::InstanceServer> server);
    ~FrameHost() override;
    FrameHost(const FrameHost&) = delete;
    FrameHost& operator=(const FrameHost&) = delete;

    /// Makes the window and does what the options say; false when that is impossible, which was shown.
    [[nodiscard]] bool create(const app::Rectangle& rectangle);

    [[nodiscard]] app::MainFrame& frame() { return frame_; }
    /// Once it is made:
    [[nodiscard]] MainWindow& window() { return *window_; }

    void createMenuBar(bool softKeys) override;
    [[nodiscard]] app::OpenedStores openStores() override;
    void loadFilters() override;
    void createViews(const app::Rectangle& rectangle) override;
    void showToday() override;
    void comeForward() override;
    void showPeriod(std::optional<app::PeriodKind> kind, const std::optional<platform::SystemTime>& date) override;
    void newEntry() override;
    [[nodiscard]] unsigned timersInUse() const override;
    bool translateAccelerator(const platform::QueuedEvent& event) override;
    void quit(int code) override { queue_.quit(code); }

private:
    void saveState();
    void watchDrafts();
    void endNow();
    [[nodiscard]] std::optional<std::string> answer(const platform::InstanceMessage& message);
    [[nodiscard]] platform::PlatformError openRecords();

    app::StartOptions options_;
    platform::Directories directories_;
    platform::EventQueue& queue_;
    std::unique_ptr<platform::InstanceServer> server_;
    std::unique_ptr<platform::Registry> registry_;
    platform::Locales locales_;
    platform::SystemClock clock_;
    platform::PosixFiles files_;
    platform::QtShell shell_;
    platform::QtFileDialog fileDialogs_;
    platform::QtMessageBox messages_;
    app::MainFrame frame_;
    std::unique_ptr<platform::ObjectStore> objects_;
    std::unique_ptr<platform::NamedMutex> clientIdMutex_;
    std::unique_ptr<store::Stores> stores_;
    std::unique_ptr<Workspace> workspace_;
    std::unique_ptr<ChangeWatch> watch_;
    std::unique_ptr<platform::Registry> timerJournal_;
    std::unique_ptr<platform::Registry> draftJournal_;
    platform::QtSystemTimer tick_;
    platform::LedClassVibrator vibrator_;
    platform::SessionIdleTime idleTime_;
    std::unique_ptr<MainWindow> window_;
    std::unique_ptr<TimerDesk> timers_;
    std::unique_ptr<DraftKeeper> drafts_;
    std::unique_ptr<platform::QtInstanceNotifier> notifier_;
    std::unique_ptr<platform::StoreCopies> copies_;
    std::unique_ptr<DailyCopy> dailyCopy_;
    std::unique_ptr<platform::QtTermination> termination_;
};

} // namespace hourwright::desktop
