#include <tlm/banking/BankAccountTypes.h>
#include <tlm/foundation/NamedValues.h>

namespace tlm::banking {

using accounting::AccountTypes;

namespace {

constexpr foundation::NamedValues<BankAccountTypes, 6>
    names("tlm::banking", {{{BankAccountTypes::Unspecified, QT_TRANSLATE_NOOP("tlm::banking", "Unspecified")},
                            {BankAccountTypes::Checking, QT_TRANSLATE_NOOP("tlm::banking", "Checking")},
                            {BankAccountTypes::CreditCard, QT_TRANSLATE_NOOP("tlm::banking", "Credit Card")},
                            {BankAccountTypes::Loan, QT_TRANSLATE_NOOP("tlm::banking", "Loan")},
                            {BankAccountTypes::Savings, QT_TRANSLATE_NOOP("tlm::banking", "Savings")},
                            {BankAccountTypes::Goal, QT_TRANSLATE_NOOP("tlm::banking", "Goal")}}});
}

QString presentationText(BankAccountTypes const& type)
{
    return names.text(type);
}

BankAccountTypes toBankAccountTypes(QString const& text)
{
    return text.isEmpty() ? BankAccountTypes::Unspecified : names.read(text);
}

AccountTypes toAccountTypes(BankAccountTypes const& type)
{
    switch (type) {
    case BankAccountTypes::Checking:
    case BankAccountTypes::Savings:
    case BankAccountTypes::Goal:
        return AccountTypes::Asset;
    case BankAccountTypes::CreditCard:
    case BankAccountTypes::Loan:
        return AccountTypes::Liability;
    case BankAccountTypes::Unspecified:
        break;
    }
    return AccountTypes::Suspense;
}

bool isAssetAccount(BankAccountTypes type)
{
    return toAccountTypes(type) == AccountTypes::Asset;
}

QDebug operator<<(QDebug debug, BankAccountTypes const& type)
{
    return names.log(debug, "BankAccountTypes", type);
}
}
