#include "cli/client_tree_output.h"

#include "cli/display_width.h"
#include "platform/number_text.h"

#include <array>

namespace hourwright::cli {

namespace {

using resources::StringId;

constexpr std::array rateTypeNames{StringId::rateTypeNormal, StringId::rateTypeOvertime, StringId::rateTypeWeekend,
                                   StringId::rateTypeFixed, StringId::rateTypeDiscount};

template<typename Records, typename Text>
void writeTexts(JsonWriter& json, const Records& records, Text text) {
    json.beginArray();
    for (const auto& record : records)
        json.value(std::u16string_view(record.*text));
    json.endArray();
}

void writeProjects(JsonWriter& json, const std::vector<store::ProjectTree>& projects) {
    json.beginArray();
    for (const store::ProjectTree& project : projects) {
        json.beginObject().member("name", std::u16string_view(project.name)).key("tasks");
        writeTexts(json, project.tasks, &store::ProjectRecord::task);
        json.endObject();
    }
    json.endArray();
}

void writeNode(Output& out, std::size_t depth, std::string_view kind, std::u16string_view name) {
    out.writeLine(std::string(2 * depth, ' ') + std::string(kind) + cellText(name));
}

} // namespace

void writeClientTree(JsonWriter& json, const store::ClientTree& tree) {
    json.beginObject().member("id", tree.client.clientId).member("name", std::u16string_view(tree.client.name));
    writeProjects(json.key("projects"), tree.projects);
    writeTexts(json.key("tasks"), tree.tasks, &store::TaskRecord::name);
    writeTexts(json.key("contacts"), tree.contacts, &store::ContactRecord::name);
    writeRates(json.key("rates"), tree.rates);
    json.endObject();
}

void writeClientTree(Output& out, const store::ClientTree& tree) {
    writeNode(out, 0, "", tree.client.name);
    for (const store::ProjectTree& project : tree.projects) {
        writeNode(out, 1, "Project: ", project.name);
        for (const store::ProjectRecord& task : project.tasks)
            writeNode(out, 2, "Task: ", task.task);
    }
    for (const store::TaskRecord& task : tree.tasks)
        writeNode(out, 1, "Task: ", task.name);
    for (const store::ContactRecord& contact : tree.contacts)
        writeNode(out, 1, "Contact: ", contact.name);
    for (const store::RateRecord& rate : tree.rates)
        writeNode(out, 1, rateTypeText(rate.type) + ": " + platform::hundredths(rate.rate) + " ", rate.description);
}

void writeRates(JsonWriter& json, std::span<const store::RateRecord> rates) {
    json.beginArray();
    for (const store::RateRecord& rate : rates)
        json.beginObject()
            .member("id", static_cast<std::uint32_t>(rate.id))
            .member("type", static_cast<std::uint16_t>(rate.type))
            .member("description", std::u16string_view(rate.description))
            .member("rate_hundredths", rate.rate)
            .endObject();
    json.endArray();
}

std::string rateTypeText(store::RateType type) {
    const auto number = static_cast<std::size_t>(type);
    return number < rateTypeNames.size() ? cellText(resources::string(rateTypeNames[number])) : std::to_string(number);
}

} // namespace hourwright::cli
