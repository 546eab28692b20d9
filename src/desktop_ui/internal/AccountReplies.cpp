#include "internal/AccountReplies.h"

#include "internal/AccountEntryWidget.h"

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::AccountNumber;

namespace {

bool isStoredAs(AccountEntryWidget const& form, AccountNumber const& number)
{
    return form.code() && *form.code() == number;
}

/// \return whether the form shows the number, unless that is none
bool shows(AccountEntryWidget const& form, AccountNumber const& number)
{
    return number != AccountNumber() && form.number() == number.integer();
}

bool shows(AccountEntryWidget const& form, AccountCode const& code)
{
    return form.number() == code.number().integer() && form.name() == code.name();
}

/// \return whether the form has no number yet, which its account may have been given with what was accepted
bool waitsForNumber(AccountEntryWidget const& form, AccountCode const& accepted)
{
    return !form.code() && form.number() == AccountNumber::invalid_ &&
           form.name().trimmed() == accepted.name().trimmed();
}
}

std::optional<int> distance(AccountEntryWidget const& form, AccountCode const& accepted)
{
    auto const isStored = isStoredAs(form, accepted.number());
    auto const isShown = shows(form, accepted.number());
    // The numbers tell most forms apart without making a text of each.
    auto const mayShow = isShown || form.number() == accepted.number().integer();
    auto const text = isStored || mayShow ? presentationText(accepted) : QString();
    if ((mayShow && form.displayText() == text) || (isStored && presentationText(*form.code()) == text)) {
        return 0;
    }
    if (isStored) {
        return 1;
    }
    if (isShown) {
        return 2;
    }
    return waitsForNumber(form, accepted) ? std::optional(4) : std::nullopt;
}

std::optional<int> distance(SentAccountChange const& sent, AccountCode const& accepted)
{
    auto const& shown = sent.shown;
    if (shown.name().trimmed() != accepted.name().trimmed()) {
        return std::nullopt;
    }
    if (shown.number() == accepted.number()) {
        return -1; // it is this very change
    }
    return shown.number() == AccountNumber() ? std::optional(3) : std::nullopt;
}

std::optional<int> distance(AccountEntryWidget const& form, std::optional<AccountCode> const& original,
                            std::optional<AccountCode> const& displayed)
{
    auto const refused = displayed.value_or(AccountCode());
    if (original && isStoredAs(form, original->number())) {
        return 0;
    }
    auto const isNew = !original && !form.code();
    if (isNew && shows(form, refused)) {
        return 0;
    }
    if (form.name() == refused.name() || shows(form, original.value_or(AccountCode()))) {
        return isNew ? 1 : 2;
    }
    return shows(form, refused.number()) ? std::optional(3) : std::nullopt;
}

std::optional<int> distance(SentAccountChange const& sent, std::optional<AccountCode> const& original,
                            std::optional<AccountCode> const& displayed)
{
    auto const isNew = sent.change == AccountChange::Add;
    return isNew == !original ? distance(sent, displayed.value_or(AccountCode())) : std::nullopt;
}
}
