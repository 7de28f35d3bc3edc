#pragma once

#include "desktop/dialog.h"
#include "exchange/note_document.h"

class QButtonGroup;
class QHBoxLayout;
class QToolButton;

namespace hourwright::desktop {

class InkPad;

/// The ink pad with its pens: colours, widths, eraser, undo and redo.
class InkDialog : public Dialog {
    Q_OBJECT

public:
    InkDialog(Workspace& workspace, const exchange::InkDrawing& drawing, QWidget* parent);

    /// What was drawn, with its picture.
    [[nodiscard]] exchange::InkDrawing drawing() const;

private:
    void addPens(QHBoxLayout& row);
    void addWidths(QHBoxLayout& row);
    void addSteps(QHBoxLayout& row);
    QToolButton* addButton(QHBoxLayout& row, const QIcon& icon, const QString& name);

    InkPad* pad_;
};

} // namespace hourwright::desktop
