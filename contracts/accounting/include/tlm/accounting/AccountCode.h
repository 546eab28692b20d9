#pragma once

#include <tlm/accounting/AccountNumber.h>

#include <QDebug>
#include <QString>

#include <compare>
#include <optional>
#include <set>

namespace tlm::accounting {

/// Identity of a ledger account: its number, its name, and the number of the account that it is part of.
///
/// Ordered by number, then name, then parent. A default code has no number, no name and no parent.
class AccountCode
{
public:
    /// Parts number and name in a code's text: a middle dot between two en spaces.
    ///
    /// It reads well in a list and no keyboard types it. Names can't hold its blanks, so a text has it once at most.
    static inline QString const separator_ = QStringLiteral(u"\u2002\u00B7\u2002");

    AccountCode() = default;

    /// \throws foundation::Error with a sentence for the person who typed, when \a name is blank, holds control
    ///         characters, or holds the blank of the separator
    AccountCode(AccountNumber number, QString name, std::optional<AccountNumber> parent);

    /// A code for a name that has no usable number yet. Throws as the constructor above.
    AccountCode(QString name, std::optional<AccountNumber> parent);

    AccountNumber const& number() const noexcept { return number_; }
    QString const& name() const noexcept { return name_; }
    std::optional<AccountNumber> const& parent() const noexcept { return parent_; }

    friend bool operator==(AccountCode const&, AccountCode const&) = default;
    friend std::strong_ordering operator<=>(AccountCode const&, AccountCode const&) = default;

    /// Compares the number alone.
    friend bool operator==(AccountCode const& code, AccountNumber const& number) noexcept
    {
        return code.number_ == number;
    }

private:
    friend std::optional<AccountCode> find(AccountNumber const& number, std::set<AccountCode> const& codes);

    AccountNumber number_;
    QString name_;
    std::optional<AccountNumber> parent_;
};

/// \return the number's text, the separator and the name
QString presentationText(AccountCode const& code);

/// Reads back what presentationText() gave, but for the parent, which that text doesn't tell.
/// \throws foundation::Error when \a text is none of a code
AccountCode toAccountCode(QString const& text);

/// \return the first of \a codes with the number \a number, empty when none has it
std::optional<AccountCode> find(AccountNumber const& number, std::set<AccountCode> const& codes);

QDebug operator<<(QDebug debug, AccountCode const& code);
}
