#include "desktop/editor/custom_page.h"

#include "desktop/completing_combo.h"
#include "desktop/dialog.h"
#include "desktop/editor/field_widgets.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/editor.h"
#include "store/pick_lists.h"

#include <QFormLayout>
#include <QLabel>
#include <QShortcut>

namespace hourwright::desktop {

namespace {

using billing::DraftField;
using billing::EntryDraft;
using platform::toQString;
namespace texts = resources::editor;

struct CustomField {
    resources::Text name;
    app::Caption app::AppSettings::*caption;
    store::PickList list;
    std::optional<std::u16string> EntryDraft::*text;
    DraftField field;
};

constexpr std::array customFields = {
    CustomField{texts::custom1, &app::AppSettings::custom1Label, store::PickList::custom1, &EntryDraft::custom1,
                DraftField::custom1},
    CustomField{texts::custom2, &app::AppSettings::custom2Label, store::PickList::custom2, &EntryDraft::custom2,
                DraftField::custom2},
    CustomField{texts::custom3, &app::AppSettings::custom3Label, store::PickList::custom3, &EntryDraft::custom3,
                DraftField::custom3},
};

QString captionOf(Workspace& workspace, const CustomField& field) {
    const QString caption = toQString((workspace.settings().*field.caption).text());
    return (caption.isEmpty() ? toQString(field.name) : caption) + ':';
}

} // namespace

CustomPage::CustomPage(Workspace& workspace, QWidget* parent) : QWidget(parent) {
    QFormLayout& form = *Dialog::makeForm(this);
    for (std::size_t i = 0; i < customFields.size(); ++i) {
        const CustomField& field = customFields[i];
        auto* combo = new CompletingCombo;
        combo->setLearned(store::pickListTexts(workspace.stores(), field.list));
        combo->setAccessibleName(captionOf(workspace, field));
        form.addRow(new QLabel(captionOf(workspace, field).replace('&', "&&")), combo);
        // The user's captions have no letters of their own, so the fields go by their numbers.
        auto* shortcut = new QShortcut(QKeySequence(QString("Alt+%1").arg(i + 1)), this);
        connect(shortcut, &QShortcut::activated, combo, [combo] { combo->setFocus(Qt::ShortcutFocusReason); });
        connect(combo, &QComboBox::editTextChanged, this, &CustomPage::changed);
        saveOnEnter(*combo, [this] { emit saveRequested(); });
        fields_[i] = combo;
    }
}

void CustomPage::show(const EntryDraft& draft) {
    for (std::size_t i = 0; i < fields_.size(); ++i)
        fields_[i]->setText((draft.*customFields[i].text).value_or(u""));
}

void CustomPage::collect(EntryDraft& draft) const {
    for (std::size_t i = 0; i < fields_.size(); ++i)
        draft.*customFields[i].text = fields_[i]->text();
}

void CustomPage::focusField(DraftField field) {
    for (std::size_t i = 0; i < fields_.size(); ++i)
        if (customFields[i].field == field)
            fields_[i]->setFocus(Qt::OtherFocusReason);
}

} // namespace hourwright::desktop
