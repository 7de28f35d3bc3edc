#include "billing/summary_breakdown.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "platform/number_text.h"

#include <map>

namespace hourwright::billing {

namespace {

struct LocaleOrder {
    const platform::Locale* locale;

    bool operator()(const std::u16string& a, const std::u16string& b) const {
        return locale->compareStrictly(a, b) < 0;
    }
};

struct Node {
    explicit Node(const platform::Locale& locale) : children(LocaleOrder{&locale}) {}

    void add(double moreHours, double moreAmount) {
        hours += moreHours;
        amount += moreAmount;
    }
    Node& child(const std::u16string& name) {
        return children.try_emplace(name, *children.key_comp().locale).first->second;
    }

    double hours = 0.0;
    double amount = 0.0;
    std::map<std::u16string, Node, LocaleOrder> children;
};

void addRows(std::vector<BreakdownRow>& rows, const Node& parent, int level) {
    for (const auto& [name, node] : parent.children) {
        rows.push_back({name, level, node.hours, node.amount});
        addRows(rows, node, level + 1);
    }
}

} // namespace

std::optional<Breakdown> breakDown(store::RecordStore& entries, const EntrySelection& selection, const TimeRules& rules,
                                   const platform::Locale& locale) {
    Node root(locale);
    const bool read = forEachSelected(entries, selection, [&](const store::TimeEntry& entry) {
        Node& client = root.child(entry.client);
        Node& project = client.child(entry.project);
        Node& task = project.child(entry.task);
        const double amount = billableAmountOf(entry, rules);
        for (Node* const node : {&root, &client, &project, &task})
            node->add(hoursOf(entry), amount);
    });
    if (!read)
        return std::nullopt;
    Breakdown breakdown{.hours = root.hours, .amount = root.amount, .rows = {}};
    addRows(breakdown.rows, root, 0);
    return breakdown;
}

std::u16string percentText(double part, double whole) {
    std::u16string text;
    platform::appendFixedDecimals(text, whole == 0.0 ? 0.0 : part / whole * 100.0, 1);
    return text + u'%';
}

} // namespace hourwright::billing
