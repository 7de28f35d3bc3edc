#pragma once

#include "platform/instance_channel.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace hourwright::app {

/// Parts of the toolkit that are made ready before the first window, in this order.
enum class ControlLibrary : std::uint8_t { shellExtras, common, ink };

/// The classes of common controls that the windows use: list view, tree view, bars, up-down, dates.
inline constexpr std::uint32_t commonControlClasses = 0x117;

struct Rectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const Rectangle&, const Rectangle&) = default;
};

/// The part of the screen that windows may cover, and its resolution.
struct WorkArea {
    Rectangle area;
    int verticalDotsPerInch = 96;
};

/// The work area without the strip of the menu bar at its bottom.
[[nodiscard]] Rectangle frameRectangle(const WorkArea& workArea);

/// What start-up does to the machine, in the order of its calls.
class StartUpSteps {
public:
    virtual ~StartUpSteps() = default;

    /// Waits a moment for another copy that is just starting or ending.
    virtual void waitForOther() = 0;
    /// Says that the running copy did not take the command line.
    virtual void refusedByOther() = 0;
    /// False when there is nothing to show windows on.
    [[nodiscard]] virtual bool initControls(ControlLibrary library) = 0;
    virtual void initModule() = 0;
    [[nodiscard]] virtual WorkArea workArea() = 0;
    /// Makes the frame; `server` is null when it cannot be found out whether another copy runs. False when it cannot
    /// be made, and the reason was shown.
    [[nodiscard]] virtual bool createFrame(std::u16string_view title, const Rectangle& rectangle,
                                           std::unique_ptr<platform::InstanceServer> server) = 0;
    /// Runs until the frame is destroyed; the result is the exit code.
    virtual int runMessageLoop() = 0;
    virtual void destroyFrame() = 0;
    virtual void terminateModule() = 0;
};

/// What a second start has for the running copy.
struct HandOver {
    std::u16string_view commandLine;  ///< empty: it only comes forward
    std::string_view activationToken; ///< the desktop's permission to come forward, if it gives one
};

/// Looks for the running copy. When there is one, hands over the command line if there is any and has it come forward
/// (`otherRuns`, whether it answered or not). Otherwise this program is the running copy from now on (`first`), or it
/// cannot be found out.
[[nodiscard]] platform::ClaimedInstance findRunningInstance(platform::InstanceChannel& channel,
                                                            const HandOver& handOver, StartUpSteps& steps);

/// The whole program: the exit code is 0 after a normal run and when another copy was found, 1 when there can be no
/// main window and when the other copy refused the command line.
[[nodiscard]] int startUp(platform::InstanceChannel& channel, const HandOver& handOver, StartUpSteps& steps);

} // namespace hourwright::app
