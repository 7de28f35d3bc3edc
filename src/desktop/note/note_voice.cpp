#include "desktop/note/note_voice.h"

#include "desktop/icons.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_voice.h"
#include "resources/texts/notes.h"

#include <QToolButton>

namespace hourwright::desktop {

namespace {

using platform::toQString;
using resources::StringId;
namespace texts = resources::notes;

QString lengthText(std::uint32_t milliseconds) {
    const auto seconds = milliseconds / 1000;
    return QString("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar('0'));
}

} // namespace

NoteVoice::NoteVoice(Workspace& workspace, QToolButton& button, QObject* parent)
    : QObject(parent), workspace_(workspace), button_(button) {
    timer_.setInterval(250);
    connect(&timer_, &QTimer::timeout, this, &NoteVoice::tick);
    connect(&button_, &QToolButton::clicked, this, &NoteVoice::toggle);
    showState();
}

void NoteVoice::use(platform::VoiceDevices devices) {
    devices_ = std::move(devices);
    showState();
}

void NoteVoice::findDevices() {
    if (devices_.recorder == nullptr && devices_.player == nullptr)
        use(platform::makeQtVoiceDevices());
}

void NoteVoice::setEnabled(bool enabled) {
    enabled_ = enabled;
    showState();
}

void NoteVoice::toggle() {
    if (recording_)
        return finish();
    emit aboutToRecord();
    if (devices_.player != nullptr)
        devices_.player->stop();
    if (devices_.recorder == nullptr || !devices_.recorder->start()) {
        workspace_.messages().showFailure(StringId::recordingFailed);
        return showState();
    }
    recording_ = true;
    timer_.start();
    showState();
}

void NoteVoice::finish() {
    if (!recording_)
        return;
    recording_ = false;
    timer_.stop();
    auto made = devices_.recorder->stop();
    showState();
    if (!made)
        return workspace_.messages().showFailure(StringId::recordingFailed);
    emit recorded({.format = made->format, .milliseconds = made->milliseconds, .data = std::move(made->data)});
}

void NoteVoice::tick() {
    const std::size_t used = devices_.recorder->milliseconds() / 1000 * platform::voiceBytesPerSecond;
    if (used >= room_)
        finish();
    else
        showState();
}

void NoteVoice::showState() {
    const bool can = devices_.recorder != nullptr && devices_.recorder->available();
    QString hint = can ? toQString(texts::record) : toQString(texts::noMicrophone);
    if (recording_)
        hint = toQString(texts::stopRecording);
    button_.setEnabled(enabled_ && (can || recording_));
    button_.setIcon(icon(recording_ ? "stop-recording" : "microphone"));
    button_.setToolTip(hint);
    button_.setAccessibleName(toQString(recording_ ? texts::stopRecording : texts::record));
    button_.setAccessibleDescription(can ? QString() : hint);
    button_.setToolButtonStyle(recording_ ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    button_.setText(recording_ ? lengthText(devices_.recorder->milliseconds()) : QString());
}

void NoteVoice::play(const exchange::VoiceClip& clip) {
    findDevices();
    if (devices_.player != nullptr && devices_.player->playing())
        return devices_.player->stop();
    if (devices_.player == nullptr || !devices_.player->play(clip.format, clip.data))
        workspace_.messages().showFailure(StringId::playingFailed);
}

void NoteVoice::stopAll() {
    timer_.stop();
    if (recording_)
        static_cast<void>(devices_.recorder->stop());
    recording_ = false;
    if (devices_.player != nullptr)
        devices_.player->stop();
    showState();
}

} // namespace hourwright::desktop
