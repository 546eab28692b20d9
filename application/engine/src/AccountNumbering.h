#pragma once

#include <engine/Books.h>

#include <initializer_list>

namespace tallymere::engine {

using BookAccounts = std::map<tlm::accounting::AccountNumber, BookAccount>;

/// \param used accounts that have their numbers already
/// \return the number of the next account of the type \a type: after the largest one of the type's block, or of all
///         accounts where that block is full
/// \throws foundation::Error when no number is left
tlm::accounting::AccountNumber nextNumber(tlm::accounting::AccountTypes type,
                                          std::initializer_list<BookAccounts const*> used);
}
