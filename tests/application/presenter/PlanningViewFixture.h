#pragma once

#include "PlanningFixture.h"

#include <presenter/BudgetFilePresenter.h>
#include <presenter/DashboardPresenter.h>
#include <tlm/foundation/PresentationText.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

#include <support/PlanningRow.h>
#include <support/Typing.h>

namespace tallymere::presenter {

/// The views as the program joins them, over a budget file: a person acts on the widgets, saves, and opens the file again.
class PlanningView : public PlanningTest
{
protected:
    PlanningView()
    {
        for (auto const type : everyKind) {
            add(type, {"Old " + presentationText(type), dollars(40)});
        }
        session.saveAs(path);
        forget();
        window.resize(1024, 768);
        window.show();
        window.activateWindow();
    }

    void plan(void (MainWindow::*wish)())
    {
        emit(window.*wish)();
        ASSERT_TRUE(isPlanning());
    }

    bool isPlanning() { return window.centralWidget()->findChild<QLabel*>("displayingLbl") != nullptr; }

    void press(QDialogButtonBox::StandardButton which)
    {
        tlm::testing::child<QDialogButtonBox>(*window.centralWidget(), "saveDiscardBttnbx").button(which)->click();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // as the event loop does
    }

    tlm::testing::PlanningRow addRow()
    {
        for (auto* const button : window.centralWidget()->findChildren<QPushButton*>()) {
            if (button->text() == "&Add") {
                button->click();
            }
        }
        return tlm::testing::planningRows(*window.centralWidget()).front();
    }

    tlm::testing::PlanningRow row(QString const& name)
    {
        return tlm::testing::planningRow(*window.centralWidget(), name);
    }

    /// Types over what is in \a field and leaves it, as Enter and Tab do.
    static void enter(QLineEdit& field, QString const& text)
    {
        tlm::testing::typeOver(field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }

    /// Fills in an item in dollars.
    static void fill(tlm::testing::PlanningRow const& row, QString const& source, QString const& amount,
                     EventFrequency period = EventFrequency::Monthly)
    {
        // Between the choice of a currency and the amount there is none.
        tlm::testing::expectMessage(QtWarningMsg, "The total leaves out an amount that can't be read");
        enter(row.source(), source);
        row.currency().setCurrentText("USD");
        enter(row.amount(), amount);
        row.period().setCurrentText(presentationText(period));
    }

    void saveAndReopen()
    {
        emit window.saveBudgetFile();
        ASSERT_FALSE(session.isDirty());
        session.beginEmpty();
        emit window.loadBudgetFile(path);
        ASSERT_EQ(session.document().filePathName(), path);
    }

    QString const path = home.path("family.budget");
    DashboardPresenter dashboard{window, session};
    BudgetFilePresenter budgetFile{window, session};
};
}
