#pragma once

#include <tlm/foundation/QtPtr.h>

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tlm::desktop_ui::internal {

/// The rows of a list or a tree with their forms, in the order of adding.
///
/// Rows and forms find each other by what they are, since their texts are typed by people: any two may be equal.
/// \tparam Form a QWidget that tells whether it isDirty()
/// \tparam Row has pointers to an Item, `item`, and to a Form, `form`
template <typename Item, typename Form, typename Row>
class FormRows
{
public:
    bool contains(Form const* form) const { return rowOf_.contains(form); }

    /// \return the form of \a item, nullptr for an item that isn't here
    Form* formOf(Item const* item) const
    {
        auto const found = rowAt_.find(item);
        return found == rowAt_.end() ? nullptr : found->second->form;
    }

    /// \return the item of \a form, nullptr for a form that isn't here, or here no longer
    Item* itemOf(Form const* form) const
    {
        auto const found = rowOf_.find(form);
        return found == rowOf_.end() ? nullptr : found->second->item;
    }

    /// \return forms as they are now, to walk through while they come and go
    std::vector<foundation::QtPtr<Form>> forms() const
    {
        std::vector<foundation::QtPtr<Form>> forms;
        forms.reserve(rows_.size());
        for (auto const& row : rows_) {
            forms.emplace_back(row->form);
        }
        return forms;
    }

    /// Asked for each answer of a walk: the form found last is mostly dirty still, since the walk cleans from the front.
    bool anyDirty() const
    {
        if (contains(lastDirty_) && lastDirty_->isDirty()) {
            return true;
        }
        auto const found = std::find_if(rows_.rbegin(), rows_.rend(), [](auto const& row) { return isDirty(*row); });
        lastDirty_ = found == rows_.rend() ? nullptr : (*found)->form;
        return lastDirty_ != nullptr;
    }

protected:
    FormRows() = default;

    /// \param row whose item and form stay until remove()
    void add(Row row)
    {
        auto const& added = rows_.emplace_back(std::make_unique<Row>(std::move(row)));
        rowOf_.emplace(added->form, added.get());
        rowAt_.emplace(added->item, added.get());
    }

    /// Forgets \a form with its item, and ends neither.
    void remove(Form const& form)
    {
        auto const* const row = &rowOf(form);
        rowAt_.erase(row->item);
        rowOf_.erase(&form);
        std::erase_if(rows_, [row](auto const& each) { return each.get() == row; });
    }

    std::vector<std::unique_ptr<Row>> const& rows() const { return rows_; }
    Row& rowOf(Form const& form) const { return *rowOf_.at(&form); }
    static bool isDirty(Row const& row) { return row.form->isDirty(); }

private:
    std::vector<std::unique_ptr<Row>> rows_;
    std::unordered_map<Form const*, Row*> rowOf_;
    std::unordered_map<Item const*, Row*> rowAt_;
    mutable Form const* lastDirty_ = nullptr; ///< where anyDirty() looks first
};
}
