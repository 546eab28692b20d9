#include "internal/BudgetItemRefundWidget.h"

#include "internal/Views.h"

#include <tlm/foundation/Error.h>

#include <QDebug>
#include <QPushButton>
#include <QTimer>

#include <chrono>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::Transaction;
using accounting::TransactionNumber;
using budgeting::BudgetItemIdentifier;
using budgeting::BudgetItemTypes;
using budgeting::BudgetSource;
using fiscora::Currency;
using fiscora::Money;
using foundation::QtPtr;
using navigation::CurrencyDisplayOptions;

namespace {

constexpr std::chrono::milliseconds numberIsShown{1500};
constexpr std::uint8_t oneAtMost = 1;
}

BudgetItemRefundWidget::BudgetItemRefundWidget(std::set<Currency> const& usable,
                                               CurrencyDisplayOptions const& displayAs, bool const& usesEverydayTerms,
                                               QtPtr<QWidget> const& parent)
    : QWidget(parent.get())
{
    setupUi(this);
    setUpItem();
    setUpTransactions(usable, displayAs, usesEverydayTerms);
    setUpAmount(usable, displayAs);
    postStatusLbl->hide();
    connect(saveDiscardDlgbttnbx, &QDialogButtonBox::clicked, this, &BudgetItemRefundWidget::onClicked);
}

BudgetItemRefundWidget::~BudgetItemRefundWidget()
{
    // The base hides what ends on screen, and a field that loses the focus by this tells the form around it.
    hide();
}

void BudgetItemRefundWidget::setUpItem()
{
    itemRefundCmbbx->setReadOnly(false);
    connect(itemRefundCmbbx, &BudgetItemTypeWidget::typeChanged, this, &BudgetItemRefundWidget::onTypeChanged);
    connect(itemRefundCmbbx, &BudgetItemTypeWidget::sourceChanged, this, &BudgetItemRefundWidget::onSourceChanged);
}

/// Nothing of a transaction can be edited, but one can be selected.
void BudgetItemRefundWidget::setUpTransactions(std::set<Currency> usable, CurrencyDisplayOptions displayAs,
                                               bool usesEverydayTerms)
{
    transactionsWdgt->setUp({}, std::move(usable), displayAs, usesEverydayTerms);
    transactionsWdgt->setReadOnly(true);
    transactionsWdgt->setSelectionMode(oneAtMost);
    connect(transactionsWdgt, &TransactionsWidget::selected, this, &BudgetItemRefundWidget::onSelectedTransaction);
    connect(transactionsWdgt, &TransactionsWidget::deselected, this, &BudgetItemRefundWidget::onDeselectedTransaction);
}

void BudgetItemRefundWidget::setUpAmount(std::set<Currency> const& usable, CurrencyDisplayOptions displayAs)
{
    amountMnyntrydgt->setLabel(tr("Refund Amount:"));
    amountMnyntrydgt->setUsableCurrencies(usable, displayAs);
    amountMnyntrydgt->disableCurrencySelection();
}

void BudgetItemRefundWidget::onTypeChanged()
{
    forgetTransactions();
    emit lookUpBudgetItemSources(itemRefundCmbbx->budgetItemType());
}

void BudgetItemRefundWidget::onSourceChanged()
{
    forgetTransactions();
    auto const item = itemRefundCmbbx->identifier();
    if (!item.source.isEmpty() && item.type != BudgetItemTypes::None) {
        emit lookUpTransactions(item);
    }
}

void BudgetItemRefundWidget::forgetTransactions()
{
    if (ledger_) {
        transactionsWdgt->hideLedger(*ledger_);
    }
    ledger_.reset();
    transactionsWdgt->clearSelections();
}

void BudgetItemRefundWidget::lookedUpBudgetItemSources(std::set<BudgetSource> const& sources)
{
    qInfo() << "Received budget sources:" << sources.size();
    itemRefundCmbbx->setSources(sources);
}

void BudgetItemRefundWidget::lookedUpTransactions(BudgetItemIdentifier const& bii, AccountCode const& ac,
                                                  std::set<Transaction> const& txns)
{
    qInfo() << "Received a transaction count of" << txns.size() << "for" << bii << "in" << ac;
    ledger_ = ac;
    transactionsWdgt->addAccount(ac);
    for (auto const& txn : txns) {
        transactionsWdgt->addAccount(txn.crediting() == ac ? txn.debiting() : txn.crediting());
        transactionsWdgt->add(ac, txn);
    }
}

void BudgetItemRefundWidget::onSelectedTransaction(std::optional<TransactionNumber> const& txnNum)
{
    qInfo() << "The selected transaction to refund is:" << txnNum.value_or(TransactionNumber());
    if (auto const found = transactionsWdgt->find(txnNum)) {
        amountMnyntrydgt->setAmount(found->amount());
    }
}

void BudgetItemRefundWidget::onDeselectedTransaction(std::optional<TransactionNumber> const& txnNum)
{
    qInfo() << "The deselected transaction to refund is:" << txnNum.value_or(TransactionNumber());
    amountMnyntrydgt->clear();
}

void BudgetItemRefundWidget::onClicked(QtPtr<QAbstractButton> const& button)
{
    qInfo() << "Handling bank entry widget clicked button" << button->text();
    if (button == saveDiscardDlgbttnbx->button(QDialogButtonBox::Discard)) {
        close();
    } else if (button == saveDiscardDlgbttnbx->button(QDialogButtonBox::Save)) {
        postSelected();
    }
}

void BudgetItemRefundWidget::postSelected()
{
    qInfo() << "Preparing to post the budget item refund.";
    std::optional<TransactionNumber> number;
    Money refund;
    try {
        auto const selected = transactionsWdgt->selectedTransactions();
        if (selected.empty()) {
            throw foundation::Error(tr("No transaction selected."));
        }
        refund = amountMnyntrydgt->amount();
        number = selected.front().number();
    } catch (foundation::Error const& error) {
        qWarning() << "Failed to prepare to post the budget item refund:" << error.what();
        errorWdgt->showMessage(error.message());
        return;
    }
    errorWdgt->showMessage({});
    emit post(number.value_or(TransactionNumber()), refund);
}

void BudgetItemRefundWidget::onSaveSucceeded(TransactionNumber const& original, TransactionNumber const& posted)
{
    qInfo() << "The budget item refund for" << original << "was posted in Txn #" << posted;
    postStatusLbl->setText(tr("Refund posted under transaction %1.").arg(presentationText(posted)));
    postStatusLbl->show();
    saveDiscardDlgbttnbx->button(QDialogButtonBox::Save)->setEnabled(false); // a second click would post it again
    QTimer::singleShot(numberIsShown, this, &BudgetItemRefundWidget::close);
}

void BudgetItemRefundWidget::onSaveFailed(TransactionNumber const& original, QString const& errorMessage)
{
    qWarning() << "Failed to post the budget item refund for:" << original << "because" << errorMessage;
    errorWdgt->showMessage(errorMessage);
}

bool BudgetItemRefundWidget::close()
{
    qInfo() << "The budget item refund widget is about to close.";
    return tellAndClose(this);
}
}
