#include "app/start_up.h"

#include "resources/strings.h"

#include <array>
#include <string>

namespace hourwright::app {

namespace {

using platform::Claim;
using platform::ClaimedInstance;
using platform::Delivery;
using platform::InstanceMessage;
using platform::InstanceMessageKind;

constexpr int menuBarHeight = 26; // at 96 dots per inch
constexpr int standardDotsPerInch = 96;
constexpr std::chrono::milliseconds patience{3000};
constexpr int attempts = 60;

// False when the other copy was gone before it could be reached.
bool tell(platform::InstanceChannel& channel, const HandOver& handOver) {
    if (!handOver.commandLine.empty() &&
        channel.send(platform::handOverMessage(handOver.commandLine), patience).delivery == Delivery::nobody)
        return false;
    const InstanceMessage forward{.kind = InstanceMessageKind::comeForward,
                                  .payload = std::string(handOver.activationToken)};
    // A command line that has arrived must not be sent again.
    return channel.send(forward, patience).delivery != Delivery::nobody || !handOver.commandLine.empty();
}

int runFrame(std::unique_ptr<platform::InstanceServer> server, StartUpSteps& steps) {
    const auto title = resources::string(resources::StringId::appTitle);
    const bool created = steps.createFrame(title, frameRectangle(steps.workArea()), std::move(server));
    const int code = created ? steps.runMessageLoop() : 1;
    steps.destroyFrame();
    return code;
}

} // namespace

Rectangle frameRectangle(const WorkArea& workArea) {
    Rectangle rectangle = workArea.area;
    rectangle.height -= menuBarHeight * workArea.verticalDotsPerInch / standardDotsPerInch;
    return rectangle;
}

ClaimedInstance findRunningInstance(platform::InstanceChannel& channel, const HandOver& handOver, StartUpSteps& steps) {
    ClaimedInstance claimed = channel.claim();
    // The other copy may hold the lock before it listens, or end between two calls.
    for (int i = 0; i < attempts && claimed.claim == Claim::otherRuns && !tell(channel, handOver); ++i) {
        steps.waitForOther();
        claimed = channel.claim();
    }
    return claimed;
}

int startUp(platform::InstanceChannel& channel, const HandOver& handOver, StartUpSteps& steps) {
    ClaimedInstance claimed = findRunningInstance(channel, handOver, steps);
    if (claimed.claim == Claim::otherRuns)
        return 0;
    for (const auto library : {ControlLibrary::shellExtras, ControlLibrary::common, ControlLibrary::ink})
        if (!steps.initControls(library))
            return 1;
    steps.initModule();
    const int code = runFrame(std::move(claimed.server), steps);
    steps.terminateModule();
    return code;
}

} // namespace hourwright::app
