#pragma once

#include "internal/Distance.h"

#include <tlm/foundation/QtPtr.h>

#include <QString>
#include <QTreeWidgetItem>

#include <algorithm>
#include <deque>
#include <iterator>
#include <limits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tlm::desktop_ui::internal {

/// The rows of a tree that stand for one kind of thing, each with its form, in the order of adding, and what waits for an
/// answer.
///
/// Rows and forms find each other by what they are, since their texts are typed by people: any two may be equal.
/// \tparam Form a QWidget that tells whether it isDirty()
template <typename Form>
class RowForms
{
public:
    /// \param row and \a form stay until remove()
    void add(QTreeWidgetItem* row, Form* form)
    {
        pairs_.emplace_back(row, form);
        formOf_.emplace(row, form);
        rowOf_.emplace(form, Row{row, {}});
    }

    /// Forgets \a row with its form, and ends neither. Answers to what they sent are for answerGone() from here on.
    void remove(QTreeWidgetItem const* row)
    {
        auto const known = rowOf_.find(find(row));
        std::ranges::move(known->second.awaited, std::back_inserter(gone_));
        rowOf_.erase(known);
        formOf_.erase(row);
        std::erase_if(pairs_, [&](auto const& pair) { return pair.first.get() == row; });
    }

    /// \return the form of \a row, nullptr for a row of another kind
    Form* find(QTreeWidgetItem const* row) const
    {
        auto const found = formOf_.find(row);
        return found == formOf_.end() ? nullptr : found->second;
    }

    /// \return the row of \a form, nullptr for a form that isn't here, or here no longer
    QTreeWidgetItem* find(Form const* form) const
    {
        auto const found = rowOf_.find(form);
        return found == rowOf_.end() ? nullptr : found->second.item;
    }

    /// \return forms as they are now, to walk through while they come and go
    std::vector<foundation::QtPtr<Form>> forms() const
    {
        std::vector<foundation::QtPtr<Form>> forms;
        forms.reserve(pairs_.size());
        for (auto const& pair : pairs_) {
            forms.push_back(pair.second);
        }
        return forms;
    }

    /// Looks from the end, since a walk cleans from the front.
    bool anyDirty() const
    {
        return std::any_of(pairs_.rbegin(), pairs_.rend(), [](auto const& pair) { return pair.second->isDirty(); });
    }

    /// Makes \a form the one that answers are about, most likely, none ends this.
    void setSent(Form const* form) { sent_ = form; }

    /// \return the form of setSent(), nullptr when there is none or it is here no longer
    Form const* sent() const { return find(sent_) == nullptr ? nullptr : sent_; }

    /// The form sends something, to which one answer comes.
    /// \param told names it as the answer will, although the row may say something else by then
    void await(Form const& form, QString const& told)
    {
        auto const known = rowOf_.find(&form);
        (known == rowOf_.end() ? gone_ : known->second.awaited).push_back(told);
    }

    /// Takes an answer to the first of what \a row waits for, if it does.
    void answer(QTreeWidgetItem const* row)
    {
        if (auto& awaited = rowOf_.at(find(row)).awaited; !awaited.empty()) {
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
        if (auto* const row = find(sent_); row != nullptr && measure(*sent_, distance)) {
            return {row, 0};
        }
        auto const awaiting = nearest(distance, [&](Form const& form) { return isAwaiting(form); });
        if (awaiting.distance == 0) {
            return awaiting;
        }
        auto const any = nearest(distance, [](Form const& /*form*/) { return true; });
        return any.distance == awaiting.distance ? awaiting : any;
    }

private:
    struct Row
    {
        QTreeWidgetItem* item;
        std::deque<QString> awaited;
    };

    bool isAwaiting(Form const& form) const { return !rowOf_.at(&form).awaited.empty(); }

    template <typename Measure, typename Matches>
    Found nearest(Measure const& distance, Matches const& matches) const
    {
        Found nearest;
        auto least = std::numeric_limits<int>::max();
        for (auto const& [row, form] : pairs_) {
            auto const found = matches(*form) ? measure(*form, distance) : Distance();
            auto const order = found ? 2 * *found + (form->isDirty() ? 0 : 1) : least;
            if (order < least) {
                nearest = {row.get(), found};
                least = order;
            }
            if (least == 0) {
                break;
            }
        }
        return nearest;
    }

    template <typename Measure>
    Distance measure(Form const& form, Measure const& distance) const
    {
        auto const& [item, awaited] = rowOf_.at(&form);
        auto least = distance(item->text(0), form);
        for (auto const& told : awaited) {
            least = lesser(least, distance(told, form));
        }
        return least;
    }

    std::vector<std::pair<foundation::QtPtr<QTreeWidgetItem>, foundation::QtPtr<Form>>> pairs_;
    std::unordered_map<QTreeWidgetItem const*, Form*> formOf_;
    std::unordered_map<Form const*, Row> rowOf_;
    std::deque<QString> gone_; ///< what rows that have gone still wait for
    Form const* sent_ = nullptr;
};
}
