#pragma once

#include "StorageTest.h"

#include <QFileInfo>

#include <string>

namespace tallymere::storage::testing {

/// Has another program change the budget at \a filePathName.
void run(QString const& filePathName, char const* sql);

/// Tells how files are refused.
class RefusalTest : public StorageTest
{
protected:
    /// \return the sentence by which opening is refused; the file must stay as it was, and nothing may be left behind
    std::string refused(QString const& filePathName) const;

    /// \return the sentence by which a saved budget is refused after \a sql has changed it
    std::string refusedAfter(char const* sql, engine::BudgetContent const& content = household(),
                             std::vector<engine::Posting> const& counted = {}) const;
};
}
