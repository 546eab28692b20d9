#include "internal/ProcessBudgetItemsWidget.h"

#include "internal/TabStops.h"
#include "internal/Views.h"

#include <tlm/foundation/Error.h>

#include <QDebug>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::TransactionNumber;
using banking::AccountNumberBankType;
using banking::BankName;
using budgeting::BudgetItemAmountDue;
using budgeting::BudgetItemDueIdentifier;
using budgeting::BudgetSource;
using fiscora::Currency;
using fiscora::Money;
using foundation::QtPtr;

ProcessBudgetItemsWidget::ProcessBudgetItemsWidget(std::chrono::days const& dueWithin,
                                                   std::vector<BudgetItemAmountDue> const& items,
                                                   std::set<BankName> const& banks, Currency const& preferred,
                                                   std::set<Currency> const& usable,
                                                   navigation::CurrencyDisplayOptions const& displayAs,
                                                   std::set<AccountCode> codes, QtPtr<QWidget> const& parent)
    : QWidget(parent.get()), banks_(banks), usable_(usable), displayAs_(displayAs), codes_(std::move(codes))
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    dueWithinLbl->setText(tr("Budget Items Due Within %1 Days:").arg(dueWithin.count()));
    processBudgetItemEntriesScrllr->setAccessibleName(dueWithinLbl->text());
    totalMnyntrydgt->setUsableCurrencies(usable, displayAs);
    totalMnyntrydgt->setAmount(Money(preferred, 0, 0, 0));
    totalMnyntrydgt->setLabel(tr("Processed Total:"));
    totalMnyntrydgt->setReadOnly(true);
    for (auto const& item : items) {
        add(item);
    }
    connect(saveDiscardBttnbx, &QDialogButtonBox::clicked, this, &ProcessBudgetItemsWidget::onClicked);
    auto* const lastButton = tabStops(*saveDiscardBttnbx).back();
    addButton_ = addButton(*saveDiscardBttnbx, tr("&Add"), tr("Failed to create the add push button."));
    setTabOrder(lastButton, addButton_.get()); // and not between the entries that stand here and those to come
}

ProcessBudgetItemsWidget::~ProcessBudgetItemsWidget()
{
    hide(); // while there is a view that its entries can tell what they lose by it
}

auto ProcessBudgetItemsWidget::add(std::optional<BudgetItemAmountDue> const& item) -> EntryPtr
{
    qInfo() << "Adding processing budget item entry:" << item.value_or(BudgetItemAmountDue()).source.name();
    EntryPtr entry = new Entry(item, banks_, usable_, displayAs_, codes_, this);
    connect(entry.get(), &Entry::lookUpBankAccounts, this, &ProcessBudgetItemsWidget::lookUpBankAccounts);
    auto const workInIt = [this, entry] { current_ = entry; };
    connect(entry.get(), &Entry::lookUpBudgetItemDueSources, this, workInIt);
    connect(entry.get(), &Entry::lookUpBudgetItemDueSources, this,
            &ProcessBudgetItemsWidget::lookUpBudgetItemDueSources);
    connect(entry.get(), &Entry::amountChanged, this, &ProcessBudgetItemsWidget::updateTotals);
    connect(entry.get(), &Entry::actionChanged, this, &ProcessBudgetItemsWidget::updateTotals);
    if (item) {
        scheduled_.try_emplace(*item, entry);
    } else {
        connect(entry.get(), &Entry::budgetItemSelected, this, workInIt);
        connect(entry.get(), &Entry::budgetItemSelected, this,
                &ProcessBudgetItemsWidget::onUnexpectedBudgetItemSelected);
    }
    auto const spacer = processBudgetItemEntriesVbxlyt->count() - 1;
    processBudgetItemEntriesVbxlyt->insertWidget(spacer, entry.get());
    return entry;
}

/// Puts the cursor into the new entry, which may lie below all that is on screen.
void ProcessBudgetItemsWidget::addUnexpected()
{
    auto const entry = add(std::nullopt);
    if (isVisible()) {
        entry->show();
        processBudgetItemEntriesVbxlyt->activate();
        processBudgetItemEntriesScrllr->ensureWidgetVisible(entry.get());
        tabStops(*entry).front()->setFocus(Qt::OtherFocusReason);
    }
}

QList<ProcessBudgetItemEntryWidget*> ProcessBudgetItemsWidget::entries() const
{
    return processBudgetItemEntriesWdgt->findChildren<Entry*>(QString(), Qt::FindDirectChildrenOnly);
}

/// Asked for each answer of a walk: the entry found last is mostly dirty still, since the walk cleans from the front.
bool ProcessBudgetItemsWidget::hasDirtyEntry() const
{
    if (lastDirty_ && lastDirty_->isDirty()) {
        return true;
    }
    auto const present = entries();
    auto const found =
        std::find_if(present.rbegin(), present.rend(), [](auto const* entry) { return entry->isDirty(); });
    lastDirty_ = found == present.rend() ? nullptr : *found;
    return lastDirty_ != nullptr;
}

bool ProcessBudgetItemsWidget::isAwaitingBankAccounts() const
{
    return static_cast<bool>(awaitingBankAccounts());
}

auto ProcessBudgetItemsWidget::awaitingBankAccounts() const -> EntryPtr
{
    return find([](Entry const& entry) { return entry.isAwaitingBankAccounts(); });
}

auto ProcessBudgetItemsWidget::find(IsEntry const& isEntry) const -> EntryPtr
{
    for (auto* const entry : entries()) {
        try {
            if (isEntry(*entry)) {
                return entry;
            }
        } catch (std::exception const& failure) {
            qInfo() << "An error occurred while checking a process budget item entry widget." << failure.what();
        }
    }
    return nullptr;
}

/// Several unexpected entries may stand for \a id: the one that the person works in or that is sent comes first, and the
/// duplicates, which aren't sent, last. Scheduled ones are found at once, so that thousands of answers stay cheap.
auto ProcessBudgetItemsWidget::find(BudgetItemDueIdentifier const& id) const -> EntryPtr
{
    auto const isEntry = makeIsEntryMatcher(id);
    auto const scheduled = scheduled_.find(id);
    for (auto const& known : {current_, scheduled == scheduled_.end() ? EntryPtr() : scheduled->second}) {
        if (known && isEntry(*known)) {
            return known;
        }
    }
    auto const original = find([&](Entry const& entry) { return !entry.isDuplicate() && isEntry(entry); });
    return original ? original : find(isEntry);
}

auto ProcessBudgetItemsWidget::makeIsEntryMatcher(BudgetItemDueIdentifier const& id) -> IsEntry
{
    return [id](Entry const& entry) { return entry.identifier() == id; };
}

/// \return the other unexpected entries that stand for the same item as \a entry
auto ProcessBudgetItemsWidget::sameUnexpected(EntryPtr const& entry) const -> std::vector<EntryPtr>
{
    std::vector<EntryPtr> same;
    for (auto* const other : entries()) {
        if (other != entry.get() && other->isUnexpected() && other->budgetItemType() == entry->budgetItemType() &&
            other->budgetSource() == entry->budgetSource()) {
            same.emplace_back(other);
        }
    }
    return same;
}

void ProcessBudgetItemsWidget::onClicked(QtPtr<QAbstractButton> const& button)
{
    qInfo() << "Handling clicked button" << button->text();
    if (button == saveDiscardBttnbx->button(QDialogButtonBox::Discard)) {
        close();
    } else if (button == saveDiscardBttnbx->button(QDialogButtonBox::Save)) {
        save();
    } else if (button == addButton_) {
        addUnexpected();
    } else {
        throw std::logic_error(tr("Unknown button pressed, %1.").arg(button->text()).toStdString());
    }
}

bool ProcessBudgetItemsWidget::close()
{
    return tellAndClose(this);
}

/// A receiver may answer inside the emission, and end entries, or this view, as it likes.
void ProcessBudgetItemsWidget::save()
{
    qInfo() << "Processing budget items due";
    QtPtr<ProcessBudgetItemsWidget> const self = this;
    auto const present = entries();
    std::vector<EntryPtr> const waiting(present.begin(), present.end());
    for (auto const& entry : waiting) {
        if (entry) {
            save(entry);
        }
    }
    if (self && !hasDirtyEntry()) {
        close();
    }
}

void ProcessBudgetItemsWidget::save(EntryPtr const& entry)
{
    if (!entry->isDirty()) {
        qInfo() << "Not dirty budget item due" << entry->budgetSource().name();
        return;
    }
    try {
        send(entry);
    } catch (std::exception const& failure) {
        if (entry) {
            onSaveFailed(entry->identifier(), QString::fromUtf8(failure.what()));
        }
    }
}

void ProcessBudgetItemsWidget::send(EntryPtr const& entry)
{
    auto const source = entry->budgetSource().name();
    switch (entry->action()) {
    case BudgetItemDueAction::Unknown:
        qWarning() << "Process budget item entry has an unknown action!" << source;
        onSaveFailed(entry->identifier(), tr("Budget item entry has an unknown action!"));
        return;
    case BudgetItemDueAction::Ignore:
        qInfo() << "Ignoring budget item due" << source;
        return;
    case BudgetItemDueAction::Process:
        qInfo() << "Processing budget item due" << source;
        process(entry);
        return;
    case BudgetItemDueAction::Skip:
        qInfo() << "Skipping budget item due" << source;
        skip(entry);
        return;
    }
    throw std::logic_error(tr("Unhandled budget item due action while processing a budget item.").toStdString());
}

// What is sent is copied out of the entry first: an answer changes the entry, or ends it, while others still listen.

void ProcessBudgetItemsWidget::process(EntryPtr const& entry)
{
    if (entry->isUnexpected() && entry->isDuplicate()) {
        return;
    }
    auto const id = entry->identifier();
    auto const amount = entry->amount();
    auto const account = entry->accountCode().value_or(AccountCode());
    auto const day = entry->processOn();
    current_ = entry;
    if (entry->isUnexpected()) {
        emit processedUnexpected(id, amount, account, day);
    } else {
        emit processed(BudgetItemAmountDue{id, amount}, account, day);
    }
}

void ProcessBudgetItemsWidget::skip(EntryPtr const& entry)
{
    auto const id = entry->identifier();
    if (!entry->bankName()) {
        emit skipped(id);
        return;
    }
    onSaveFailed(id, tr("Notice: the budget item due is marked to skip, but it had a bank source selected, the source "
                        "was cleared. Clicking 'save' again will confirm to skip this item."));
    entry->clearBankName();
}

/// Amounts are added as they stand, whatever the currency of the total is worth in theirs.
void ProcessBudgetItemsWidget::updateTotals()
{
    qInfo() << "Updating total process amount.";
    Money total(totalMnyntrydgt->code(), 0, 0, 0);
    for (auto const* const entry : entries()) {
        if (entry->action() != BudgetItemDueAction::Process) {
            continue;
        }
        try {
            if (auto const amount = entry->amount(); amount.code() != Currency::XXX) {
                total += amount;
            }
        } catch (std::exception const& failure) {
            qInfo() << "Failure while calculating the total processed." << failure.what();
        }
    }
    totalMnyntrydgt->setAmount(total);
}

void ProcessBudgetItemsWidget::onSaveSucceeded(BudgetItemDueIdentifier const& bidi,
                                               std::optional<TransactionNumber> const& txnNum)
{
    qInfo() << "Processing budget item" << bidi << "succeeded.";
    auto const entry = find(bidi);
    if (!entry) {
        qFatal("Failed to locate the process budget item that failed to be saved.");
    }
    txnNum ? entry->markProcessed(*txnNum) : entry->markSkipped();
    entry->markSaved();
    if (!hasDirtyEntry()) {
        close();
    }
}

void ProcessBudgetItemsWidget::onSaveFailed(BudgetItemDueIdentifier const& bidi, QString const& errorMessage)
{
    qInfo() << "Processing budget item" << bidi << "failed.";
    auto const entry = find(bidi);
    if (!entry) {
        qFatal("Failed to locate the process budget item that failed to be saved.");
    }
    entry->setErrorMessage(errorMessage);
}

void ProcessBudgetItemsWidget::onLookedUpBankAccounts(BankName const& bn,
                                                      std::set<AccountNumberBankType> const& accountTypes)
{
    qInfo() << "Found" << accountTypes.size() << "account codes for the bank" << bn.institution();
    auto const entry = awaitingBankAccounts();
    if (!entry) {
        qFatal("Failed to locate the process budget item that requested the bank account look-up.");
    }
    entry->setBankAccounts(accountTypes);
}

void ProcessBudgetItemsWidget::onLookUpBudgetItemDueSources(BudgetItemDueIdentifier const& requestedBy,
                                                            std::set<BudgetSource> const& sources)
{
    qInfo() << "Found" << sources.size() << "budget item sources for the type" << presentationText(requestedBy.type);
    auto const entry = find(requestedBy);
    if (!entry) {
        qFatal("Failed to locate the process budget item that requested the budget item sources look-up.");
    }
    entry->setBudgetItems(sources);
    for ([[maybe_unused]] auto const& same : sameUnexpected(entry)) {
        onSaveFailed(entry->identifier(), tr("Cannot process duplicate unexpected budget item entries."));
    }
}

void ProcessBudgetItemsWidget::onUnexpectedBudgetItemSelected(BudgetItemDueIdentifier const& selectedId)
{
    qInfo() << "Selected unexpected" << selectedId << "budget item";
    auto const entry = find(selectedId);
    if (!entry) {
        qFatal("Failed to locate the selected unexpected budget item.");
    }
    if (entry->isDuplicate()) {
        entry->clearErrorMessage();
        entry->clearDuplicate();
    }
    for (auto const& same : sameUnexpected(entry)) {
        same->setErrorMessage(tr("Cannot process duplicate unexpected budget item entries."));
        same->markDuplicate();
    }
}
}
