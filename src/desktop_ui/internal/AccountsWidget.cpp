#include "internal/AccountsWidget.h"

#include "internal/AccountEntryWidget.h"
#include "internal/TabStops.h"
#include "internal/Views.h"

#include <tlm/foundation/Error.h>

#include <QDebug>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::Account;
using accounting::AccountCode;
using accounting::AccountNumber;
using foundation::Error;
using foundation::QtPtr;

namespace {

/// \return whether a row that says \a text is one of \a form
/// \throws Error when \a text is none of a row
bool belongs(QString const& text, AccountEntryWidget const& form)
{
    if (text == AccountEntryWidget::newEntryText()) {
        return form.number() == AccountNumber::invalid_ && form.name().isEmpty();
    }
    auto const pieces = text.split(AccountCode::separator_);
    if (pieces.size() < 2) {
        throw Error(AccountsWidget::tr("\"%1\" isn't the number and name of an account.").arg(text));
    }
    auto const name = form.name();
    return pieces.front().toUInt() == form.number() && (name.isEmpty() || pieces.at(1) == name);
}
}

AccountsWidget::AccountsWidget(std::set<Account> const& accounts, std::set<fiscora::Currency> usable,
                               navigation::CurrencyDisplayOptions const& displayAs, QtPtr<QWidget> const& parent)
    : QWidget(parent.get()), usable_(std::move(usable)), displayAs_(displayAs)
{
    setupUi(this);
    for (auto const& account : accounts) {
        numbers_.insert(account.code().number());
    }
    ParentNumbers const numbers(numbers_);
    std::for_each(accounts.rbegin(), accounts.rend(), [&](Account const& account) { addEntry(account, numbers); });
    if (accounts.empty()) {
        addEntry(std::nullopt, numbers);
    }
    addBttn_ = addButton(*saveDiscardBttnbx, tr("&Add"), tr("Failed to create the add push button."));
    leadTabFromListToForms();
    displayAccount(accountCodesLstwdgt->currentItem());
    connect(accountCodesLstwdgt, &QListWidget::currentItemChanged, this, &AccountsWidget::accountSelectionChanged);
    connect(saveDiscardBttnbx, &QDialogButtonBox::clicked, this, &AccountsWidget::onClicked);
}

AccountsWidget::~AccountsWidget()
{
    // The base ends the list, which tells that its rows go.
    accountCodesLstwdgt->disconnect(this);
}

bool AccountsWidget::close()
{
    return tellAndClose(this);
}

auto AccountsWidget::addEntry(std::optional<Account> const& account, ParentNumbers const& numbers) -> Form
{
    auto const& shown = account.value_or(Account());
    qInfo() << "Inserting account entry." << shown.code().name();
    auto* const item =
        new QListWidgetItem(account ? presentationText(account->code()) : AccountEntryWidget::newEntryText());
    accountCodesLstwdgt->addItem(item);
    Form form =
        new AccountEntryWidget(numbers, account ? std::optional(account->code()) : std::nullopt, shown.isClosed(),
                               shown.type(), shown.balance(), usable_, displayAs_, std::nullopt, this);
    rows_.add(*item, *form);
    if (account) {
        withheld_[account->code().number()].push_back(form);
    }
    accountEntryVbxlyt->insertWidget(0, form.get());
    form->hide();
    accountCodesLstwdgt->setCurrentItem(item);
    return form;
}

/// A blank form that is there already is as good as a new one.
void AccountsWidget::addNewEntry()
{
    Form form = rows_.find([](AccountEntryWidget const& entry) { return entry.isEmpty(); });
    if (form) {
        accountCodesLstwdgt->setCurrentItem(rows_.itemOf(form.get()));
    } else {
        form = addEntry(std::nullopt, ParentNumbers(numbers_));
    }
    form->findChild<QLineEdit*>(QStringLiteral("numberLndt"))->setFocus(Qt::OtherFocusReason);
}

/// The Tab key goes round, and comes to forms, later ones too, behind the list and the buttons. So the list comes behind
/// the buttons.
void AccountsWidget::leadTabFromListToForms()
{
    setTabOrder(tabStops(*saveDiscardBttnbx).back(), accountCodesLstwdgt);
    accountCodesLstwdgt->setFocus(Qt::OtherFocusReason);
}

void AccountsWidget::displayAccount(QtPtr<QListWidgetItem> const& item)
{
    auto const text = item->text();
    qInfo() << "Loading Account" << text;
    if (auto const before = displayed()) {
        before->hide();
    } else {
        qDebug() << "Failed to locate the account that is currently displayed, assuming none are.";
    }
    Form form = rows_.formOf(item.get());
    if (!form) {
        form = rows_.find([&](AccountEntryWidget const& entry) { return belongs(text, entry); });
    }
    if (!form) {
        qFatal("Failed to locate the account that is to be displayed.");
    }
    form->show();
    shown_ = form;
}

/// Asked whenever the selection changes: mostly it is the form that was shown last.
auto AccountsWidget::displayed() const -> Form
{
    auto const isShown = [](AccountEntryWidget const& form) { return !form.isHidden(); };
    return shown_ && isShown(*shown_) ? shown_ : Form(rows_.find(isShown));
}

/// Lets the list say what was typed into \a form, and the other forms offer its number.
void AccountsWidget::followTyping(Form const& form)
{
    rows_.itemOf(form.get())->setText(form->displayText());
    AccountNumber const number(form->number());
    if (number == AccountNumber() || form->numberErrorMessage()) {
        return;
    }
    offerParent(number);
}

/// Lets every form but its own offer \a number. Those that offer it already do so for good, so only the others are told again.
void AccountsWidget::offerParent(AccountNumber const& number)
{
    numbers_.insert(number);
    auto const [place, isNew] = withheld_.try_emplace(number);
    auto& withheld = place->second;
    if (isNew) {
        withheld = rows_.forms();
    }
    std::erase_if(withheld, [&](Form const& form) {
        if (form) {
            form->addParentNumber(number);
        }
        return !form || form->offersParent(number);
    });
}

void AccountsWidget::accountSelectionChanged(QtPtr<QListWidgetItem> const& current,
                                             QtPtr<QListWidgetItem> const& previous)
{
    auto const text = [](auto const& row) { return row ? std::optional(row->text()) : std::nullopt; };
    logDisplayed("account", text(previous), text(current));
    // A form stays on view without a row that is current after Save, and is typed into like any other.
    if (auto const before = displayed()) {
        followTyping(before);
    } else if (previous) {
        qFatal("Failed to locate the previously selected displayed account.");
    }
    if (current) {
        displayAccount(current);
    }
}

void AccountsWidget::onClicked(QtPtr<QAbstractButton> const& button)
{
    qInfo() << "Handling account entry widget clicked button" << button->text();
    if (button == saveDiscardBttnbx->button(QDialogButtonBox::Discard)) {
        close();
    } else if (button == saveDiscardBttnbx->button(QDialogButtonBox::Save)) {
        save();
    } else if (button == addBttn_) {
        addNewEntry();
    }
}
}
