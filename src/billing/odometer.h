#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace hourwright::billing {

/// The readings of a mileage expense, in distance units: start and distance are kept, the end is always their sum. The
/// end is a reading too, so the sum must not pass 4,294,967,295; a change that breaks this, or an end before the start,
/// is refused and changes nothing.
class Odometer {
public:
    Odometer() = default;
    /// Takes stored values as they are, even when their sum passes the largest reading.
    Odometer(std::uint32_t start, std::uint32_t distance) : start_(start), distance_(distance) {}

    [[nodiscard]] std::uint32_t start() const { return start_; }
    [[nodiscard]] std::uint32_t distance() const { return distance_; }
    [[nodiscard]] std::uint64_t end() const { return std::uint64_t{start_} + distance_; }

    /// Moves the start; the distance stays and the end moves along.
    [[nodiscard]] bool setStart(std::uint32_t start);
    /// Changes the distance; the start stays.
    [[nodiscard]] bool setDistance(std::uint32_t distance);
    /// Changes the end; the start stays and the distance follows.
    [[nodiscard]] bool setEnd(std::uint32_t end);

    friend bool operator==(const Odometer&, const Odometer&) = default;

private:
    std::uint32_t start_ = 0;
    std::uint32_t distance_ = 0;
};

/// The whole number in a typed reading or distance, blanks around it ignored; no text is 0. Nothing for anything else.
[[nodiscard]] std::optional<std::uint32_t> odometerFromText(std::u16string_view text);

} // namespace hourwright::billing
