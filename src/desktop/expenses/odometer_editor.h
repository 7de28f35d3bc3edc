#pragma once

#include "billing/odometer_texts.h"

#include <QWidget>
#include <array>
#include <optional>

class QLineEdit;
class QFormLayout;

namespace hourwright::desktop {

/// Start, end and distance of a mileage expense: three fields in a form, each of which follows what is typed into the
/// others.
class OdometerEditor : public QObject {
    Q_OBJECT

public:
    /// Adds its rows to the form, which owns the fields.
    explicit OdometerEditor(QFormLayout& form, QObject* parent);

    void show(const std::u16string& start, const std::u16string& distance);
    /// The same with an end that was typed, if one was.
    void restore(const std::u16string& start, const std::u16string& distance,
                 const std::optional<std::u16string>& typedEnd);
    [[nodiscard]] std::optional<std::u16string> typedEnd() const { return texts_.typedEnd(); }
    [[nodiscard]] const std::u16string& text(billing::OdometerField field) const { return texts_.text(field); }
    [[nodiscard]] std::optional<billing::FieldRefusal<billing::OdometerField>> checkEnd() const {
        return texts_.checkEnd();
    }
    [[nodiscard]] QLineEdit* field(billing::OdometerField field) const {
        return fields_[static_cast<std::size_t>(field)];
    }

signals:
    void edited();

private:
    void type(billing::OdometerField field, const QString& text);
    void showOthers(std::optional<billing::OdometerField> typed);

    billing::OdometerTexts texts_;
    std::array<QLineEdit*, 3> fields_{};
};

} // namespace hourwright::desktop
