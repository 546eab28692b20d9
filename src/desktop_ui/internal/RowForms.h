#pragma once

#include "internal/Distance.h"

#include <tlm/foundation/QtPtr.h>

#include <QString>
#include <QTreeWidgetItem>

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tlm::desktop_ui::internal {

/// The rows of a tree that stand for one kind of thing, each with its form, in the order of adding.
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

    /// Forgets \a row with its form, and ends neither.
    void remove(QTreeWidgetItem const* row)
    {
        rowOf_.erase(find(row));
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

    /// Makes \a form the one that answers are about, most likely, none ends this. What its row says is kept for answers
    /// that come when the row says something else.
    void setSent(Form const* form)
    {
        sent_ = form;
        if (auto const found = rowOf_.find(form); found != rowOf_.end()) {
            found->second.sentText = found->second.item->text(0);
        }
    }

    /// \return the form of setSent(), nullptr when there is none or it is here no longer
    Form const* sent() const { return find(sent_) == nullptr ? nullptr : sent_; }

    /// \return the row of sent() if that is near at all, else the nearest, a dirty one and the first among several
    /// \param distance is told a text that a row shows or was sent with, and the row's form
    template <typename Measure>
    QTreeWidgetItem* nearest(Measure const& distance) const
    {
        if (auto* const row = find(sent_); row != nullptr && measure(*row, *sent_, distance)) {
            return row;
        }
        QTreeWidgetItem* nearest = nullptr;
        auto least = std::numeric_limits<int>::max();
        for (auto const& [row, form] : pairs_) {
            auto const found = measure(*row, *form, distance);
            auto const order = found ? 2 * *found + (form->isDirty() ? 0 : 1) : least;
            if (order < least) {
                nearest = row.get();
                least = order;
            }
        }
        return nearest;
    }

private:
    struct Row
    {
        QTreeWidgetItem* item;
        QString sentText; ///< null as long as it wasn't sent
    };

    template <typename Measure>
    Distance measure(QTreeWidgetItem const& row, Form const& form, Measure const& distance) const
    {
        auto const shown = distance(row.text(0), form);
        auto const& sentText = rowOf_.at(&form).sentText;
        auto const sent = sentText.isNull() ? Distance() : distance(sentText, form);
        return lesser(shown, sent);
    }

    std::vector<std::pair<foundation::QtPtr<QTreeWidgetItem>, foundation::QtPtr<Form>>> pairs_;
    std::unordered_map<QTreeWidgetItem const*, Form*> formOf_;
    std::unordered_map<Form const*, Row> rowOf_;
    Form const* sent_ = nullptr;
};
}
