#pragma once

#include "app/display_settings.h"

#include <QToolButton>
#include <QWidget>

namespace hourwright::desktop {

/// A colour that can be chosen or left to the style: a button that shows it on a sample and opens a palette, and one
/// that gives it back to the style.
class ColourButton : public QWidget {
    Q_OBJECT

public:
    ColourButton(store::EntryStatus status, const QString& name, QWidget* parent = nullptr);

    void setColour(app::StatusColour colour);
    [[nodiscard]] app::StatusColour colour() const { return colour_; }

    /// What its label's mnemonic goes to.
    [[nodiscard]] QWidget* button() const { return pick_; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void pick();
    void refresh();

    store::EntryStatus status_;
    app::StatusColour colour_;
    QToolButton* pick_;
    QToolButton* reset_;
};

} // namespace hourwright::desktop
