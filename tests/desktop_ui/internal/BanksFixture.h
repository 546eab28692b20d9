#pragma once

#include "internal/AccountEntryWidget.h"
#include "internal/BankEntryWidget.h"
#include "internal/BanksWidget.h"
#include "support/MessageLog.h"
#include "support/Typing.h"
#include "support/Widgets.h"

#include <fiscora/Money.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <set>

namespace tlm::testing {

/// A view of banks, inside of a window that isn't on screen yet, and all that it tells.
class BanksFixture : public ::testing::Test
{
protected:
    using View = desktop_ui::internal::BanksWidget;
    using BankForm = desktop_ui::internal::BankEntryWidget;
    using AccountForm = desktop_ui::internal::AccountEntryWidget;
    using Types = banking::BankAccountTypes;
    using Number = accounting::AccountNumber;
    using Code = accounting::AccountCode;
    using Name = banking::BankName;
    using Currency = fiscora::Currency;
    using Money = fiscora::Money;

    /// What the view told, as an answer to it would name it.
    struct Change
    {
        std::optional<Name> originalBank, bank;
        std::optional<Code> originalAccount, account;
    };

    ~BanksFixture() override
    {
        window.hide();
        delete view.data();
    }

    static Money euros(long long whole) { return {Currency::EUR, whole, 0, 0}; }

    static Code code(unsigned int number, QString const& name, std::optional<unsigned int> parent = std::nullopt)
    {
        return {Number(number), name, parent ? std::optional(Number(*parent)) : std::nullopt};
    }

    static QString text(unsigned int number, QString const& name) { return presentationText(code(number, name)); }

    /// Puts \a account into the chart alone.
    void chart(Code const& account, Money const& balance = euros(0), bool isClosed = false)
    {
        accounts.emplace(accounting::AccountTypes::Asset, account, balance, isClosed);
    }

    /// Puts \a account into the chart and into the bank called \a bank.
    void keep(QString const& bank, Code const& account, Types type = Types::Checking, Money const& balance = euros(0))
    {
        chart(account, balance);
        auto kept = banks[Name(bank)].accounts();
        kept.emplace(account.number(), type);
        banks[Name(bank)] = banking::Bank(Name(bank), kept, false);
    }

    void keepBank(QString const& bank, bool isClosed = false)
    {
        banks[Name(bank)] = banking::Bank(Name(bank), {}, isClosed);
    }

    /// Aspen Bank with two accounts, one of which holds a sub-account, and Birch Bank with one.
    void keepTwoBanks()
    {
        keep("Aspen Bank", code(100, "Everyday"), Types::Checking, euros(40));
        keep("Aspen Bank", code(110, "Rainy days"), Types::Savings, euros(300));
        keep("Aspen Bank", code(111, "Holiday", 110), Types::Goal, euros(25));
        keep("Birch Bank", code(200, "Card"), Types::CreditCard, euros(7));
    }

    /// Makes the view of what was kept.
    void load()
    {
        view = new View(banks, accounts, {Currency::EUR, Currency::USD}, navigation::CurrencyDisplayOptions::Code,
                        &window);
        window.resize(1024, 576);
        view->setGeometry(window.rect());
        listen();
        MessageLog::clear();
    }

    void show()
    {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QTreeWidget& tree() const { return child<QTreeWidget>(*view, "bankAndAccountsTrwdgt"); }

    /// \return texts of all rows from top to bottom, each below another one indented
    QStringList rows() const
    {
        QStringList texts;
        for (QTreeWidgetItemIterator row(&tree()); *row != nullptr; ++row) {
            QString indent;
            for (auto const* above = (*row)->parent(); above != nullptr; above = above->parent()) {
                indent += "  ";
            }
            texts.append(indent + (*row)->text(0));
        }
        return texts;
    }

    /// \return the row that says \a text, the \a which-th of several
    QTreeWidgetItem& row(QString const& text, int which = 0) const
    {
        auto const found = tree().findItems(text, Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
        if (found.size() <= which) {
            throw std::runtime_error("no row says " + text.toStdString());
        }
        return *found.at(which);
    }

    /// \return texts of the rows in \a colour
    QStringList painted(Qt::GlobalColor colour) const
    {
        QStringList texts;
        for (QTreeWidgetItemIterator row(&tree()); *row != nullptr; ++row) {
            if ((*row)->background(0) == QBrush(colour)) {
                texts.append((*row)->text(0));
            }
        }
        return texts;
    }

    QString currentText() const { return tree().currentItem() == nullptr ? "none" : tree().currentItem()->text(0); }

    void choose(QTreeWidgetItem& row) const { tree().setCurrentItem(&row); }
    void choose(QString const& text) const { choose(row(text)); }

    /// \return the forms on view
    template <typename Form>
    QList<Form*> shown() const
    {
        auto forms = view->findChildren<Form*>();
        forms.removeIf([this](Form const* form) { return !form->isVisibleTo(view); });
        return forms;
    }

    BankForm& bank() const { return *shown<BankForm>().at(0); }
    AccountForm& account() const { return *shown<AccountForm>().at(0); }
    QWidget& form() const
    {
        return shown<BankForm>().isEmpty() ? static_cast<QWidget&>(account()) : static_cast<QWidget&>(bank());
    }

    /// Types a name into the form on view.
    void typeName(QString const& name) const
    {
        auto& field = child<QLineEdit>(form(), "nameLndt");
        typeOver(field, name);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    void typeType(Types type) const
    {
        child<QComboBox>(form(), "bankTypeCmbbx").setCurrentText(presentationText(type));
    }
    void check(QString const& box) const { child<QCheckBox>(form(), box).click(); }
    void markForRemoval() const { check("removeChckbx"); }

    QString error() const
    {
        auto const& line = child<QWidget>(form(), "errorWdgt");
        return line.isHidden() ? "none" : child<QLabel>(line, "messageLbl").text();
    }

    QDialogButtonBox& buttons() const { return child<QDialogButtonBox>(*view, "saveDiscardBttnbx"); }
    QPushButton& button(QString const& text) const
    {
        for (auto* const button : buttons().findChildren<QPushButton*>()) {
            if (button->text() == text) {
                return *button;
            }
        }
        throw std::runtime_error("no button says " + text.toStdString());
    }
    QPushButton& addBank() const { return button("&Add Bank"); }
    QPushButton& addAccount() const { return button("Add A&ccount"); }

    void save() const { buttons().button(QDialogButtonBox::Save)->click(); }
    void discard() const { buttons().button(QDialogButtonBox::Discard)->click(); }
    /// Runs what Save runs a while after the last account is settled, without the wait.
    void saveBanks() const { QMetaObject::invokeMethod(view, "saveBanks", Qt::DirectConnection); }

    void accept(Change const& change) const
    {
        if (change.account) {
            view->onAccountSaveSucceeded(*change.account);
        } else {
            view->onSaveSucceeded(*change.bank);
        }
    }
    void refuse(Change const& change, QString const& message) const
    {
        if (change.account) {
            view->onAccountSaveFailed(change.originalAccount, message, change.account);
        } else {
            view->onSaveFailed(change.originalBank, message, change.bank);
        }
    }
    void acceptAll()
    {
        answer = [this](Change const& change) { accept(change); };
    }

    /// Lets what was put off happen: forms and views end.
    static void turnEventLoop() { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    banking::BankMap banks;
    std::set<accounting::Account> accounts;
    QWidget window;
    QPointer<View> view;
    QStringList sent;                          // what the view told, in order
    std::vector<Change> changes;               // the same, but for "closing"
    std::function<void(Change const&)> answer; // runs inside the emission of a change
    unsigned int nextNumber = 900;             // of an account that is added

private:
    static QString told(banking::Bank const& bank)
    {
        auto told = bank.name.institution();
        for (auto const& [number, type] : bank.accounts()) {
            told += " " + presentationText(number) + ":" + presentationText(type);
        }
        return told + (bank.isClosed() ? " closed" : "");
    }

    void listen()
    {
        auto const hearName = [this](QString const& change) {
            return [this, change](Name const& name) { tell(change + name.institution(), {name, name, {}, {}}); };
        };
        QObject::connect(view, &View::closed, view, hearName("closed "));
        QObject::connect(view, &View::opened, view, hearName("opened "));
        QObject::connect(view, &View::removed, view, hearName("removed "));
        QObject::connect(view, &View::rename, view, [this](Name const& from, Name const& to) {
            tell("renamed " + from.institution() + " to " + to.institution(), {from, to, {}, {}});
        });
        QObject::connect(view, &View::added, view, [this](banking::Bank const& bank) {
            tell("added " + told(bank), {{}, bank.name, {}, {}});
        });
        QObject::connect(view, &View::updated, view, [this](banking::Bank const& bank) {
            tell("updated " + told(bank), {bank.name, bank.name, {}, {}});
        });
        QObject::connect(view, &View::addedAccount, view, [this](QString const& name, Types type, Money const& money) {
            auto const account = name.trimmed().isEmpty() ? Code() : code(nextNumber++, name);
            tell("added account '" + name + "' " + presentationText(type) + " " +
                     QString::fromStdString(toStdString(money)),
                 {{}, {}, {}, account});
        });
        QObject::connect(view, &View::renamedAccount, view, [this](Code const& from, Code const& to) {
            tell("renamed account " + presentationText(from) + " to " + presentationText(to), {{}, {}, from, to});
        });
        QObject::connect(view, &View::removedAccount, view, [this](Code const& account) {
            tell("removed account " + presentationText(account), {{}, {}, account, account});
        });
        QObject::connect(view, &View::closing, view, [this] { sent.append("closing"); });
    }

    void tell(QString const& told, Change const& change)
    {
        sent.append(told);
        changes.push_back(change);
        if (answer) {
            auto const reply = answer; // which outlives the view
            reply(change);
        }
    }
};
}
