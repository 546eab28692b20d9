#include "internal/AccountTransferWidget.h"

#include "internal/Views.h"

#include <tlm/banking/AccountNumberBankType.h>

#include <QDebug>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::AccountNumber;
using accounting::TransactionNumber;
using banking::AccountNumberBankType;
using banking::BankName;
using fiscora::Currency;
using fiscora::Money;
using foundation::QtPtr;
using navigation::BankAccountCode;

namespace {

std::set<BankName> banksOf(std::set<BankAccountCode> const& accounts)
{
    std::set<BankName> banks;
    for (auto const& account : accounts) {
        banks.insert(account.bank());
    }
    return banks;
}

/// Answers \a row with those of \a accounts that \a bank keeps.
void answer(BankAccountsWidget& row, std::set<BankAccountCode> const& accounts, BankName const& bank)
{
    std::set<AccountCode> codes;
    std::set<AccountNumberBankType> types;
    for (auto const& account : accounts) {
        if (account.bank() == bank) {
            codes.insert(account.account());
            types.insert(account.bankAccountType());
        }
    }
    row.setCodes(codes); // which the answer is resolved against
    row.lookedUpBankAccounts(std::move(types));
}
}

AccountTransferWidget::AccountTransferWidget(std::set<BankAccountCode> const& fromBanks,
                                             std::set<BankAccountCode> const& toBanks, std::set<Currency> const& usable,
                                             navigation::CurrencyDisplayOptions const& displayAs,
                                             QtPtr<QWidget> const& parent)
    : QWidget(parent.get()), fromBanks_(fromBanks), toBanks_(toBanks), displayAs_(displayAs)
{
    setupUi(this);
    fromBnkaccntwdgt->setBanks(banksOf(fromBanks_));
    connect(fromBnkaccntwdgt, &BankAccountsWidget::lookUpBankAccounts, this,
            &AccountTransferWidget::lookUpFromBankAccounts);
    connect(fromBnkaccntwdgt, &BankAccountsWidget::changedAccountNumber, this,
            &AccountTransferWidget::changedFromAccountNumber);
    toBnkaccntwdgt->setBanks(banksOf(toBanks_));
    connect(toBnkaccntwdgt, &BankAccountsWidget::lookUpBankAccounts, this,
            &AccountTransferWidget::lookUpToBankAccounts);
    amountMnyntrydgt->setUsableCurrencies(usable, displayAs_);
    amountMnyntrydgt->disableCurrencySelection();
    connect(saveDiscardDlgbttnbx, &QDialogButtonBox::clicked, this, &AccountTransferWidget::onClicked);
}

AccountTransferWidget::~AccountTransferWidget()
{
    // The base hides what ends on screen, and a field that loses the focus by this tells the form around it.
    hide();
}

void AccountTransferWidget::lookUpFromBankAccounts(BankName const& bn)
{
    qInfo() << "Handling account entry widget looking up /from/ bank accounts" << bn;
    answer(*fromBnkaccntwdgt, fromBanks_, bn);
}

void AccountTransferWidget::lookUpToBankAccounts(BankName const& bn)
{
    qInfo() << "Handling account entry widget looking up /to/ bank accounts" << bn;
    answer(*toBnkaccntwdgt, toBanks_, bn);
}

void AccountTransferWidget::changedFromAccountNumber(std::optional<AccountNumber> const& an)
{
    qInfo() << "Handling account entry widget changed from account number" << an.value_or(AccountNumber());
    auto const source = std::ranges::find_if(fromBanks_, [&](auto const& each) { return an && each.account() == *an; });
    put(source == fromBanks_.end() ? Money() : Money(source->issuedIn(), 0, 0, 0));
}

/// A currency that isn't usable is offered all the same: the selection would stay at that of another account.
void AccountTransferWidget::put(Money const& amount)
{
    auto offered = amountMnyntrydgt->currencies();
    if (amount != Money() && offered.insert(amount.code()).second) {
        amountMnyntrydgt->setUsableCurrencies(offered, displayAs_);
    }
    amountMnyntrydgt->setAmount(amount);
}

void AccountTransferWidget::onClicked(QtPtr<QAbstractButton> const& button)
{
    qInfo() << "Handling account entry widget clicked button" << button->text();
    if (button == saveDiscardDlgbttnbx->button(QDialogButtonBox::Discard)) {
        close();
    } else {
        save();
    }
}

void AccountTransferWidget::save()
{
    qInfo() << "Saving the account money transfer.";
    auto const from = fromBnkaccntwdgt->bankAccount();
    if (!from) {
        errorWdgt->showMessage(tr("The bank account to transfer from is not specified."));
        return;
    }
    auto const to = toBnkaccntwdgt->bankAccount();
    if (!to) {
        errorWdgt->showMessage(tr("The bank account to transfer to is not specified."));
        return;
    }
    auto const amount = amountMnyntrydgt->tryAmount();
    if (!amount) {
        errorWdgt->showMessage(amountMnyntrydgt->amountErrorMessage().value_or(tr("No error specified.")));
        return;
    }
    emit transferRequested(from->number, to->number, *amount, reasonLndt->text());
}

void AccountTransferWidget::onSaveSucceeded(std::optional<TransactionNumber> const& /*displayed*/,
                                            std::optional<TransactionNumber> const& posted)
{
    qInfo() << "Handling account entry widget save succeeded in Txn #" << posted.value_or(TransactionNumber());
    close();
}

void AccountTransferWidget::onSaveFailed(std::optional<TransactionNumber> const& /*tn*/, QString const& errorMessage)
{
    qInfo() << "Handling account entry widget save failed" << errorMessage;
    errorWdgt->showMessage(errorMessage);
}

bool AccountTransferWidget::close()
{
    qInfo() << "The account money transfer widget is about to close.";
    return tellAndClose(this);
}
}
