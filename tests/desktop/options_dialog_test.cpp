#include "desktop/options/options_dialog.h"

#include "desktop/desktop_fixture.h"
#include "desktop/main_window.h"
#include "desktop/options/about_dialog.h"
#include "desktop/options/colour_button.h"
#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

namespace hourwright::desktop {
namespace {

using resources::StringId;

// What a dialog shows, control by control.
struct Shown {
    std::map<QString, int> lists;
    std::map<QString, bool> flags;
    QStringList texts;
    std::map<QString, std::uint32_t> colours;

    friend bool operator==(const Shown&, const Shown&) = default;
};

class OptionsDialogTest : public test::DesktopFixture {
protected:
    template<typename Widget>
    static QList<Widget*> controls(OptionsDialog& dialog, const char* names) {
        return dialog.findChildren<Widget*>(QRegularExpression(names));
    }
    static Shown shownBy(OptionsDialog& dialog) {
        Shown shown;
        for (const auto* list : controls<QComboBox>(dialog, "^list"))
            shown.lists[list->objectName()] = list->currentIndex();
        for (const auto* flag : controls<QCheckBox>(dialog, "^flag"))
            shown.flags[flag->objectName()] = flag->isChecked();
        for (const auto* text : controls<QLineEdit>(dialog, "^text"))
            shown.texts.append(text->text());
        for (const auto* colour : controls<ColourButton>(dialog, "^colour"))
            shown.colours[colour->objectName()] = colour->colour().rgb;
        return shown;
    }
    // Gives every control another value.
    static void changeAll(OptionsDialog& dialog) {
        for (auto* list : controls<QComboBox>(dialog, "^list"))
            list->setCurrentIndex((list->currentIndex() + 1) % list->count());
        for (auto* flag : controls<QCheckBox>(dialog, "^flag"))
            flag->setChecked(!flag->isChecked());
        QString text = "a";
        for (auto* edit : controls<QLineEdit>(dialog, "^text"))
            edit->setText(text += 'b');
        std::uint32_t rgb = 0x102030;
        for (auto* colour : controls<ColourButton>(dialog, "^colour"))
            colour->setColour({.rgb = rgb += 0x010101});
    }
};

TEST_F(OptionsDialogTest, EveryControlIsStoredAndShownAgain) {
    OptionsDialog dialog(workspace(), nullptr);
    const Shown before = shownBy(dialog);
    EXPECT_EQ(before.lists.size(), 10U);
    EXPECT_EQ(before.flags.size(), 10U);
    EXPECT_EQ(before.texts.size(), 6);
    EXPECT_EQ(before.colours.size(), 4U);
    changeAll(dialog);
    const Shown changed = shownBy(dialog);
    for (const auto& [name, index] : changed.lists)
        EXPECT_NE(index, before.lists.at(name)) << name.toStdString();
    dialog.accept();
    EXPECT_EQ(app::AppSettings::load(registry(), {}), settings());
    settings() = app::AppSettings::load(registry(), {});
    workspace().display() = app::DisplaySettings::load(registry());
    OptionsDialog again(workspace(), nullptr);
    EXPECT_TRUE(shownBy(again) == changed);
    EXPECT_EQ(settings().minTime, 20);
    EXPECT_NE(settings().expenseCustom2Label.text(), settings().custom2Label.text());
}

TEST_F(OptionsDialogTest, CancelledOrUntouchedItChangesNothing) {
    settings().minTime = 7;
    settings().hourSymbol = 99;
    settings().timeInterval = 77;
    const app::AppSettings before = settings();
    const app::DisplaySettings displayBefore = workspace().display();
    OptionsDialog cancelled(workspace(), nullptr);
    changeAll(cancelled);
    cancelled.reject();
    EXPECT_EQ(settings(), before);
    OptionsDialog(workspace(), nullptr).accept();
    EXPECT_EQ(settings(), before);
    EXPECT_EQ(workspace().display(), displayBefore);
    EXPECT_TRUE(messages().shown.empty());
}

TEST_F(OptionsDialogTest, CaptionsAndCurrencyHaveTheirCapacity) {
    OptionsDialog dialog(workspace(), nullptr);
    for (auto* edit : controls<QLineEdit>(dialog, "^text"))
        edit->setText(QString(40, 'x'));
    dialog.accept();
    EXPECT_EQ(settings().custom1Label.text(), std::u16string(31, u'x'));
    EXPECT_EQ(settings().defaultCurrency.text(), std::u16string(15, u'x'));
}

TEST_F(OptionsDialogTest, OtherMenusCloseTheWindow) {
    OptionsDialog dialog(workspace(), nullptr);
    bool closes = false;
    QObject::connect(&dialog, &OptionsDialog::closeRequested, &dialog, [&] {
        EXPECT_EQ(messages().ids(), std::vector{StringId::softMenuChanged});
        EXPECT_TRUE(app::AppSettings::load(registry(), {}).styleFlags.has(app::StyleFlag::softKeyMenus));
        closes = true;
    });
    ASSERT_FALSE(settings().styleFlags.has(app::StyleFlag::softKeyMenus));
    auto* softKeys =
        dialog.findChild<QCheckBox*>("flag" + QString::number(static_cast<int>(app::OptionFlag::softKeys)));
    ASSERT_NE(softKeys, nullptr);
    softKeys->setChecked(true);
    dialog.accept();
    EXPECT_TRUE(closes);
}

TEST_F(OptionsDialogTest, HelpOpensItsPlaceInTheManual) {
    MainWindow window(workspace());
    window.commands().run(app::Command::help);
    OptionsDialog dialog(workspace(), nullptr);
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Help)->click();
    EXPECT_EQ(shell().pages, (std::vector<std::string>{"manual.html#Main_Contents", "manual.html#options"}));
}

TEST_F(OptionsDialogTest, AboutCopiesWhatItTells) {
    AboutDialog dialog(workspace(), nullptr);
    for (auto* button : dialog.findChildren<QPushButton*>())
        if (button->text() == "&Copy")
            button->click();
    const QString copied = QApplication::clipboard()->text();
    EXPECT_TRUE(copied.startsWith("Hourwright ")) << copied.toStdString();
    EXPECT_TRUE(copied.contains(QString::fromStdString(workspace().directories().recordsFile().string()) + '\n'));
    EXPECT_TRUE(copied.contains(QString("Qt ") + qVersion()));
    for (const char* library : {"SQLite 3\\.\\d+", "ICU \\d+", "Opus \\d+\\.\\d+"})
        EXPECT_TRUE(copied.contains(QRegularExpression(library))) << library << " in " << copied.toStdString();
}

} // namespace
} // namespace hourwright::desktop
