#include "desktop/lists/row_finder.h"

#include "platform/qt/qt_text.h"

#include <QElapsedTimer>
#include <QStringMatcher>
#include <algorithm>

namespace hourwright::desktop {

namespace {

constexpr qint64 moment = 15; // milliseconds
constexpr std::size_t recordsAtOnce = 2'000;

// Whether a cell has the text, whatever the case of its letters.
class CellMatcher {
public:
    explicit CellMatcher(const QString& text) : matcher_(text, Qt::CaseInsensitive) {}
    bool operator()(std::u16string_view cell) const {
        return matcher_.indexIn(QStringView(cell.data(), static_cast<qsizetype>(cell.size()))) >= 0;
    }

private:
    QStringMatcher matcher_;
};

} // namespace

RowFinder::RowFinder(const Workspace& workspace, QObject* parent) : QObject(parent), workspace_(workspace) {
    connect(&steps_, &QTimer::timeout, this, &RowFinder::step);
}

Found RowFinder::next(const Request& request, std::size_t& position) {
    const bool same = search_ != nullptr && request.text == text_ && request.columns == columns_;
    first_ = request.first;
    if (same && isSearching())
        return Found::searching;
    if (!same || !complete_) {
        forget();
        std::size_t rest = request.rows.size();
        if (const auto row = look(request, rest)) {
            position = *row;
            return Found::yes;
        }
        if (rest == 0)
            return Found::no;
        text_ = request.text;
        columns_ = request.columns;
        search_ = request.rows.search(request.columns, CellMatcher(request.text));
        steps_.start(0);
        return Found::searching;
    }
    const auto row = nextOfFound(first_);
    position = row.value_or(0);
    return row ? Found::yes : Found::no;
}

std::optional<std::size_t> RowFinder::near(const Request& request) {
    std::size_t rest = request.rows.size();
    return look(request, rest);
}

std::optional<std::size_t> RowFinder::look(const Request& request, std::size_t& rest) {
    const CellMatcher matches(request.text);
    const std::size_t count = request.rows.size();
    QElapsedTimer since;
    since.start();
    for (; rest > 0 && since.elapsed() < moment; --rest) {
        const std::size_t row = (request.first + count - rest) % count;
        if (std::ranges::any_of(request.columns,
                                [&](std::size_t column) { return matches(request.rows.cell(row, column)); }))
            return row;
    }
    return std::nullopt;
}

void RowFinder::step() {
    steps_.setInterval(workspace_.isChanging() ? pause : 0);
    if (workspace_.isChanging() || search_->look(recordsAtOnce))
        return;
    steps_.stop();
    complete_ = true;
    emit ended(nextOfFound(first_));
}

std::optional<std::size_t> RowFinder::nextOfFound(std::size_t first) const {
    const auto& found = search_->found();
    if (found.empty())
        return std::nullopt;
    const auto next = std::ranges::lower_bound(found, first);
    return next != found.end() ? *next : found.front();
}

void RowFinder::cancel() {
    if (isSearching())
        forget();
}

void RowFinder::forget() {
    steps_.stop();
    search_.reset();
    complete_ = false;
}

} // namespace hourwright::desktop
