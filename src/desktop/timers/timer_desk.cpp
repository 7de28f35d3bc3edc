#include "desktop/timers/timer_desk.h"

#include "desktop/editor/entry_dialog.h"
#include "desktop/icons.h"
#include "platform/notification_leds.h"

#include <algorithm>

namespace hourwright::desktop {

namespace {

// Choices of the timers' own menu; they are kept beside the settings.
constexpr std::u16string_view idleValue = u"TimerWatchIdle";
constexpr std::u16string_view trayValue = u"TimerShowTray";

std::vector<std::byte> bytesOf(const std::string& text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

std::string textOf(const std::vector<std::byte>& bytes) {
    std::string text(bytes.size(), '\0');
    std::ranges::transform(bytes, text.begin(), [](std::byte byte) { return static_cast<char>(byte); });
    return text;
}

} // namespace

TimerDesk::TimerDesk(MainWindow& window, billing::TimerSet& timers, platform::NotificationLeds& leds,
                     platform::Registry& journal, platform::IdleTime& idleTime)
    : QObject(&window), window_(window), control_(window.workspace(), timers, leds, journal),
      guard_(new TimerGuard(control_, idleTime, &window)), tray_(new TimerTray(control_, this)) {
    addCommands();
    guard_->watchIdle(option(idleValue, false));
    tray_->setShown(option(trayValue, true));
    connect(tray_, &TimerTray::windowRequested, this, [this] {
        window_.showNormal();
        window_.raise();
        window_.activateWindow();
    });
    connect(tray_, &TimerTray::addRequested, this, [this] { timersWindow().addTimer({}, {}); });
    connect(&control_, &TimerControl::changed, &window_, [this] { window_.actions().update(); });
    control_.openEditor = [this](const store::TimeEntry& entry, const std::optional<app::KeptTimer>& timer,
                                 std::function<void()> closed) {
        auto* editor = new EntryDialog(window_.workspace(), entry, &window_);
        editor->setAttribute(Qt::WA_DeleteOnClose);
        editor->setTimer(timer);
        if (entry.rate == 0)
            editor->suggestRates();
        connect(editor, &QDialog::finished, this, [closed = std::move(closed)] { closed(); });
        editor->open();
    };
    window_.timersInUse = [this] { return control_.timers().inUse(); };
    window_.answerTimers = [this](const std::string& request) -> std::optional<std::string> {
        const auto unpacked = exchange::unpackTimerRequest(bytesOf(request));
        if (!unpacked)
            return std::nullopt;
        return textOf(exchange::packed(control_.answer(*unpacked)));
    };
    window_.actions().update();
}

void TimerDesk::addCommands() {
    window_.commands().set(app::Command::timers, [this] { showWindow(); });
    window_.commands().set(app::Command::createNewTimer, [this] { startFromSelection(); });
}

TimersWindow& TimerDesk::timersWindow() {
    if (timersWindow_ == nullptr) {
        timersWindow_ = new TimersWindow(control_, &window_);
        timersWindow_->setWindowIcon(icon("timer"));
        timersWindow_->watchIdle->setChecked(option(idleValue, false));
        timersWindow_->showTray->setChecked(option(trayValue, true));
        connect(timersWindow_->watchIdle, &QAction::toggled, this, [this](bool on) {
            setOption(idleValue, on);
            guard_->watchIdle(on);
        });
        connect(timersWindow_->showTray, &QAction::toggled, this, [this](bool on) {
            setOption(trayValue, on);
            tray_->setShown(on);
        });
    }
    return *timersWindow_;
}

void TimerDesk::showWindow() {
    timersWindow().show();
    timersWindow().raise();
    timersWindow().activateWindow();
}

void TimerDesk::startFromSelection() {
    const auto ids = window_.view().selection();
    auto& entries = window_.workspace().stores().entries();
    store::TimeEntry entry;
    if (ids.empty() || entries.seek(platform::Seek::toId(ids.front())) == store::RecordId::none ||
        store::readTimeEntry(entries, entry) != store::ReadResult::ok)
        return;
    const billing::TimerNames names{entry.client, entry.project, entry.phase, entry.task};
    showWindow();
    timersWindow().addTimer(names, std::move(entry));
}

bool TimerDesk::option(std::u16string_view name, bool byDefault) {
    const auto key = window_.workspace().registry().open(platform::settingsKey);
    const auto stored = key == nullptr ? std::nullopt : key->readDword(name);
    return stored ? *stored == 1 : byDefault;
}

void TimerDesk::setOption(std::u16string_view name, bool on) {
    if (const auto key = window_.workspace().registry().create(platform::settingsKey))
        key->writeDword(name, on ? 1 : 0);
}

} // namespace hourwright::desktop
