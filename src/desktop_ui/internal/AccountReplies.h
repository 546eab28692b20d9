#pragma once

#include "internal/Distance.h"

#include <tlm/accounting/AccountCode.h>

#include <optional>

/// Which form a reply about a ledger account means.
///
/// A reply names an account by what people type. By then a form may show something else: a refused name, one that was
/// changed since, or none. So each distance() tells how far a form, or what it sent, is from what a reply names.
namespace tlm::desktop_ui::internal {

class AccountEntryWidget;

/// What the form of an account asks for.
enum class AccountChange : unsigned char
{
    Close,
    Open,
    Remove,
    Add,
    Recode
};

/// A change that a form sent.
struct SentAccountChange
{
    AccountChange change;
    accounting::AccountCode shown; ///< as the form showed it then
};

/// \param accepted as it is stored now
Distance distance(AccountEntryWidget const& form, accounting::AccountCode const& accepted);
Distance distance(SentAccountChange const& sent, accounting::AccountCode const& accepted);

/// \param original none for an account that isn't stored
/// \param displayed what was refused, as far as it made a code
Distance distance(AccountEntryWidget const& form, std::optional<accounting::AccountCode> const& original,
                  std::optional<accounting::AccountCode> const& displayed);
Distance distance(SentAccountChange const& sent, std::optional<accounting::AccountCode> const& original,
                  std::optional<accounting::AccountCode> const& displayed);
}
