#include "desktop/bulk/bulk_run.h"

#include "desktop/bulk/progress_window.h"
#include "platform/qt/qt_text.h"

namespace hourwright::desktop {

using resources::StringId;

void tellCount(Workspace& workspace, StringId countMessage, std::size_t count) {
    workspace.messages().show({.id = countMessage,
                               .text = platform::withNumber(countMessage, static_cast<std::int32_t>(count)),
                               .icon = platform::Icon::information});
}

void runBulk(Workspace& workspace, QWidget* parent, std::u16string_view undoName, StringId countMessage,
             const BulkStep& step) {
    std::optional<std::size_t> count;
    bool changed = false;
    {
        ProgressWindow window(platform::toQString(StringId::updatingRecords), parent);
        changed = workspace.change(undoName, [&](platform::Transaction& transaction) {
            count = step(transaction, [&window](std::size_t walked) { window.advance(walked); });
            return count.has_value();
        });
    }
    if (changed)
        tellCount(workspace, *count == 0 ? StringId::noneMatched : countMessage, *count);
}

} // namespace hourwright::desktop
