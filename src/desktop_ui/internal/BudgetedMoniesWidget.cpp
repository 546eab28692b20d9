#include "internal/BudgetedMoniesWidget.h"

#include "internal/TabStops.h"
#include "internal/Views.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <fiscora/Accumulate.h>
#include <tlm/budgeting/Accumulate.h>
#include <tlm/foundation/Error.h>
#include <tlm/foundation/ScopeExecutor.h>

#include <QApplication>
#include <QDebug>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>

#include <algorithm>
#include <utility>
#include <vector>

namespace tlm::desktop_ui::internal {

using budgeting::BudgetedMoney;
using budgeting::BudgetSource;
using budgeting::EventFrequency;
using fiscora::Currency;
using fiscora::Money;
using foundation::Error;
using foundation::QtPtr;
using foundation::ScopeExecutor;
using navigation::GuiElementIdentifier;

namespace {

constexpr auto rowsBetweenTidyings = 32;

/// \return what \a entry comes to per month, none if it counts in no total
/// \throws DataEntryError when what is typed is no amount
std::optional<Money> monthlyAmount(BudgetedMoneyEntryWidget const& entry)
{
    auto const amount = entry.amount();
    auto const period = entry.period();
    if (period == EventFrequency::None || amount.code() == Currency::XXX || entry.isMarkedForRemoval()) {
        return std::nullopt;
    }
    return budgeting::accumulateOver(EventFrequency::Monthly, amount, period);
}

/// A new widget posts a request to be polished, which being shown does as well. Qt searches all that is posted whenever a
/// layout changes or a widget ends, so that each of thousands of rows would cost more than the one before.
void forgetPolishRequests()
{
    QCoreApplication::removePostedEvents(nullptr, QEvent::PolishRequest);
}
}

BudgetedMoniesWidget::BudgetedMoniesWidget(QString const& heading, std::unique_ptr<BudgetedMoneyCreator> creator,
                                           Currency const& preferred, std::set<Currency> const& usable,
                                           navigation::CurrencyDisplayOptions const& displayAs,
                                           QtPtr<QWidget> const& parent)
    : QWidget(parent.get()), preferred_(preferred), usable_(usable), displayAs_(displayAs), creator_(std::move(creator))
{
    qInfo() << "Displaying the" << heading;
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    displayingLbl->setText(heading);
    budgetedMoniesScrllr->setAccessibleName(heading);
    totalMnyntr->setUsableCurrencies(usable, displayAs);
    totalMnyntr->setLabel(tr("Monthly Total Amount:"));
    totalMnyntr->setReadOnly(true);
    updateTotal();
    connect(saveDiscardBttnbx, &QDialogButtonBox::clicked, this, &BudgetedMoniesWidget::onClicked);
    addButton_ = addButton(*saveDiscardBttnbx, tr("&Add"), tr("Failed to create the add push button."));
    connect(qApp, &QApplication::focusChanged, this, &BudgetedMoniesWidget::onFocusChanged);
}

BudgetedMoniesWidget::~BudgetedMoniesWidget()
{
    // The base hides what ends on screen, and a row that loses the focus by this tells the view and asks its creator. One
    // that is hidden already may still have the focus until its field ends, which is too late to hear of it.
    hide();
    disconnect(qApp, nullptr, this, nullptr);
}

bool BudgetedMoniesWidget::close()
{
    qInfo() << "The budgeted monies widget is about to close.";
    return tellAndClose(this);
}

void BudgetedMoniesWidget::onSaveSucceeded(GuiElementIdentifier const& id, BudgetSource const& source)
{
    qInfo() << "Succeeded to save" << source.name();
    auto const entry = find(id);
    if (!entry) {
        throw Error(tr("Failed to locate the budgeted money entry widget '%1' that succeeded to be saved.")
                        .arg(presentationText(source)));
    }
    entry->markSaved();
    qInfo() << "Checking if everything is completely saved.";
    if (!hasDirtyEntry()) {
        close();
    }
}

void BudgetedMoniesWidget::onSaveFailed(GuiElementIdentifier const& id, std::optional<BudgetSource> const& original,
                                        QString const& errorMessage, std::optional<BudgetSource> const& displayed)
{
    qWarning() << "Failed to save,"
               << "Original Source" << original.value_or(BudgetSource()).name() << "Displayed Source"
               << displayed.value_or(BudgetSource()).name() << errorMessage;
    auto const entry = find(id);
    if (!entry) {
        auto const source = displayed ? *displayed : original.value_or(BudgetSource());
        throw Error(
            tr("Failed to locate the budgeted money that failed to be saved, %1.").arg(presentationText(source)));
    }
    entry->setErrorMessage(errorMessage);
}

void BudgetedMoniesWidget::onClicked(QtPtr<QAbstractButton> const& button)
{
    qInfo() << "Handling budgeted money entries button clicked" << button->text();
    auto const hadFocus = button->hasFocus();
    saveDiscardBttnbx->setEnabled(false);
    ScopeExecutor const enableAgain([box = QtPtr<QDialogButtonBox>(saveDiscardBttnbx), button, hadFocus] {
        if (!box) {
            return;
        }
        box->setEnabled(true);
        if (hadFocus && box->isVisible() && QApplication::focusWidget() == nullptr) {
            button->setFocus(); // which the disabled box took away
        }
    });
    if (button == saveDiscardBttnbx->button(QDialogButtonBox::Discard)) {
        close();
    } else if (button == saveDiscardBttnbx->button(QDialogButtonBox::Save)) {
        save();
    } else if (button == addButton_) {
        addEntryWidget();
    } else {
        throw std::logic_error(tr("Unknown button pressed, %1.").arg(button->text()).toStdString());
    }
}

/// Keeps what the keyboard reaches on screen. A click is already where the person looks, and would miss its own release
/// if the rows moved under it.
void BudgetedMoniesWidget::onFocusChanged(QWidget* /*before*/, QWidget* now)
{
    if (now == nullptr || !budgetedMoneyEntriesWdgt->isAncestorOf(now) ||
        QApplication::mouseButtons() != Qt::NoButton) {
        return;
    }
    auto const* entry = now;
    while (entry->parentWidget() != budgetedMoneyEntriesWdgt) {
        entry = entry->parentWidget();
    }
    auto const left = now->mapTo(budgetedMoneyEntriesWdgt, QPoint()).x();
    budgetedMoniesScrllr->ensureVisible(left, entry->y() + entry->height(), 0, 0);
    budgetedMoniesScrllr->ensureVisible(left, entry->y(), 0, 0);
    budgetedMoniesScrllr->ensureWidgetVisible(now, 0, 0);
}

void BudgetedMoniesWidget::addEntryWidget()
{
    qInfo() << "Adding empty money entry.";
    auto const entry = add(*creator_->makeEmptyBudgetedMoney(), true);
    leadTabFirstTo(entry);
    if (isVisible()) {
        entry->show();
    }
    putCursorInto(entry);
}

auto BudgetedMoniesWidget::add(BudgetedMoney const& item, bool isNew) -> Entry
{
    qInfo() << "Adding budgeted money entry:" << item.source().name() << "isNew" << isNew;
    Entry entry = creator_->makeEntryWidget(usable_, displayAs_, this).release();
    join(entry);
    {
        isLoading_ = true;
        ScopeExecutor const loaded([this] { isLoading_ = false; });
        entry->setBudgetedMoney(item);
    }
    auto const spacer = budgetedMoneyEntriesVbxlyt->count() - 1;
    budgetedMoneyEntriesVbxlyt->insertWidget(isNew ? 0 : spacer, entry.get());
    if (spacer % rowsBetweenTidyings == rowsBetweenTidyings - 1) {
        forgetPolishRequests();
    }
    return entry;
}

/// Comes ahead of loading, since the row of a goal asks for the accounts of its bank while it loads.
void BudgetedMoniesWidget::join(Entry const& entry)
{
    using Row = BudgetedMoneyEntryWidget;
    connect(entry.get(), &Row::valueChanged, this, &BudgetedMoniesWidget::updateTotal);
    connect(entry.get(), &Row::lookUpBankAccounts, this, &BudgetedMoniesWidget::lookUpBankAccounts);
    connect(this, &BudgetedMoniesWidget::lookedUpBankAccounts, entry.get(), &Row::onLookedUpBankAccounts);
}

QList<BudgetedMoneyEntryWidget*> BudgetedMoniesWidget::entries() const
{
    return budgetedMoneyEntriesWdgt->findChildren<BudgetedMoneyEntryWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

/// Looks from the end, since a walk cleans its rows from the front.
bool BudgetedMoniesWidget::hasDirtyEntry() const
{
    auto const& children = budgetedMoneyEntriesWdgt->children();
    return std::any_of(children.rbegin(), children.rend(), [](QObject const* child) {
        auto const* const entry = qobject_cast<BudgetedMoneyEntryWidget const*>(child);
        return entry != nullptr && entry->isDirty();
    });
}

/// Looks from the row found last on, since answers come in the order of the walk: thousands of them stay cheap.
auto BudgetedMoniesWidget::find(GuiElementIdentifier const& id) -> Entry
{
    auto const& children = budgetedMoneyEntriesWdgt->children();
    for (qsizetype step = 0; step < children.size(); ++step) {
        auto const place = (lastFound_ + step) % children.size();
        auto* const entry = qobject_cast<BudgetedMoneyEntryWidget*>(children.at(place));
        if (entry != nullptr && entry->identifier() == id) {
            lastFound_ = place;
            return entry;
        }
    }
    return nullptr;
}

void BudgetedMoniesWidget::updateTotal()
{
    if (isLoading_) {
        return; // load() makes the total of all rows at once
    }
    qInfo() << "Updating budgeted monies total";
    try {
        totalMnyntr->setAmount(fiscora::math::detail::accumulateRunningTotals(preferred_, monthlyTotals()));
    } catch (std::exception const& failure) {
        qWarning() << "The budgeted monies can't be added up, so that no total is shown." << failure.what();
        totalMnyntr->clear();
    }
}

/// \throws std::overflow_error when an amount leaves 64 bits
std::map<Currency, Money> BudgetedMoniesWidget::monthlyTotals() const
{
    std::map<Currency, Money> totals;
    for (auto const* const entry : entries()) {
        try {
            if (auto const amount = monthlyAmount(*entry)) {
                auto const [total, isFirst] = totals.try_emplace(amount->code(), *amount);
                if (!isFirst) {
                    total->second += *amount;
                }
            }
        } catch (DataEntryError const&) {
            qWarning() << "The total leaves out an amount that can't be read:"
                       << entry->source().value_or(BudgetSource());
        }
    }
    return totals;
}

/// A receiver may answer inside the emission, and end rows, or this view, as it likes.
void BudgetedMoniesWidget::save()
{
    qInfo() << "Saving all budgeted money entries.";
    QtPtr<BudgetedMoniesWidget> const self = this;
    auto const present = entries();
    std::vector<Entry> const waiting(present.begin(), present.end());
    for (auto const& entry : waiting) {
        if (entry) {
            save(entry);
        }
    }
    qInfo() << "Processed all budgeted money entries.";
    if (self && !hasDirtyEntry()) {
        close();
    }
}

void BudgetedMoniesWidget::save(Entry const& entry)
{
    qInfo() << "Examining budgeted money Original Source:" << entry->originalSource().value_or(BudgetSource());
    try {
        if (!entry->isDirty()) {
            qInfo() << entry->source().value_or(BudgetSource()) << "budgeted money Did Not Change.";
        } else if (entry->isMarkedForRemoval()) {
            sendRemoval(entry);
        } else if (entry->originalSource()) {
            sendUpdate(entry);
        } else {
            sendAddition(entry);
        }
    } catch (Error const& error) {
        qWarning() << "Error during the save data transformation." << error.what();
        if (entry) {
            entry->setErrorMessage(error.message());
        }
    }
}

// What is sent is copied out of the row first: an answer changes the row, or ends it, while others still listen.

void BudgetedMoniesWidget::sendRemoval(Entry const& entry)
{
    qInfo() << "budgeted money to be Removed";
    auto const id = entry->identifier();
    if (auto const original = entry->originalSource()) {
        emit removed(id, *original);
        if (!entry || entry->errorMessage()) {
            return;
        }
    }
    entry->clearDirty();
    entry->deleteLater();
}

void BudgetedMoniesWidget::sendUpdate(Entry const& entry)
{
    auto const id = entry->identifier();
    auto const original = *entry->originalSource();
    auto const source = entry->source();
    qInfo() << "budgeted money to be Updated:" << source.value_or(BudgetSource());
    if (source != original) {
        emit renamed(id, original, source.value_or(BudgetSource()));
        if (!entry) {
            return;
        }
    }
    auto const account = entry->bankAccount();
    auto const money = creator_->makeBudgetedMoney(*entry);
    emit updated(id, money, account);
}

void BudgetedMoniesWidget::sendAddition(Entry const& entry)
{
    auto const id = entry->identifier();
    qInfo() << "budgeted money to be Added:" << entry->source().value_or(BudgetSource());
    auto const account = entry->bankAccount();
    auto const money = creator_->makeBudgetedMoney(*entry);
    emit added(id, money, account);
}

void BudgetedMoniesWidget::putCursorInto(Entry const& entry)
{
    entry->findChild<QLineEdit*>(QStringLiteral("sourceLndt"))->setFocus(Qt::OtherFocusReason);
}

/// The form makes the total and the buttons ahead of all rows, and the Tab key goes round: what follows the buttons comes
/// first. By itself a new row would come last.
void BudgetedMoniesWidget::leadTabFirstTo(Entry const& entry)
{
    auto const stops = tabStops(*entry);
    auto* const lastButton = tabStops(*saveDiscardBttnbx).back();
    // From the last on, since a stop that follows the button already isn't moved.
    std::for_each(stops.rbegin(), stops.rend(), [=](QWidget* stop) { QWidget::setTabOrder(lastButton, stop); });
}
}
