#include "app/main_frame.h"

#include "store/upgrade.h"

#include <algorithm>
#include <array>

namespace hourwright::app {

using resources::StringId;

MainFrame::MainFrame(FrameWindow& window, platform::Registry& registry, platform::MessageBox& messages,
                     const SettingsDevice& device)
    : window_(window), registry_(registry), messages_(messages), device_(device) {}

bool MainFrame::create(const Rectangle& rectangle) {
    settings_ = AppSettings::load(registry_, device_);
    window_.createMenuBar(settings_->styleFlags.has(StyleFlag::softKeyMenus));
    const OpenedStores opened = window_.openStores();
    if (opened.stores == nullptr) {
        if (!opened.declined)
            messages_.showFailure(StringId::databaseNotOpened);
        return false;
    }
    if (settings_->version < upgradedVersion && opened.stores->holdRecords())
        upgrade(*opened.stores);
    const bool clearType = clearTypeOn(registry_);
    captionFont_ = app::captionFont(clearType);
    window_.loadFilters();
    listFont_ = settings_->createListFont(0, clearType);
    window_.createViews(rectangle);
    window_.showToday();
    window_.comeForward();
    return true;
}

// A version is missing also where only the command line has been used so far; its records need nothing. Records of
// earlier versions are understood as they are, so saying no costs nothing but time at every reading.
void MainFrame::upgrade(store::Stores& stores) {
    if (!store::needsUpgrade(stores))
        return;
    if (!messages_.ask(StringId::upgradeRecords, platform::Icon::question, platform::Answer::yes))
        return;
    const auto error = store::upgradeRecords(stores);
    if (error != platform::PlatformError::none)
        messages_.showError(platform::number(error));
}

bool MainFrame::close() {
    if (settings_->askClose && window_.timersInUse() > 0) {
        window_.comeForward();
        if (!messages_.ask(StringId::closeWithTimers, platform::Icon::question, platform::Answer::no))
            return false;
    }
    end();
    return true;
}

void MainFrame::end() {
    settings_->save(registry_);
    window_.quit(0);
}

bool MainFrame::use(const StartOptions& options) {
    if (waiting_.size() >= maxWaitingLines)
        return false;
    waiting_.push_back(options);
    return true;
}

bool MainFrame::onIdle(unsigned /*count*/) {
    if (waiting_.empty())
        return false;
    const StartOptions options = std::move(waiting_.front());
    waiting_.pop_front();
    apply(options);
    return !waiting_.empty();
}

bool MainFrame::preTranslateMessage(const platform::QueuedEvent& event) {
    return event.kind == platform::EventKind::keyPress && window_.translateAccelerator(event);
}

void MainFrame::apply(const StartOptions& options) {
    if (!options.error.empty()) {
        messages_.showCheck(StringId::handOverUnreadable);
        return;
    }
    if (options.view || options.date)
        window_.showPeriod(options.view, options.date);
    if (!options.file.empty())
        openFile(options.file);
    if (options.newEntry)
        window_.newEntry();
}

void MainFrame::openFile(const std::filesystem::path& file) {
    constexpr std::array<std::string_view, 3> ownKinds = {".hwd", ".hwa", ".hwc"};
    std::string ending = file.extension().string();
    std::ranges::transform(ending, ending.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    std::error_code unreadable;
    if (!std::filesystem::exists(file, unreadable))
        messages_.showCheck(StringId::fileNotFound);
    else if (std::ranges::find(ownKinds, ending) == ownKinds.end())
        messages_.showCheck(StringId::fileKindUnknown);
    else
        messages_.showCheck(StringId::fileKindNotYet);
}

} // namespace hourwright::app
