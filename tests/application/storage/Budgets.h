#pragma once

#include <engine/BudgetContent.h>
#include <engine/Posting.h>
#include <storage/Document.h>

#include <vector>

namespace tallymere::storage::testing {

/// The current account, in euros, from which bills are paid.
inline constexpr tlm::accounting::AccountNumber current{1001};

/// \return what a budget of version 1 could hold: an item of each type, three currencies and rates of both origins, but no
///         books
engine::BudgetContent planOnly();

/// \return planOnly() with an account for each item, two banks, one of them closed, and no postings
engine::BudgetContent household();

/// \return postings for household(), of every status, one made from an item
std::vector<engine::Posting> postings();

/// \return household() with the turnovers that postings() make
engine::BudgetContent bookkeeping();

/// Has the turnovers of \a content count \a counted.
void count(engine::BudgetContent& content, std::vector<engine::Posting> const& counted);

engine::BookAccount account(unsigned int number, QString const& name, tlm::accounting::AccountTypes type,
                            fiscora::Currency currency = fiscora::Currency::EUR);

/// \return the bill number \a number of a series, with an account of its own
engine::PlannedItem numberedBill(int number);

/// \return the payment of numberedBill(), once
engine::Posting payment(int number);

/// \return a household that plans numberedBill() 0 to \a count - 1, each paid, and nothing else
engine::BudgetContent billsOnly(int count);

/// \return the payments that the turnovers of billsOnly() count
std::vector<engine::Posting> payments(int count);

/// Plans numberedBill() and pays it, in one transaction.
void plan(Document& document, int number);

/// Undoes plan().
void drop(Document& document, int number);
}
