#include "app/filter_choices.h"

#include "billing/client_choices.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace hourwright::app {

namespace {

using store::PickList;

constexpr std::array offeredLists{PickList::phases,  PickList::currencies, PickList::custom1,
                                  PickList::custom2, PickList::custom3,    PickList::categories};

void append(Texts& texts, Texts more) {
    texts.insert(texts.end(), std::move_iterator(more.begin()), std::move_iterator(more.end()));
}

} // namespace

FilterChoices::FilterChoices(store::Stores& stores, const platform::Locale& userLocale)
    : locale_(userLocale), trees_(store::clientTrees(stores).value_or(std::vector<store::ClientTree>{})) {
    for (const PickList list : offeredLists)
        lists_.emplace_back(list, sorted(store::pickListTexts(stores, list)));
}

Texts FilterChoices::sorted(Texts texts) const {
    std::erase_if(texts, [](const auto& text) { return text.empty(); });
    std::ranges::sort(texts, [this](const auto& a, const auto& b) { return locale_.compareStrictly(a, b) < 0; });
    texts.erase(std::unique(texts.begin(), texts.end()), texts.end());
    return texts;
}

template<typename Pick>
Texts FilterChoices::collect(std::u16string_view client, Pick pick) const {
    Texts texts;
    for (const store::ClientTree& tree : trees_)
        if (client.empty() || tree.client.name == client)
            append(texts, pick(tree));
    return sorted(std::move(texts));
}

Texts FilterChoices::clients() const {
    return collect({}, [](const auto& tree) { return Texts{tree.client.name}; });
}

Texts FilterChoices::projects(std::u16string_view client) const {
    return collect(client, [](const auto& tree) { return billing::choicesOf(&tree, {}).projects; });
}

// Without a client every task that the client, or one of its projects, has may be meant.
Texts FilterChoices::tasks(std::u16string_view client, std::u16string_view project) const {
    return collect(client, [&](const store::ClientTree& tree) {
        Texts tasks = billing::choicesOf(&tree, project).tasks;
        if (project.empty())
            for (const store::ProjectTree& each : tree.projects)
                append(tasks, billing::choicesOf(&tree, each.name).tasks);
        return tasks;
    });
}

Texts FilterChoices::contacts(std::u16string_view client) const {
    return collect(client, [](const auto& tree) { return billing::choicesOf(&tree, {}).contacts; });
}

const Texts& FilterChoices::list(PickList list) const {
    static const Texts none;
    const auto found = std::ranges::find(lists_, list, [](const auto& row) { return row.first; });
    return found == lists_.end() ? none : found->second;
}

} // namespace hourwright::app
