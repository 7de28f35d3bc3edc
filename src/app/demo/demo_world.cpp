#include "app/demo/demo_world.h"

#include "app/demo/demo_texts.h"
#include "app/demo/random.h"
#include "platform/number_text.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

namespace hourwright::app::demo {
namespace {

using store::RateType;
using Texts = std::vector<std::u16string>;

// Eight clients at first, three more whenever the entries double.
std::size_t clientCount(std::uint64_t entryCount) {
    const auto doublings = static_cast<std::size_t>(std::bit_width(entryCount / 1000));
    return std::min<std::size_t>(8 + 3 * doublings, texts::clients.size());
}

// So many of the texts, all different, in random order.
template<typename Pool>
Texts choose(Random& random, const Pool& pool, std::size_t count) {
    Texts chosen(pool.begin(), pool.end());
    count = std::min(count, chosen.size());
    for (std::size_t i = 0; i < count; ++i)
        std::swap(chosen[i], chosen[i + random.below(static_cast<std::uint32_t>(chosen.size() - i))]);
    chosen.resize(count);
    return chosen;
}

std::u16string fullName(Random& random) {
    std::u16string name(random.pick(texts::firstNames));
    return name.append(u" ").append(random.pick(texts::lastNames));
}

Texts differentNames(Random& random, std::size_t count) {
    Texts names;
    while (names.size() < count)
        if (auto name = fullName(random); std::ranges::find(names, name) == names.end())
            names.push_back(std::move(name));
    return names;
}

std::u16string pickCurrency(Random& random) {
    std::uint32_t total = 0;
    for (const auto& currency : texts::currencies)
        total += currency.weight;
    std::uint32_t at = random.below(total);
    for (const auto& currency : texts::currencies) {
        if (at < currency.weight)
            return std::u16string(currency.text);
        at -= currency.weight;
    }
    return {};
}

std::vector<DemoProject> makeProjects(Random& random, std::uint32_t clientNumber) {
    std::vector<DemoProject> projects;
    for (auto& name : choose(random, texts::projects, random.between(2, 5))) {
        auto& project = projects.emplace_back();
        project.name = std::move(name);
        project.orderNumber = u"PO-";
        platform::appendInteger(project.orderNumber,
                                1000 + clientNumber * 10 + static_cast<std::int64_t>(projects.size()));
        project.tasks = choose(random, texts::tasks, random.between(3, 6));
    }
    return projects;
}

std::vector<DemoRate> makeRates(Random& random) {
    const auto hourly = static_cast<std::int32_t>(random.between(9, 32)) * 500;
    const auto day = static_cast<std::int32_t>(random.between(6, 20)) * 10000;
    return {{RateType::normal, u"Standard", hourly},
            {RateType::normal, u"Senior", hourly + 2550},
            {RateType::overtime, u"After hours", hourly * 3 / 2},
            {RateType::weekend, u"Weekend", hourly * 2},
            {RateType::fixed, u"Workshop day", day},
            {RateType::discount, u"Retainer", hourly * 85 / 100}};
}

DemoClient makeClient(Random& random, std::uint32_t number) {
    DemoClient client;
    client.name = texts::clients[number];
    client.currency = pickCurrency(random);
    client.projects = makeProjects(random, number);
    client.tasks = choose(random, texts::clientTasks, random.between(1, 3));
    client.contacts = differentNames(random, random.between(1, 4));
    client.rates = makeRates(random);
    client.paymentDays = random.between(5, 75);
    return client;
}

void addNew(Texts& list, std::u16string_view text) {
    if (std::ranges::find(list, text) == list.end())
        list.emplace_back(text);
}

void collectTexts(DemoWorld& world) {
    for (const auto& client : world.clients) {
        addNew(world.currencies, client.currency);
        for (const auto& project : client.projects)
            world.orderNumbers.push_back(project.orderNumber);
    }
    for (const auto& expense : texts::expenses) {
        addNew(world.categories, expense.category);
        addNew(world.descriptions, expense.description);
    }
    for (const auto drive : texts::drives)
        addNew(world.descriptions, drive);
}

} // namespace

DemoWorld makeDemoWorld(std::uint64_t entryCount, std::uint64_t seed) {
    Random random(seed);
    DemoWorld world;
    for (std::uint32_t i = 0; i < clientCount(entryCount); ++i)
        world.clients.push_back(makeClient(random, i));
    world.phases.assign(texts::phases.begin(), texts::phases.end());
    world.places.assign(texts::places.begin(), texts::places.end());
    world.consultants = differentNames(random, 12);
    collectTexts(world);
    return world;
}

} // namespace hourwright::app::demo
