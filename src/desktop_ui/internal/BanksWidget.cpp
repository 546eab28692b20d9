#include "internal/BanksWidget.h"

#include "internal/AccountEntryWidget.h"
#include "internal/BankEntryWidget.h"
#include "internal/BankNameWidget.h"
#include "internal/TabStops.h"
#include "internal/Views.h"

#include <tlm/foundation/Error.h>
#include <tlm/foundation/PresentationText.h>

#include <QDebug>
#include <QPushButton>
#include <QTreeWidgetItemIterator>

#include <algorithm>
#include <utility>
#include <vector>

namespace tlm::desktop_ui::internal {

using accounting::Account;
using accounting::AccountCode;
using accounting::AccountNumber;
using banking::Bank;
using banking::BankAccountTypes;
using fiscora::Currency;
using foundation::Error;
using foundation::QtPtr;

namespace {

// Columns of the tree.
constexpr int nameColumn = 0;
constexpr int balanceColumn = 1;

using AccountsByNumber = std::map<AccountNumber, Account const*>;

AccountsByNumber byNumber(std::set<Account> const& accounts)
{
    AccountsByNumber byNumber;
    for (auto const& account : accounts) {
        byNumber.emplace(account.code().number(), &account);
    }
    return byNumber;
}

/// \throws Error when there is no account of that number
Account const& locate(AccountNumber const& number, AccountsByNumber const& accounts)
{
    auto const found = accounts.find(number);
    if (found == accounts.end()) {
        throw Error(BanksWidget::tr("Failed to locate bank account '%1'.").arg(presentationText(number)));
    }
    return *found->second;
}

std::set<AccountNumber> numbersOf(std::set<Account> const& accounts)
{
    std::set<AccountNumber> numbers;
    for (auto const& account : accounts) {
        numbers.insert(account.code().number());
    }
    return numbers;
}

QString told(QTreeWidgetItem const& row)
{
    return row.text(nameColumn);
}
}

BanksWidget::BanksWidget(banking::BankMap const& banks, std::set<Account> const& allAccounts, std::set<Currency> usable,
                         navigation::CurrencyDisplayOptions const& displayAs, QtPtr<QWidget> const& parent)
    : QWidget(parent.get()), numbers_(numbersOf(allAccounts)), usable_(std::move(usable)), displayAs_(displayAs)
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    load(banks, allAccounts);
    addButtons();
    leadTabToButtonsBehind(*formOf(bankAndAccountsTrwdgt->currentItem())); // that was made last
    layOutColumns();
    connect(bankAndAccountsTrwdgt, &QTreeWidget::currentItemChanged, this, &BanksWidget::onCurrentItemChanged);
    calculateParentBalances();
    auto* const first = bankAndAccountsTrwdgt->topLevelItem(0);
    bankAndAccountsTrwdgt->setCurrentItem(first);
    connect(saveDiscardBttnbx, &QDialogButtonBox::clicked, this, &BanksWidget::onClicked);
    display(first); // which a row that was current already doesn't tell by itself
}

BanksWidget::~BanksWidget()
{
    // The base hides what ends on screen, and a field that loses the focus by this tells the form around it.
    hide();
}

void BanksWidget::load(banking::BankMap const& banks, std::set<Account> const& allAccounts)
{
    auto const accounts = byNumber(allAccounts);
    struct Root
    {
        Row bank;
        Account const& account;
        BankAccountTypes type;
    };
    std::vector<Root> roots;
    std::vector<std::pair<AccountCode, Account const&>> children; // each with its parent
    for (auto const& [name, bank] : banks) {
        auto* const row = add(bank);
        for (auto const& [number, type] : bank.accounts()) {
            auto const& account = locate(number, accounts);
            if (auto const& parent = account.code().parent()) {
                children.emplace_back(locate(*parent, accounts).code(), account);
            } else {
                roots.push_back({row, account, type});
            }
        }
    }
    RowsByNumber rows;
    for (auto const& [bank, account, type] : roots) {
        if (type == BankAccountTypes::Goal) {
            qInfo() << "Bank account" << account.code() << "is a goal account, which does not have a parent.";
        }
        rows.emplace(account.code().number(), add(bank, account, type));
    }
    for (auto const& [parent, account] : children) {
        if (!add(parent, account, rows)) {
            qCritical() << "Failed to add child account" << account.code() << "to parent account" << parent;
        }
    }
    if (banks.empty()) {
        add(Bank());
    }
}

void BanksWidget::addButtons()
{
    auto& box = *saveDiscardBttnbx;
    addBankBttn_ = addButton(box, tr("&Add Bank"), tr("Failed to create the add bank push button."));
    addAccountBttn_ = addButton(box, tr("Add A&ccount"), tr("Failed to create the add bank account push button."));
}

void BanksWidget::layOutColumns()
{
    auto& tree = *bankAndAccountsTrwdgt;
    tree.sortItems(nameColumn, Qt::AscendingOrder);
    tree.expandAll();
    tree.header()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
    tree.header()->setSectionResizeMode(balanceColumn, QHeaderView::Fixed);
    tree.header()->resizeSection(balanceColumn, tree.width() / 4);
}

auto BanksWidget::add(Bank const& bank) -> Row
{
    auto const& institution = bank.name.institution();
    qInfo() << "Adding bank" << institution;
    auto const isNew = bank.name.isEmpty();
    Row const row = new QTreeWidgetItem(bankAndAccountsTrwdgt);
    row->setText(nameColumn, isNew ? BankNameWidget::newBankText() : institution);
    auto* const form = new BankEntryWidget(isNew ? std::nullopt : std::optional(bank), this);
    bankEntries_.add(row, form);
    place(row, *form);
    return row;
}

auto BanksWidget::add(Row bank, Account const& account, BankAccountTypes const& type) -> Row
{
    auto* const holder = bankEntries_.formOf(bank);
    if (holder == nullptr) {
        qFatal("Failed to locate the bank widget item that is to hold the account.");
    }
    qInfo() << "Adding bank account" << told(*bank) << account.code().name();
    Row const row = new QTreeWidgetItem(bank);
    if (account.code().number() == AccountNumber()) {
        holder->markDirty();
    }
    insert(row, account, std::nullopt, type);
    return row;
}

bool BanksWidget::add(AccountCode const& parent, Account const& account, RowsByNumber& rows)
{
    auto const found = rows.find(parent.number());
    if (found == rows.end()) {
        qDebug() << "Failed to locate the account widget item that is to hold the account.";
        return false;
    }
    Row const row = new QTreeWidgetItem(found->second);
    insert(row, account, account.type(), std::nullopt);
    accountEntries_.formOf(row)->setEditable(false);
    rows.emplace(account.code().number(), row);
    return true;
}

/// Gives the row of \a account its text and its form.
void BanksWidget::insert(Row row, Account const& account, std::optional<accounting::AccountTypes> const& ledgerType,
                         std::optional<BankAccountTypes> const& bankType)
{
    auto const isNew = account.code().number() == AccountNumber();
    row->setText(nameColumn, isNew ? AccountEntryWidget::newEntryText() : presentationText(account.code()));
    row->setTextAlignment(balanceColumn, Qt::AlignTrailing | Qt::AlignVCenter);
    auto* const form =
        new AccountEntryWidget(numbers_, isNew ? std::nullopt : std::optional(account.code()), account.isClosed(),
                               ledgerType, account.balance(), usableFor(account.balance()), displayAs_, bankType, this);
    accountEntries_.add(row, form);
    place(row, *form);
}

/// A balance is shown in its own currency, also where that can't be entered any more.
std::set<Currency> BanksWidget::usableFor(fiscora::Money const& balance) const
{
    auto usable = usable_;
    if (balance.code() != Currency::XXX) {
        usable.insert(balance.code());
    }
    return usable;
}

void BanksWidget::place(Row row, QWidget& form)
{
    entriesVbxlyt->insertWidget(0, &form);
    form.hide();
    bankAndAccountsTrwdgt->setCurrentItem(row);
}

QWidget* BanksWidget::formOf(Row row) const
{
    if (auto* const bank = bankEntries_.formOf(row)) {
        return bank;
    }
    return accountEntries_.formOf(row);
}

/// The Tab key comes to the buttons behind the form that was made last, since they stand below all forms. To move them once is
/// cheap, to move each of thousands of forms isn't.
void BanksWidget::leadTabToButtonsBehind(QWidget const& form)
{
    saveDiscardBttnbx->setFocusProxy(nullptr); // by which the key would come to its first button from where it was made
    auto* before = tabStops(form).back();
    for (auto* const button : tabStops(*saveDiscardBttnbx)) {
        setTabOrder(before, button);
        before = button;
    }
}

/// Puts the cursor into the first field of the form on view, which was just made.
void BanksWidget::takeUp()
{
    leadTabToButtonsBehind(*formOf(bankAndAccountsTrwdgt->currentItem()));
    bankAndAccountsTrwdgt->setFocus(Qt::OtherFocusReason);
    focusNextChild();
}

bool BanksWidget::close()
{
    return tellAndClose(this);
}

void BanksWidget::onClicked(QtPtr<QAbstractButton> const& button)
{
    qInfo() << "Handling bank entry widget clicked button" << button->text();
    if (button == saveDiscardBttnbx->button(QDialogButtonBox::Discard)) {
        close();
    } else if (button == saveDiscardBttnbx->button(QDialogButtonBox::Save)) {
        saveAccounts();
    } else if (button == addBankBttn_) {
        add(Bank());
        takeUp();
    } else if (button == addAccountBttn_) {
        add(currentBank(), Account(), BankAccountTypes::Unspecified);
        takeUp();
    }
}

/// \return the bank of the current row, nullptr when no row is
auto BanksWidget::currentBank() const -> Row
{
    auto* row = bankAndAccountsTrwdgt->currentItem();
    while (row != nullptr && row->parent() != nullptr) {
        row = row->parent();
    }
    return row;
}

void BanksWidget::onCurrentItemChanged(QtPtr<QTreeWidgetItem> const& current, QtPtr<QTreeWidgetItem> const& previous)
{
    auto const text = [](auto const& row) { return row ? std::optional(told(*row)) : std::nullopt; };
    logDisplayed("bank", text(previous), text(current));
    if (previous) {
        conceal(previous.get());
    }
    display(current.get());
}

/// Lets \a row say what was typed into its form.
void BanksWidget::conceal(Row row)
{
    if (auto* const bank = bankEntries_.formOf(row)) {
        bank->hide();
        auto const name = bank->tryBankName();
        row->setText(nameColumn, name ? name->institution() : BankNameWidget::newBankText());
    } else if (auto* const account = accountEntries_.formOf(row)) {
        account->hide();
        auto const text = account->displayText();
        row->setText(nameColumn, text.isEmpty() ? AccountEntryWidget::newEntryText() : text);
    } else {
        qFatal("Failed to locate the widget item that was previously selected.");
    }
}

void BanksWidget::display(Row row)
{
    selectedKind_ = Kinds::Nothing;
    if (auto* const bank = bankEntries_.formOf(row)) {
        bank->show();
        selectedKind_ = Kinds::Bank;
    } else if (auto* const account = accountEntries_.formOf(row)) {
        account->show();
        selectedKind_ = account->bankType() ? Kinds::BankAccount : Kinds::SubAccount;
    }
    addBankBttn_->setEnabled(selectedKind_ == Kinds::Bank || selectedKind_ == Kinds::BankAccount);
    addAccountBttn_->setEnabled(selectedKind_ == Kinds::Bank);
}

void BanksWidget::calculateParentBalances()
{
    qInfo() << "Calculating parent balances.";
    auto& tree = *bankAndAccountsTrwdgt;
    auto const signWidth = tree.fontMetrics().averageCharWidth();
    auto width = tree.headerItem()->text(balanceColumn).size() * signWidth;
    for (QTreeWidgetItemIterator row(&tree, QTreeWidgetItemIterator::HasChildren); *row != nullptr; ++row) {
        if (accountEntries_.formOf(*row) != nullptr) {
            auto const text = balanceText(*row);
            (*row)->setText(balanceColumn, text);
            width = std::max(width, text.size() * signWidth);
        }
    }
    tree.header()->resizeSection(balanceColumn, static_cast<int>(width));
}

/// The width that was reckoned by an average sign, before the font was settled, may be too narrow for digits.
void BanksWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    QAbstractItemView const& tree = *bankAndAccountsTrwdgt;
    auto& header = *bankAndAccountsTrwdgt->header();
    header.resizeSection(balanceColumn,
                         std::max({header.sectionSize(balanceColumn), header.sectionSizeHint(balanceColumn),
                                   tree.sizeHintForColumn(balanceColumn)}));
}

/// \return what \a parent and the accounts right below it hold, empty where that can't be told in one amount
QString BanksWidget::balanceText(Row parent) const
{
    try {
        auto total = accountEntries_.formOf(parent)->balance();
        for (auto place = 0; place < parent->childCount(); ++place) {
            total += accountEntries_.formOf(parent->child(place))->balance();
        }
        return foundation::presentationText(total, foundation::WithCurrency());
    } catch (std::exception const& failure) {
        qWarning() << "There is no combined balance of" << told(*parent) << failure.what();
        return {};
    }
}
}
