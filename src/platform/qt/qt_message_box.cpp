#include "platform/qt/qt_message_box.h"

#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QMessageBox>

namespace hourwright::platform {

namespace {

QMessageBox::Icon iconOf(Icon icon) {
    switch (icon) {
    case Icon::stop: return QMessageBox::Critical;
    case Icon::question: return QMessageBox::Question;
    case Icon::information: return QMessageBox::Information;
    case Icon::exclamation:
    case Icon::warning: return QMessageBox::Warning;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(Buttons buttons) {
    switch (buttons) {
    case Buttons::okCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::yesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::yesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::ok: break;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton buttonOf(Answer answer) {
    switch (answer) {
    case Answer::cancel: return QMessageBox::Cancel;
    case Answer::yes: return QMessageBox::Yes;
    case Answer::no: return QMessageBox::No;
    case Answer::ok: break;
    }
    return QMessageBox::Ok;
}

Answer answerOf(int button) {
    switch (button) {
    case QMessageBox::Cancel: return Answer::cancel;
    case QMessageBox::Yes: return Answer::yes;
    case QMessageBox::No: return Answer::no;
    default: return Answer::ok;
    }
}

} // namespace

Answer QtMessageBox::show(const Message& message) {
    QMessageBox box(iconOf(message.icon), toQString(resources::StringId::appTitle), toQString(message.text),
                    buttonsOf(message.buttons), QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(buttonOf(message.defaultAnswer));
    return answerOf(box.exec());
}

} // namespace hourwright::platform
