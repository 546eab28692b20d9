#pragma once

#include "BooksFixture.h"

#include <presenter/BudgetFilePresenter.h>
#include <tlm/foundation/PresentationText.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <support/Typing.h>

namespace tallymere::presenter {

/// A view of the books as the program joins it, over a budget file: a person acts on the widgets, saves, and opens the file
/// again.
/// \tparam Fixture the books with the presenter under test
template <typename Fixture>
class BooksView : public Fixture
{
protected:
    BooksView()
    {
        this->session.saveAs(path);
        this->forget();
        this->window.resize(1024, 768);
        this->window.show();
        this->window.activateWindow();
    }

    QWidget& view() { return *this->window.centralWidget(); }

    bool isDashboardShown() { return this->window.centralWidget()->objectName() == QStringLiteral("DashboardWdgt"); }

    void press(QDialogButtonBox::StandardButton which)
    {
        view().template findChild<QDialogButtonBox*>()->button(which)->click();
        this->rest();
    }

    void press(QString const& text)
    {
        for (auto* const button : view().template findChildren<QPushButton*>()) {
            if (button->text() == text) {
                button->click();
                return;
            }
        }
        throw std::runtime_error("no button " + text.toStdString());
    }

    /// \return the form named \a name that is on screen
    QWidget& shownForm(QString const& name)
    {
        for (auto* const form : view().template findChildren<QWidget*>(name)) {
            if (form->isVisible()) {
                return *form;
            }
        }
        throw std::runtime_error("no form on screen named " + name.toStdString());
    }

    /// Types over what is in the field named \a name and leaves it, as Enter and Tab do.
    static void enter(QWidget const& form, QString const& name, QString const& text)
    {
        auto& field = tlm::testing::child<QLineEdit>(form, name);
        tlm::testing::typeOver(field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }

    static void choose(QWidget const& form, QString const& name, QString const& text)
    {
        auto& box = tlm::testing::child<QComboBox>(form, name);
        box.setCurrentText(text);
        ASSERT_EQ(box.currentText(), text);
    }

    /// Enters \a amount in dollars.
    static void enterDollars(QWidget const& form, QString const& name, QString const& amount)
    {
        auto const& money = tlm::testing::child<QWidget>(form, name);
        choose(money, QStringLiteral("codeCmbbx"), QStringLiteral("USD"));
        enter(money, QStringLiteral("amountLndt"), amount);
    }

    static void click(QWidget const& form, QString const& name)
    {
        tlm::testing::child<QAbstractButton>(form, name).click();
    }

    /// \return what the form tells to be wrong with it, empty when nothing is
    static QString error(QWidget const& form)
    {
        auto const& line = tlm::testing::child<QWidget>(form, QStringLiteral("errorWdgt"));
        return line.isHidden() ? QString() : tlm::testing::child<QLabel>(line, QStringLiteral("messageLbl")).text();
    }

    /// Saves the view as a person does.
    virtual void save() { press(QDialogButtonBox::Save); }

    /// Expects that what a person fills in is refused: it stays on its form with the sentence by which the household refuses
    /// \a same, and nothing has changed.
    /// \param fill \return the form
    void expectRefusedAtSave(std::function<void(Household&)> const& same, std::function<QWidget&()> const& fill)
    {
        auto const sentence = this->sentenceOf(same);
        this->session.save();
        auto& form = fill();

        save();

        ASSERT_FALSE(isDashboardShown()) << sentence.toStdString();
        EXPECT_EQ(error(form), sentence);
        EXPECT_FALSE(this->session.isDirty());
    }

    void saveAndReopen()
    {
        emit this->window.saveBudgetFile();
        ASSERT_FALSE(this->session.isDirty());
        this->session.beginEmpty();
        emit this->window.loadBudgetFile(path);
        ASSERT_EQ(this->session.document().filePathName(), path);
    }

    QString const path = this->home.path(QStringLiteral("family.budget"));
    BudgetFilePresenter budgetFile{this->window, this->session};
};
}
