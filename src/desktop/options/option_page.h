#pragma once

#include "app/options_draft.h"
#include "resources/text.h"

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;

namespace hourwright::desktop {

/// One page of the options: groups of controls, each bound to a field of the draft that it shows and writes.
class OptionPage : public QWidget {
    Q_OBJECT

public:
    /// The page borrows the draft.
    OptionPage(app::OptionsDraft& draft, const resources::Text& title);

    [[nodiscard]] QString title() const { return title_; }
    /// Writes back what differs from what was shown; a stored number that a list cannot show stays unless another one
    /// is chosen.
    void store();

    /// Begins a group with a heading; the controls that follow stand in it.
    void addGroup(const resources::Text& heading);
    QComboBox* addList(const resources::Text& label, app::OptionList list);
    QCheckBox* addFlag(const resources::Text& text, app::OptionFlag flag);
    /// A text of at most as many UTF-16 units as its field holds.
    template<typename Fixed>
    QLineEdit* addText(const resources::Text& label, Fixed app::AppSettings::*text);
    /// A check box and, in the same line, the list that it switches on, followed by a unit.
    void addFlagWithList(const resources::Text& text, app::OptionFlag flag, app::OptionList list,
                         const resources::Text& unit);
    void addColour(const resources::Text& label, store::EntryStatus status);

private:
    [[nodiscard]] QFormLayout& form();
    QComboBox* makeList(app::OptionList list);
    QCheckBox* makeFlag(const resources::Text& text, app::OptionFlag flag);
    QLineEdit* addTextOf(const resources::Text& label, std::u16string text, int capacity,
                         std::function<void(const std::u16string&)> store);

    app::OptionsDraft& draft_;
    QString title_;
    QBoxLayout* layout_;
    QFormLayout* form_ = nullptr;
    std::vector<std::function<void()>> stores_;
};

template<typename Fixed>
QLineEdit* OptionPage::addText(const resources::Text& label, Fixed app::AppSettings::*text) {
    return addTextOf(label, (draft_.settings.*text).text(), static_cast<int>(Fixed::capacity) - 1,
                     [this, text](const std::u16string& typed) {
                         static_cast<void>((draft_.settings.*text).assign(typed)); // the field's length sees to it
                     });
}

} // namespace hourwright::desktop
