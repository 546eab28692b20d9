#include "internal/TransactionRows.h"

#include "internal/TabStops.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>

#include <algorithm>
#include <memory>
#include <utility>

namespace tlm::desktop_ui::internal {

using foundation::ScopeExecutor;

namespace {

constexpr auto scrollMargin = 50;

/// \return what can take the focus ahead of \a stop; Qt puts nothing behind what can't
QWidget* lastStopBefore(QWidget const& stop)
{
    auto* before = stop.previousInFocusChain();
    while (before != &stop && before->focusPolicy() == Qt::NoFocus) {
        before = before->previousInFocusChain();
    }
    return before;
}

}

TransactionRows::TransactionRows(QScrollArea& area, QVBoxLayout& layout, TransactionRecords& records, Make make)
    : area_(area), layout_(layout), records_(records), make_(std::move(make)), trimAbove_(mostRows_)
{
    area_.viewport()->installEventFilter(this);
    content().installEventFilter(this);
    connect(area_.verticalScrollBar(), &QScrollBar::valueChanged, this, &TransactionRows::fill);
    connect(qApp, &QApplication::focusChanged, this, &TransactionRows::onFocusChanged);
}

QWidget& TransactionRows::content() const
{
    return *layout_.parentWidget();
}

TransactionRun* TransactionRows::runAt(int place) const
{
    return dynamic_cast<TransactionRun*>(layout_.itemAt(place));
}

void TransactionRows::append(Index first)
{
    // The rows wrap, so that the list is as high as it prefers to be, and would end in an empty screen.
    layout_.itemAt(layout_.count() - 1)->spacerItem()->changeSize(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding);
    auto const added = records_.size() - first;
    auto const isShort = rows_.size() + added <= mostRows_;
    auto const over = holdLayout();
    for (auto index = first; index < records_.size(); ++index) {
        if (isShort || !records_.at(index).number) {
            insertRow(layout_.count() - 1, index);
        } else {
            lengthen(index);
        }
    }
    if (!isShort && height_ == RowHeight()) {
        build({first}); // to be measured
        remeasure();
    } else if (auto* const run = runAt(layout_.count() - 2)) {
        fitRun(*run);
        layout_.invalidate();
    }
}

/// \return keeps the layout from going over all rows whenever one of them is shown
ScopeExecutor TransactionRows::holdLayout()
{
    auto const wasEnabled = layout_.isEnabled();
    layout_.setEnabled(false);
    return ScopeExecutor([this, wasEnabled] { layout_.setEnabled(wasEnabled); });
}

void TransactionRows::lengthen(Index index)
{
    auto const end = layout_.count() - 1;
    if (auto* const run = runAt(end - 1)) {
        run->setLast(index);
    } else {
        layout_.insertItem(end, std::make_unique<TransactionRun>(index, index).release());
    }
}

void TransactionRows::insertRow(int place, Index index)
{
    // To move a stop of the Tab key Qt goes back to the one ahead of it, over all that takes no focus, which stays behind when
    // the stops of its row move: the longer, the more rows there are. This ends the way.
    QWidget barrier(&content());
    barrier.setFocusPolicy(Qt::ClickFocus);
    auto& record = records_.at(index);
    record.row = make_(record);
    auto& row = *record.row;
    linkTabs(index, row);
    indexes_.insert(&row, index);
    connect(&row, &QObject::destroyed, this, [this, index](QObject* ended) {
        indexes_.remove(ended);
        forget(index);
    });
    if (!record.isShown) {
        row.hide();
    }
    layout_.insertWidget(place, &row);
    if (record.isShown && content().isVisible()) {
        row.show();
    }
}

/// What was made last comes last by itself.
void TransactionRows::linkTabs(Index index, TransactionWidget& row)
{
    auto const stops = tabStopsOfNew(row);
    auto const place = rows_.insert_or_assign(index, TabStops{stops.front(), stops.back()}).first;
    auto const next = std::next(place);
    if (next == rows_.end() || !next->second.first) {
        return;
    }
    auto* before = lastStopBefore(*next->second.first);
    if (place != rows_.begin() && std::prev(place)->second.last) {
        before = std::prev(place)->second.last.get();
    }
    for (auto* const stop : stops) {
        QWidget::setTabOrder(before, stop);
        before = stop;
    }
}

void TransactionRows::forget(Index index)
{
    rows_.erase(index);
    if (!records_.at(index).isGone) {
        records_.forget(index);
    }
}

TransactionWidget& TransactionRows::row(Index index)
{
    if (!records_.at(index).row) {
        build({index});
    }
    return *records_.at(index).row;
}

auto TransactionRows::existing() const -> std::vector<Row>
{
    std::vector<Row> rows;
    rows.reserve(rows_.size());
    for (auto const& [index, stops] : rows_) {
        if (auto const& record = records_.at(index); !record.isGone) {
            rows.push_back(record.row);
        }
    }
    return rows;
}

TransactionWidget* TransactionRows::find(std::function<bool(TransactionWidget const&)> const& test) const
{
    for (auto const& [index, stops] : rows_) {
        if (auto const& record = records_.at(index); !record.isGone && test(*record.row)) {
            return record.row.get();
        }
    }
    return nullptr;
}

/// Looks from the end, since a walk cleans its entries from the front.
bool TransactionRows::isAnyDirty()
{
    auto const isDirty = [this](Index index) {
        auto const& record = records_.at(index);
        return !record.isGone && record.row && record.row->isDirty();
    };
    if (lastDirty_ < records_.size() && isDirty(lastDirty_)) {
        return true;
    }
    auto const found = std::find_if(rows_.rbegin(), rows_.rend(), [&](auto const& row) { return isDirty(row.first); });
    if (found == rows_.rend()) {
        return false;
    }
    lastDirty_ = found->first;
    return true;
}

/// From the last row on: a row that is hidden hands the focus to the next one, which then isn't of this ledger.
void TransactionRows::setShown(accounting::AccountCode const& ledger, bool isShown)
{
    auto const over = suspendFilling();
    if (records_.setShown(ledger, isShown)) {
        fitRuns();
    }
    auto rows = existing();
    std::ranges::reverse(rows);
    for (auto const& row : rows) {
        if (row && row->ledger().number() == ledger.number()) {
            row->setVisible(isShown);
        }
    }
}

void TransactionRows::scrollTo(Index index)
{
    if (!content().isVisible()) {
        awaited_ = index;
        return;
    }
    auto& entry = row(index);
    settle();
    // An entry that is wider than the list would be moved aside, and its day out of sight.
    auto const aside = area_.horizontalScrollBar()->value();
    area_.ensureWidgetVisible(&entry, scrollMargin, scrollMargin);
    area_.horizontalScrollBar()->setValue(aside);
    fill();
}

void TransactionRows::scrollToAwaited()
{
    auto const index = content().isVisible() ? std::exchange(awaited_, std::nullopt) : std::nullopt;
    if (index && records_.at(*index).isShown && !records_.at(*index).isGone) {
        scrollTo(*index);
    }
}

bool TransactionRows::eventFilter(QObject* watched, QEvent* event)
{
    auto const type = event->type();
    if (watched == &content()) {
        if (type == QEvent::LayoutRequest) {
            fill();
        }
    } else if (type == QEvent::Resize || type == QEvent::Show) {
        fill();
        scrollToAwaited();
    }
    return QObject::eventFilter(watched, event);
}

/// \param wanted entries in ascending order
/// \return whether any of them had no form until now
bool TransactionRows::build(std::vector<Index> const& wanted)
{
    auto const before = rows_.size();
    auto const over = holdLayout();
    // From the last on, so that the places of those to come stay.
    for (auto place = layout_.count() - 1; place >= 0; --place) {
        if (auto const* const run = runAt(place)) {
            auto const from = std::ranges::lower_bound(wanted, run->first());
            auto const to = std::upper_bound(from, wanted.end(), run->last());
            if (from != to) {
                split(place, {from, to});
            }
        }
    }
    return rows_.size() != before;
}

/// \param wanted entries of the run at \a place
void TransactionRows::split(int place, std::span<Index const> wanted)
{
    auto& run = *runAt(place);
    auto const end = run.last() + 1;
    auto const isLed = run.first() < wanted.front();
    auto next = place;
    if (isLed) {
        run.setLast(wanted.front() - 1);
        fitRun(run);
        ++next;
    } else {
        std::unique_ptr<QLayoutItem> const spent(layout_.takeAt(place));
    }
    for (std::size_t each = 0; each < wanted.size(); ++each) {
        auto const first = wanted[each] + 1;
        auto const last = each + 1 < wanted.size() ? wanted[each + 1] : end;
        if (first < last) {
            auto rest = std::make_unique<TransactionRun>(first, last - 1);
            fitRun(*rest);
            layout_.insertItem(next, rest.release());
        }
        insertRow(next, wanted[each]);
        next += first < last ? 2 : 1;
    }
}

void TransactionRows::fitRun(TransactionRun& run) const
{
    auto const shown = records_.rankOf(run.last() + 1) - records_.rankOf(run.first());
    run.fit(shown, height_, layout_.spacing());
}

void TransactionRows::fitRuns()
{
    for (auto place = 0; place < layout_.count(); ++place) {
        if (auto* const run = runAt(place)) {
            fitRun(*run);
        }
    }
    layout_.invalidate();
}

/// A message makes a row higher, so only a row without one tells.
void TransactionRows::measure()
{
    if (auto* const row = find([](auto const& each) { return !each.hasError() && !each.isHidden(); })) {
        height_ = heightOf(*row);
    }
}

void TransactionRows::remeasure()
{
    auto const before = height_;
    measure();
    if (height_ != before) {
        fitRuns();
    }
}

/// Lays the list out at once, where Qt would wait for events and give places that have been.
void TransactionRows::settle()
{
    layout_.activate();
    QEvent fit(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(&area_, &fit);
}
}
