#include "desktop/structure/client_setup_dialog.h"
#include "desktop/structure/drop_lists_dialog.h"
#include "desktop/structure/rate_dialog.h"
#include "desktop/structure/rate_setup_dialog.h"
#include "desktop/structure/structure_tree.h"

#include "desktop/desktop_fixture.h"
#include "platform/qt/qt_text.h"
#include "platform/utf.h"
#include "store/client_tree.h"
#include "store/pick_lists.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTreeWidgetItemIterator>
#include <algorithm>
#include <functional>

namespace hourwright::desktop {
namespace {

using billing::StructureKind;
using platform::Answer;
using resources::StringId;
using Lines = std::vector<std::string>;

class StructureDialogsTest : public test::DesktopFixture {
protected:
    StructureDialogsTest() {
        change([&](auto& transaction) {
            acme = store::addClient(transaction, stores(), u"Acme");
            bolt = store::addClient(transaction, stores(), u"Bolt");
            EXPECT_TRUE(store::addProjectTask(transaction, stores(), acme, u"Bridge", u"Survey"));
            EXPECT_TRUE(store::addProjectTask(transaction, stores(), acme, u"Bridge", u"Design"));
            EXPECT_TRUE(store::addTask(transaction, stores(), acme, u"Travel"));
            EXPECT_TRUE(store::addContact(transaction, stores(), acme, u"Ms Lind"));
            store::RateRecord rate{.clientId = acme, .description = u"Standard", .rate = 4550};
            EXPECT_TRUE(store::writeRate(transaction, stores(), rate));
        });
    }

    /// The whole structure, one line each.
    Lines lines() {
        Lines result;
        const auto add = [&](const std::u16string& text) { result.push_back(platform::printableUtf8(text)); };
        const auto trees = store::clientTrees(stores());
        EXPECT_TRUE(trees);
        for (const auto& tree : trees.value_or(std::vector<store::ClientTree>{})) {
            const std::u16string& client = tree.client.name;
            add(client);
            for (const auto& project : tree.projects) {
                add(client + u" > " + project.name);
                for (const auto& task : project.tasks)
                    add(client + u" > " + project.name + u" > " + task.task);
            }
            for (const auto& task : tree.tasks)
                add(client + u" > task " + task.name);
            for (const auto& contact : tree.contacts)
                add(client + u" > contact " + contact.name);
            for (const auto& rate : tree.rates)
                add(client + u" > rate " + rate.description);
        }
        return result;
    }

    static void select(ClientSetupDialog& dialog, const QString& name) {
        const auto found = dialog.tree().findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << name.toStdString();
        dialog.tree().setCurrentItem(found.front());
    }

    /// Types a name into the dialog and presses OK; the result of the dialog.
    static int enter(Dialog& dialog, const QString& name, bool check = false) {
        dialog.show();
        dialog.findChild<QLineEdit*>()->setText(name);
        if (auto* box = dialog.findChild<QCheckBox*>())
            box->setChecked(check);
        dialog.accept();
        return dialog.result();
    }

    std::uint32_t acme = 0;
    std::uint32_t bolt = 0;
};

TEST_F(StructureDialogsTest, EachActionEndsInTheStore) {
    struct Row {
        QString selected;
        std::function<void(ClientSetupDialog&)> act;
        std::string gone;
        std::string added;
    };
    const auto add = [](StructureKind kind, const QString& name) {
        return [kind, name](ClientSetupDialog& dialog) {
            EXPECT_EQ(enter(*dialog.addDialog(kind), name), QDialog::Accepted) << name.toStdString();
        };
    };
    const auto rename = [](const QString& name) {
        return [name](ClientSetupDialog& dialog) {
            EXPECT_EQ(enter(*dialog.editDialog(), name), QDialog::Accepted) << name.toStdString();
        };
    };
    const auto remove = [](ClientSetupDialog& dialog) { dialog.deleteSelected(); };
    const Row rows[] = {
        {"(Default Rates)", add(StructureKind::client, " Corvid "), "", "Corvid"},
        {"Travel", add(StructureKind::project, "Tunnel"), "", "Acme > Tunnel"},
        {"Survey", add(StructureKind::projectTask, "Review"), "", "Acme > Bridge > Review"},
        {"Bridge", add(StructureKind::task, "Phone"), "", "Acme > task Phone"},
        {"Acme", add(StructureKind::contact, "Mr Ode"), "", "Acme > contact Mr Ode"},
        {"Survey", rename("Measure"), "Acme > Bridge > Survey", "Acme > Bridge > Measure"},
        {"Ms Lind", rename("Ms Berg"), "Acme > contact Ms Lind", "Acme > contact Ms Berg"},
        {"Travel", remove, "Acme > task Travel", ""},
        {"Measure", remove, "Acme > Bridge > Measure", ""},
        {"Tunnel", remove, "Acme > Tunnel", ""},
        {"Standard", remove, "Acme > rate Standard", ""},
        {"Corvid", remove, "Corvid", ""},
    };
    ClientSetupDialog dialog(workspace(), nullptr);
    dialog.show();
    for (const Row& row : rows) {
        messages().script = {Answer::yes};
        Lines expected = lines();
        select(dialog, row.selected);
        row.act(dialog);
        std::erase(expected, row.gone);
        if (!row.added.empty())
            expected.push_back(row.added);
        Lines now = lines();
        std::ranges::sort(expected);
        std::ranges::sort(now);
        EXPECT_EQ(now, expected) << row.selected.toStdString();
        EXPECT_TRUE(dialog.tree().current()) << "the keyboard has lost its place";
    }
    EXPECT_EQ(messages().ids(), (std::vector{StringId::deleteProject, StringId::deleteRate, StringId::deleteClient}));
}

TEST_F(StructureDialogsTest, ATakenNameKeepsTheDialogOpen) {
    ClientSetupDialog dialog(workspace(), nullptr);
    const Lines before = lines();
    select(dialog, "Acme");
    auto rename = dialog.editDialog();
    EXPECT_NE(enter(*rename, "Bolt"), QDialog::Accepted);
    EXPECT_NE(enter(*rename, " "), QDialog::Accepted);
    EXPECT_TRUE(rename->isVisible());
    EXPECT_EQ(messages().ids(), (std::vector{StringId::nameTaken, StringId::clientMissing}));
    EXPECT_EQ(lines(), before);
}

TEST_F(StructureDialogsTest, RenamingTakesEntriesAlongOnlyIfWanted) {
    add(store::TimeEntry{.client = u"Acme", .project = u"Bridge", .task = u"Survey"});
    ClientSetupDialog dialog(workspace(), nullptr);
    select(dialog, "Bridge");
    enter(*dialog.editDialog(), "Viaduct");
    EXPECT_EQ(entries().front().project, u"Bridge");
    select(dialog, "Acme");
    enter(*dialog.editDialog(), "Acme Ltd", true);
    EXPECT_EQ(entries().front().client, u"Acme Ltd");
    EXPECT_EQ(entries().front().modified, clock().now());
}

TEST_F(StructureDialogsTest, MigratesWhatIsChecked) {
    ClientSetupDialog dialog(workspace(), nullptr);
    select(dialog, "Acme");
    auto migrate = dialog.migrateDialog();
    migrate->show();
    migrate->accept();
    EXPECT_EQ(messages().ids(), std::vector{StringId::nothingToMigrate});
    EXPECT_TRUE(migrate->isVisible());
    for (auto* list : migrate->findChildren<QListWidget*>())
        list->item(0)->setCheckState(Qt::Checked);
    migrate->accept();
    EXPECT_EQ(lines(), (Lines{"Acme", "Acme > contact Ms Lind", "Acme > rate Standard", "Bolt", "Bolt > Bridge",
                              "Bolt > Bridge > Survey", "Bolt > Bridge > Design", "Bolt > task Travel"}));
}

TEST_F(StructureDialogsTest, SummarisesWhatIsSelected) {
    ClientSetupDialog dialog(workspace(), nullptr);
    const std::pair<const char*, QStringList> cases[] = {{"Acme", {"Acme", "[Any]", "[Any]"}},
                                                         {"Bridge", {"Acme", "Bridge", "[Any]"}},
                                                         {"Design", {"Acme", "Bridge", "Design"}},
                                                         {"Travel", {"Acme", "[Any]", "Travel"}}};
    for (const auto& [name, chosen] : cases) {
        select(dialog, name);
        const auto summary = dialog.summaryDialog();
        ASSERT_NE(summary, nullptr) << name;
        QStringList shown;
        for (const auto* box : summary->findChildren<QComboBox*>())
            shown.append(box->currentText());
        EXPECT_EQ(shown, chosen) << name;
    }
    for (const char* name : {"Ms Lind", "Standard", "(Default Rates)"}) {
        select(dialog, name);
        EXPECT_EQ(dialog.summaryDialog(), nullptr) << name;
    }
}

TEST_F(StructureDialogsTest, TheTreeKeepsItsPlaceAndFindsWhatIsTyped) {
    ClientSetupDialog dialog(workspace(), nullptr);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    select(dialog, "Design");
    emit workspace().recordsChanged();
    EXPECT_EQ(dialog.tree().currentItem()->text(0), "Design");
    EXPECT_TRUE(dialog.tree().currentItem()->parent()->isExpanded());
    dialog.tree().setFocus();
    QTest::keyClicks(&dialog.tree(), "T");
    QTest::keyClicks(dialog.focusWidget(), "RAV");
    QStringList visible;
    for (QTreeWidgetItemIterator it(&dialog.tree(), QTreeWidgetItemIterator::NotHidden); *it != nullptr; ++it)
        visible.append((*it)->text(0));
    EXPECT_EQ(visible, (QStringList{"Acme", "Travel"}));
}

TEST_F(StructureDialogsTest, RatesAreRefusedInOrderWithTheFocus) {
    struct Row {
        int type;
        QString description;
        QString rate;
        StringId message;
        QString focus;
    };
    const Row rows[] = {
        {-1, "", "x", StringId::typeMissing, "type"},
        {0, "", "x", StringId::descriptionMissing, "description"},
        {0, "Standard", "1e2", StringId::rateInvalid, "rate"},
        {0, "Standard", "10", StringId::rateExists, "description"},
    };
    store::RateRecord rate;
    rate.clientId = acme;
    RateDialog dialog(workspace(), rate, u"Acme", nullptr);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_EQ(dialog.findChild<QLabel*>("modified")->text(), "<New>");
    auto* type = dialog.findChild<QComboBox*>("type");
    const auto enterRate = [&](int index, const QString& description, const QString& text) {
        type->setCurrentIndex(index);
        dialog.findChild<QLineEdit*>("description")->setText(description);
        dialog.findChild<QLineEdit*>("rate")->setText(text);
        dialog.accept();
    };
    for (const Row& row : rows) {
        enterRate(row.type, row.description, row.rate);
        EXPECT_EQ(messages().shown.back().id, row.message);
        EXPECT_EQ(dialog.focusWidget()->objectName(), row.focus);
        EXPECT_TRUE(dialog.isVisible());
    }
    EXPECT_EQ(store::recordsOf<store::RateRecord>(stores(), acme)->size(), 1U);
    enterRate(1, "Standard", "45.559");
    const auto rates = store::recordsOf<store::RateRecord>(stores(), acme);
    ASSERT_EQ(rates->size(), 2U);
    EXPECT_EQ(rates->back().type, store::RateType::overtime);
    EXPECT_EQ(rates->back().rate, 4555);
    EXPECT_EQ(rates->back().modified, clock().now());
}

TEST_F(StructureDialogsTest, DefaultRatesBelongToNoClient) {
    RateSetupDialog dialog(workspace(), nullptr);
    auto add = dialog.addDialog();
    add->findChild<QLineEdit*>("description")->setText("House");
    add->accept();
    const auto rates = store::recordsOf<store::RateRecord>(stores(), store::defaultRatesOwner);
    ASSERT_EQ(rates->size(), 1U);
    EXPECT_EQ(rates->front().rate, 0); // an empty rate
    messages().script = {Answer::no, Answer::yes};
    dialog.deleteSelected();
    EXPECT_EQ(store::recordsOf<store::RateRecord>(stores(), store::defaultRatesOwner)->size(), 1U);
    dialog.deleteSelected();
    EXPECT_TRUE(store::recordsOf<store::RateRecord>(stores(), store::defaultRatesOwner)->empty());
}

TEST_F(StructureDialogsTest, DropListItemsAreAddedChangedAndDeleted) {
    using store::PickList;
    DropListsDialog dialog(workspace(), nullptr);
    const auto phases = [&] { return store::pickListTexts(stores(), PickList::phases); };
    enter(*dialog.addDialog(), "Draft");
    enter(*dialog.addDialog(), "Build");
    enter(*dialog.addDialog(), "Draft");
    EXPECT_EQ(messages().ids(), std::vector{StringId::nameTaken});
    EXPECT_EQ(phases(), (std::vector<std::u16string>{u"Draft", u"Build"}));
    enter(*dialog.changeDialog(), "Construction"); // the item just added is selected
    EXPECT_EQ(phases(), (std::vector<std::u16string>{u"Draft", u"Construction"}));
    messages().script = {Answer::yes};
    dialog.deleteSelected();
    EXPECT_EQ(phases(), std::vector<std::u16string>{u"Draft"});
    dialog.findChild<QComboBox*>()->setCurrentIndex(1);
    enter(*dialog.addDialog(), "EUR");
    EXPECT_EQ(store::pickListTexts(stores(), PickList::currencies), std::vector<std::u16string>{u"EUR"});
    EXPECT_EQ(phases(), std::vector<std::u16string>{u"Draft"});
}

} // namespace
} // namespace hourwright::desktop
