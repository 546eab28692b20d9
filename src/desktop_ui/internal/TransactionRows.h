#pragma once

#include "internal/TransactionRecords.h"
#include "internal/TransactionRun.h"

#include <tlm/accounting/AccountCode.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/foundation/ScopeExecutor.h>

#include <QHash>
#include <QObject>
#include <QScrollArea>
#include <QVBoxLayout>

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <vector>

namespace tlm::desktop_ui::internal {

/// Makes the forms of a list's entries and lays them out.
///
/// A short list has all its forms at once. In a long one an entry has none until somebody needs it: until it comes near
/// to what is on screen, is asked for, or the keyboard is about to reach it. Until then the list keeps its room, so that it
/// scrolls as if all were there. A form that nobody has touched ends again once it is far away.
class TransactionRows : public QObject
{
public:
    using Index = TransactionRecords::Index;
    using Row = foundation::QtPtr<TransactionWidget>;
    using Make = std::function<Row(TransactionRecord const&)>;

    /// \param layout of the widget in \a area; ends with a spacer, ahead of which the rows go
    /// \param make gives the form of an entry as a child of that widget
    /// All that is given must outlive the rows.
    TransactionRows(QScrollArea& area, QVBoxLayout& layout, TransactionRecords& records, Make make);

    /// Takes in the entries from \a first on.
    void append(Index first);

    /// \return the form of a present entry, made if need be
    TransactionWidget& row(Index index);

    /// \return the forms of present entries, in the order of the entries
    std::vector<Row> existing() const;

    /// \return the first form of a present entry that passes \a test, null when none does
    TransactionWidget* find(std::function<bool(TransactionWidget const&)> const& test) const;

    bool isAnyDirty();

    void setShown(accounting::AccountCode const& ledger, bool isShown);

    /// Makes an entry visible, with a margin; a list that isn't on screen does so as soon as it is.
    void scrollTo(Index index);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr std::size_t mostRows_ = 300; ///< as many forms may exist although nobody needs them

    /// Where the Tab key enters and leaves a form.
    struct TabStops
    {
        foundation::QtPtr<QWidget> first;
        foundation::QtPtr<QWidget> last;
    };

    QWidget& content() const;
    TransactionRun* runAt(int place) const;
    foundation::ScopeExecutor holdLayout();
    void lengthen(Index index);
    void insertRow(int place, Index index);
    void linkTabs(Index index, TransactionWidget& row);
    void forget(Index index);

    bool build(std::vector<Index> const& wanted);
    void split(int place, std::span<Index const> wanted);
    void fitRun(TransactionRun& run) const;
    void fitRuns();
    void measure();
    void remeasure();

    std::vector<Index> wanted() const;
    std::vector<Index> neighbours() const;
    void wantNear(TransactionRun const& run, std::vector<Index>& wanted) const;
    std::optional<Index> focused() const;
    void fill();
    foundation::ScopeExecutor suspendFilling();
    void settle();
    void scrollToAwaited();

    void trim();
    bool isUntouched(Index index) const;
    bool isFarAway(TransactionWidget const& row) const;
    void release(int place, Index index);

    void onFocusChanged(QWidget* before, QWidget* now);
    void reveal(QWidget const& row, QWidget& part);

    QScrollArea& area_;
    QVBoxLayout& layout_;
    TransactionRecords& records_;
    Make make_;
    std::map<Index, TabStops> rows_;
    QHash<QObject const*, Index> indexes_;
    RowHeight height_;
    std::optional<Index> awaited_; ///< what is to be visible once the list is on screen
    Index lastDirty_ = 0;          ///< where isAnyDirty() looks first
    std::size_t trimAbove_;        ///< with more forms than that, trim() runs
    bool isTrimAwaited_ = false;
    bool isFilling_ = false;
};
}
