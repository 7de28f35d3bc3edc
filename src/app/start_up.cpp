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

enum class Told : std::uint8_t { nobody, other, otherRefused };

// Nobody when the other copy was gone before it could be reached.
Told tell(platform::InstanceChannel& channel, const HandOver& handOver) {
    Delivery line = Delivery::answered;
    if (!handOver.commandLine.empty())
        line = channel.send(platform::handOverMessage(handOver.commandLine), patience).delivery;
    if (line == Delivery::nobody)
        return Told::nobody;
    const InstanceMessage forward{.kind = InstanceMessageKind::comeForward,
                                  .payload = std::string(handOver.activationToken)};
    const bool forwarded = channel.send(forward, patience).delivery != Delivery::nobody;
    if (line == Delivery::refused)
        return Told::otherRefused;
    // A command line that has arrived must not be sent again.
    return forwarded || !handOver.commandLine.empty() ? Told::other : Told::nobody;
}

ClaimedInstance claimOrTell(platform::InstanceChannel& channel, const HandOver& handOver, StartUpSteps& steps,
                            Told& told) {
    ClaimedInstance claimed = channel.claim();
    // The other copy may hold the lock before it listens, or end between two calls.
    for (int i = 0; i < attempts && claimed.claim == Claim::otherRuns; ++i) {
        told = tell(channel, handOver);
        if (told != Told::nobody)
            break;
        steps.waitForOther();
        claimed = channel.claim();
    }
    return claimed;
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
    Told told = Told::nobody;
    return claimOrTell(channel, handOver, steps, told);
}

int startUp(platform::InstanceChannel& channel, const HandOver& handOver, StartUpSteps& steps) {
    Told told = Told::nobody;
    ClaimedInstance claimed = claimOrTell(channel, handOver, steps, told);
    if (claimed.claim == Claim::otherRuns && told == Told::otherRefused) {
        steps.refusedByOther();
        return 1;
    }
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
