#pragma once

#include "AccountEntryFixture.h"
#include "internal/AccountsWidget.h"

#include <tlm/accounting/Account.h>

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>

#include <functional>
#include <vector>

namespace tlm::testing {

/// A view of accounts in euros, not on screen yet, and all that it tells.
class AccountsFixture : public AccountEntryFixture
{
protected:
    using View = desktop_ui::internal::AccountsWidget;
    using Account = accounting::Account;
    using Original = std::optional<Code>;

    /// What a receiver does with a change, told the code before it and the one that is displayed.
    using Answer = std::function<void(Original const&, Code const&)>;

    ~AccountsFixture() override { delete view.data(); }

    static Account account(unsigned int number, QString const& name, std::optional<unsigned int> parent = {},
                           bool closed = false)
    {
        return {Types::Expense, code(number, name, parent), euros(20), closed};
    }
    static Code code(unsigned int number, QString const& name, std::optional<unsigned int> parent = {})
    {
        return {Number(number), name, parent ? std::optional(Number(*parent)) : std::nullopt};
    }

    void load(std::set<Account> const& accounts)
    {
        view = new View(accounts, usable(), Display::Code, nullptr);
        listen();
        MessageLog::clear();
    }

    QList<Entry*> forms() const { return view->findChildren<Entry*>(); }

    /// \return the first form that shows \a name
    Entry& form(QString const& name) const
    {
        for (auto* const each : forms()) {
            if (each->name() == name) {
                return *each;
            }
        }
        throw std::runtime_error("no form shows " + name.toStdString());
    }

    /// \return the form that isn't hidden
    Entry* shown() const
    {
        for (auto* const each : forms()) {
            if (!each->isHidden()) {
                return each;
            }
        }
        return nullptr;
    }

    QListWidget& list() const { return child<QListWidget>(*view, "accountCodesLstwdgt"); }
    QStringList rows() const
    {
        QStringList rows;
        for (auto row = 0; row < list().count(); ++row) {
            rows.append(list().item(row)->text());
        }
        return rows;
    }
    QString currentRow() const { return list().currentItem() == nullptr ? "none" : list().currentItem()->text(); }
    void select(QString const& text) const { list().setCurrentItem(list().findItems(text, Qt::MatchExactly).at(0)); }

    QDialogButtonBox& buttons() const { return child<QDialogButtonBox>(*view, "saveDiscardBttnbx"); }
    void save() const { buttons().button(QDialogButtonBox::Save)->click(); }
    void discard() const { buttons().button(QDialogButtonBox::Discard)->click(); }
    QPushButton& addButton() const
    {
        for (auto* const button : buttons().findChildren<QPushButton*>()) {
            if (button->text() == "&Add") {
                return *button;
            }
        }
        throw std::runtime_error("no button adds an account");
    }

    /// Adds an account as a person does.
    /// \return its form
    Entry& add(QString const& number, QString const& name) const
    {
        addButton().click();
        auto& form = *shown();
        enter(AccountEntryFixture::number(form), number);
        enter(AccountEntryFixture::name(form), name);
        return form;
    }
    static void rename(Entry& form, QString const& name) { enter(AccountEntryFixture::name(form), name); }

    void accept(Code const& code) const { view->onSaveSucceeded(code); }
    void refuse(Original const& original, QString const& message, Original const& displayed) const
    {
        expectMessage(QtWarningMsg, "^Failed to save an account entry");
        view->onSaveFailed(original, message, displayed);
    }

    /// Answers every change at once that it was saved.
    void acceptAll()
    {
        answer = [this](Original const& /*original*/, Code const& displayed) { accept(displayed); };
    }
    void refuseAll(QString const& message)
    {
        answer = [=, this](Original const& original, Code const& displayed) { refuse(original, message, displayed); };
    }

    /// Lets what was put off happen: forms and views end.
    static void turnEventLoop() { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QPointer<View> view;
    QStringList sent; // what the view told, in order
    std::vector<Account> addedAccounts;
    Answer answer; // runs inside the emission of a change

private:
    static QString text(Code const& code)
    {
        auto const text = presentationText(code).replace(Code::separator_, " ");
        return code.parent() ? text + " in " + presentationText(*code.parent()) : text;
    }

    void tell(QString const& change, Original const& original, Code const& displayed)
    {
        sent.append(change);
        if (answer) {
            auto const reply = answer; // which may set another one
            reply(original, displayed);
        }
    }

    void listen()
    {
        QObject::connect(view, &View::closing, view, [this] { sent.append("closing"); });
        QObject::connect(view, &View::added, view, [this](Account const& account) {
            addedAccounts.push_back(account);
            tell("added " + text(account.code()), std::nullopt, account.code());
        });
        auto const join = [this](auto signal, QString const& change) {
            QObject::connect(view, signal, view,
                             [=, this](Code const& code) { tell(change + " " + text(code), code, code); });
        };
        join(&View::closed, "closed");
        join(&View::opened, "opened");
        join(&View::removed, "removed");
        QObject::connect(view, &View::recoded, view, [this](Code const& current, Code const& changed) {
            tell("recoded " + text(current) + " to " + text(changed), current, changed);
        });
    }
};
}
