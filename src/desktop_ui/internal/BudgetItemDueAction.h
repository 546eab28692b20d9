#pragma once

namespace tlm::desktop_ui::internal {

/// What is to be done with an occurrence of a budget item.
enum class BudgetItemDueAction : unsigned char
{
    Unknown = 0, ///< nothing has been chosen
    Ignore = 1,  ///< nothing: it stays due
    Process = 2, ///< post it
    Skip = 3     ///< pass over to the next occurrence, without a posting
};
}
