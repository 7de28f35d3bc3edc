#pragma once

#include "billing/client_choices.h"
#include "billing/entry_preview.h"
#include "desktop/editor/field_widgets.h"
#include "resources/text.h"

#include <QWidget>

class QCheckBox;
class QFormLayout;
class QLabel;

namespace hourwright::desktop {

class CompletingCombo;

/// The page "General" of the entry editor: day, names, duration and start.
class GeneralPage : public QWidget {
    Q_OBJECT

public:
    explicit GeneralPage(Workspace& workspace, QWidget* parent = nullptr);

    void show(const billing::EntryDraft& draft);
    /// Puts what stands in the fields into a draft that holds what they began with.
    void collect(billing::EntryDraft& draft) const;
    void focusField(billing::DraftField field);
    /// Where typing begins: the client when there is none yet, else the task.
    void focusFirst();

    void offerClients(std::span<const std::u16string> clients);
    void offer(const billing::ClientChoices& choices);
    void showPreview(const billing::EntryPreview& preview);

signals:
    void changed();
    /// A client was chosen or its name was typed to the end.
    void clientChosen();
    void projectChanged();
    void timesRequested();
    void saveRequested();

private:
    void addNames(QFormLayout& form);
    void addTimes(QFormLayout& form);
    [[nodiscard]] CompletingCombo* addCombo(QFormLayout& form, const resources::Text& label);
    [[nodiscard]] QWidget* fieldOf(billing::DraftField field) const;

    Workspace& workspace_;
    DayEdit* date_;
    CompletingCombo* client_ = nullptr;
    CompletingCombo* project_ = nullptr;
    CompletingCombo* phase_ = nullptr;
    CompletingCombo* task_ = nullptr;
    CompletingCombo* duration_ = nullptr;
    QCheckBox* hasStart_ = nullptr;
    ClockEdit* start_ = nullptr;
    QLabel* outcome_ = nullptr;
};

} // namespace hourwright::desktop
