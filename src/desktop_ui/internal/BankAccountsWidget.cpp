#include "internal/BankAccountsWidget.h"

#include "internal/ComboBoxes.h"
#include "internal/DisableSignalsTemporarily.h"
#include "internal/Shared.h"
#include "internal/TextListModel.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <tlm/banking/BankError.h>

#include <QComboBox>
#include <QDebug>

#include <algorithm>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::AccountNumber;
using banking::AccountNumberBankType;
using banking::BankAccount;
using banking::BankAccountTypes;
using banking::BankName;

namespace {

// Stands for no choice in each of the boxes.
constexpr int blankRow = 0;

/// \return the first row below the blank one whose text \a matches, none when no text does
template <typename Matches>
std::optional<int> findRow(QComboBox const& box, Matches const& matches)
{
    for (auto row = blankRow + 1; row < box.count(); ++row) {
        if (matches(box.itemText(row))) {
            return row;
        }
    }
    return std::nullopt;
}

/// Offers the blank row and \a texts in place of what \a box offered.
void offerAnew(QComboBox& box, QStringList const& texts = {})
{
    box.clear();
    appendTexts(box, QStringList(QString()) + texts);
    settleContents(box);
}

/// \return \a types or, without a set, every type; the blank row stands for `Unspecified`
std::set<BankAccountTypes> specifiedOf(std::optional<std::set<BankAccountTypes>> const& types)
{
    using enum BankAccountTypes;
    auto specified = types.value_or(std::set{Checking, Savings, CreditCard, Loan, Goal});
    specified.erase(Unspecified);
    return specified;
}
}

/// How the accounts of a bank read, up to one whose number isn't known.
struct BankAccountsWidget::Accounts
{
    using Key = std::pair<Codes, std::set<AccountNumberBankType>>;

    explicit Accounts(Key const& key)
    {
        for (auto const& account : key.second) {
            auto const code = accounting::find(account.number, *key.first);
            if (!code) {
                unknown = account.number;
                return;
            }
            texts.append(presentationText(*code));
        }
    }

    QStringList texts;
    std::optional<AccountNumber> unknown;
};

BankAccountsWidget::BankAccountsWidget(std::set<BankName> const& banks,
                                       std::optional<std::set<BankAccountTypes>> const& types,
                                       std::set<AccountCode> const& codes, foundation::QtPtr<QWidget> const& parent)
    : QWidget(parent.get()), codes_(shared<std::set<AccountCode>>(codes))
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    offerAnew(*accountCmbbx);
    setDescription(std::nullopt);
    setBanks(banks);
    setTypes(specifiedOf(types));
    connect(bankCmbbx, &QComboBox::currentIndexChanged, this, &BankAccountsWidget::onBankCurrentIndexChanged);
    connect(accountCmbbx, &QComboBox::currentIndexChanged, this,
            &BankAccountsWidget::onAccountCodesCurrentIndexChanged);
    connect(typeCmbbx, &QComboBox::currentIndexChanged, this, &BankAccountsWidget::onTypeCurrentIndexChanged);
}

BankAccountsWidget::BankAccountsWidget(foundation::QtPtr<QWidget> const& parent)
    : BankAccountsWidget({}, std::nullopt, {}, parent)
{}

void BankAccountsWidget::setBanks(std::set<BankName> const& banks)
{
    QStringList institutions;
    for (auto const& bank : banks) {
        institutions.append(bank.institution());
    }
    offerAnew(*bankCmbbx, institutions);
}

void BankAccountsWidget::setCodes(std::set<AccountCode> const& codes)
{
    shareCodes(shared<std::set<AccountCode>>(codes));
}

void BankAccountsWidget::shareCodes(Codes codes)
{
    codes_ = std::move(codes);
}

void BankAccountsWidget::setTypes(std::set<BankAccountTypes> const& types)
{
    DisableSignalsTemporarily<QComboBox> const quiet(typeCmbbx);
    QStringList texts;
    for (auto const& type : types) {
        texts.append(presentationText(type));
    }
    offerAnew(*typeCmbbx, texts);
}

void BankAccountsWidget::setDescription(std::optional<QString> const& description)
{
    if (description) {
        descriptionLbl->setText(*description);
    }
    descriptionLbl->setVisible(description && !description->isEmpty());
}

void BankAccountsWidget::setReadOnly(bool isReadOnly)
{
    bankCmbbx->setDisabled(isReadOnly);
    accountCmbbx->setDisabled(isReadOnly);
    typeCmbbx->setDisabled(isReadOnly || isTypeDisabled_);
}

void BankAccountsWidget::hideAccount()
{
    accountLbl->hide();
    accountCmbbx->hide();
}

void BankAccountsWidget::showAccount()
{
    accountLbl->show();
    accountCmbbx->show();
}

void BankAccountsWidget::disableType()
{
    isTypeDisabled_ = true;
    typeCmbbx->setEnabled(false);
}

std::optional<BankName> BankAccountsWidget::bank() const
{
    auto const text = bankCmbbx->currentText();
    return text.isEmpty() ? std::nullopt : std::optional(BankName(text));
}

std::set<BankName> BankAccountsWidget::banks() const
{
    std::set<BankName> offered;
    for (auto row = blankRow + 1; row < bankCmbbx->count(); ++row) {
        offered.emplace(bankCmbbx->itemText(row));
    }
    return offered;
}

std::optional<AccountCode> BankAccountsWidget::accountCode() const
{
    auto const text = accountCmbbx->currentText();
    return text.isEmpty() ? std::nullopt : std::optional(accounting::toAccountCode(text));
}

std::optional<BankAccountTypes> BankAccountsWidget::type() const
{
    auto const text = typeCmbbx->currentText();
    return text.isEmpty() ? std::nullopt : std::optional(banking::toBankAccountTypes(text));
}

std::optional<BankAccount> BankAccountsWidget::bankAccount() const
{
    auto const chosenBank = bank();
    if (!chosenBank) {
        qInfo() << "Bank name not present for widget entry.";
        return std::nullopt;
    }
    auto const code = accountCode();
    if (!code) {
        qInfo() << "Account code not present for widget entry.";
    }
    auto const chosenType = type();
    if (!chosenType) {
        qInfo() << "Bank account type not present for widget entry.";
    }
    return BankAccount{*chosenBank, code.value_or(AccountCode()).number(),
                       chosenType.value_or(BankAccountTypes::Unspecified)};
}

void BankAccountsWidget::setBank(std::optional<BankName> const& bank)
{
    if (!bank) {
        bankCmbbx->setCurrentIndex(blankRow);
        return;
    }
    auto const row = findRow(*bankCmbbx, [&](QString const& text) { return text == bank->institution(); });
    if (!row) {
        throw DataEntryError(tr("bank account"), bank->institution(),
                             tr("Failed to locate the bank under the given name."), std::exception());
    }
    bankCmbbx->setCurrentIndex(*row);
}

void BankAccountsWidget::select(BankAccount const& bankAccount)
{
    // The boxes themselves still speak, so that the type follows the account.
    DisableSignalsTemporarily<BankAccountsWidget> const quiet(this);
    setBank(bankAccount.bank);
    accountCmbbx->setCurrentIndex(ensureRow(bankAccount.numberBankType()));
    setType(bankAccount.type);
}

int BankAccountsWidget::ensureRow(AccountNumberBankType const& account)
{
    auto const row =
        findRow(*accountCmbbx, [&](QString const& text) { return accounting::toAccountCode(text) == account.number; });
    if (row) {
        return *row;
    }
    accountTypes_.insert(account);
    Accounts const added({codes_, {account}});
    appendTexts(*accountCmbbx, added.texts);
    settleContents(*accountCmbbx);
    raiseUnknown(added);
    return accountCmbbx->count() - 1;
}

void BankAccountsWidget::raiseUnknown(Accounts const& accounts) const
{
    if (accounts.unknown) {
        throw banking::BankError(bank().value_or(BankName()),
                                 tr("The account number %1 is not known.").arg(presentationText(*accounts.unknown)),
                                 std::exception());
    }
}

void BankAccountsWidget::setType(BankAccountTypes type)
{
    typeCmbbx->setCurrentIndex(blankRow);
    if (type != BankAccountTypes::Unspecified) {
        typeCmbbx->setCurrentText(presentationText(type));
    }
}

void BankAccountsWidget::lookedUpBankAccounts(std::set<AccountNumberBankType> accountTypes)
{
    accountTypes_ = std::move(accountTypes);
    lookedUp_ = shared<Accounts>(Accounts::Key(codes_, accountTypes_));
    auto const offered = lookedUp_; // an owner who hears of the lost choice may look up others
    offerAnew(*accountCmbbx, offered->texts);
    raiseUnknown(*offered);
}

void BankAccountsWidget::onBankCurrentIndexChanged(int index)
{
    if (index <= blankRow) {
        emit changedBankName(std::nullopt);
        lookedUpBankAccounts({});
        return;
    }
    BankName const chosen(bankCmbbx->itemText(index));
    emit changedBankName(chosen);
    emit lookUpBankAccounts(chosen);
}

void BankAccountsWidget::onAccountCodesCurrentIndexChanged(int index)
{
    if (index <= blankRow) {
        emit changedAccountNumber(std::nullopt);
        setType(BankAccountTypes::Unspecified);
        return;
    }
    auto const number = accounting::toAccountCode(accountCmbbx->itemText(index)).number();
    emit changedAccountNumber(number);
    auto const account = std::ranges::find(accountTypes_, number, &AccountNumberBankType::number);
    if (account != accountTypes_.end()) {
        setType(account->type);
    }
}

void BankAccountsWidget::onTypeCurrentIndexChanged(int index)
{
    emit changedBankAccountType(index <= blankRow ? BankAccountTypes::Unspecified
                                                  : banking::toBankAccountTypes(typeCmbbx->itemText(index)));
}
}
