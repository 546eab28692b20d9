#pragma once

#include "internal/BudgetedMoniesWidget.h"
#include "support/MessageLog.h"
#include "support/Typing.h"
#include "support/Widgets.h"
#include "tlm/desktop_ui/MoneyEntryWidget.h"

#include <fiscora/Conversions.h>
#include <fiscora/Money.h>

#include <QCheckBox>
#include <QDate>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace tlm::testing {

/// A view of bills in euros, not on screen yet, and all that it tells.
class BudgetedMoniesFixture : public ::testing::Test
{
protected:
    using View = desktop_ui::internal::BudgetedMoniesWidget;
    using Row = desktop_ui::internal::BudgetedMoneyEntryWidget;
    using Id = navigation::GuiElementIdentifier;
    using Source = budgeting::BudgetSource;
    using Frequency = budgeting::EventFrequency;
    using Currency = fiscora::Currency;
    using Money = fiscora::Money;

    ~BudgetedMoniesFixture() override
    {
        delete view.data();
        fiscora::clearConversions();
    }

    static Money euros(long long whole) { return {Currency::EUR, whole, 0, 0}; }

    static budgeting::Bill bill(QString const& name, Money const& amount = euros(10),
                                Frequency period = Frequency::Monthly)
    {
        return {Source(name), amount, period, QDate(2024, 3, 1)};
    }

    /// Makes the view and loads it.
    void load(std::vector<budgeting::Bill> const& bills)
    {
        make();
        budgeting::BillMap map;
        for (auto const& bill : bills) {
            map.emplace(bill.source(), bill);
        }
        view->load(map);
        MessageLog::clear();
    }

    /// Makes the view without any row.
    void make()
    {
        view = new View("Budgeted Bills:", std::make_unique<desktop_ui::internal::BillCreator>(), Currency::EUR,
                        {Currency::EUR, Currency::USD}, navigation::CurrencyDisplayOptions::Code, nullptr);
        listen();
    }

    /// \return the rows in the order in which they were made
    QList<Row*> rows() const { return view->findChildren<Row*>(); }

    /// \return the first row that shows \a source
    Row& row(QString const& source) const
    {
        for (auto* const row : rows()) {
            if (child<QLineEdit>(*row, "sourceLndt").text() == source) {
                return *row;
            }
        }
        throw std::runtime_error("no row shows " + source.toStdString());
    }

    static void rename(Row& row, QString const& name) { typeOver(child<QLineEdit>(row, "sourceLndt"), name); }

    static void typeAmount(Row& row, QString const& amount)
    {
        auto& field = child<QLineEdit>(row, "amountLndt");
        typeOver(field, amount);
        QTest::keyClick(&field, Qt::Key_Return);
    }

    static void markForRemoval(Row& row) { child<QCheckBox>(row, "removeChckbx").click(); }

    static QString error(Row const& row) { return row.errorMessage().value_or("none"); }

    QDialogButtonBox& buttons() const { return child<QDialogButtonBox>(*view, "saveDiscardBttnbx"); }
    void save() const { buttons().button(QDialogButtonBox::Save)->click(); }
    void discard() const { buttons().button(QDialogButtonBox::Discard)->click(); }

    QPushButton& addButton() const
    {
        for (auto* const button : buttons().findChildren<QPushButton*>()) {
            if (buttons().buttonRole(button) == QDialogButtonBox::ActionRole) {
                return *button;
            }
        }
        throw std::runtime_error("no button adds a row");
    }

    Money total() const { return child<desktop_ui::MoneyEntryWidget>(*view, "totalMnyntr").amount(); }
    QString totalText() const { return child<desktop_ui::MoneyEntryWidget>(*view, "totalMnyntr").textAmount(); }

    /// Lets what was put off happen: rows and views end.
    static void turnEventLoop() { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    /// Answers every change at once that it was saved.
    void acceptAll()
    {
        answer = [this](Id const& id, Source const& source) { view->onSaveSucceeded(id, source); };
    }

    QPointer<View> view;
    QStringList sent;                                     // what the view told, in order
    std::vector<Id> ids;                                  // whose change each one was, but for "closing"
    std::function<void(Id const&, Source const&)> answer; // runs inside the emission of a change, but for a new name

private:
    void listen()
    {
        using MoneyPtr = std::unique_ptr<budgeting::BudgetedMoney>;
        using Account = std::optional<banking::BankAccount>;
        auto const state = [this](QString const& change) {
            return [this, change](Id const& id, MoneyPtr const& money, Account const& /*account*/) {
                tell(change + " " + money->source().name() + " " + QString::fromStdString(toStdString(money->amount())),
                     id);
                reply(id, money->source());
            };
        };
        QObject::connect(view, &View::added, view, state("added"));
        QObject::connect(view, &View::updated, view, state("updated"));
        QObject::connect(view, &View::renamed, view, [this](Id const& id, Source const& from, Source const& to) {
            tell("renamed " + from.name() + " to " + to.name(), id);
        });
        QObject::connect(view, &View::removed, view, [this](Id const& id, Source const& source) {
            tell("removed " + source.name(), id);
            reply(id, source);
        });
        QObject::connect(view, &View::closing, view, [this] { sent.append("closing"); });
    }

    void tell(QString const& change, Id const& id)
    {
        sent.append(change);
        ids.push_back(id);
    }

    void reply(Id const& id, Source const& source) const
    {
        if (answer) {
            answer(id, source);
        }
    }
};
}
