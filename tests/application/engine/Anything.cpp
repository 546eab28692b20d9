#include "Anything.h"

#include <vector>

using fiscora::Currency;
using fiscora::Money;
using tlm::banking::BankAccountTypes;

namespace tallymere::engine {

QString anyName()
{
    return isOneOf(15) ? anyOf<QString>({"", " \t", "Odd\nname"})
                       : anyOf<QString>({"Rent", " rent ", "Water", "WATER", "Car", "House", "Gas", "Gas bill",
                                         "gas  bill", "Pots", "Loan", "Card", "Till", "Purse"});
}

Money anyAmount()
{
    return isOneOf(12) ? anyOf<Money>({Money(), dollars(0), -dollars(3), Money(Currency::GBP, 4, 0, 0)})
                       : anyOf<Money>({dollars(1), dollars(2'000, 5), dollars(30), dollars(8), euros(7), euros(12, 34),
                                       Money::fromAmount(Currency::EUR, 1)});
}

QString anyBank()
{
    return isOneOf(10) ? anyOf<QString>({"", "Unknown"}) : anyOf<QString>({"River", "Hill", "Lake", " lake"});
}

BankAccountTypes anyKind()
{
    return static_cast<BankAccountTypes>(pick(0, 6));
}

BooksModel::Number anyNumber(BooksModel const& model)
{
    auto const numbers = model.numbers();
    return numbers.empty() || isOneOf(12) ? anyOf<BooksModel::Number>({0, 77}) : anyOf(numbers);
}

BooksModel::Number anyPeer(BooksModel const& model, BooksModel::Types type, Currency currency)
{
    std::vector<BooksModel::Number> peers;
    for (auto const number : model.numbers()) {
        auto const* const account = model.account(number);
        if (account->type == type && account->currency == currency) {
            peers.push_back(number);
        }
    }
    return peers.empty() || isOneOf(8) ? anyNumber(model) : anyOf(peers);
}
}
