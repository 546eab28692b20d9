#include "Transfers.h"

#include "PostingRules.h"
#include "Refuse.h"

#include <fiscora/Conversions.h>
#include <tlm/foundation/Error.h>
#include <tlm/foundation/PresentationText.h>

#include <stdexcept>

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountNumber;
using tlm::conversion::AllowExpiredConversion;
using tlm::conversion::ConversionMap;
using tlm::foundation::presentationText;
using tlm::foundation::WithCurrency;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("Transfers", text);
}

void checkChosen(Transfer const& transfer)
{
    if (transfer.from == AccountNumber()) {
        refuse(tr("No account is chosen from which the money comes. Choose one."));
    }
    if (transfer.to == AccountNumber()) {
        refuse(tr("No account is chosen to which the money goes. Choose one."));
    }
    if (transfer.from == transfer.to) {
        refuse(tr("Money can't be moved from an account to itself. Choose two accounts."));
    }
    if (transfer.amount <= 0) {
        refuse(tr("The amount to move isn't above zero. Enter one that is."));
    }
}

/// \return what \a amount is worth, in whole minor units
Money converted(Money const& amount, Currency to, ConversionMap const& rates)
{
    auto const& from = amount.code();
    if (!rates.hasConversion(from, to, AllowExpiredConversion{true})) {
        refuse(tr("There is no rate from %1 to %2. Enter what one %1 is worth in %2 among the exchange rates.")
                   .arg(presentationText(from), presentationText(to)));
    }
    fiscora::registerConversion(from, to, rates.conversion(from, to)); // another household may have been made since
    try {
        return *fiscora::convertToMinorUnits(amount, to);
    } catch (std::overflow_error const& overflow) {
        throw tlm::foundation::Error(tr("%1 are worth more in %2 than can be counted. Move a smaller amount.")
                                         .arg(presentationText(amount, WithCurrency()), presentationText(to)),
                                     overflow);
    }
}

Posting posting(Transfer const& transfer, AccountNumber const& debiting, AccountNumber const& crediting,
                Money const& amount)
{
    Posting made;
    made.occurredOn = transfer.transferredOn;
    made.debiting = debiting;
    made.crediting = crediting;
    made.amount = amount;
    made.description = transfer.reason.trimmed().isEmpty() ? tr("Transfer") : transfer.reason;
    return made;
}
}

void Transfers::add(Transfer const& transfer, ConversionMap const& rates)
{
    checkChosen(transfer);
    auto const whole = posting(transfer, transfer.to, transfer.from, transfer.amount);
    auto const& from = chart_.account(transfer.from);
    auto const& to = chart_.account(transfer.to);
    rules::checkDay(whole);
    rules::checkSide(whole, from);
    rules::checkOpen(to);
    if (from.currency == to.currency) {
        draft_.post(whole);
        return;
    }
    postAcross(transfer, to.currency, rates);
}

void Transfers::postAcross(Transfer const& transfer, Currency to, ConversionMap const& rates)
{
    auto const worth = converted(transfer.amount, to, rates);
    if (worth == 0) {
        refuse(tr("%1 come to nothing in %2. Move a larger amount.")
                   .arg(presentationText(transfer.amount, WithCurrency()), presentationText(to)));
    }
    draft_.post(posting(transfer, exchange(transfer.amount.code()), transfer.from, transfer.amount));
    draft_.post(posting(transfer, transfer.to, exchange(to), worth));
}

AccountNumber Transfers::exchange(Currency currency)
{
    return draft_.purposeful(AccountPurposes::Exchange, currency, tr("Exchange (%1)").arg(presentationText(currency)));
}
}
