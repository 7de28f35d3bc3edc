#include "app/drafts/draft_bytes.h"

#include "platform/packed_bytes.h"

#include <concepts>
#include <limits>
#include <type_traits>

namespace hourwright::app {

namespace {

constexpr std::uint64_t form = 1; // a draft of another form is none

template<typename T>
concept Number = std::integral<T> || std::is_enum_v<T>;

template<typename T>
struct Underlying : std::make_unsigned<T> {};
template<typename T>
requires std::is_enum_v<T>
struct Underlying<T> : std::make_unsigned<std::underlying_type_t<T>> {
};
template<>
struct Underlying<bool> {
    using type = std::uint8_t;
};
// The number as it is packed.
template<typename T>
using Packed = typename Underlying<T>::type;

// The members of what is packed, in their order. Bound by name, a new member is missed by the compiler.
template<typename Archive, typename T>
requires std::same_as<std::remove_const_t<T>, platform::SystemTime>
void members(Archive& archive, T& time) {
    auto& [year, month, dayOfWeek, day, hour, minute, second, milliseconds] = time;
    archive(year, month, dayOfWeek, day, hour, minute, second, milliseconds);
}

template<typename Archive, typename T>
requires std::same_as<std::remove_const_t<T>, platform::FileTime>
void members(Archive& archive, T& time) {
    archive(time.ticks);
}

template<typename Archive, typename T>
requires std::same_as<std::remove_const_t<T>, store::TimeEntry>
void members(Archive& archive, T& entry) {
    auto& [id, date, client, project, phase, task, duration, breakTime, status, currency, rate, rateType, billTo,
           custom1, custom2, custom3, note, paidDate, modified, flags] = entry;
    archive(id, date, client, project, phase, task, duration, breakTime, status, currency, rate, rateType, billTo,
            custom1, custom2, custom3, note, paidDate, modified, flags);
}

template<typename Archive, typename T>
requires std::same_as<std::remove_const_t<T>, billing::NoteDraft>
void members(Archive& archive, T& note) {
    auto& [blob, characters] = note;
    archive(blob, characters);
}

template<typename Archive, typename T>
requires std::same_as<std::remove_const_t<T>, billing::EntryDraft>
void members(Archive& archive, T& draft) {
    auto& [date, start, withoutStart, end, client, project, phase, task, duration, breakTime, status, billTo, rate,
           chosenRate, rateType, currency, custom1, custom2, custom3, paidDate, note] = draft;
    archive(date, start, withoutStart, end, client, project, phase, task, duration, breakTime, status, billTo, rate,
            chosenRate, rateType, currency, custom1, custom2, custom3, paidDate, note);
}

template<typename Archive, typename T>
requires std::same_as<std::remove_const_t<T>, store::ExpenseEntry>
void members(Archive& archive, T& expense) {
    auto& [id, type, date, description, client, project, category, startOdometer, distance, status, currency, amount,
           receipt, paidDate, billTo, custom1, custom2, note, modified, flags] = expense;
    archive(id, type, date, description, client, project, category, startOdometer, distance, status, currency, amount,
            receipt, paidDate, billTo, custom1, custom2, note, modified, flags);
}

template<typename Archive, typename T>
requires std::same_as<std::remove_const_t<T>, billing::ExpenseDraft>
void members(Archive& archive, T& draft) {
    auto& [date, client, project, description, category, startOdometer, distance, amount, currency, status, receipt,
           paidDate, billTo, custom1, custom2, note] = draft;
    archive(date, client, project, description, category, startOdometer, distance, amount, currency, status, receipt,
            paidDate, billTo, custom1, custom2, note);
}

template<typename Archive, typename T>
requires std::same_as<std::remove_const_t<T>, KeptTimer>
void members(Archive& archive, T& timer) {
    auto& [slot, start] = timer;
    archive(slot, start);
}

template<typename Archive, typename T>
requires std::same_as<std::remove_const_t<T>, KeptEntry>
void members(Archive& archive, T& kept) {
    auto& [stored, base, opened, draft, timesTaken, suggestsRates, timer] = kept;
    archive(stored, base, opened, draft, timesTaken, suggestsRates, timer);
}

template<typename Archive, typename T>
requires std::same_as<std::remove_const_t<T>, KeptExpense>
void members(Archive& archive, T& kept) {
    auto& [stored, draft, typedEndOdometer] = kept;
    archive(stored, draft, typedEndOdometer);
}

class Packer {
public:
    template<typename... Values>
    void operator()(const Values&... values) {
        (put(values), ...);
    }
    [[nodiscard]] std::vector<std::byte> take() { return out_.take(); }

private:
    template<Number T>
    void put(const T& value) {
        out_.number(static_cast<Packed<T>>(value));
    }
    void put(const std::u16string& text) {
        out_.number(text.size());
        for (const char16_t unit : text)
            out_.number(unit);
    }
    void put(const std::vector<std::byte>& bytes) {
        out_.number(bytes.size());
        out_.bytes(bytes);
    }
    template<typename T>
    void put(const std::optional<T>& value) {
        put(value.has_value());
        if (value)
            put(*value);
    }
    template<typename T>
    void put(const T& value) {
        members(*this, value);
    }

    platform::PackedWriter out_;
};

class Unpacker {
public:
    explicit Unpacker(std::span<const std::byte> bytes) : in_(bytes) {}

    template<typename... Values>
    void operator()(Values&... values) {
        (get(values), ...);
    }
    [[nodiscard]] bool finished() const { return sound_ && in_.finished(); }

private:
    template<Number T>
    void get(T& value) {
        constexpr std::uint64_t most = std::same_as<T, bool> ? 1 : std::numeric_limits<Packed<T>>::max();
        const std::uint64_t number = in_.number();
        sound_ = sound_ && number <= most;
        value = static_cast<T>(static_cast<Packed<T>>(number));
    }
    // Never larger than what is left.
    [[nodiscard]] std::size_t size() {
        const std::uint64_t size = in_.number();
        sound_ = sound_ && size <= in_.left();
        return sound_ ? size : 0;
    }
    void get(std::u16string& text) {
        text.resize(size());
        for (char16_t& unit : text)
            get(unit);
    }
    void get(std::vector<std::byte>& bytes) { bytes = in_.bytes(size()); }
    template<typename T>
    void get(std::optional<T>& value) {
        bool present = false;
        get(present);
        value.reset();
        if (present && sound_)
            get(value.emplace());
    }
    template<typename T>
    void get(T& value) {
        members(*this, value);
    }

    platform::PackedReader in_;
    bool sound_ = true;
};

template<typename Kept>
std::optional<KeptRecord> unpack(Unpacker& in) {
    Kept kept;
    in(kept);
    return in.finished() ? std::optional<KeptRecord>(std::move(kept)) : std::nullopt;
}

} // namespace

std::vector<std::byte> draftBytes(const KeptRecord& record) {
    Packer out;
    out(form, record.index());
    std::visit([&out](const auto& kept) { out(kept); }, record);
    return out.take();
}

std::optional<KeptRecord> draftFromBytes(std::span<const std::byte> bytes) {
    Unpacker in(bytes);
    std::uint64_t found = 0;
    std::size_t kind = 0;
    in(found, kind);
    if (found != form)
        return std::nullopt;
    switch (kind) {
    case 0: return unpack<KeptEntry>(in);
    case 1: return unpack<KeptExpense>(in);
    default: return std::nullopt;
    }
}

} // namespace hourwright::app
