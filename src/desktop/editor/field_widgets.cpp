#include "desktop/editor/field_widgets.h"

#include "platform/qt/qt_locale.h"
#include "platform/qt/qt_time.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCompleter>
#include <QLineEdit>
#include <QTimer>
#include <QWheelEvent>

namespace hourwright::desktop {

namespace {

// Short forms with two digits of the year would make a typed 2105 a 2005.
QString fullYear(QString format) {
    return format.contains("yyyy") ? format : format.replace("yy", "yyyy");
}

} // namespace

DayEdit::DayEdit(Workspace& workspace, QWidget* parent) : QDateEdit(parent) {
    const QLocale locale = platform::toQLocale(workspace.locale());
    setLocale(locale);
    setDisplayFormat(fullYear(locale.dateFormat(QLocale::ShortFormat)));
    setDateRange(QDate(1601, 1, 1), QDate(9999, 12, 31));
    setCalendarPopup(true);
    setFocusPolicy(Qt::StrongFocus);
    const bool monday = workspace.settings().styleFlags.has(app::StyleFlag::weekStartsMonday);
    calendarWidget()->setFirstDayOfWeek(monday ? Qt::Monday : Qt::Sunday);
}

void DayEdit::setDay(const platform::SystemTime& day) {
    setDate(platform::toQDate(day));
}

platform::SystemTime DayEdit::day() const {
    return platform::toSystemTime(date());
}

// The day is what is changed most, wherever it stands in the date.
void DayEdit::focusInEvent(QFocusEvent* event) {
    QDateEdit::focusInEvent(event);
    setSelectedSection(QDateTimeEdit::DaySection);
}

void DayEdit::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QDateEdit::wheelEvent(event);
    else
        event->ignore();
}

ClockEdit::ClockEdit(Workspace& workspace, QWidget* parent) : QTimeEdit(parent) {
    const QLocale locale = platform::toQLocale(workspace.locale());
    setLocale(locale);
    setDisplayFormat(locale.timeFormat(QLocale::ShortFormat));
    setWrapping(true);
    setFocusPolicy(Qt::StrongFocus);
}

void ClockEdit::setClock(const platform::SystemTime& time) {
    setTime(platform::toQTime(time));
}

platform::SystemTime ClockEdit::clock() const {
    return {.hour = static_cast<std::uint16_t>(time().hour()), .minute = static_cast<std::uint16_t>(time().minute())};
}

void ClockEdit::focusInEvent(QFocusEvent* event) {
    QTimeEdit::focusInEvent(event);
    emit focused();
}

void ClockEdit::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QTimeEdit::wheelEvent(event);
    else
        event->ignore();
}

void saveOnEnter(QComboBox& combo, const std::function<void()>& save) {
    QObject::connect(combo.lineEdit(), &QLineEdit::returnPressed, &combo, [&combo, save] {
        QAbstractItemView* list = combo.completer()->popup();
        if (!list->isVisible() || list->currentIndex().isValid())
            return; // the dialog's button takes the key, or the list does
        list->hide();
        QTimer::singleShot(0, &combo, save);
    });
}

} // namespace hourwright::desktop
