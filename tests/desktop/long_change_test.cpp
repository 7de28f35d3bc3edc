#include "desktop/bulk/long_change.h"

#include "billing/move_entry.h"
#include "desktop/bulk/bulk_run.h"
#include "desktop/bulk/progress_window.h"
#include "desktop/bulk/replace_dialog.h"
#include "desktop/change_watch.h"
#include "desktop/desktop_fixture.h"
#include "desktop/lists/list_view.h"
#include "desktop/main_window.h"
#include "platform/utf.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <fstream>
#include <thread>

namespace hourwright::desktop {
namespace {

using app::Command;
using platform::Answer;
using platform::HistoryResult;
using resources::StringId;
using store::EntryStatus;
using store::TimeEntry;

constexpr std::size_t entryCount = manyRecords + 200;

/// A window on so many entries that each change of all of them runs in the background.
class LongChangeTest : public test::DesktopFixture {
protected:
    LongChangeTest() {
        change([&](platform::Transaction& transaction) {
            for (std::size_t i = 0; i < entryCount; ++i) {
                TimeEntry entry{.client = i % 3 == 0 ? u"Acme" : u"Zenith",
                                .task = u"Task",
                                .duration = 100,
                                .status = static_cast<EntryStatus>(i % 4)};
                ASSERT_TRUE(store::setDateWithoutStart(
                    entry, {.year = 2026, .month = 11, .day = static_cast<std::uint16_t>(15 + i % 7)}));
                ASSERT_TRUE(store::insertTimeEntry(transaction, stores().entries(), entry));
            }
        });
        add(TimeEntry{.date = clock().now(), .client = u"Acme", .phase = u"One", .currency = u"EUR"});
        add(store::ExpenseEntry{.date = clock().now(), .client = u"Acme", .category = u"Travel"});
        clock().set({.year = 2026, .month = 11, .day = 20, .hour = 17});
        workspace().view().setKind(app::PeriodKind::month);
    }

    // Every property of every record of all databases, in stored order.
    std::string dump() {
        std::string text;
        for (std::size_t kind = 0; kind < store::databaseCount; ++kind) {
            store::RecordStore& records = stores()[static_cast<store::DatabaseKind>(kind)];
            const auto snapshot = objects().snapshot();
            platform::PropertyBuffer read;
            auto id = records.seek(platform::Seek::toBeginning());
            for (; id != store::RecordId::none; id = records.seek(platform::Seek::fromCurrent(1))) {
                EXPECT_EQ(records.read(read), store::ReadResult::ok);
                text += std::to_string(kind) + ' ' + std::to_string(static_cast<std::uint32_t>(id));
                for (const platform::PropertyValue& value : read.values()) {
                    text += ' ' + std::to_string(value.id.value) + '=' + std::to_string(value.number) + ' ';
                    text += platform::toUtf8(value.text);
                    for (const std::byte byte : value.blob)
                        text += static_cast<char>(byte);
                }
                text += '\n';
            }
        }
        return text;
    }

    // Runs a command, accepting the dialogs that it opens.
    void run(MainWindow& window, Command command) {
        QTimer accepter;
        QObject::connect(&accepter, &QTimer::timeout, &accepter, [] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr && qobject_cast<ProgressWindow*>(dialog) == nullptr)
                dialog->accept();
        });
        accepter.start(1);
        window.commands().run(command);
    }

    void replace(MainWindow& window) {
        ReplaceDialog dialog(workspace(), &window);
        dialog.show();
        dialog.findChild<CompletingCombo*>("find")->setText(u"Acme");
        dialog.findChild<QLineEdit*>("replacement")->setText("Apex");
        dialog.accept();
    }

    void drag() {
        const TimeEntry first = entries().front();
        const platform::SystemTime start{.year = 2026, .month = 11, .day = 12, .hour = 10};
        const platform::SystemTime end{.year = 2026, .month = 11, .day = 12, .hour = 11, .minute = 30};
        workspace().change(u"drag", [&](platform::Transaction& transaction) {
            return billing::placeStoredEntry(transaction, stores(), first.id,
                                             {.day = start, .start = start, .end = end}, workspace().timeRules(),
                                             clock().now());
        });
    }
};

TEST_F(LongChangeTest, EveryChangeOfTheWindowIsTakenBackExactly) {
    MainWindow window(workspace());
    window.show();
    struct Case {
        const char* name;
        std::function<void()> change;
        std::vector<Answer> answers;
    };
    const Case cases[] = {
        {"mark the view paid", [&] { run(window, Command::markViewPaid); }, {Answer::yes}},
        {"mark paid by criteria", [&] { run(window, Command::markPaidEntries); }, {}},
        {"mark billed by criteria", [&] { run(window, Command::markBilledEntries); }, {}},
        {"delete by criteria", [&] { run(window, Command::deleteByCriteria); }, {Answer::ok}},
        {"replace a text", [&] { replace(window); }, {Answer::yes}},
        {"mark the selection paid", [&] { run(window, Command::markPaid); }, {}},
        {"mark the selection billed", [&] { run(window, Command::markBilled); }, {}},
        {"delete the selection", [&] { run(window, Command::deleteSelected); }, {Answer::yes}},
        {"drag", [&] { drag(); }, {}},
    };
    const std::string before = dump();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        window.view().selectAll();
        ASSERT_GE(window.view().selection().size(), entryCount);
        messages().script = {c.answers.begin(), c.answers.end()};
        c.change();
        const std::string after = dump();
        EXPECT_TRUE(after != before);
        run(window, Command::undo);
        EXPECT_TRUE(dump() == before);
        run(window, Command::redo);
        EXPECT_TRUE(dump() == after);
        run(window, Command::undo);
        EXPECT_TRUE(dump() == before);
    }
    EXPECT_TRUE(objects().check([](std::string_view finding) { ADD_FAILURE() << finding; }));
}

TEST_F(LongChangeTest, TheWindowLivesMeanwhileAndNothingElseChanges) {
    int turns = 0;
    std::atomic<bool> writing{false};
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (!writing)
            return;
        ++turns;
        EXPECT_TRUE(workspace().isChanging());
        EXPECT_EQ(objects().begin(), nullptr); // the one who writes is another connection
    });
    timer.start(1);
    int notices = 0;
    QObject::connect(&workspace(), &Workspace::recordsChanged, &timer, [&notices] { ++notices; });
    const auto outcome = runLongChange(workspace(), nullptr, false, [&](WorkerStores& worker, BackgroundProgress&) {
        const auto transaction = worker.objects->begin({.name = u"slow", .time = {}});
        EXPECT_TRUE(transaction);
        writing = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        writing = false;
        return HistoryResult::cancelled;
    });
    timer.stop();
    EXPECT_EQ(outcome.result, HistoryResult::cancelled);
    EXPECT_GT(turns, 5);
    EXPECT_EQ(notices, 0);
    EXPECT_TRUE(objects().begin());
}

TEST_F(LongChangeTest, CancelTakesEverythingBack) {
    const std::string before = dump();
    QTimer canceller;
    QObject::connect(&canceller, &QTimer::timeout, &canceller, [] {
        if (auto* window = qobject_cast<ProgressWindow*>(QApplication::activeModalWidget()))
            window->findChild<QPushButton*>()->click();
    });
    canceller.start(5);
    runBulk(workspace(), nullptr, u"slow", StringId::entriesMatched, [](const BulkParts& parts) {
        return billing::deleteAll(parts.transaction, parts.stores.entries(), {}, [&](std::size_t walked) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
            return parts.progress(walked);
        });
    });
    EXPECT_TRUE(dump() == before);
    EXPECT_TRUE(messages().shown.empty());
    EXPECT_FALSE(workspace().isChanging());
}

TEST_F(LongChangeTest, AFailureIsShownAndChangesNothing) {
    const std::string before = dump();
    runBulk(workspace(), nullptr, u"bad", StringId::entriesMatched,
            [](const BulkParts& parts) -> std::optional<std::size_t> {
                static_cast<void>(billing::deleteAll(parts.transaction, parts.stores.entries(), {}));
                return std::nullopt;
            });
    EXPECT_EQ(messages().ids(), std::vector{StringId::error});
    EXPECT_TRUE(dump() == before);
}

TEST_F(LongChangeTest, TheOldRowsStayUntilTheNewOnesAreThere) {
    change([&](platform::Transaction& transaction) {
        for (std::size_t i = 0; i < 3'000; ++i) {
            TimeEntry entry{.date = clock().now(), .client = u"More"};
            ASSERT_TRUE(store::insertTimeEntry(transaction, stores().entries(), entry));
        }
    });
    ListView list(workspace(), app::ListStyle::standard, nullptr);
    list.show();
    list.showView();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !list.isLoading(); }));
    const std::size_t before = list.totals().items;
    const auto made = add(TimeEntry{.date = clock().now(), .client = u"Unique text"});
    list.reload();
    const std::vector<store::RecordId> wanted{made};
    list.select(wanted);
    EXPECT_TRUE(list.isLoading());
    EXPECT_EQ(list.totals().items, before);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !list.isLoading(); }));
    EXPECT_EQ(list.totals().items, before + 1);
    EXPECT_EQ(list.selection(), wanted);
}

TEST_F(LongChangeTest, AReplacedFileIsOpenedAnew) {
    ChangeWatch watch(workspace());
    int notices = 0;
    QObject::connect(&workspace(), &Workspace::recordsChanged, &watch, [&notices] { ++notices; });
    const std::filesystem::path copy = file().string() + ".copy";
    std::filesystem::copy_file(file(), copy);
    const std::size_t before = entries().size();
    add(TimeEntry{.date = clock().now()});
    std::filesystem::rename(copy, file());
    watch.noticed();
    EXPECT_TRUE(QTest::qWaitFor([&] { return notices == 1; }));
    EXPECT_EQ(entries().size(), before);
    add(TimeEntry{.date = clock().now()});
    EXPECT_EQ(entries().size(), before + 1);
}

TEST_F(LongChangeTest, AnUnusableFileInItsPlaceIsToldOnce) {
    ChangeWatch watch(workspace());
    std::filesystem::rename(file(), file().string() + ".away");
    std::ofstream(file()) << std::string(5'000, 'x');
    for (int i = 0; i < 2; ++i) {
        watch.noticed();
        QTest::qWait(120);
    }
    EXPECT_EQ(messages().ids(), std::vector{StringId::error});
    EXPECT_GT(entries().size(), entryCount); // can be read still
}

} // namespace
} // namespace hourwright::desktop
