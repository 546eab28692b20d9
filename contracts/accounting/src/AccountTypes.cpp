#include <tlm/accounting/AccountTypes.h>
#include <tlm/foundation/NamedValues.h>

namespace tlm::accounting {

namespace {

constexpr foundation::NamedValues<AccountTypes, 6>
    names("tlm::accounting", {{{AccountTypes::Suspense, QT_TRANSLATE_NOOP("tlm::accounting", "Suspense")},
                               {AccountTypes::Asset, QT_TRANSLATE_NOOP("tlm::accounting", "Asset")},
                               {AccountTypes::Equity, QT_TRANSLATE_NOOP("tlm::accounting", "Equity")},
                               {AccountTypes::Expense, QT_TRANSLATE_NOOP("tlm::accounting", "Expense")},
                               {AccountTypes::Liability, QT_TRANSLATE_NOOP("tlm::accounting", "Liability")},
                               {AccountTypes::Income, QT_TRANSLATE_NOOP("tlm::accounting", "Income")}}});
}

QString presentationText(AccountTypes const& type)
{
    return names.text(type);
}

AccountTypes toAccountTypes(QString const& text)
{
    return names.read(text);
}

QDebug operator<<(QDebug debug, AccountTypes const& type)
{
    return names.log(debug, "AccountTypes", type);
}
}
