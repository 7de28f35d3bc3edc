#include "platform/icu/icu_code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unicode/ucnv.h>

namespace hourwright::platform {

namespace {

struct ConverterName {
    std::uint32_t number;
    const char* name;
    std::size_t bytesPerUnit;
};

// The vendor's own tables, by names that mean one table each. All take ASCII as it is and have "?" as default
// character; none holds a character beyond the basic plane.
constexpr std::array converters{
    ConverterName{874, "windows-874-2000", 1},    ConverterName{932, "ibm-943_P15A-2003", 2},
    ConverterName{936, "windows-936-2000", 2},    ConverterName{949, "windows-949-2000", 2},
    ConverterName{950, "windows-950-2000", 2},    ConverterName{1250, "ibm-5346_P100-1998", 1},
    ConverterName{1251, "ibm-5347_P100-1998", 1}, ConverterName{1252, "ibm-5348_P100-1997", 1},
    ConverterName{1253, "ibm-5349_P100-1998", 1}, ConverterName{1254, "ibm-5350_P100-1998", 1},
    ConverterName{1255, "ibm-9447_P100-2002", 1}, ConverterName{1256, "ibm-9448_X100-2005", 1},
    ConverterName{1257, "ibm-9449_P100-2002", 1}, ConverterName{1258, "ibm-5354_P100-1998", 1},
};

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

Converter openConverter(const char* name) {
    UErrorCode status = U_ZERO_ERROR;
    Converter converter{ucnv_open(name, &status)};
    if (U_FAILURE(status))
        return nullptr;
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    return converter;
}

/// The bytes of one UTF-16 unit, the first one in the high half when there are two.
using Bytes = std::uint16_t;

constexpr Bytes defaultCharacter = '?';

// The library converts some private-use characters into others' bytes, hence the way back.
Bytes convertUnit(UConverter* converter, char16_t unit) {
    std::array<char, 4> bytes{};
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length = ucnv_fromUChars(converter, bytes.data(), bytes.size(), &unit, 1, &status);
    if (U_FAILURE(status) || length < 1 || length > 2)
        return defaultCharacter;
    std::array<char16_t, 4> back{};
    const std::int32_t backLength = ucnv_toUChars(converter, back.data(), back.size(), bytes.data(), length, &status);
    if (U_FAILURE(status) || backLength != 1 || back[0] != unit)
        return defaultCharacter;
    const auto byte = [&bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    return static_cast<Bytes>(length == 1 ? byte(0) : byte(0) << 8 | byte(1));
}

// Copies the ASCII at the start of a text, sixteen units at a time; returns how many units it took.
std::size_t copyAscii(std::u16string_view text, char* out) {
    constexpr std::size_t step = 16;
    std::size_t done = 0;
    for (; text.size() - done >= step; done += step) {
        unsigned all = 0;
        for (std::size_t i = 0; i < step; ++i)
            all |= text[done + i];
        if (all >= 0x80)
            break;
        for (std::size_t i = 0; i < step; ++i)
            out[done + i] = static_cast<char>(text[done + i]);
    }
    for (; done < text.size() && text[done] < 0x80; ++done)
        out[done] = static_cast<char>(text[done]);
    return done;
}

/// Keeps the bytes of every unit in rows of 256, a row made when a unit of it is first met.
class IcuCodePage final : public CodePage {
public:
    explicit IcuCodePage(const ConverterName& name) : name_(name) {}

    [[nodiscard]] std::uint32_t number() const override { return name_.number; }

    [[nodiscard]] std::string convert(std::u16string_view text) const override {
        std::string bytes(text.size() * name_.bytesPerUnit, '\0');
        char* out = bytes.data();
        while (!text.empty()) {
            const std::size_t ascii = copyAscii(text, out);
            out += ascii;
            text.remove_prefix(ascii);
            for (; !text.empty() && text.front() >= 0x80; text.remove_prefix(1))
                out = put(bytesOf(text.front()), out);
        }
        bytes.resize(static_cast<std::size_t>(out - bytes.data()));
        return bytes;
    }

private:
    using Row = std::array<Bytes, 256>;

    static char* put(Bytes value, char* out) {
        if (value > 0xFF)
            *out++ = static_cast<char>(value >> 8);
        *out++ = static_cast<char>(value & 0xFF);
        return out;
    }

    [[nodiscard]] Bytes bytesOf(char16_t unit) const {
        std::unique_ptr<Row>& row = rows_[unit >> 8];
        if (!row)
            row = makeRow(unit >> 8);
        return (*row)[unit & 0xFF];
    }

    [[nodiscard]] std::unique_ptr<Row> makeRow(unsigned high) const {
        if (!converter_)
            converter_ = openConverter(name_.name);
        auto row = std::make_unique<Row>();
        for (unsigned low = 0; low < row->size(); ++low)
            (*row)[low] =
                converter_ ? convertUnit(converter_.get(), static_cast<char16_t>(high << 8 | low)) : defaultCharacter;
        return row;
    }

    ConverterName name_;
    mutable Converter converter_;
    mutable std::array<std::unique_ptr<Row>, 256> rows_;
};

} // namespace

std::unique_ptr<CodePage> makeIcuCodePage(std::uint32_t number) {
    const auto found = std::ranges::find(converters, number, &ConverterName::number);
    return found != converters.end() ? std::make_unique<IcuCodePage>(*found) : nullptr;
}

} // namespace hourwright::platform
