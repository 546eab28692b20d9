#pragma once

#include "HouseholdJourney.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>

#include <support/Typing.h>

namespace tallymere {

/// A person keeps the books in the program's own window, with the keyboard alone.
class BooksJourney : public HouseholdJourney
{
protected:
    /// Opens a view by its shortcut and waits until it has replaced the one before.
    void open(Qt::Key key, char const* viewsClass)
    {
        press(key, Qt::ControlModifier);
        ASSERT_TRUE(comes(viewsClass)) << viewsClass;
    }

    /// \return whether a view whose class is called \a viewsClass comes up
    bool comes(QByteArray const& viewsClass)
    {
        auto const isThere =
            QTest::qWaitFor([&] { return QByteArray(view().metaObject()->className()).endsWith(viewsClass); });
        QTest::qWait(0); // views that gave way are gone then
        return isThere;
    }

    /// Goes on to \a wanted with the Tab key, from wherever the focus is.
    void reach(QWidget& wanted)
    {
        constexpr auto mostStops = 100;
        QStringList passed;
        while (passed.size() < mostStops && !wanted.hasFocus()) {
            auto* const focused = QApplication::focusWidget();
            passed.append(focused == nullptr ? QStringLiteral("nothing") : focused->objectName());
            QTest::keyClick(focused == nullptr ? &window() : focused, Qt::Key_Tab);
        }
        ASSERT_TRUE(wanted.hasFocus()) << "the Tab key doesn't lead to " << wanted.objectName().toStdString()
                                       << " but to " << passed.last(30).join(' ').toStdString();
    }

    void enter(QLineEdit& field, QString const& text)
    {
        reach(field);
        tlm::testing::typeOver(field, text);
    }

    void choose(QComboBox& box, QString const& letters)
    {
        reach(box);
        QTest::keyClicks(&box, letters);
        ASSERT_TRUE(box.currentText().startsWith(letters)) << box.currentText().toStdString();
    }

    /// Steps down the rows of \a box.
    void chooseByEnd(QComboBox& box, QString const& end)
    {
        reach(box);
        for (auto row = 0; row < box.count() && !box.currentText().endsWith(end); ++row) {
            QTest::keyClick(&box, Qt::Key_Down);
        }
        ASSERT_TRUE(box.currentText().endsWith(end)) << box.currentText().toStdString();
    }

    /// Presses a button or marks a box.
    void pressOn(QAbstractButton& button)
    {
        reach(button);
        QTest::keyClick(&button, Qt::Key_Space);
    }

    /// Presses a button of the view by its text.
    void pressOn(QString const& text)
    {
        for (auto* const button : view().findChildren<QPushButton*>()) {
            if (button->text().remove('&') == text) {
                pressOn(*button);
                return;
            }
        }
        FAIL() << "no button " << text.toStdString();
    }

    /// Walks down the rows of \a list to the one that ends in \a end, opening what it passes.
    void chooseRow(QTreeWidget& list, QString const& end)
    {
        reach(list);
        QTest::keyClick(&list, Qt::Key_Home);
        for (auto row = 0; row < 100 && !list.currentItem()->text(0).endsWith(end); ++row) {
            if (list.currentItem()->childCount() > 0 && !list.currentItem()->isExpanded()) {
                QTest::keyClick(&list, Qt::Key_Right);
            }
            QTest::keyClick(&list, Qt::Key_Down);
        }
        ASSERT_TRUE(list.currentItem()->text(0).endsWith(end)) << "no row " << end.toStdString();
    }

    void chooseRow(QListWidget& list, QString const& end)
    {
        reach(list);
        QTest::keyClick(&list, Qt::Key_Home);
        for (auto row = 0; row < list.count() && !list.currentItem()->text().endsWith(end); ++row) {
            QTest::keyClick(&list, Qt::Key_Down);
        }
        ASSERT_TRUE(list.currentItem()->text().endsWith(end)) << "no row " << end.toStdString();
    }

    /// \return the form or entry on screen, of all those that are kept hidden beside it, that has the widget \a part
    template <typename T>
    T& shown(QString const& part)
    {
        for (auto* const each : view().template findChildren<T*>(part)) {
            if (each->isVisible()) {
                return *each;
            }
        }
        throw std::runtime_error("nothing shown is called " + part.toStdString());
    }

    QLineEdit& amountOf(QString const& entry)
    {
        return tlm::testing::child<QLineEdit>(shown<QWidget>(entry), "amountLndt");
    }

    /// Enters an amount of dollars.
    void enterDollars(QString const& entry, QString const& amount)
    {
        choose(tlm::testing::child<QComboBox>(shown<QWidget>(entry), "codeCmbbx"), "USD");
        enter(amountOf(entry), amount);
    }

    /// \return the account of that name
    /// \throws std::runtime_error when there is none
    engine::BookAccount const& account(QString const& name)
    {
        for (auto const& [number, account] : program->session().household().content().books.accounts) {
            if (account.code.name() == name) {
                return account;
            }
        }
        throw std::runtime_error("no account " + name.toStdString());
    }

    Money balance(QString const& name) { return program->session().household().balance(account(name).code.number()); }
};
}
