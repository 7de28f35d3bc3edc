#include "app/filter_choices.h"

#include "platform/icu/icu_locale.h"
#include "support/structure_fixture.h"

namespace hourwright::app {
namespace {

class FilterChoicesTest : public test::StructureFixture {
protected:
    FilterChoicesTest() {
        makeFullClient(u"Zenith");
        const auto acme = makeClient(u"Acme");
        makeProject(acme, u"Bridge", u"Paint");
        makeProject(acme, u"Arch", u"");
        makeTask(acme, u"Office");
        makeContact(acme, u"Mr Abel");
        change([&](auto& transaction) {
            for (const std::u16string_view phase : {u"II", u"I", u"II"})
                EXPECT_TRUE(store::addToPickList(transaction, stores(), store::PickList::phases, phase));
        });
    }
    std::unique_ptr<platform::Locale> locale_ = platform::makeIcuLocale("en_US");
};

TEST_F(FilterChoicesTest, AClientNarrowsTheOthers) {
    const FilterChoices choices(stores(), *locale_);
    EXPECT_EQ(choices.clients(), (Texts{u"Acme", u"Zenith"}));
    EXPECT_EQ(choices.projects(u""), (Texts{u"Arch", u"Bridge", u"Tunnel"}));
    EXPECT_EQ(choices.projects(u"Acme"), (Texts{u"Arch", u"Bridge"}));
    EXPECT_EQ(choices.projects(u"acme"), Texts{});
    EXPECT_EQ(choices.contacts(u""), (Texts{u"Mr Abel", u"Ms Lind"}));
    EXPECT_EQ(choices.contacts(u"Zenith"), Texts{u"Ms Lind"});
}

TEST_F(FilterChoicesTest, TasksFollowClientAndProject) {
    const FilterChoices choices(stores(), *locale_);
    EXPECT_EQ(choices.tasks(u"", u""), (Texts{u"Design", u"Office", u"Paint", u"Survey", u"Travel"}));
    EXPECT_EQ(choices.tasks(u"Zenith", u""), (Texts{u"Design", u"Office", u"Survey", u"Travel"}));
    EXPECT_EQ(choices.tasks(u"Zenith", u"Tunnel"), Texts{u"Survey"});
    EXPECT_EQ(choices.tasks(u"Acme", u"Bridge"), Texts{u"Paint"});
    EXPECT_EQ(choices.tasks(u"Nobody", u""), Texts{});
}

TEST_F(FilterChoicesTest, LearnedListsAreSortedAndHaveEachTextOnce) {
    const FilterChoices choices(stores(), *locale_);
    EXPECT_EQ(choices.list(store::PickList::phases), (Texts{u"I", u"II"}));
    EXPECT_EQ(choices.list(store::PickList::custom2), Texts{});
}

} // namespace
} // namespace hourwright::app
