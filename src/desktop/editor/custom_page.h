#pragma once

#include "billing/entry_draft.h"
#include "desktop/workspace.h"

#include <QWidget>
#include <array>

namespace hourwright::desktop {

class CompletingCombo;

/// The page "Custom" of the entry editor: three fields under the user's own captions.
class CustomPage : public QWidget {
    Q_OBJECT

public:
    explicit CustomPage(Workspace& workspace, QWidget* parent = nullptr);

    void show(const billing::EntryDraft& draft);
    void collect(billing::EntryDraft& draft) const;
    void focusField(billing::DraftField field);

signals:
    void changed();
    void saveRequested();

private:
    std::array<CompletingCombo*, 3> fields_{};
};

} // namespace hourwright::desktop
