#pragma once

#include "app/app_settings.h"
#include "app/message_loop.h"
#include "app/start_options.h"
#include "app/start_up.h"
#include "platform/message_box.h"
#include "platform/registry.h"
#include "store/stores.h"

#include <deque>
#include <functional>

namespace hourwright::app {

/// Settings stored below this version belong to records that may be in an earlier form.
inline constexpr std::uint32_t upgradedVersion = 261;

/// How many command lines may wait for the frame to be idle, which it is not while a question is open.
inline constexpr std::size_t maxWaitingLines = 256;

/// How opening the stores ended: with stores, or without them because that failed or because the user did not want to
/// go on.
struct OpenedStores {
    store::Stores* stores = nullptr;
    bool declined = false;
};

/// The window, as the rules of the frame see it.
class FrameWindow {
public:
    virtual ~FrameWindow() = default;

    virtual void createMenuBar(bool softKeys) = 0;
    /// Opens the stores or makes them.
    [[nodiscard]] virtual OpenedStores openStores() = 0;
    virtual void loadFilters() = 0;
    virtual void createViews(const Rectangle& rectangle) = 0;
    /// Goes to today in the period that the settings say.
    virtual void showToday() = 0;
    virtual void comeForward() = 0;
    /// Goes to a kind of period, or stays with the present one, around a date if one is given.
    virtual void showPeriod(std::optional<PeriodKind> kind, const std::optional<platform::SystemTime>& date) = 0;
    virtual void newEntry() = 0;
    [[nodiscard]] virtual unsigned timersInUse() const = 0;
    /// The window's own shortcuts; true when the message was one.
    virtual bool translateAccelerator(const platform::QueuedEvent& event) = 0;
    /// Ends the message loop with this code.
    virtual void quit(int code) = 0;
};

/// The frame's life: how it is made step by step, what it does when nothing else is to be done, when it may close. It
/// holds the settings.
class MainFrame : public MessageHooks {
public:
    /// Borrows everything.
    MainFrame(FrameWindow& window, platform::Registry& registry, platform::MessageBox& messages,
              const SettingsDevice& device);

    /// Makes the window over the rectangle. False when the stores cannot be opened, which is shown unless the user
    /// wanted it so; no view is made then and nothing written.
    [[nodiscard]] bool create(const Rectangle& rectangle);

    /// Once it is being created:
    [[nodiscard]] AppSettings& settings() { return *settings_; }
    [[nodiscard]] const FontDescription& captionFont() const { return captionFont_; }
    [[nodiscard]] const FontDescription& listFont() const { return listFont_; }

    /// The user wants to close: asks when timers run and the settings want that. False: the window stays. Otherwise the
    /// frame is destroyed: settings are saved and the message loop ends.
    [[nodiscard]] bool close();
    /// The session or a signal ends the program: stores the settings and quits, without a question.
    void end();

    /// Does what a command line says, this program's own or one handed over, as soon as nothing else is going on.
    /// False, and it is not done, when too many wait already; none of those is lost.
    [[nodiscard]] bool use(const StartOptions& options);

    bool onIdle(unsigned count) override;
    bool preTranslateMessage(const platform::QueuedEvent& event) override;

private:
    void upgrade(store::Stores& stores);
    void apply(const StartOptions& options);
    void openFile(const std::filesystem::path& file);

    FrameWindow& window_;
    platform::Registry& registry_;
    platform::MessageBox& messages_;
    SettingsDevice device_;
    std::optional<AppSettings> settings_;
    FontDescription captionFont_;
    FontDescription listFont_;
    std::deque<StartOptions> waiting_;
};

} // namespace hourwright::app
