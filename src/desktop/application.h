#pragma once

#include "app/start_up.h"
#include "desktop/frame_host.h"
#include "platform/qt/qt_event_queue.h"

#include <QApplication>
#include <memory>
#include <optional>

namespace hourwright::desktop {

/// The steps of start-up with the toolkit.
class Application : public app::StartUpSteps {
public:
    /// Borrows the arguments of `main`, from which the toolkit takes its own.
    Application(int& argc, char** argv, const app::StartOptions& options, platform::Directories directories);

    void waitForOther() override;
    void refusedByOther() override;
    [[nodiscard]] bool initControls(app::ControlLibrary library) override;
    void initModule() override;
    [[nodiscard]] app::WorkArea workArea() override;
    [[nodiscard]] bool createFrame(std::u16string_view title, const app::Rectangle& rectangle,
                                   std::unique_ptr<platform::InstanceServer> server) override;
    int runMessageLoop() override;
    void destroyFrame() override { host_.reset(); }
    void terminateModule() override { queue_.reset(); }

private:
    void prepareControls();

    int& argc_;
    char** argv_;
    app::StartOptions options_;
    platform::Directories directories_;
    std::unique_ptr<QApplication> toolkit_;
    std::unique_ptr<platform::QtEventQueue> queue_;
    std::unique_ptr<FrameHost> host_;
};

} // namespace hourwright::desktop
