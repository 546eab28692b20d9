#pragma once

#include "BooksModel.h"

#include <engine/Household.h>

#include <functional>

namespace tallymere::engine {

/// A change, and the same to the model, which tells whether the books take it.
struct Step
{
    std::function<void(Household&)> change;
    std::function<bool(BooksModel&)> expected;
};

/// The day on which all steps open accounts and move money.
inline QDate const openedOn(2025, 5, 1);

/// \return any change to books that are those of \a model, mostly one that they take
Step anyStep(BooksModel const& model);
}
