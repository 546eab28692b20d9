#pragma once

#include "AnyStep.h"
#include "Picks.h"

#include <optional>

/// What steps are made of: mostly what the books take, and now and then what they refuse.
namespace tallymere::engine {

QString anyName();
fiscora::Money anyAmount();
QString anyBank();
tlm::banking::BankAccountTypes anyKind();

/// \return mostly one that an account has
BooksModel::Number anyNumber(BooksModel const& model);

/// \return an account of another one's type and currency where there is any
BooksModel::Number anyPeer(BooksModel const& model, BooksModel::Types type, fiscora::Currency currency);

Step anyPlanning(BooksModel const& model);
Step anyAccountChange(BooksModel const& model);
Step anyNewBankAccount();
Step anyBankChange(BooksModel const& model);
Step anyPostingChange(BooksModel const& model);
}
