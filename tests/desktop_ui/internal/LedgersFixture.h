#pragma once

#include "ShowActive.h"
#include "internal/LedgersWidget.h"
#include "internal/TransactionWidget.h"
#include "support/MessageLog.h"
#include "support/Typing.h"
#include "support/Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <vector>

namespace tlm::testing {

/// The view of the ledgers of a small household, not on screen yet, and all that it tells.
class LedgersFixture : public ::testing::Test
{
protected:
    using View = desktop_ui::internal::LedgersWidget;
    using Entry = desktop_ui::internal::TransactionWidget;
    using Account = accounting::Account;
    using AccountCode = accounting::AccountCode;
    using AccountNumber = accounting::AccountNumber;
    using LedgerAccount = accounting::LedgerAccount;
    using Number = accounting::TransactionNumber;
    using MaybeNumber = std::optional<Number>;
    using Statuses = accounting::TransactionStatuses;
    using Transaction = accounting::Transaction;
    using Types = accounting::AccountTypes;
    using Currency = fiscora::Currency;
    using Money = fiscora::Money;

    ~LedgersFixture() override { delete view.data(); }

    static Money euros(long long whole) { return {Currency::EUR, whole, 0, 0}; }

    static Transaction posting(unsigned short number, AccountCode const& debiting, AccountCode const& crediting,
                               QString const& about, Statuses status = Statuses::NotCleared)
    {
        return {QDate(2031, 2, 3).addDays(number), debiting, crediting, euros(number), about, Number(number), status};
    }

    /// \return the ledger of \a code with those of \a transactions that touch it
    static LedgerAccount ledgerOf(AccountCode const& code, std::vector<Transaction> const& transactions)
    {
        LedgerAccount ledger{Account(Types::Asset, code, euros(0), false), {}};
        for (auto const& transaction : transactions) {
            if (transaction.debiting() == code.number() || transaction.crediting() == code.number()) {
                ledger.transactions.emplace(*transaction.number(), transaction);
            }
        }
        return ledger;
    }

    void make() { make({asset(cash), asset(bank), expense(food), expense(rent)}); }
    void make(std::set<Account> const& accounts, bool usesEverydayTerms = false)
    {
        view = new View(accounts, {Currency::EUR, Currency::USD}, navigation::CurrencyDisplayOptions::Code,
                        usesEverydayTerms, nullptr);
        listen();
        MessageLog::clear();
    }

    static Account asset(AccountCode const& code) { return {Types::Asset, code, euros(0), false}; }
    static Account expense(AccountCode const& code) { return {Types::Expense, code, euros(0), false}; }

    /// Answers each wish for a ledger at once, from here on.
    void answerLedgers()
    {
        QObject::connect(view, &View::selectedLedger, view,
                         [this](AccountCode const& code) { view->onShowLedger(ledgerOf(known(code), books)); });
    }

    QTreeWidget& tree() const { return child<QTreeWidget>(*view, "ledgersTrwdgt"); }

    QTreeWidgetItem& row(QString const& text) const
    {
        auto const found = tree().findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        if (found.size() != 1) {
            throw std::runtime_error("not one row " + text.toStdString());
        }
        return *found.front();
    }

    void choose(AccountCode const& code) const { tree().setCurrentItem(&row(presentationText(code))); }
    void choose(Types type) const { tree().setCurrentItem(&row(presentationText(type))); }

    /// \return all entries, hidden ones too, in the order in which they were made
    QList<Entry*> entries() const { return view->findChildren<Entry*>(); }

    /// \return descriptions of the entries that are shown
    QStringList shown() const
    {
        QStringList texts;
        for (auto const* const entry : entries()) {
            if (entry->isVisibleTo(view)) {
                texts.append(entry->description());
            }
        }
        return texts;
    }

    Entry& entry(QString const& about) const
    {
        for (auto* const each : entries()) {
            if (each->description() == about) {
                return *each;
            }
        }
        throw std::runtime_error("no entry about " + about.toStdString());
    }

    static void describe(Entry& entry, QString const& about)
    {
        auto& field = child<QLineEdit>(entry, "descriptionLndt");
        typeOver(field, about);
        QTest::keyClick(&field, Qt::Key_Return);
    }

    static QString error(Entry const& entry)
    {
        auto const& line = child<QWidget>(entry, "errorWdgt");
        return line.isHidden() ? "none" : child<QLabel>(line, "messageLbl").text();
    }

    QDialogButtonBox& buttons() const { return child<QDialogButtonBox>(*view, "saveDiscardDlgbttnbx"); }
    void save() const { buttons().button(QDialogButtonBox::Save)->click(); }
    void discard() const { buttons().button(QDialogButtonBox::Discard)->click(); }

    QPushButton& addButton() const
    {
        for (auto* const button : buttons().findChildren<QPushButton*>()) {
            if (buttons().buttonRole(button) == QDialogButtonBox::ActionRole) {
                return *button;
            }
        }
        throw std::runtime_error("no button adds an entry");
    }

    /// Lets what was put off happen: entries and views end.
    static void turnEventLoop() { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    /// Answers every change at once that it was saved, and new ones with the number 50.
    void acceptAll()
    {
        answer = [this](MaybeNumber const& number) {
            view->onSaveSucceeded(number, number ? std::nullopt : MaybeNumber(Number(50)));
        };
    }

    AccountCode const cash{AccountNumber(1000), "Cash", AccountNumber(900)};
    AccountCode const bank{AccountNumber(1100), "Bank", AccountNumber(900)};
    AccountCode const food{AccountNumber(4000), "Food", std::nullopt};
    AccountCode const rent{AccountNumber(4100), "Rent", std::nullopt};
    std::vector<Transaction> books{posting(1, food, cash, "Bread"), posting(2, rent, bank, "Flat"),
                                   posting(3, cash, bank, "Draw"), posting(4, food, cash, "Milk")};
    QPointer<View> view;
    QStringList sent;                               // what the view told, in order
    std::function<void(MaybeNumber const&)> answer; // runs inside the emission of a change

private:
    AccountCode const& known(AccountCode const& code) const
    {
        for (auto const* const each : {&cash, &bank, &food}) {
            if (each->number() == code.number()) {
                return *each;
            }
        }
        return rent;
    }

    void listen()
    {
        QObject::connect(view, &View::closing, view, [this] { sent.append("closing"); });
        QObject::connect(view, &View::selectedLedger, view,
                         [this](AccountCode const& code) { sent.append("ask " + code.name()); });
        QObject::connect(view, &View::addedTransaction, view, [this](Transaction const& txn) {
            tell("add " + txn.description().value_or("none"), std::nullopt);
        });
        QObject::connect(view, &View::updatedTransaction, view, [this](Number const& number, Transaction const& txn) {
            tell("update " + presentationText(number) + " " + txn.description().value_or("none"), number);
        });
        QObject::connect(view, &View::removedTransaction, view,
                         [this](Number const& number) { tell("remove " + presentationText(number), number); });
        QObject::connect(view, &View::markReconciled, view,
                         [this](Number const& number) { tell("reconcile " + presentationText(number), number); });
        QObject::connect(view, &View::markCleared, view, [this](std::set<Number> const& numbers) {
            ASSERT_EQ(numbers.size(), 1U);
            tell("clear " + presentationText(*numbers.begin()), *numbers.begin());
        });
    }

    void tell(QString const& change, MaybeNumber const& number)
    {
        sent.append(change);
        if (answer) {
            answer(number);
        }
    }
};
}
