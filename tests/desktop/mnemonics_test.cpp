#include "app/demo/demo_store.h"
#include "desktop/desktop_fixture.h"
#include "desktop/screens/screens.h"
#include "exchange/note_document.h"
#include "store/wipe.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QTest>

namespace hourwright::desktop {
namespace {

using Mnemonics = std::map<QString, QStringList>; // keys, and the texts that have them

void note(Mnemonics& mnemonics, const QString& text) {
    if (const QKeySequence keys = QKeySequence::mnemonic(text); !keys.isEmpty())
        mnemonics[keys.toString()].append(text);
}

// What Alt with a letter does in a window as it is shown now.
Mnemonics mnemonicsOf(QWidget& window) {
    Mnemonics mnemonics;
    const auto isShown = [&window](const QWidget* widget) {
        return widget->window() == &window && widget->isVisible();
    };
    for (const auto* label : window.findChildren<QLabel*>())
        if (isShown(label) && label->buddy() != nullptr)
            note(mnemonics, label->text());
    for (const auto* button : window.findChildren<QAbstractButton*>())
        if (isShown(button) && button->metaObject()->className() != QLatin1String("QToolButton"))
            note(mnemonics, button->text());
    for (const auto* box : window.findChildren<QGroupBox*>())
        if (isShown(box))
            note(mnemonics, box->title());
    for (const auto* tabs : window.findChildren<QTabWidget*>())
        for (int page = 0; isShown(tabs) && page < tabs->count(); ++page)
            note(mnemonics, tabs->tabText(page));
    return mnemonics;
}

void expectEachOnce(const Mnemonics& mnemonics, const QString& where) {
    for (const auto& [keys, texts] : mnemonics)
        EXPECT_EQ(texts.size(), 1) << qPrintable(where) << ": " << qPrintable(keys) << " in "
                                   << qPrintable(texts.join(" | "));
}

class MnemonicsTest : public test::DesktopFixture {
protected:
    MnemonicsTest() {
        const app::demo::DemoOptions options{.entries = 120, .lastDay = clock().localTime()};
        const auto encode = [](std::u16string_view text) { return exchange::writeNote(exchange::fromPlainText(text)); };
        EXPECT_EQ(app::demo::fillWithDemoHistory(stores(), options, encode), app::demo::DemoResult::done);
    }
};

TEST_F(MnemonicsTest, EachStandsOnceInAWindowAndItsPages) {
    MainWindow window(workspace());
    window.show();
    for (const Screen& screen : allScreens()) {
        QWidget* shown = screen.make(window);
        ASSERT_NE(shown, nullptr) << qPrintable(screen.name);
        if (shown == &window)
            continue;
        shown->show();
        expectEachOnce(mnemonicsOf(*shown), screen.name);
        for (auto* tabs : shown->findChildren<QTabWidget*>())
            for (int page = 0; page < tabs->count(); ++page) {
                tabs->setCurrentIndex(page);
                expectEachOnce(mnemonicsOf(*shown), screen.name + ", " + tabs->tabText(page));
            }
        delete shown;
    }
}

TEST_F(MnemonicsTest, EachStandsOnceInTheMainWindow) {
    MainWindow window(workspace());
    window.show();
    workspace().entryFilter().client = u"Nobody";
    for (int round = 0; round < 2; ++round) {
        window.showView();
        Mnemonics mnemonics = mnemonicsOf(window);
        for (const QAction* action : window.menuBar()->actions())
            note(mnemonics, action->text());
        EXPECT_GE(mnemonics.size(), 7U);
        expectEachOnce(mnemonics, "main window");
        EXPECT_TRUE(store::wipeAll(stores()));
        emit workspace().recordsChanged();
    }
}

TEST_F(MnemonicsTest, EachStandsOnceInAMenu) {
    MainWindow window(workspace());
    for (const auto records : {app::RecordKind::entries, app::RecordKind::expenses}) {
        workspace().view().showRecords(records);
        window.showView();
        window.view().selectAll();
        QMenu context;
        window.actions().fillContextMenu(context);
        QList<QMenu*> menus = window.findChildren<QMenu*>();
        menus.append(&context);
        EXPECT_GE(menus.size(), 9);
        for (const QMenu* menu : menus) {
            Mnemonics mnemonics;
            for (const QAction* action : menu->actions())
                if (action->isVisible())
                    note(mnemonics, action->text());
            expectEachOnce(mnemonics, menu->title());
        }
    }
}

} // namespace
} // namespace hourwright::desktop
