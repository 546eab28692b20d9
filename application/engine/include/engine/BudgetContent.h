#pragma once

#include <engine/Books.h>
#include <engine/PlannedItem.h>
#include <engine/Settings.h>
#include <tlm/budgeting/BudgetItemIdentifier.h>
#include <tlm/conversion/ConversionMap.h>

#include <map>

class QLocale;

namespace tallymere::engine {

/// Each item under its own identifier, ordered by type and source.
using PlannedItems = std::map<tlm::budgeting::BudgetItemIdentifier, PlannedItem>;

/// All that a document holds but the postings, which are read where they are needed.
struct BudgetContent
{
    Settings settings;
    tlm::conversion::ConversionMap rates;
    PlannedItems items;
    Books books;

    friend bool operator==(BudgetContent const&, BudgetContent const&) = default;
};

/// \return a budget with nothing planned yet, in the currency of \a locale's country, or in dollars where it has none
BudgetContent emptyContent(QLocale const& locale);
}
