#pragma once

#include "desktop/workspace.h"
#include "exchange/note_document.h"
#include "platform/voice.h"

#include <QObject>
#include <QTimer>

class QToolButton;

namespace hourwright::desktop {

/// The button that records and what plays recordings. Without a microphone the button is disabled and says so.
class NoteVoice : public QObject {
    Q_OBJECT

public:
    NoteVoice(Workspace& workspace, QToolButton& button, QObject* parent);

    /// Uses these devices, and no others; null ones are missing.
    void use(platform::VoiceDevices devices);
    /// Finds the desktop's devices unless there are some.
    void findDevices();
    /// False for a note that cannot be edited.
    void setEnabled(bool enabled);
    /// How many bytes of recording still fit; it ends by itself when they are used up.
    void setRoom(std::size_t bytes) { room_ = bytes; }

    void play(const exchange::VoiceClip& clip);
    [[nodiscard]] bool recording() const { return recording_; }
    /// Ends a recording and hands it over.
    void finish();
    /// Ends playing, and a recording without keeping it.
    void stopAll();

signals:
    /// Asks for the room that is left.
    void aboutToRecord();
    void recorded(const hourwright::exchange::VoiceClip& clip);

private:
    void toggle();
    void tick();
    void showState();

    Workspace& workspace_;
    QToolButton& button_;
    platform::VoiceDevices devices_;
    QTimer timer_;
    std::size_t room_ = 0;
    bool enabled_ = true;
    bool recording_ = false;
};

} // namespace hourwright::desktop
