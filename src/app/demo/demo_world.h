#pragma once

#include "store/entry_types.h"

#include <cstdint>
#include <string>
#include <vector>

namespace hourwright::app::demo {

struct DemoRate {
    store::RateType type = store::RateType::normal;
    std::u16string description;
    std::int32_t hundredths = 0;
};

struct DemoProject {
    std::u16string name;
    std::u16string orderNumber;
    std::vector<std::u16string> tasks;
};

/// A made-up client. It has at least one rate of every type, one project, one task of its own and one contact.
struct DemoClient {
    std::u16string name;
    std::u16string currency;
    std::vector<DemoProject> projects;
    std::vector<std::u16string> tasks;
    std::vector<std::u16string> contacts;
    std::vector<DemoRate> rates;
    std::uint32_t paymentDays = 0; ///< from the end of a month until its work is paid
};

/// Everything that made-up entries and expenses refer to.
struct DemoWorld {
    std::vector<DemoClient> clients;
    std::vector<std::u16string> phases;
    std::vector<std::u16string> currencies;
    std::vector<std::u16string> places;       ///< Custom 1
    std::vector<std::u16string> orderNumbers; ///< Custom 2
    std::vector<std::u16string> consultants;  ///< Custom 3
    std::vector<std::u16string> categories;
    std::vector<std::u16string> descriptions;
};

/// A world for so many entries: more clients the more there are, the same for the same seed.
[[nodiscard]] DemoWorld makeDemoWorld(std::uint64_t entryCount, std::uint64_t seed);

} // namespace hourwright::app::demo
