#pragma once

#include "platform/locale.h"

#include <compare>
#include <string>
#include <vector>

namespace hourwright::app {

/// Texts that a record must have, in the order of testing. Texts are the same when the locale compares them as equal,
/// with regard to case. It borrows the locale.
template<typename Record>
class TextConditions {
public:
    /// Takes those texts of a filter that are not empty.
    template<typename Filter, typename Texts>
    TextConditions(const Filter& filter, const Texts& table, const platform::Locale& locale) : locale_(&locale) {
        for (const auto& row : table)
            if (!(filter.*row.wanted).empty())
                conditions_.push_back({filter.*row.wanted, row.text});
    }

    [[nodiscard]] bool hold(const Record& record) const {
        for (const Condition& condition : conditions_)
            if (!isSame(condition.wanted, record.*condition.text))
                return false;
        return true;
    }

private:
    struct Condition {
        std::u16string wanted;
        std::u16string Record::*text;
    };

    // Identical texts are the same in every locale.
    [[nodiscard]] bool isSame(const std::u16string& wanted, const std::u16string& text) const {
        return wanted == text || std::is_eq(locale_->compare(wanted, text));
    }

    const platform::Locale* locale_;
    std::vector<Condition> conditions_;
};

} // namespace hourwright::app
