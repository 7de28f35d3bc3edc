#include "desktop/lists/find_bar.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/lists.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>

namespace hourwright::desktop {

namespace lists = resources::lists;
using platform::toQString;

FindBar::FindBar(MainWindow& window)
    : QToolBar(&window), window_(window), text_(new QLineEdit(this)), result_(new QLabel(this)) {
    setWindowTitle(toQString(lists::find).remove('&').remove(':'));
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    auto* label = new QLabel(toQString(lists::find), this);
    label->setBuddy(text_);
    text_->setClearButtonEnabled(true);
    addWidget(label);
    addWidget(text_);
    const auto addButton = [&](const resources::Text& text, auto run) {
        auto* button = new QToolButton(this);
        button->setText(toQString(text));
        connect(button, &QToolButton::clicked, this, run);
        addWidget(button);
    };
    addButton(lists::findNext, [this] { findNext(); });
    addButton(lists::closeFind, [this] {
        cancel();
        hide();
    });
    addWidget(result_);
    connect(text_, &QLineEdit::returnPressed, this, &FindBar::findNext);
    connect(text_, &QLineEdit::textEdited, this, &FindBar::cancel);
    connect(new QShortcut(QKeySequence("F3"), &window), &QShortcut::activated, this, &FindBar::findNext);
    hide();
}

void FindBar::open() {
    show();
    text_->setFocus();
    text_->selectAll();
}

void FindBar::findNext() {
    if (text_->text().isEmpty()) {
        open();
        return;
    }
    connect(&window_.view(), &RecordView::findEnded, this, &FindBar::searchEnded, Qt::UniqueConnection);
    tell(window_.view().findNext(text_->text()));
}

void FindBar::searchEnded(bool found) {
    if (searching_)
        tell(found ? Found::yes : Found::no);
}

void FindBar::tell(Found found) {
    searching_ = found == Found::searching;
    switch (found) {
    case Found::yes: result_->clear(); return;
    case Found::no: result_->setText(toQString(lists::notFound)); break;
    case Found::searching: result_->setText(toQString(lists::searching)); break;
    }
    show();
}

void FindBar::cancel() {
    window_.view().cancelFind();
    searching_ = false;
    result_->clear();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) {
        QToolBar::keyPressEvent(event);
        return;
    }
    if (searching_)
        return cancel();
    hide();
    window_.view().setFocus();
}

} // namespace hourwright::desktop
