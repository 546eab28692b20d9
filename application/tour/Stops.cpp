#include "Stops.h"

#include <tlm/desktop_ui/MainWindow.h>

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>

namespace tallymere::tour {

using tlm::desktop_ui::MainWindow;

namespace {

void leaveAsItIs(MainWindow& /*window*/) {}

void chooseAccount(MainWindow& window)
{
    auto* const list = window.findChild<QListWidget*>(QStringLiteral("accountCodesLstwdgt"));
    list->setCurrentItem(list->findItems(QStringLiteral("Everyday checking"), Qt::MatchEndsWith).value(0));
    list->scrollToItem(list->currentItem());
}

void chooseRow(MainWindow& window, QString const& name, QString const& account)
{
    auto* const tree = window.findChild<QTreeWidget*>(name);
    tree->expandAll();
    tree->setCurrentItem(tree->findItems(account, Qt::MatchEndsWith | Qt::MatchRecursive).value(0));
    tree->scrollToItem(tree->currentItem());
}

void chooseLedger(MainWindow& window)
{
    chooseRow(window, QStringLiteral("ledgersTrwdgt"), QStringLiteral("Everyday checking"));
}

void chooseBankAccount(MainWindow& window)
{
    chooseRow(window, QStringLiteral("bankAndAccountsTrwdgt"), QStringLiteral("Rainy day savings"));
}

void choosePlace(MainWindow& window, QString const& name, QString const& bank, QString const& account)
{
    auto const* const place = window.findChild<QWidget*>(name);
    auto const choose = [&](char const* box, QString const& text) {
        auto* const choices = place->findChild<QComboBox*>(QString::fromLatin1(box));
        choices->setCurrentIndex(choices->findText(text, Qt::MatchEndsWith));
    };
    choose("bankCmbbx", bank);
    choose("accountCmbbx", account);
}

void fillTransfer(MainWindow& window)
{
    choosePlace(window, QStringLiteral("fromBnkaccntwdgt"), QStringLiteral("Riverside Bank"),
                QStringLiteral("Everyday checking"));
    choosePlace(window, QStringLiteral("toBnkaccntwdgt"), QStringLiteral("Riverside Bank"),
                QStringLiteral("Rainy day savings"));
    auto const* const amount = window.findChild<QWidget*>(QStringLiteral("amountMnyntrydgt"));
    amount->findChild<QLineEdit*>(QStringLiteral("amountLndt"))->setText(QStringLiteral("150.00"));
    window.findChild<QLineEdit*>(QStringLiteral("reasonLndt"))->setText(QStringLiteral("For a rainy day"));
}

Stop planning(QString const& kind)
{
    return {kind, QStringLiteral("planning-") + kind, leaveAsItIs};
}

Stop books(QString const& view, void (*arrange)(MainWindow& window))
{
    return {view, QStringLiteral("books-") + view, arrange};
}
}

std::vector<Stop> stops(bool isAccounting)
{
    if (isAccounting) {
        auto ledgers = books(QStringLiteral("ledgers"), chooseLedger);
        ledgers.windowForPage = {1240, 620}; // as wide as a transaction is
        return {books(QStringLiteral("accounts"), chooseAccount), ledgers};
    }
    return {planning(QStringLiteral("bills")),
            planning(QStringLiteral("debts")),
            planning(QStringLiteral("goals")),
            planning(QStringLiteral("nontracks")),
            planning(QStringLiteral("wages")),
            books(QStringLiteral("banks"), chooseBankAccount),
            books(QStringLiteral("transfer"), fillTransfer)};
}

void show(Stop const& stop, MainWindow& window)
{
    window.findChild<QAction*>(stop.name + QStringLiteral("Actn"))->trigger();
    stop.arrange(window);
}
}
