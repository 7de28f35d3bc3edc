#include "desktop/options/option_page.h"

#include "desktop/dialog.h"
#include "desktop/options/colour_button.h"
#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>

namespace hourwright::desktop {

using platform::toQString;

namespace {

constexpr qsizetype longLine = 40; // characters that a handheld shows beside a check box

// A check box does not wrap its text by itself.
QString fitted(QString text) {
    if (!isHandheld() || text.size() <= longLine)
        return text;
    const qsizetype blank = text.lastIndexOf(' ', longLine);
    return blank < 0 ? text : text.replace(blank, 1, '\n');
}

} // namespace

OptionPage::OptionPage(app::OptionsDraft& draft, const resources::Text& title)
    : draft_(draft), title_(toQString(title)), layout_(new QVBoxLayout(this)) {
    layout_->addStretch();
}

void OptionPage::store() {
    for (const auto& write : stores_)
        write();
}

void OptionPage::addGroup(const resources::Text& heading) {
    auto* box = new QGroupBox(toQString(heading));
    form_ = Dialog::makeForm(box);
    layout_->insertWidget(layout_->count() - 1, box);
}

// The controls of a page without headings stand on the page itself.
QFormLayout& OptionPage::form() {
    if (form_ == nullptr) {
        form_ = Dialog::makeForm();
        layout_->insertLayout(0, form_);
    }
    return *form_;
}

QComboBox* OptionPage::makeList(app::OptionList list) {
    auto* combo = new QComboBox;
    combo->setObjectName("list" + QString::number(static_cast<int>(list)));
    for (const std::u16string& text : app::optionTexts(list))
        combo->addItem(toQString(text));
    const int shown = app::optionIndex(draft_, list);
    combo->setCurrentIndex(shown);
    stores_.emplace_back([this, combo, list, shown] {
        if (combo->currentIndex() != shown)
            app::setOption(draft_, list, combo->currentIndex());
    });
    return combo;
}

QCheckBox* OptionPage::makeFlag(const resources::Text& text, app::OptionFlag flag) {
    auto* box = new QCheckBox(fitted(toQString(text)));
    box->setObjectName("flag" + QString::number(static_cast<int>(flag)));
    box->setChecked(app::optionFlag(draft_, flag));
    stores_.emplace_back([this, box, flag] { app::setOption(draft_, flag, box->isChecked()); });
    return box;
}

QComboBox* OptionPage::addList(const resources::Text& label, app::OptionList list) {
    auto* combo = makeList(list);
    form().addRow(toQString(label), combo);
    return combo;
}

QCheckBox* OptionPage::addFlag(const resources::Text& text, app::OptionFlag flag) {
    auto* box = makeFlag(text, flag);
    form().addRow(box);
    return box;
}

QLineEdit* OptionPage::addTextOf(const resources::Text& label, std::u16string text, int capacity,
                                 std::function<void(const std::u16string&)> store) {
    auto* edit = new QLineEdit(toQString(text));
    edit->setObjectName("text" + QString::number(stores_.size()));
    edit->setMaxLength(capacity);
    form().addRow(toQString(label), edit);
    stores_.emplace_back([edit, store = std::move(store)] { store(platform::toU16(edit->text())); });
    return edit;
}

void OptionPage::addFlagWithList(const resources::Text& text, app::OptionFlag flag, app::OptionList list,
                                 const resources::Text& unit) {
    auto* box = makeFlag(text, flag);
    auto* combo = makeList(list);
    auto* row = new QHBoxLayout;
    form().addRow(box);
    row->addSpacing(box->style()->pixelMetric(QStyle::PM_IndicatorWidth) + row->spacing());
    row->addWidget(combo);
    row->addWidget(new QLabel(toQString(unit)), 1);
    form().addRow(row);
    combo->setAccessibleName(toQString(text).remove('&'));
    combo->setEnabled(box->isChecked());
    connect(box, &QCheckBox::toggled, combo, &QWidget::setEnabled);
}

void OptionPage::addColour(const resources::Text& label, store::EntryStatus status) {
    auto* button = new ColourButton(status, toQString(label).remove('&').remove(':'));
    button->setObjectName("colour" + QString::number(static_cast<int>(status)));
    auto* caption = new QLabel(toQString(label));
    caption->setBuddy(button->button());
    if (!isHandheld())
        caption->setMinimumHeight(button->sizeHint().height()); // it stands in the middle of the sample's line
    form().addRow(caption, button);
    auto& place = draft_.display.colours.at(static_cast<std::size_t>(status));
    button->setColour(place);
    stores_.emplace_back([button, &place] { place = button->colour(); });
}

} // namespace hourwright::desktop
