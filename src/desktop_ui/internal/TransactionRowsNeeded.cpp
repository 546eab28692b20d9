#include "internal/TransactionRows.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <memory>
#include <utility>

// Which entries of a list have forms as it scrolls, and as the keyboard goes through it.

namespace tlm::desktop_ui::internal {

using foundation::ScopeExecutor;

namespace {

/// What the mouse drops into a field reaches it without a word.
bool hasModifiedField(TransactionWidget const& row)
{
    return std::ranges::any_of(row.findChildren<QLineEdit const*>(), &QLineEdit::isModified);
}
}

/// \return entries that need a form now but have none, in ascending order
auto TransactionRows::wanted() const -> std::vector<Index>
{
    auto wanted = neighbours();
    for (auto place = 0; place < layout_.count(); ++place) {
        if (auto const* const run = runAt(place)) {
            wantNear(*run, wanted);
        }
    }
    std::erase_if(wanted, [this](Index index) { return static_cast<bool>(records_.at(index).row); });
    std::ranges::sort(wanted);
    wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
    return wanted;
}

/// \return where the Tab key may go next: the entries around the one that has it, and both ends of the list, where it comes
///         in from outside
auto TransactionRows::neighbours() const -> std::vector<Index>
{
    auto const& shown = records_.shown();
    if (shown.empty()) {
        return {};
    }
    std::vector<Index> found{shown.front(), shown.back()};
    if (auto const index = focused()) {
        auto const rank = records_.rankOf(*index);
        auto const from = rank > 0 ? rank - 1 : 0;
        for (auto each = from; each < std::min(rank + 2, shown.size()); ++each) {
            found.push_back(shown[each]);
        }
    }
    return found;
}

/// Wants those of \a run that are on screen, or a page away from it.
void TransactionRows::wantNear(TransactionRun const& run, std::vector<Index>& wanted) const
{
    auto const& shown = records_.shown();
    auto const begin = records_.rankOf(run.first());
    auto const count = static_cast<qint64>(records_.rankOf(run.last() + 1) - begin);
    auto const room = run.geometry();
    auto const page = area_.viewport()->height();
    auto const top = area_.verticalScrollBar()->value() - page;
    auto const bottom = top + 3 * page;
    if (count == 0 || room.height() <= 0 || room.bottom() < top || room.top() > bottom) {
        return;
    }
    // At least, since a list that waits for its layout has no room for its rows yet.
    auto const step = std::max(qint64(height_.minimum + layout_.spacing()), room.height() / count);
    auto const placeOf = [&](int y) { return std::clamp((y - room.top()) / step, qint64(0), count - 1); };
    for (auto place = placeOf(top); place <= placeOf(bottom); ++place) {
        wanted.push_back(shown[begin + static_cast<std::size_t>(place)]);
    }
}

auto TransactionRows::focused() const -> std::optional<Index>
{
    for (auto const* part = area_.window()->focusWidget(); part != nullptr; part = part->parentWidget()) {
        if (auto const found = indexes_.constFind(part); found != indexes_.constEnd()) {
            return *found;
        }
    }
    return std::nullopt;
}

/// Makes what is needed, as far as it has no form.
void TransactionRows::fill()
{
    if (isFilling_ || !content().isVisible()) {
        return;
    }
    auto const over = suspendFilling();
    remeasure();
    settle();
    if (build(wanted())) {
        settle();
    }
    if (rows_.size() > trimAbove_ && !isTrimAwaited_) {
        isTrimAwaited_ = true;
        // Not now, since a form may be scrolling this, and not among posted events, all of which Qt goes through for each
        // widget that ends.
        QTimer::singleShot(0, this, &TransactionRows::trim);
    }
}

ScopeExecutor TransactionRows::suspendFilling()
{
    return ScopeExecutor([this, wasFilling = std::exchange(isFilling_, true)] { isFilling_ = wasFilling; });
}

/// Ends forms that nobody needs any longer, so that scrolling through a long list takes no more memory than the screen.
void TransactionRows::trim()
{
    auto needed = neighbours();
    std::ranges::sort(needed);
    for (auto place = layout_.count() - 1; place >= 0; --place) {
        auto const found = indexes_.constFind(layout_.itemAt(place)->widget());
        if (found != indexes_.constEnd()) {
            auto const index = *found;
            if (!std::ranges::binary_search(needed, index) && isUntouched(index) &&
                isFarAway(*records_.at(index).row)) {
                release(place, index);
            }
        }
    }
    isTrimAwaited_ = false;
    trimAbove_ = rows_.size() + mostRows_;
    fitRuns();
}

bool TransactionRows::isUntouched(Index index) const
{
    auto const& record = records_.at(index);
    auto const& row = *record.row;
    return !record.isGone && record.number && !record.wasAnswered && !row.isDirty() && !row.isSelected() &&
           !row.hasError() && !row.isAncestorOf(row.window()->focusWidget()) && !hasModifiedField(row);
}

bool TransactionRows::isFarAway(TransactionWidget const& row) const
{
    auto const page = area_.viewport()->height();
    auto const top = area_.verticalScrollBar()->value() - 2 * page;
    return row.isHidden() || row.geometry().bottom() < top || row.y() > top + 5 * page;
}

/// The entry is one with its neighbours that have no form either.
void TransactionRows::release(int place, Index index)
{
    std::unique_ptr<TransactionWidget> const row(records_.at(index).row.get());
    disconnect(row.get(), &QObject::destroyed, this, nullptr);
    rows_.erase(index);
    indexes_.remove(row.get());
    records_.at(index).row = nullptr;
    std::unique_ptr<QLayoutItem> const item(layout_.takeAt(place));
    auto* const after = runAt(place);
    auto* const before = place > 0 ? runAt(place - 1) : nullptr;
    if (after != nullptr && before != nullptr) {
        after->setFirst(before->first());
        std::unique_ptr<QLayoutItem> const merged(layout_.takeAt(place - 1));
    } else if (after != nullptr) {
        after->setFirst(index);
    } else if (before != nullptr) {
        before->setLast(index);
    } else {
        layout_.insertItem(place, std::make_unique<TransactionRun>(index, index).release());
    }
}

/// Makes the rows that the Tab key may reach from \a now, and keeps what the keyboard reached on screen. A click is already
/// where the person looks, and so is what has the focus when the window gets it back.
void TransactionRows::onFocusChanged(QWidget* before, QWidget* now)
{
    auto const index = now != nullptr && content().isAncestorOf(now) ? focused() : std::nullopt;
    if (!index || isFilling_ || !content().isVisible()) {
        return;
    }
    fill();
    if (before != nullptr && QApplication::mouseButtons() == Qt::NoButton) {
        reveal(*records_.at(*index).row, *now);
    }
}

void TransactionRows::reveal(QWidget const& row, QWidget& part)
{
    auto const left = part.mapTo(&content(), QPoint()).x();
    area_.ensureVisible(left, row.y() + row.height(), 0, 0);
    area_.ensureVisible(left, row.y(), 0, 0);
    area_.ensureWidgetVisible(&part, 0, 0);
}
}
