#include "desktop/background_run.h"
#include "desktop/bulk/progress_window.h"
#include "desktop/desktop_fixture.h"
#include "desktop/exports/export_dialogs.h"
#include "desktop/exports/export_note.h"
#include "desktop/main_window.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <fstream>
#include <iterator>
#include <thread>

namespace hourwright::desktop {
namespace {

using app::Command;

class ExportTest : public test::DesktopFixture {
protected:
    ExportTest() {
        store::TimeEntry entry;
        store::setDateAndStart(entry, {.year = 2026, .month = 11, .day = 17, .hour = 9});
        entry.client = u"Acme";
        entry.task = u"Review";
        entry.duration = 150;
        add(entry);
        entry.id = store::RecordId::none;
        entry.client = u"Hidden";
        add(entry);
        workspace().entryFilter().client = u"Acme";
    }

    static std::string contentOf(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    std::filesystem::path target() const { return home() / "out.csv"; }
};

TEST_F(ExportTest, WritesTheViewToTheChosenFileAndOffersToOpenIt) {
    MainWindow window(workspace());
    fileDialogs().choice = {.file = target()};
    window.commands().run(Command::exportCsv);
    const std::string content = contentOf(target());
    EXPECT_NE(content.find("\"11/17/26\",\"Acme\""), std::string::npos) << content;
    EXPECT_EQ(content.find("Hidden"), std::string::npos);
    ASSERT_EQ(fileDialogs().requests.size(), 1U);
    const auto& request = fileDialogs().requests.front();
    EXPECT_EQ(request.folder, home());
    EXPECT_EQ(request.extension, u"csv");
    ASSERT_EQ(request.kinds.size(), 1U);
    EXPECT_EQ(request.kinds[0].name, u"CSV Files (*.csv)");
    EXPECT_TRUE(messages().shown.empty());
    EXPECT_NE(window.findChild<QDialog*>(), nullptr);
}

TEST_F(ExportTest, LeavesTheKeyboardWhereItWas) {
    MainWindow window(workspace());
    window.show();
    window.view().setFocus();
    const QWidget* before = window.focusWidget();
    ASSERT_NE(before, nullptr);
    fileDialogs().choice = {.file = target()};
    window.commands().run(Command::exportCsv);
    EXPECT_EQ(window.focusWidget(), before);
}

TEST_F(ExportTest, IsCancelledByTheButtonOfItsProgress) {
    MainWindow window(workspace());
    window.show();
    QTimer::singleShot(50, &window, [&window] {
        auto* bar = window.findChild<ProgressWindow*>();
        ASSERT_NE(bar, nullptr);
        bar->findChild<QPushButton*>()->click();
    });
    bool cancelled = false;
    runInBackground(&window, {.label = "Working", .mayCancel = true}, [&cancelled](BackgroundProgress& progress) {
        for (int i = 0; i < 300 && !progress.cancelled; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        cancelled = progress.cancelled;
    });
    EXPECT_TRUE(cancelled);
}

TEST_F(ExportTest, SaysWhenNothingOpensTheFile) {
    ExportNote note(workspace(), target(), 2, nullptr);
    note.show();
    const auto press = [&note] {
        for (auto* button : note.findChildren<QPushButton*>())
            if (button->text() == "&Open")
                button->click();
    };
    const auto labels = [&note] {
        const auto all = note.findChildren<QLabel*>();
        return std::ranges::count_if(all, [](const QLabel* label) { return label->isVisible(); });
    };
    EXPECT_EQ(labels(), 1);
    shell().succeeds = false;
    press();
    EXPECT_TRUE(note.isVisible());
    EXPECT_EQ(labels(), 2);
    shell().succeeds = true;
    press();
    EXPECT_FALSE(note.isVisible());
    EXPECT_EQ(shell().opened, (std::vector{target(), target()}));
}

TEST_F(ExportTest, WritesNothingWhenTheDialogIsCancelled) {
    MainWindow window(workspace());
    window.commands().run(Command::exportCsv);
    window.commands().run(Command::exportXml);
    EXPECT_EQ(fileDialogs().requests.size(), 2U);
    EXPECT_TRUE(messages().shown.empty());
}

TEST_F(ExportTest, ShowsItsMessageWhenTheFileCannotBeMade) {
    MainWindow window(workspace());
    fileDialogs().choice = {.file = home() / "missing" / "out.xml"};
    window.commands().run(Command::exportXml);
    ASSERT_EQ(messages().shown.size(), 1U);
    EXPECT_EQ(messages().shown[0].id, resources::StringId::exportFailed);
    EXPECT_EQ(messages().shown[0].icon, platform::Icon::stop);
}

TEST_F(ExportTest, ExportsTheOneTypeOfExpensesThatTheFilterLeaves) {
    store::ExpenseEntry expense;
    expense.type = store::ExpenseType::mileage;
    expense.date = platform::toFileTime({.year = 2026, .month = 11, .day = 17, .hour = 1}).value();
    expense.description = u"Drive";
    add(expense);
    workspace().expenseFilter().type = 1;
    workspace().view().showRecords(app::RecordKind::expenses);
    MainWindow window(workspace());
    fileDialogs().choice = {.file = target()};
    window.commands().run(Command::exportCsv);
    EXPECT_NE(contentOf(target()).find("\"Drive\""), std::string::npos);
}

} // namespace
} // namespace hourwright::desktop
