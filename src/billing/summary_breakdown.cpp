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

    void add(double moreHours, const std::u16string& currency, double moreAmount) {
        hours += moreHours;
        if (moreAmount != 0.0)
            amounts[currency] += moreAmount;
    }
    Node& child(const std::u16string& name) {
        return children.try_emplace(name, *children.key_comp().locale).first->second;
    }

    double hours = 0.0;
    Amounts amounts;
    std::map<std::u16string, Node, LocaleOrder> children;
};

void addRows(std::vector<BreakdownRow>& rows, const Node& parent, int level) {
    for (const auto& [name, node] : parent.children) {
        rows.push_back({name, level, node.hours, node.amounts});
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
            node->add(hoursOf(entry), entry.currency, amount);
    });
    if (!read)
        return std::nullopt;
    Breakdown breakdown{.hours = root.hours, .amounts = root.amounts, .rows = {}};
    addRows(breakdown.rows, root, 0);
    return breakdown;
}

double partOf(double part, double whole) {
    return whole == 0.0 ? 0.0 : part / whole;
}

std::optional<double> partOf(const Amounts& part, const Amounts& whole) {
    if (part.size() > 1)
        return std::nullopt;
    if (part.empty())
        return 0.0;
    const auto& [currency, amount] = *part.begin();
    const auto all = whole.find(currency);
    return all == whole.end() ? 0.0 : partOf(amount, all->second);
}

std::u16string percentText(double part) {
    std::u16string text;
    platform::appendFixedDecimals(text, part * 100.0, 1);
    return text + u'%';
}

} // namespace hourwright::billing
