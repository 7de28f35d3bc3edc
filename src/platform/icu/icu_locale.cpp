#include "platform/icu/icu_locale.h"

#include "platform/icu/icu_code_page.h"
#include "platform/icu/icu_date_text.h"
#include "platform/icu/icu_number_text.h"
#include "platform/icu/language_code_page.h"
#include "platform/icu/locale_parts.h"

#include <cassert>
#include <new>
#include <optional>
#include <unicode/coll.h>
#include <unicode/uchar.h>
#include <unicode/ures.h>

namespace hourwright::platform {

namespace {

std::string icuName(const LocaleParts& parts) {
    std::string name = parts.language;
    if (!parts.script.empty())
        name += '_' + parts.script;
    if (!parts.territory.empty())
        name += '_' + parts.territory;
    return name;
}

// For a language that it has nothing about, the library would take the locale of the process: neutral rules instead.
std::string nameWithData(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    ures_close(ures_open(nullptr, name.c_str(), &status));
    return U_FAILURE(status) || status == U_USING_DEFAULT_WARNING ? "und" : name;
}

std::unique_ptr<icu::Collator> makeCollator(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator{icu::Collator::createInstance(icu::Locale(name.c_str()), status)};
    if (U_FAILURE(status) || !collator)
        throw std::bad_alloc{};
    collator->setStrength(icu::Collator::TERTIARY);
    collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    return collator;
}

std::int32_t length(std::u16string_view text) {
    assert(text.size() <= INT32_MAX);
    return static_cast<std::int32_t>(text.size());
}

class IcuLocale final : public Locale {
public:
    IcuLocale(std::string_view name, const LocaleParts& parts)
        : name_(name), icuName_(icuName(parts)), codePage_(makeIcuCodePage(ansiCodePageOf(parts))) {}

    [[nodiscard]] std::string name() const override { return name_; }

    [[nodiscard]] std::u16string shortDate(const SystemTime& date) const override { return dates().shortDate(date); }

    [[nodiscard]] std::u16string timeWithoutSeconds(const SystemTime& time) const override {
        return dates().timeWithoutSeconds(time);
    }

    [[nodiscard]] std::u16string number(std::u16string_view plain) const override {
        if (!numbers_)
            numbers_.emplace(nameWithData(icuName_));
        return numbers_->format(plain);
    }

    [[nodiscard]] std::weak_ordering compare(std::u16string_view a, std::u16string_view b) const override {
        if (a == b)
            return std::weak_ordering::equivalent;
        UErrorCode status = U_ZERO_ERROR;
        return collator().compare(a.data(), length(a), b.data(), length(b), status) <=> 0;
    }

    [[nodiscard]] std::strong_ordering compareStrictly(std::u16string_view a, std::u16string_view b) const override {
        const std::weak_ordering order = compare(a, b);
        if (order == std::weak_ordering::equivalent)
            return a <=> b;
        return order < 0 ? std::strong_ordering::less : std::strong_ordering::greater;
    }

    [[nodiscard]] std::string collationKey(std::u16string_view text) const override {
        std::string key(text.size() * 4 + 16, '\0');
        std::int32_t size = writeKey(text, key);
        if (static_cast<std::size_t>(size) > key.size()) {
            key.resize(static_cast<std::size_t>(size));
            size = writeKey(text, key);
        }
        // The key ends with a zero byte, which a string needs not.
        key.resize(static_cast<std::size_t>(size > 0 ? size - 1 : 0));
        return key;
    }

    [[nodiscard]] const CodePage& ansiCodePage() const override { return *codePage_; }

private:
    [[nodiscard]] IcuDateText& dates() const {
        if (!dates_)
            dates_.emplace(nameWithData(icuName_));
        return *dates_;
    }

    [[nodiscard]] const icu::Collator& collator() const {
        if (!collator_)
            collator_ = makeCollator(icuName_);
        return *collator_;
    }

    std::int32_t writeKey(std::u16string_view text, std::string& key) const {
        return collator().getSortKey(text.data(), length(text), reinterpret_cast<std::uint8_t*>(key.data()),
                                     static_cast<std::int32_t>(key.size()));
    }

    std::string name_;
    std::string icuName_;
    std::unique_ptr<CodePage> codePage_;
    mutable std::optional<IcuDateText> dates_;
    mutable std::optional<IcuNumberText> numbers_;
    mutable std::unique_ptr<icu::Collator> collator_;
};

} // namespace

std::unique_ptr<Locale> makeIcuLocale(std::string_view name) {
    const std::optional<LocaleParts> parts = parseLocaleName(name);
    return parts ? std::make_unique<IcuLocale>(name, *parts) : nullptr;
}

bool isAlphabetic(char32_t codePoint) {
    return u_isUAlphabetic(static_cast<UChar32>(codePoint)) != 0;
}

} // namespace hourwright::platform
