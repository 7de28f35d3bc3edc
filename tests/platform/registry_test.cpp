#include "platform/registry.h"

#include "platform/sqlite/sqlite_registry.h"
#include "support/memory_registry.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

namespace hourwright::platform {

namespace {

std::vector<std::byte> bytes(std::initializer_list<int> list) {
    std::vector<std::byte> data;
    for (const int value : list)
        data.push_back(static_cast<std::byte>(value));
    return data;
}

RegistryValue value(std::u16string name, RegistryType type, std::initializer_list<int> data) {
    return {.name = std::move(name), .type = type, .data = bytes(data)};
}

std::vector<std::u16string> names(const RegistryKey& key) {
    std::vector<std::u16string> result;
    for (const RegistryValue& one : key.values())
        result.push_back(one.name);
    return result;
}

// What every registry does: the one in a file and the one that the tests of higher floors use.
class RegistryContract : public testing::TestWithParam<bool> {
protected:
    RegistryContract() {
        if (GetParam())
            registry_ = openSqliteRegistry(directory_ / "settings.db");
        else
            registry_ = std::make_unique<test::MemoryRegistry>();
    }

    test::TemporaryDirectory directory_;
    std::unique_ptr<Registry> registry_;
};

INSTANTIATE_TEST_SUITE_P(Each, RegistryContract, testing::Bool(),
                         [](const auto& suite) { return suite.param ? "InFile" : "InMemory"; });

TEST_P(RegistryContract, ReadsOnlyWhatHasTheRightTypeAndSize) {
    const auto key = registry_->create(u"K");
    ASSERT_TRUE(key);
    struct Case {
        const char* what;
        RegistryType type;
        std::vector<std::byte> data;
        std::optional<std::uint32_t> dword;
        std::optional<std::u16string> string; // of up to 3 units
        bool binary;                          // of 4 bytes
    };
    const Case cases[] = {
        {"number", RegistryType::dword, bytes({0x78, 0x56, 0x34, 0x12}), 0x12345678U, {}, false},
        {"highest number", RegistryType::dword, bytes({255, 255, 255, 255}), 0xFFFFFFFFU, {}, false},
        {"short number", RegistryType::dword, bytes({1, 0, 0}), {}, {}, false},
        {"long number", RegistryType::dword, bytes({1, 0, 0, 0, 0}), {}, {}, false},
        {"text", RegistryType::string, bytes({'a', 0, 0xAC, 0x20, 0, 0}), {}, u"a\u20AC", false},
        {"padded text", RegistryType::string, bytes({'a', 0, 0, 0, 'x', 0}), {}, u"a", false},
        {"text without terminator", RegistryType::string, bytes({'a', 0, 'b', 0, 'c', 0}), {}, u"abc", false},
        {"text cut in a unit", RegistryType::string, bytes({'a', 0, 'b'}), {}, u"a", false},
        {"text one unit too long", RegistryType::string, bytes({'a', 0, 0, 0, 0, 0, 0, 0}), {}, {}, false},
        {"empty text", RegistryType::string, {}, {}, u"", false},
        {"block", RegistryType::binary, bytes({1, 0, 0, 0}), {}, {}, true},
        {"short block", RegistryType::binary, bytes({1, 0, 0}), {}, {}, false},
        {"long block", RegistryType::binary, bytes({1, 0, 0, 0, 0}), {}, {}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_TRUE(key->set({.name = u"V", .type = c.type, .data = c.data}));
        const auto stored = key->query(u"V");
        ASSERT_TRUE(stored);
        EXPECT_EQ(stored->type, c.type);
        EXPECT_EQ(stored->data, c.data);
        EXPECT_EQ(key->readDword(u"V"), c.dword);
        EXPECT_EQ(key->readString(u"V", 3), c.string);
        EXPECT_EQ(key->readBinary(u"V", 4).has_value(), c.binary);
    }
    EXPECT_FALSE(key->query(u"W"));
}

TEST_P(RegistryContract, WritesTypedValuesByteForByte) {
    const auto key = registry_->create(u"K");
    ASSERT_TRUE(key->writeDword(u"Number", 0xFEDCBA98));
    ASSERT_TRUE(key->writeString(u"Text", u"h\u00E9"));
    ASSERT_TRUE(key->writeString(u"Padded", u"ab", 4));
    ASSERT_TRUE(key->writeString(u"Full", u"abc", 4));
    ASSERT_TRUE(key->writeString(u"Cut", u"abcd", 4));
    ASSERT_TRUE(key->writeString(u"Nothing", u""));
    ASSERT_TRUE(key->writeBinary(u"Block", bytes({0, 1, 0})));
    ASSERT_TRUE(key->writeBinary(u"NoBlock", {}));
    const std::vector<RegistryValue> expected = {
        value(u"Number", RegistryType::dword, {0x98, 0xBA, 0xDC, 0xFE}),
        value(u"Text", RegistryType::string, {'h', 0, 0xE9, 0, 0, 0}),
        value(u"Padded", RegistryType::string, {'a', 0, 'b', 0, 0, 0, 0, 0}),
        value(u"Full", RegistryType::string, {'a', 0, 'b', 0, 'c', 0, 0, 0}),
        value(u"Cut", RegistryType::string, {'a', 0, 'b', 0, 'c', 0, 0, 0}),
        value(u"Nothing", RegistryType::string, {0, 0}),
        value(u"Block", RegistryType::binary, {0, 1, 0}),
        value(u"NoBlock", RegistryType::binary, {}),
    };
    EXPECT_EQ(key->values(), expected);
}

TEST_P(RegistryContract, FindsNamesInAnyAsciiCaseAndKeepsTheirFirstPlaceAndSpelling) {
    const auto key = registry_->create(u"K");
    key->writeDword(u"View", 1);
    key->writeDword(u"\u00C4rger", 2);
    key->writeDword(u"Sort", 3);
    key->writeDword(u"VIEW", 4);
    EXPECT_EQ(names(*key), (std::vector<std::u16string>{u"View", u"\u00C4rger", u"Sort"}));
    EXPECT_EQ(key->readDword(u"vIEW"), 4U);
    EXPECT_FALSE(key->query(u"\u00E4rger"));

    EXPECT_TRUE(key->remove(u"vieW"));
    EXPECT_TRUE(key->remove(u"vieW"));
    EXPECT_FALSE(key->query(u"View"));
    key->writeDword(u"View", 5);
    EXPECT_EQ(names(*key), (std::vector<std::u16string>{u"\u00C4rger", u"Sort", u"View"}));
}

TEST_P(RegistryContract, KeysExistWithoutValuesAndAreRemovedWithWhatIsBelow) {
    EXPECT_FALSE(registry_->open(settingsKey));
    EXPECT_TRUE(registry_->removeKey(settingsKey));
    ASSERT_TRUE(registry_->create(settingsKey));
    EXPECT_TRUE(registry_->open(u"Software"));
    const auto empty = registry_->open(u"software\\HOURWRIGHT");
    ASSERT_TRUE(empty);
    EXPECT_TRUE(empty->values().empty());

    for (const auto* path : {u"Software\\Hourwright\\Deep\\Deeper", u"Software\\Hourwright2", u"Software\\Hour"})
        registry_->create(path)->writeDword(u"V", 7);
    EXPECT_TRUE(registry_->removeKey(u"Software\\hourwright"));
    EXPECT_FALSE(registry_->open(settingsKey));
    EXPECT_FALSE(registry_->open(u"Software\\Hourwright\\Deep\\Deeper"));
    ASSERT_TRUE(registry_->open(u"Software\\Hourwright2"));
    EXPECT_EQ(registry_->open(u"Software\\Hourwright2")->readDword(u"V"), 7U);
    EXPECT_EQ(registry_->open(u"Software\\Hour")->readDword(u"V"), 7U);
}

TEST_P(RegistryContract, AKeyOpenWhileItIsRemovedFails) {
    const auto key = registry_->create(u"K");
    key->writeDword(u"V", 1);
    registry_->removeKey(u"K");
    EXPECT_FALSE(key->query(u"V"));
    EXPECT_FALSE(key->writeDword(u"V", 2));
    EXPECT_FALSE(registry_->open(u"K"));

    const auto next = registry_->create(u"L");
    EXPECT_FALSE(key->writeDword(u"V", 3));
    EXPECT_TRUE(next->values().empty());
}

TEST_P(RegistryContract, ABatchIsKeptWholeOrNotAtAll) {
    const auto key = registry_->create(u"K");
    const auto other = registry_->create(u"L");
    key->writeDword(u"A", 1);
    {
        const auto outer = key->batch();
        EXPECT_TRUE(key->writeDword(u"A", 2));
        const auto inner = other->batch();
        EXPECT_TRUE(other->writeDword(u"B", 2));
        EXPECT_EQ(key->readDword(u"A"), 2U);
    }
    EXPECT_EQ(key->readDword(u"A"), 2U);
    EXPECT_EQ(other->readDword(u"B"), 2U);

    const auto gone = registry_->create(u"M");
    registry_->removeKey(u"M");
    {
        const auto batch = key->batch();
        EXPECT_TRUE(key->writeDword(u"A", 3));
        EXPECT_FALSE(gone->writeDword(u"V", 3));
        EXPECT_FALSE(key->writeDword(u"C", 3));
        EXPECT_FALSE(batch->commit());
    }
    EXPECT_EQ(key->readDword(u"A"), 2U);
    EXPECT_FALSE(key->query(u"C"));
    EXPECT_TRUE(key->writeDword(u"C", 4));
}

} // namespace

} // namespace hourwright::platform
