#include "desktop/note/export_note.h"

#include "exchange/note_export.h"
#include "platform/posix/user_directories.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/notes.h"

#include <QApplication>
#include <QFileDialog>

namespace hourwright::desktop {

namespace {

using platform::toQString;

constexpr auto defaultSuffix = "pwi";

// "Text Files (*.txt)|*.txt|..." as the toolkit wants it; the patterns between are those in the brackets.
QStringList typeNames() {
    const QStringList parts = toQString(resources::StringId::noteFileTypes).split('|', Qt::SkipEmptyParts);
    QStringList names;
    for (qsizetype i = 0; i < parts.size(); i += 2)
        names.append(parts[i]);
    return names;
}

QString suffixOf(const QString& typeName) {
    return typeName.section("(*.", 1).chopped(1);
}

} // namespace

bool saveNoteAs(Workspace& workspace, std::span<const std::byte> blob, unsigned place,
                const std::filesystem::path& path) {
    const exchange::ExportTarget target{
        .files = workspace.files(), .path = path, .systemLocale = *workspace.locales().system};
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto result = exchange::exportNote(blob, exchange::noteFormat(place), target);
    QApplication::restoreOverrideCursor();
    if (!result.ok())
        workspace.messages().showFailure(resources::StringId::exportNoteFailed);
    return result.ok();
}

void exportNote(Workspace& workspace, std::span<const std::byte> blob, QWidget* parent) {
    QString title = toQString(resources::notes::exportNotes).remove('&');
    title.remove("...");
    QFileDialog dialog(parent, title);
    const QStringList types = typeNames();
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(types);
    dialog.setDefaultSuffix(defaultSuffix);
    dialog.setDirectory(toQString(platform::documentsDirectory(platform::processEnvironment).u16string()));
    // A type that the user chooses himself also gives the ending.
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog](const QString& type) { dialog.setDefaultSuffix(suffixOf(type)); });
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const auto place = static_cast<unsigned>(types.indexOf(dialog.selectedNameFilter()) + 1);
    saveNoteAs(workspace, blob, place, platform::toU16(dialog.selectedFiles().constFirst()));
}

} // namespace hourwright::desktop
