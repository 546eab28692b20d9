#pragma once

// The records that cross MainWindow, whole: whoever joins the window makes them and looks into them.

#include <fiscora/Money.h>
#include <tlm/accounting/Account.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/accounting/LedgerAccount.h>
#include <tlm/accounting/Transaction.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/adviser/BudgetHealth.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/Bank.h>
#include <tlm/banking/BankAccount.h>
#include <tlm/banking/BankMap.h>
#include <tlm/banking/BankName.h>
#include <tlm/banking/ReconciledBalance.h>
#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/budgeting/BudgetItemDueIdentifier.h>
#include <tlm/budgeting/BudgetItemIdentifier.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/budgeting/BudgetTotals.h>
#include <tlm/budgeting/BudgetedMoney.h>
#include <tlm/budgeting/BudgetedMoneyMap.h>
#include <tlm/conversion/ConversionMap.h>
#include <tlm/foundation/Percentage.h>
#include <tlm/navigation/BankAccountCode.h>
#include <tlm/navigation/BudgetBankAccount.h>
#include <tlm/navigation/ConfigurationOptions.h>
#include <tlm/navigation/GuiElementIdentifier.h>
#include <tlm/surveying/DistributedAmount.h>
#include <tlm/surveying/IndexedIncreaseDecreases.h>
#include <tlm/surveying/MappingSurvey.h>
#include <tlm/updating/SemanticVersion.h>
