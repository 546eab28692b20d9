#pragma once

#include "internal/Distance.h"
#include "internal/FormRows.h"

#include <QString>
#include <QTreeWidgetItem>

#include <algorithm>
#include <deque>
#include <iterator>
#include <limits>

namespace tlm::desktop_ui::internal {

/// A row of a tree.
template <typename Form>
struct TreeRow
{
    QTreeWidgetItem* item;
    Form* form;
    std::deque<QString> awaited;
};

/// The rows of a tree that stand for one kind of thing, each with its form, and what waits for an answer.
/// \tparam Form a QWidget that tells whether it isDirty()
template <typename Form>
class TreeRows : public FormRows<QTreeWidgetItem, Form, TreeRow<Form>>
{
    using Row = TreeRow<Form>;
    using Rows = FormRows<QTreeWidgetItem, Form, Row>;

public:
    using Rows::contains;
    using Rows::formOf;
    using Rows::itemOf;

    /// \param item and \a form stay until remove()
    void add(QTreeWidgetItem* item, Form* form) { Rows::add({item, form, {}}); }

    /// Forgets \a form with its row, and ends neither. Answers to what it sent are for answerGone() from here on.
    void remove(Form const& form)
    {
        std::ranges::move(rowOf(form).awaited, std::back_inserter(gone_));
        Rows::remove(form);
    }

    /// Makes \a form the one that answers are about, most likely, none ends this.
    void setSent(Form const* form) { sent_ = form; }

    /// \return the form of setSent(), nullptr when there is none or it is here no longer
    Form const* sent() const { return contains(sent_) ? sent_ : nullptr; }

    /// The form sends something, to which one answer comes.
    /// \param told names it as the answer will, although the row may say something else by then
    void await(Form const& form, QString const& told)
    {
        (contains(&form) ? rowOf(form).awaited : gone_).push_back(told);
    }

    /// Takes an answer to the first of what the form of \a item waits for, if it does.
    void answer(QTreeWidgetItem const* item)
    {
        if (auto& awaited = rowOf(*formOf(item)).awaited; !awaited.empty()) {
            awaited.pop_front();
        }
    }

    /// Takes an answer to something that a row sent which has gone since.
    /// \param isIt whether a name that was told is the one
    /// \return whether there is such
    template <typename IsIt>
    bool answerGone(IsIt const& isIt)
    {
        auto const found = std::ranges::find_if(gone_, isIt);
        if (found == gone_.end()) {
            return false;
        }
        gone_.erase(found);
        return true;
    }

    struct Found
    {
        QTreeWidgetItem* row = nullptr;
        Distance distance; ///< none when there is no row
    };

    /// \param distance is told a text that a row shows or sent, and the row's form
    /// \return sent() if that is near at all, else the nearest: of equally near ones the first that waits for an answer, else
    ///         the first dirty one, else the first
    template <typename Measure>
    Found nearest(Measure const& distance) const
    {
        if (contains(sent_) && measure(rowOf(*sent_), distance)) {
            return {itemOf(sent_), 0};
        }
        auto const awaiting = nearest(distance, [](Row const& row) { return !row.awaited.empty(); });
        if (awaiting.distance == 0) {
            return awaiting;
        }
        auto const any = nearest(distance, [](Row const& /*row*/) { return true; });
        return any.distance == awaiting.distance ? awaiting : any;
    }

private:
    using Rows::isDirty;
    using Rows::rowOf;
    using Rows::rows;

    template <typename Measure, typename Matches>
    Found nearest(Measure const& distance, Matches const& matches) const
    {
        Found nearest;
        auto least = std::numeric_limits<int>::max();
        for (auto const& row : rows()) {
            auto const found = matches(*row) ? measure(*row, distance) : Distance();
            auto const order = found ? 2 * *found + (isDirty(*row) ? 0 : 1) : least;
            if (order < least) {
                nearest = {row->item, found};
                least = order;
            }
            if (least == 0) {
                break;
            }
        }
        return nearest;
    }

    template <typename Measure>
    static Distance measure(Row const& row, Measure const& distance)
    {
        auto least = distance(row.item->text(0), *row.form);
        for (auto const& told : row.awaited) {
            least = lesser(least, distance(told, *row.form));
        }
        return least;
    }

    std::deque<QString> gone_; ///< what rows that have gone still wait for
    Form const* sent_ = nullptr;
};
}
