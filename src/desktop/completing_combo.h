#pragma once

#include <QComboBox>
#include <QString>
#include <span>
#include <string>

namespace hourwright::desktop {

/// A text field with proposals: any text may be typed, and what is typed is looked for anywhere in the proposals. Takes
/// 128 UTF-16 units, or as many as the text that it was given has. Enter goes on to the dialog.
class CompletingCombo : public QComboBox {
    Q_OBJECT

public:
    explicit CompletingCombo(QWidget* parent = nullptr);

    /// Replaces the proposals; the text stays. The texts come in the order in which they were learned and are shown
    /// the latest first.
    void setLearned(std::span<const std::u16string> texts);
    /// Replaces the proposals, shown in the order given; the text stays.
    void setChoices(std::span<const std::u16string> texts);

    void setText(const std::u16string& text);
    [[nodiscard]] std::u16string text() const;

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    void setItems(const QStringList& items);
};

} // namespace hourwright::desktop
