#pragma once

#include <QSpacerItem>

#include <cstddef>

class QWidget;

namespace tlm::desktop_ui::internal {

/// How much room a row takes, in pixels.
struct RowHeight
{
    int minimum = 0;
    int preferred = 0;

    friend bool operator==(RowHeight const&, RowHeight const&) = default;
};

/// \return how much room a layout gives \a row
RowHeight heightOf(QWidget& row);

/// Takes the room of neighbouring entries of a list that have no form.
class TransactionRun : public QSpacerItem
{
public:
    /// Takes no room yet. \param first and \param last are the entries' indexes, both included
    TransactionRun(std::size_t first, std::size_t last);

    std::size_t first() const noexcept { return first_; }
    std::size_t last() const noexcept { return last_; }
    void setFirst(std::size_t first) noexcept { first_ = first; }
    void setLast(std::size_t last) noexcept { last_ = last; }

    /// \param rows that are shown of the entries
    void fit(std::size_t rows, RowHeight const& row, int spacing);

    QSize minimumSize() const override;

private:
    std::size_t first_;
    std::size_t last_;
    int minimum_ = 0;
};
}
