#include "platform/qt/qt_file_dialog.h"

#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QFileDialog>

namespace hourwright::platform {

std::optional<SaveChoice> QtFileDialog::save(const SaveRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), toQString(request.title),
                       QString::fromStdU16String(request.folder.u16string()));
    QStringList filters;
    for (const FileKind& kind : request.kinds)
        filters.append(toQString(kind.name));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(toQString(request.extension));
    // The extension follows the kind, so that each file is named after what is in it.
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        const auto index = filters.indexOf(filter);
        if (index >= 0)
            dialog.setDefaultSuffix(toQString(request.kinds[static_cast<std::size_t>(index)].pattern).mid(2));
    });
    dialog.selectFile(toQString(request.fileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const auto kind = filters.indexOf(dialog.selectedNameFilter());
    return SaveChoice{.file = dialog.selectedFiles().first().toStdU16String(),
                      .kind = static_cast<std::size_t>(std::max<qsizetype>(kind, 0))};
}

} // namespace hourwright::platform
