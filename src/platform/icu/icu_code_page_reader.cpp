#include "platform/code_page_reader.h"

#include <algorithm>
#include <array>
#include <unicode/ucnv.h>

namespace hourwright::platform {

namespace {

constexpr char16_t replacement = 0xFFFD;

struct ConverterName {
    std::uint32_t number;
    const char* name;
};

// The vendors' own tables, by names that mean one table each.
constexpr std::array converters{
    ConverterName{437, "ibm-437_P100-1995"}, ConverterName{850, "ibm-850_P100-1995"},
    ConverterName{932, "ibm-943_P15A-2003"}, ConverterName{936, "windows-936-2000"},
    ConverterName{949, "windows-949-2000"},  ConverterName{950, "windows-950-2000"},
    ConverterName{10000, "macos-0_2-10.2"},
};

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

class IcuCodePageReader final : public CodePageReader {
public:
    explicit IcuCodePageReader(Converter converter) : converter_(std::move(converter)) {}

    [[nodiscard]] char16_t character(std::string_view bytes) override {
        std::array<char16_t, 4> units{};
        UErrorCode status = U_ZERO_ERROR;
        const auto count = ucnv_toUChars(converter_.get(), units.data(), static_cast<std::int32_t>(units.size()),
                                         bytes.data(), static_cast<std::int32_t>(bytes.size()), &status);
        return U_SUCCESS(status) && count == 1 ? units[0] : replacement;
    }

private:
    Converter converter_;
};

} // namespace

std::unique_ptr<CodePageReader> makeCodePageReader(std::uint32_t number) {
    const auto found = std::ranges::find(converters, number, &ConverterName::number);
    if (found == converters.end())
        return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    Converter converter{ucnv_open(found->name, &status)};
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    return U_SUCCESS(status) ? std::make_unique<IcuCodePageReader>(std::move(converter)) : nullptr;
}

} // namespace hourwright::platform
