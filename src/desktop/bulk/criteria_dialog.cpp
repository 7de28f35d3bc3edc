#include "desktop/bulk/criteria_dialog.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/bulk.h"
#include "resources/texts/filters.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>

namespace hourwright::desktop {

namespace texts = resources::bulk;
using app::EntryFilter;
using platform::toQString;
using store::EntryStatus;

namespace {

struct StatusBox {
    EntryStatus status;
    resources::Text text;
};
constexpr std::array<StatusBox, 4> statusBoxes{{{EntryStatus::billable, texts::unpaid},
                                                {EntryStatus::billed, texts::billed},
                                                {EntryStatus::paid, texts::paid},
                                                {EntryStatus::nonBillable, texts::nonBillable}}};

} // namespace

CriteriaDialog::CriteriaDialog(Workspace& workspace, app::BulkKind kind, QWidget* parent)
    : Dialog(workspace, toQString(texts::criteriaTitle), kind == app::BulkKind::remove ? "deldata" : "bulk",
             parent),
      criteria_(app::newCriteria(workspace.view().period(), kind)), choices_(workspace.stores(), workspace.locale()) {
    auto* form = addForm();
    days_.emplace(workspace, *form, texts::start, texts::end);
    days_->setDays(criteria_.rangeStart, criteria_.rangeEnd);
    addTexts(*form);
    addStatuses();
}

void CriteriaDialog::addTexts(QFormLayout& form) {
    namespace labels = resources::filters;
    const auto add = [&](const resources::Text& label, const char* name, std::u16string EntryFilter::*text) {
        auto* combo = new AnyCombo;
        combo->setObjectName(name);
        form.addRow(toQString(label), combo);
        return Field{combo, text};
    };
    fields_ = {add(labels::client, "client", &EntryFilter::client),
               add(labels::project, "project", &EntryFilter::project), add(labels::phase, "phase", &EntryFilter::phase),
               add(labels::task, "task", &EntryFilter::task), add(labels::billTo, "billTo", &EntryFilter::billTo)};
    fields_[0].combo->offer(choices_.clients());
    fields_[2].combo->offer(choices_.list(store::PickList::phases));
    narrow();
    for (const std::size_t parent : {0U, 1U})
        connect(fields_[parent].combo, &QComboBox::currentTextChanged, this, [this] { narrow(); });
}

void CriteriaDialog::narrow() {
    const std::u16string client = fields_[0].combo->text();
    fields_[1].combo->offer(choices_.projects(client));
    fields_[3].combo->offer(choices_.tasks(client, fields_[1].combo->text()));
    fields_[4].combo->offer(choices_.contacts(client));
}

void CriteriaDialog::addStatuses() {
    auto* grid = new QGridLayout;
    for (std::size_t i = 0; i < statusBoxes.size(); ++i) {
        statuses_[i] = new QCheckBox(toQString(statusBoxes[i].text));
        statuses_[i]->setObjectName("status" + QString::number(static_cast<int>(statusBoxes[i].status)));
        statuses_[i]->setChecked(criteria_.shows(statusBoxes[i].status));
        grid->addWidget(statuses_[i], static_cast<int>(i) / 2, static_cast<int>(i) % 2);
    }
    content()->addLayout(grid);
}

void CriteriaDialog::accept() {
    if (!days_->check())
        return;
    criteria_.rangeStart = days_->firstDay();
    criteria_.rangeEnd = days_->lastDay();
    for (const Field& field : fields_)
        criteria_.*field.text = field.combo->text();
    for (std::size_t i = 0; i < statusBoxes.size(); ++i)
        criteria_.show(statusBoxes[i].status, statuses_[i]->isChecked());
    QDialog::accept();
}

} // namespace hourwright::desktop
