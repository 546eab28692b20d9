#pragma once

#include "Fixture.h"

#include <presenter/DashboardPresenter.h>
#include <presenter/Refusal.h>
#include <tlm/accounting/Account.h>
#include <tlm/foundation/Error.h>

#include <QSignalSpy>

#include <functional>
#include <optional>
#include <support/DollarsAndEuros.h>
#include <vector>

namespace tallymere::presenter {

using engine::Household;
using engine::Posting;
using engine::PostingId;
using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::Account;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::desktop_ui::MainWindow;

/// A posting without description that isn't cleared.
inline Posting made(AccountNumber const& debiting, AccountNumber const& crediting, Money const& amount,
                    QDate const& day = QDate(2026, 3, 1))
{
    return {day, debiting, crediting, amount, {}, tlm::accounting::TransactionStatuses::NotCleared, std::nullopt};
}

/// How the presenter answered one change.
/// \tparam Key what the family of views tells things apart by
template <typename Key>
struct Answered
{
    Refusal refusal; ///< empty for a success
    std::optional<Key> original;
    std::optional<Key> displayed;
};

/// A budget in dollars and euros whose books hold a bank of two accounts, a second bank, and accounts for food and fun.
class BooksTest : public PresenterTest
{
protected:
    BooksTest()
    {
        session.change([this](Household& household) { setUp(household); });
        changes.clear();
    }

    engine::BudgetContent const& content() const { return session.household().content(); }
    engine::BookAccount const& account(AccountNumber const& number) const
    {
        return content().books.accounts.at(number);
    }
    bool hasAccount(AccountNumber const& number) const { return content().books.accounts.contains(number); }
    AccountCode code(AccountNumber const& number) const { return account(number).code; }

    /// \return the number of the account called \a name
    /// \throws std::runtime_error when there is none
    AccountNumber numberOf(QString const& name) const
    {
        for (auto const& [number, each] : content().books.accounts) {
            if (each.code.name() == name) {
                return number;
            }
        }
        throw std::runtime_error("no account called " + name.toStdString());
    }

    PostingId post(AccountNumber const& debiting, AccountNumber const& crediting, Money const& amount,
                   QDate const& day = QDate(2026, 3, 1))
    {
        PostingId id;
        session.change([&](Household& household) { id = household.post(made(debiting, crediting, amount, day)); });
        changes.clear();
        return id;
    }

    /// \return what the household refuses \a change with, which must not go through
    QString sentenceOf(std::function<void(Household&)> const& change)
    {
        try {
            session.change(change);
        } catch (std::exception const& refusal) {
            return QString::fromUtf8(refusal.what());
        }
        ADD_FAILURE() << "the household accepts this change";
        return {};
    }

    /// Has the view go away as soon as the next answer is a success, as a view does with its last entry.
    template <typename Signal>
    void closeOn(Signal success)
    {
        QObject::connect(&window, success, &window, &MainWindow::prepareShowDashboard);
    }

    /// Comes to rest, as the program does between two actions of a person.
    static void rest()
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    /// \return the text of the message box on screen, which is closed; empty when there is none
    static QString readMessage()
    {
        auto* const box = tlm::testing::shownWindow<QMessageBox>();
        if (box == nullptr) {
            return {};
        }
        auto const text = box->text();
        box->button(QMessageBox::Ok)->click();
        rest();
        return text;
    }

    static inline AccountNumber const food{601};
    static inline AccountNumber const fun{602};
    static inline AccountNumber const abroad{603}; ///< in euros
    BankName const bank{"Aspen Bank"};
    BankName const otherBank{"Birch Bank"};
    AccountNumber everyday; ///< checking with 500 dollars
    AccountNumber card;     ///< credit card, at the same bank, without postings
    DashboardPresenter dashboard{window, session};
    QSignalSpy changes{&session, &Session::changed};

private:
    void setUp(Household& household)
    {
        keepInDollarsAndEuros(household, {.dollarsAnEuro = 1.5, .eurosADollar = 0.5});
        QDate const opened(2026, 1, 2);
        household.addBank(bank);
        household.addBank(otherBank);
        everyday = household.addBankAccount(bank, "Everyday", BankAccountTypes::Checking, dollars(500), opened);
        card = household.addBankAccount(bank, "Card", BankAccountTypes::CreditCard, dollars(0), opened);
        addExpense(household, food, "Food", dollars(0), opened);
        addExpense(household, fun, "Fun", dollars(0), opened);
        addExpense(household, abroad, "Holidays", euros(0), opened);
    }

    static void addExpense(Household& household, AccountNumber const& number, QString const& name, Money const& balance,
                           QDate const& opened)
    {
        household.addAccount(Account(AccountTypes::Expense, AccountCode(number, name, std::nullopt), balance, false),
                             opened);
    }
};
}
