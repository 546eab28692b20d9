#pragma once

#include "MessageBoxAnswer.h"

#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QAction>
#include <QFileDialog>
#include <QMessageBox>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTimer>

#include <gtest/gtest.h>
#include <ostream>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using tlm::testing::child;
using tlm::testing::MessageBoxAnswer;

/// Every way to say No to a question.
struct Refusal
{
    char const* name;
    void (*act)(QMessageBox&);
};

inline std::ostream& operator<<(std::ostream& out, Refusal const& refusal)
{
    return out << refusal.name;
}

inline void expectQuestion(MessageBoxAnswer const& answer, MainWindow const& window, QString const& title,
                           QString const& text)
{
    ASSERT_TRUE(answer.asked());
    EXPECT_EQ(answer.asked()->title, title);
    EXPECT_EQ(answer.asked()->text, text);
    EXPECT_EQ(answer.asked()->icon, QMessageBox::Question);
    EXPECT_EQ(answer.asked()->buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(answer.asked()->byDefault, QMessageBox::No);
    EXPECT_EQ(answer.asked()->parent, &window);
}

/// A window whose budget is made, opened, saved or left.
class MainWindowBudgetFileTest : public ::testing::Test
{
protected:
    void expectStatus(QString const& message)
    {
        EXPECT_EQ(status.currentMessage(), message);
        EXPECT_EQ(status.findChild<QTimer*>()->interval(), 5000);
    }

    void trigger(QString const& action) { child<QAction>(window, action).trigger(); }

    void confirmNewBudget(QMessageBox::StandardButton button)
    {
        MessageBoxAnswer const answer(button);
        window.onShowConfirmNewBudget();
        ASSERT_TRUE(answer.asked());
    }

    QFileDialog& fileDialog() { return *window.findChild<QFileDialog*>(); }

    navigation::ConfigurationOptions const options{true, false};
    MainWindow window{options};
    QStatusBar& status = child<QStatusBar>(window, "infoSttsbr");
    QSignalSpy confirmedEmpty{&window, &MainWindow::confirmedNewBudgetEmpty};
    QSignalSpy confirmedWizard{&window, &MainWindow::confirmedNewBudgetFirstTimeWizard};
    QSignalSpy confirmedLoad{&window, &MainWindow::confirmedLoadBudgetFile};
    QSignalSpy load{&window, &MainWindow::loadBudgetFile};
    QSignalSpy saveAs{&window, &MainWindow::saveAsBudgetFile};
    QSignalSpy dashboard{&window, &MainWindow::prepareShowDashboard};
};

class MainWindowRefusalTest : public MainWindowBudgetFileTest, public ::testing::WithParamInterface<Refusal>
{};
}
