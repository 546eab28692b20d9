#pragma once

#include "internal/Distance.h"

#include <tlm/accounting/AccountCode.h>
#include <tlm/banking/BankName.h>

#include <QString>

#include <optional>

/// Whom a reply is about.
///
/// A reply names a thing by texts that people type, and by then a row may show another one: a refused name, one that was
/// changed since, or none. So each of these tells how far a form, whose row says \a text, is from what a reply names.
namespace tlm::desktop_ui::internal {

class AccountEntryWidget;
class BankEntryWidget;

/// \param code a default one stands for an account without a name
Distance distance(QString const& text, AccountEntryWidget const& form, accounting::AccountCode const& code);

/// Takes what a refusal names.
Distance distance(QString const& text, AccountEntryWidget const& form,
                  std::optional<accounting::AccountCode> const& original,
                  std::optional<accounting::AccountCode> const& displayed);

Distance distance(QString const& text, BankEntryWidget const& form, banking::BankName const& name);

/// Takes what a refusal names.
Distance distance(QString const& text, BankEntryWidget const& form, std::optional<banking::BankName> const& original,
                  std::optional<banking::BankName> const& displayed);

/// \param told names an account that was sent: its whole text, or as much of that as it had
/// \return whether a reply with \a code may be about it
bool isNamed(QString const& told, accounting::AccountCode const& code);

/// \param told names a bank that was sent
bool isNamed(QString const& told, banking::BankName const& name);

/// Takes what a refusal names.
template <typename Name>
bool isNamed(QString const& told, std::optional<Name> const& original, std::optional<Name> const& displayed)
{
    return isNamed(told, displayed ? *displayed : original.value_or(Name()));
}
}
