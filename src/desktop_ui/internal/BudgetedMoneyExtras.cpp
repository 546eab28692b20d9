#include "internal/BudgetedMoneyExtras.h"

#include "internal/BankAccountsWidget.h"
#include "internal/KnownAccounts.h"
#include "internal/TabStops.h"
#include "tlm/desktop_ui/MoneyEntryWidget.h"

#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>

#include <vector>

namespace tlm::desktop_ui::internal {

using accounting::AccountTypes;
using banking::BankAccountTypes;
using foundation::QtPtr;

namespace {

constexpr double wholePercentage = 100.0;

std::set<BankAccountTypes> typesKeptAs(AccountTypes ledger)
{
    using enum BankAccountTypes;
    std::set<BankAccountTypes> kept;
    for (auto const type : {Unspecified, Checking, Goal, CreditCard, Loan, Savings}) {
        if (banking::toAccountTypes(type) == ledger) {
            kept.insert(type);
        }
    }
    return kept;
}
}

QtPtr<MoneyEntryWidget> BudgetedMoneyExtras::addMoney(QString const& label, QString const& toolTip,
                                                      std::set<fiscora::Currency> const& usable,
                                                      navigation::CurrencyDisplayOptions const& displayAs)
{
    QtPtr<MoneyEntryWidget> entry = new MoneyEntryWidget(line_.parentWidget());
    entry->setLabel(label);
    entry->setToolTip(toolTip);
    entry->setUsableCurrencies(usable, displayAs);
    entry->disableCurrencySelection();
    entry->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred); // spare room goes to the longer names of banks
    line_.addWidget(entry.get());
    leadTabTo(*entry);
    return entry;
}

QtPtr<QDoubleSpinBox> BudgetedMoneyExtras::addPercentage(QtPtr<QLabel> const& label, QString const& toolTip)
{
    QtPtr<QDoubleSpinBox> entry = new QDoubleSpinBox(line_.parentWidget());
    entry->setToolTip(toolTip);
    entry->setRange(0.0, wholePercentage);
    entry->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    label->setBuddy(entry.get());
    auto* const form = new QFormLayout;
    form->setFormAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    form->addRow(label.get(), entry.get());
    line_.addLayout(form);
    leadTabTo(*entry);
    return entry;
}

QtPtr<BankAccountsWidget> BudgetedMoneyExtras::addBankAccounts(QString const& toolTip,
                                                               std::set<banking::BankName> const& banks,
                                                               KnownAccounts const& known, AccountTypes keptAs)
{
    QtPtr<BankAccountsWidget> entry = new BankAccountsWidget(line_.parentWidget());
    entry->setToolTip(toolTip);
    entry->setBanks(banks);
    entry->shareCodes(known.codes);
    entry->setTypes(typesKeptAs(keptAs));
    entry->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    line_.addWidget(entry.get());
    leadTabTo(*entry);
    return entry;
}

void BudgetedMoneyExtras::leadTabTo(QWidget& entry)
{
    for (auto* const stop : tabStopsOfNew(entry)) {
        QWidget::setTabOrder(last_, stop);
        last_ = stop;
    }
}
}
