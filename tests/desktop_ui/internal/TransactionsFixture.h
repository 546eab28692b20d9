#pragma once

#include "ShowActive.h"
#include "internal/TransactionWidget.h"
#include "internal/TransactionsWidget.h"
#include "support/ComboBoxes.h"
#include "support/MessageLog.h"
#include "support/Typing.h"
#include "support/Widgets.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace tlm::testing {

/// A list of transactions in euros and all that it tells; not on screen yet.
class TransactionsFixture : public ::testing::Test
{
protected:
    using View = desktop_ui::internal::TransactionsWidget;
    using Row = desktop_ui::internal::TransactionWidget;
    using AccountCode = accounting::AccountCode;
    using AccountNumber = accounting::AccountNumber;
    using Number = accounting::TransactionNumber;
    using Statuses = accounting::TransactionStatuses;
    using Transaction = accounting::Transaction;
    using Money = fiscora::Money;

    TransactionsFixture() { make(); }
    ~TransactionsFixture() override { delete view.data(); }

    /// Makes the list anew.
    void make()
    {
        delete view.data();
        sent.clear();
        view = new View(nullptr);
        view->setUp({cash, food, rent, bank}, {fiscora::Currency::EUR, fiscora::Currency::USD},
                    navigation::CurrencyDisplayOptions::Code, false);
        listen();
        MessageLog::clear();
    }

    static AccountCode account(unsigned int number, QString const& name, std::optional<unsigned int> parent)
    {
        return {AccountNumber(number), name, parent ? std::optional(AccountNumber(*parent)) : std::nullopt};
    }

    static Money euros(long long whole) { return {fiscora::Currency::EUR, whole, 0, 0}; }

    /// \return cash that went to food, described by its number
    Transaction posting(int number, QDate const& on = QDate(2031, 1, 1), Statuses status = Statuses::NotCleared) const
    {
        return {on,
                food,
                cash,
                euros(number % 50 + 1),
                QStringLiteral("Bread %1").arg(number),
                Number(static_cast<unsigned short>(number)),
                status};
    }

    /// \return postings with the numbers 1 to \a count, five a day
    std::vector<Transaction> postings(int count) const
    {
        std::vector<Transaction> all;
        for (auto number = 1; number <= count; ++number) {
            all.push_back(posting(number, QDate(2031, 1, 1).addDays(number / 5)));
        }
        return all;
    }

    /// Puts the list on screen.
    void showOnScreen()
    {
        view->resize(1'024, 576);
        showActive(*view);
        QApplication::processEvents();
    }

    /// \return the forms that exist, in the order in which they were made
    QList<Row*> rows() const { return view->findChildren<Row*>(); }

    /// \return the form of the transaction, which must exist
    Row& row(int number) const
    {
        for (auto* const row : rows()) {
            if (row->number() == Number(static_cast<unsigned short>(number))) {
                return *row;
            }
        }
        throw std::runtime_error("no form shows transaction " + std::to_string(number));
    }

    Row& newRow() const
    {
        for (auto* const row : rows()) {
            if (!row->number()) {
                return *row;
            }
        }
        throw std::runtime_error("no form is new");
    }

    static std::optional<Number> number(int number) { return Number(static_cast<unsigned short>(number)); }

    static void describe(Row& row, QString const& text)
    {
        auto& field = child<QLineEdit>(row, "descriptionLndt");
        typeOver(field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }

    static void markForRemoval(Row& row) { child<QCheckBox>(row, "removeChckbx").click(); }
    static void select(Row& row) { child<QCheckBox>(row, "selectedChckbx").click(); }
    static void check(Row& row, Qt::CheckState state)
    {
        child<QCheckBox>(row, "reconciledChckbx").setCheckState(state);
    }

    /// \return what \a row tells to be wrong, "none" when nothing is
    static QString error(Row const& row)
    {
        auto const& line = child<QWidget>(row, "errorWdgt");
        return line.isHidden() ? "none" : child<QLabel>(line, "messageLbl").text();
    }

    /// \return the other accounts on offer
    static QStringList offered(Row const& row) { return itemTexts(child<QComboBox>(row, "accountCmbbx")); }

    /// Lets what was put off happen: forms end, layouts settle.
    static void turnEventLoop()
    {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }

    QScrollArea& scroller() const { return child<QScrollArea>(*view, "transactionsScrllr"); }
    QScrollBar& bar() const { return *scroller().verticalScrollBar(); }

    /// \return the forms of which something is on screen, from top to bottom
    std::vector<Row*> rowsOnScreen() const
    {
        std::vector<Row*> found;
        for (auto* const row : rows()) {
            if (row->isVisible() && scroller().viewport()->rect().intersects(placeOf(*row))) {
                found.push_back(row);
            }
        }
        std::ranges::sort(found, {}, [this](Row const* each) { return placeOf(*each).y(); });
        return found;
    }

    /// \return the descriptions on screen from top to bottom
    QStringList descriptionsOnScreen() const
    {
        QStringList texts;
        for (auto const* const row : rowsOnScreen()) {
            texts.append(row->description());
        }
        return texts;
    }

    /// \return where \a row is as seen through the viewport
    QRect placeOf(Row const& row) const { return {row.mapTo(scroller().viewport(), QPoint()), row.size()}; }

    /// Answers every change at once that it was saved.
    void acceptAll()
    {
        answer = [this](std::optional<Number> const& displayed) {
            view->saveSucceeded(displayed, displayed ? displayed : number(nextNumber++));
        };
    }

    AccountCode const cash = account(1000, "Cash", 900);
    AccountCode const food = account(4000, "Food", 3900);
    AccountCode const rent = account(4100, "Rent", {});
    AccountCode const bank = account(1100, "Bank", 900);
    QPointer<View> view;
    QStringList sent;                                         // what the list told, in order
    std::vector<Transaction> told;                            // the records of "added" and "updated"
    int nextNumber = 60'000;                                  // that an accepted new entry gets
    std::function<void(std::optional<Number> const&)> answer; // runs inside the emission of a change

private:
    static QString name(std::optional<Number> const& number)
    {
        return number ? presentationText(*number) : QStringLiteral("new");
    }

    void listen()
    {
        QObject::connect(view, &View::added, view, [this](Transaction const& txn) { tell("added", {}, &txn); });
        QObject::connect(view, &View::updated, view,
                         [this](Number const& tn, Transaction const& txn) { tell("updated", tn, &txn); });
        QObject::connect(view, &View::removed, view, [this](Number const& tn) { tell("removed", tn); });
        QObject::connect(view, &View::markReconciled, view, [this](Number const& tn) { tell("reconciled", tn); });
        QObject::connect(view, &View::markCleared, view, [this](std::set<Number> const& tns) {
            ASSERT_EQ(tns.size(), 1);
            tell("cleared", *tns.begin());
        });
        QObject::connect(view, &View::selected, view,
                         [this](std::optional<Number> const& tn) { sent.append("selected " + name(tn)); });
        QObject::connect(view, &View::deselected, view,
                         [this](std::optional<Number> const& tn) { sent.append("deselected " + name(tn)); });
    }

    void tell(QString const& what, std::optional<Number> const& which, Transaction const* txn = nullptr)
    {
        sent.append(what + " " + name(which));
        if (txn != nullptr) {
            told.push_back(*txn);
        }
        if (auto const reply = answer) {
            reply(which);
        }
    }
};
}
