#pragma once

// The records that cross MainWindow, declared only: the window passes them on and looks into none.

namespace fiscora {
class Money;
}
namespace tlm::accounting {
class Account;
class AccountCode;
class AccountNumber;
struct LedgerAccount;
class Transaction;
class TransactionNumber;
}
namespace tlm::adviser {
class BudgetHealth;
}
namespace tlm::banking {
struct AccountNumberBankType;
class Bank;
struct BankAccount;
struct BankMap;
class BankName;
struct ReconciledBalance;
}
namespace tlm::budgeting {
struct BillMap;
struct BudgetItemAmountDue;
struct BudgetItemDueIdentifier;
struct BudgetItemIdentifier;
class BudgetSource;
struct BudgetTotals;
class BudgetedMoney;
struct DebtMap;
struct GoalMap;
struct NontrackMap;
struct WageMap;
}
namespace tlm::conversion {
class ConversionMap;
}
namespace tlm::foundation {
class Percentage;
}
namespace tlm::navigation {
class BankAccountCode;
struct BudgetBankAccount;
class GuiElementIdentifier;
}
namespace tlm::surveying {
class DistributedAmount;
template <typename Key>
struct IndexedIncreaseDecreases;
class MappingSurvey;
}
namespace tlm::updating {
class SemanticVersion;
}
