#pragma once

#include "BanksFixture.h"

namespace tlm::testing {

/// To whom an answer goes, when texts alone don't tell.
class BanksAnswerTest : public BanksFixture
{
protected:
    /// Adds an account to the bank at \a row, and leaves it chosen.
    AccountForm& addAccountTo(QTreeWidgetItem& row, QString const& name)
    {
        choose(row);
        addAccount().click();
        typeType(Types::Checking);
        typeName(name);
        return account();
    }

    BankForm& addBankCalled(QString const& name)
    {
        choose(*tree().topLevelItem(0));
        addBank().click();
        typeName(name);
        return bank();
    }

    void saveAll()
    {
        save();
        saveBanks();
    }
};
}
