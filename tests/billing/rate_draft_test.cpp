#include "billing/rate_draft.h"

#include "support/structure_fixture.h"

namespace hourwright::billing {
namespace {

using platform::PlatformError;
using resources::StringId;
using store::RateRecord;
using store::RateType;
using store::RecordId;

constexpr RecordId standardId{7};
const std::u16string longest(64, u'x');

std::vector<RateRecord> storedRates() {
    return {{.id = standardId, .clientId = 1, .type = RateType::normal, .description = u"Standard"},
            {.id = RecordId{8}, .clientId = 1, .type = RateType::fixed, .description = u"Flat"}};
}

TEST(RateDraftTest, StopsAtTheFirstFailedCheck) {
    constexpr auto invalid = PlatformError::invalidParameter;
    struct Case {
        const char* name;
        RateDraft draft;
        std::optional<RateRefusal> refusal;
        RecordId self = RecordId::none;
    };
    const std::vector<Case> cases = {
        {"a rate", {RateType::normal, u"Other", u"45.5", {}}, {}},
        {"no rate text", {RateType::normal, u"Other", u"", {}}, {}},
        {"comma", {RateType::normal, u"Other", u"12,50", {}}, {}},
        {"another type", {RateType::overtime, u"Standard", u"1", {}}, {}},
        {"another case", {RateType::normal, u"standard", u"1", {}}, {}},
        {"the rate itself", {RateType::normal, u"Standard", u"1", {}}, {}, standardId},
        {"longest texts",
         {RateType::normal, longest, u"1234567890123.00", {}},
         {{RateField::rate, StringId::error, invalid}}},
        {"longest texts that fit", {RateType::normal, longest, u"0000000000123.45", {}}, {}},
        {"nothing at all", {}, {{RateField::type, StringId::typeMissing}}},
        {"no type", {{}, u"Other", u"1", {}}, {{RateField::type, StringId::typeMissing}}},
        {"no description, bad rate",
         {RateType::normal, u"", u"x", {}},
         {{RateField::description, StringId::descriptionMissing}}},
        {"long description",
         {RateType::normal, longest + u"x", u"1", {}},
         {{RateField::description, StringId::error, invalid}}},
        {"exponent, doubled", {RateType::normal, u"Standard", u"1e2", {}}, {{RateField::rate, StringId::rateInvalid}}},
        {"negative", {RateType::normal, u"Other", u"-1", {}}, {{RateField::rate, StringId::error, invalid}}},
        {"too large", {RateType::normal, u"Other", u"21474836.48", {}}, {{RateField::rate, StringId::error, invalid}}},
        {"largest", {RateType::normal, u"Other", u"21474836.47", {}}, {}},
        {"17 units",
         {RateType::normal, u"Other", u"00000000000000001", {}},
         {{RateField::rate, StringId::error, invalid}}},
        {"doubled", {RateType::normal, u"Standard", u"1", {}}, {{RateField::description, StringId::rateExists}}},
        {"changed into another",
         {RateType::fixed, u"Flat", u"1", {}},
         {{RateField::description, StringId::rateExists}},
         standardId},
    };
    const auto rates = storedRates();
    for (const Case& c : cases)
        EXPECT_EQ(c.draft.check(rates, c.self), c.refusal) << c.name;
}

class RateStoreTest : public test::StructureFixture {
protected:
    std::optional<RateRefusal> save(const RateDraft& draft, RateRecord& rate, platform::FileTime now = {500}) {
        std::optional<RateRefusal> refusal;
        change([&](auto& transaction) { refusal = saveRate(transaction, stores(), draft, now, rate); });
        return refusal;
    }
};

TEST_F(RateStoreTest, StoresWhatWasTypedCutOffToHundredths) {
    struct Case {
        std::u16string text;
        std::int32_t stored;
    };
    const std::uint32_t acme = makeClient(u"Acme");
    for (const Case& c : std::vector<Case>{
             {u"12.5", 1250}, {u"0.009", 0}, {u"", 0}, {u"12,50", 1200}, {u"45.559", 4555}, {u" 7", 700}}) {
        RateRecord rate{.clientId = acme};
        EXPECT_EQ(save({RateType::weekend, u"Rate " + c.text, c.text, {}}, rate), std::nullopt);
        EXPECT_EQ(rate.rate, c.stored) << platform::printableUtf8(c.text);
        EXPECT_EQ(all<RateRecord>(acme).back(), rate);
    }
}

TEST_F(RateStoreTest, EditingStampsTheRecordAndKeepsTheRest) {
    RateRecord rate{.clientId = makeClient(u"Acme"), .flag = true};
    ASSERT_EQ(save({RateType::normal, u"Standard", u"45.5", {}}, rate), std::nullopt);
    RateDraft draft = draftOf(rate);
    EXPECT_EQ(draft, (RateDraft{RateType::normal, u"Standard", u"45.50", {500}}));
    draft.rate = u"46";
    ASSERT_EQ(save(draft, rate, {600}), std::nullopt);
    const RateRecord expected{.id = rate.id,
                              .clientId = 1,
                              .description = u"Standard",
                              .flag = true,
                              .rate = 4600,
                              .modified = {600},
                              .flags = 3};
    EXPECT_EQ(all<RateRecord>(1), std::vector{expected});
    draft.description.clear();
    EXPECT_TRUE(save(draft, rate, {700}));
    EXPECT_EQ(rate, expected);
    EXPECT_EQ(all<RateRecord>(1), std::vector{expected});
}

TEST_F(RateStoreTest, ARateThatIsNotTouchedKeepsItsHundredths) {
    const std::uint32_t acme = makeClient(u"Acme");
    RateRecord rate = makeRate(acme, u"Standard", 201);
    RateDraft draft = draftOf(rate);
    draft.description = u"Changed";
    ASSERT_EQ(save(draft, rate), std::nullopt);
    EXPECT_EQ(rate.rate, 201);
    EXPECT_EQ(rate.description, u"Changed");
    RateRecord typed{.clientId = acme};
    ASSERT_EQ(save({RateType::normal, u"Typed", u"2.01", {}}, typed), std::nullopt);
    EXPECT_EQ(typed.rate, 200); // cut off, as doubles have it
}

TEST_F(RateStoreTest, ADescriptionIsTakenWithinItsOwnerOnly) {
    const RateDraft draft{RateType::normal, u"Standard", u"45", {}};
    for (const std::uint32_t owner : {makeClient(u"Acme"), makeClient(u"Other"), store::defaultRatesOwner}) {
        RateRecord first{.clientId = owner};
        RateRecord second{.clientId = owner};
        EXPECT_EQ(save(draft, first), std::nullopt) << owner;
        EXPECT_EQ(save(draft, second), (RateRefusal{RateField::description, StringId::rateExists})) << owner;
        EXPECT_EQ(all<RateRecord>(owner).size(), 1U) << owner;
    }
}

} // namespace
} // namespace hourwright::billing
