#pragma once

#include "billing/rate_choice.h"

#include <QWidget>
#include <span>
#include <vector>

class QCheckBox;
class QLineEdit;
class QTreeWidget;

namespace hourwright::desktop {

/// The tree of a client's rates with the rate beneath it, which may be typed over, and the mark that it is a fixed one.
class RateField : public QWidget {
    Q_OBJECT

public:
    explicit RateField(QWidget* parent = nullptr);

    /// Shows an entry's rate among the rates offered. They are kept.
    void show(const store::TimeEntry& entry, std::span<const store::RateRecord> offered);
    /// Shows the rate of a draft among them.
    void restore(const billing::EntryDraft& draft, std::span<const store::RateRecord> offered);
    /// Goes over to another client's rates.
    void changeRates(std::span<const store::RateRecord> offered);
    /// Begins with the first rate offered when there is none yet.
    void suggest();

    [[nodiscard]] const billing::RateChoice& choice() const { return choice_; }
    [[nodiscard]] QWidget* tree() const;
    void focusRate();

signals:
    void changed();

private:
    void fillTree();
    void showChoice();
    void takeFromTree();

    billing::RateChoice choice_{store::TimeEntry{}};
    std::vector<store::RateRecord> offered_;
    QTreeWidget* tree_;
    QLineEdit* rate_;
    QCheckBox* fixed_;
};

} // namespace hourwright::desktop
