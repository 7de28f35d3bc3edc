#pragma once

#include "platform/utf.h"
#include "store/client_structure.h"
#include "support/store_fixture.h"

#include <string>
#include <vector>

namespace hourwright::test {

/// A store whose client structure is filled and read in short words.
class StructureFixture : public StoreFixture {
protected:
    std::uint32_t makeClient(std::u16string_view name) {
        std::uint32_t clientId = 0;
        change([&](auto& transaction) { clientId = store::addClient(transaction, stores(), name); });
        EXPECT_NE(clientId, 0U);
        return clientId;
    }
    void makeProject(std::uint32_t clientId, std::u16string_view project, std::u16string_view task) {
        change([&](auto& transaction) {
            EXPECT_TRUE(store::addProjectTask(transaction, stores(), clientId, project, task));
        });
    }
    void makeTask(std::uint32_t clientId, std::u16string_view name) {
        change([&](auto& transaction) { EXPECT_TRUE(store::addTask(transaction, stores(), clientId, name)); });
    }
    void makeContact(std::uint32_t clientId, std::u16string_view name) {
        change([&](auto& transaction) { EXPECT_TRUE(store::addContact(transaction, stores(), clientId, name)); });
    }
    store::RateRecord makeRate(std::uint32_t owner, std::u16string description, std::int32_t hundredths = 4550) {
        store::RateRecord rate{.clientId = owner, .description = std::move(description), .rate = hundredths};
        change([&](auto& transaction) { EXPECT_TRUE(store::writeRate(transaction, stores(), rate)); });
        return rate;
    }

    /// A client with something of everything below it.
    std::uint32_t makeFullClient(std::u16string_view name) {
        std::uint32_t clientId = 0;
        change([&](auto& transaction) {
            clientId = store::addClient(transaction, stores(), name);
            EXPECT_TRUE(store::addProjectTask(transaction, stores(), clientId, u"Bridge", u"Survey"));
            EXPECT_TRUE(store::addProjectTask(transaction, stores(), clientId, u"Bridge", u"Design"));
            EXPECT_TRUE(store::addProjectTask(transaction, stores(), clientId, u"Tunnel", u"Survey"));
            EXPECT_TRUE(store::addTask(transaction, stores(), clientId, u"Travel"));
            EXPECT_TRUE(store::addTask(transaction, stores(), clientId, u"Office"));
            EXPECT_TRUE(store::addContact(transaction, stores(), clientId, u"Ms Lind"));
            store::RateRecord rate{.clientId = clientId, .description = u"Standard", .rate = 4550};
            EXPECT_TRUE(store::writeRate(transaction, stores(), rate));
        });
        return clientId;
    }

    template<typename Record>
    std::vector<Record> all(std::uint32_t clientId) {
        auto records = store::recordsOf<Record>(stores(), clientId);
        EXPECT_TRUE(records);
        return std::move(records).value_or(std::vector<Record>{});
    }

    /// Everything that a client has, one line each, to compare at one glance.
    std::vector<std::string> linesOf(std::uint32_t clientId) {
        std::vector<std::string> lines;
        const auto add = [&](std::string_view kind, std::u16string_view name) {
            lines.push_back(std::string(kind) + " " + platform::printableUtf8(name));
        };
        for (const auto& record : all<store::ProjectRecord>(clientId))
            add("project", record.project + u"/" + record.task);
        for (const auto& record : all<store::TaskRecord>(clientId))
            add("task", record.name);
        for (const auto& record : all<store::ContactRecord>(clientId))
            add("contact", record.name);
        for (const auto& record : all<store::RateRecord>(clientId))
            add("rate", record.description);
        return lines;
    }
};

} // namespace hourwright::test
