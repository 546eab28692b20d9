#include "tlm/desktop_ui/MainWindow.h"

#include "internal/Product.h"
#include "ui_TlmMnwndw.h"

#include <tlm/adjutor/HelpWidget.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QCloseEvent>
#include <QDebug>
#include <QTimer>
#include <QToolBar>

namespace tlm::desktop_ui {

namespace {

/// How long the event loop is let run before a handler's consequence starts.
constexpr std::chrono::milliseconds handlerLeft{100};

void showLater(adjutor::HelpWidget& help)
{
    QTimer::singleShot(handlerLeft, &help, [&help] {
        help.show();
        help.raise(); // it may be open already, behind the window that asks
        help.activateWindow();
    });
}
}

MainWindow::MainWindow(navigation::ConfigurationOptions const& options)
    : ui_(std::make_unique<Ui::TlmMnwndw>()),
      configuration_(options),
      commonActionsToolbar_(new QToolBar(
          options.isAccounting ? tr("Common Accounting Actions") : tr("Common Journalling Actions"), this)),
      help_(new adjutor::HelpWidget(nullptr))
{
    ui_->setupUi(this);
    applyWording();
    joinFileActions();
    joinViewActions();
    joinHelpActions();
    setWindowTitle(QStringLiteral("%1 (%2)").arg(internal::ProductName, tr("Purse Warden")));
    fillBudgetToolBar();
    fillCommonActionsToolBar();
    addToolBar(Qt::TopToolBarArea, commonActionsToolbar_.get());
    nameForAssistiveTools();
    help_->setAttribute(Qt::WA_QuitOnClose, false); // an open handbook never keeps the program alive
    help_->hide();
    connect(ui_->handbookActn, &QAction::triggered, this, &MainWindow::onShowHandbookStartPage);
}

MainWindow::~MainWindow() = default;

void MainWindow::LaterDeleter::operator()(adjutor::HelpWidget* help) const
{
    if (help != nullptr) {
        help->deleteLater();
    }
}

bool MainWindow::usesEverydayTerms() const
{
    return configuration_.usesEverydayTerms || !configuration_.isAccounting;
}

void MainWindow::applyWording()
{
    if (configuration_.isAccounting) {
        ui_->refundActn->setVisible(false);
        ui_->transferActn->setVisible(false);
        return;
    }
    ui_->budgetingMn->setTitle(tr("&Planning"));
    ui_->accountingMn->setTitle(tr("&Journalling"));
    ui_->reconciliationActn->setText(tr("&Survey"));
    ui_->reconciliationActn->setToolTip(tr("Survey Bank Account Balance"));
    ui_->reconciliationActn->setStatusTip(tr("Click to create a survey mapping of a bank account balance"));
    ui_->processActn->setText(tr("&Track"));
    ui_->processActn->setToolTip(tr("Track Entry Budget Items Due"));
    ui_->processActn->setStatusTip(tr("Click to add a tracking entry for a budget item due"));
    ui_->refundActn->setStatusTip(tr("Click to refund a tracked budget item entry"));
    ui_->accountsActn->setVisible(false);
    ui_->ledgersActn->setVisible(false);
}

void MainWindow::joinFileActions()
{
    connect(ui_->emptyActn, &QAction::triggered, this, [this] {
        useWizard_ = false;
        emit prepareNewBudgetEmpty();
    });
    connect(ui_->wizardActn, &QAction::triggered, this, [this] {
        useWizard_ = true;
        emit prepareNewBudgetFirstTimeWizard();
    });
    connect(ui_->openActn, &QAction::triggered, this, &MainWindow::onShowOpenBudgetFile);
    connect(ui_->saveActn, &QAction::triggered, this, &MainWindow::saveBudgetFile);
    connect(ui_->saveAsActn, &QAction::triggered, this, &MainWindow::onShowSaveAsBudgetFile);
    connect(ui_->reloadActn, &QAction::triggered, this, &MainWindow::reloadBudgetFile);
    connect(ui_->exitActn, &QAction::triggered, this, &QWidget::close);
}

void MainWindow::joinViewActions()
{
    connect(ui_->billsActn, &QAction::triggered, this, &MainWindow::prepareShowBills);
    connect(ui_->debtsActn, &QAction::triggered, this, &MainWindow::prepareShowDebts);
    connect(ui_->goalsActn, &QAction::triggered, this, &MainWindow::prepareShowGoals);
    connect(ui_->nontracksActn, &QAction::triggered, this, &MainWindow::prepareShowNontracks);
    connect(ui_->wagesActn, &QAction::triggered, this, &MainWindow::prepareShowWages);
    connect(ui_->accountsActn, &QAction::triggered, this, &MainWindow::prepareShowAccounts);
    connect(ui_->banksActn, &QAction::triggered, this, &MainWindow::prepareShowBanks);
    connect(ui_->ledgersActn, &QAction::triggered, this, &MainWindow::prepareShowLedgers);
    connect(ui_->processActn, &QAction::triggered, this, &MainWindow::prepareShowProcessBudgetItems);
    connect(ui_->reconciliationActn, &QAction::triggered, this, &MainWindow::prepareShowSurvey);
    connect(ui_->transferActn, &QAction::triggered, this, &MainWindow::prepareShowMoneyTransfer);
    connect(ui_->refundActn, &QAction::triggered, this, &MainWindow::prepareShowBudgetItemRefund);
    connect(ui_->configureActn, &QAction::triggered, this, &MainWindow::prepareShowConfigure);
    connect(ui_->exchangeRatesActn, &QAction::triggered, this, &MainWindow::prepareShowExchangeRates);
}

void MainWindow::joinHelpActions()
{
    connect(ui_->releaseNotesActn, &QAction::triggered, this, &MainWindow::fetchReleaseNotes);
    connect(ui_->aboutActn, &QAction::triggered, this, &MainWindow::onShowAbout);
    connect(ui_->aboutQtActn, &QAction::triggered, this, &MainWindow::onShowAboutQt);
}

void MainWindow::fillBudgetToolBar()
{
    auto& toolBar = *ui_->budgetTbr;
    if (configuration_.isAccounting) {
        toolBar.setWindowTitle(tr("Common Budgeting Actions"));
    } else {
        toolBar.setWindowTitle(tr("Common Planning Actions"));
        toolBar.setToolTip(tr("Common planning actions"));
        toolBar.setStatusTip(tr("Click to run a common planning action"));
    }
    toolBar.addAction(tr("Bills"), this, &MainWindow::prepareShowBills);
    toolBar.addAction(tr("Goals"), this, &MainWindow::prepareShowGoals);
}

void MainWindow::fillCommonActionsToolBar()
{
    auto const isAccounting = configuration_.isAccounting;
    auto& toolBar = *commonActionsToolbar_;
    toolBar.setObjectName(QStringLiteral("commonActionsTbr"));
    toolBar.addAction(isAccounting ? tr("Reconciliation") : tr("Survey"), this, &MainWindow::prepareShowSurvey);
    toolBar.addAction(isAccounting ? tr("Process") : tr("Track"), this, &MainWindow::prepareShowProcessBudgetItems);
    toolBar.setToolTip(isAccounting ? tr("Common Accounting Actions") : tr("Common Journalling Actions"));
    toolBar.setStatusTip(isAccounting ? tr("Click to run a common accounting action")
                                      : tr("Click to run a common journalling action"));
}

void MainWindow::nameForAssistiveTools()
{
    ui_->mainMnbr->setAccessibleName(tr("Main menu"));
    ui_->infoSttsbr->setAccessibleName(tr("Status"));
    ui_->budgetTbr->setAccessibleName(ui_->budgetTbr->windowTitle());
    commonActionsToolbar_->setAccessibleName(commonActionsToolbar_->windowTitle());
}

void MainWindow::show()
{
    QWidget::show();
    emit prepareShowDashboard();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (isExitConfirmed_) {
        event->accept();
        return;
    }
    event->ignore();
    QTimer::singleShot(handlerLeft, this, &MainWindow::checkIsBudgetFileDirty);
}

void MainWindow::onShowHandbookStartPage()
{
    qInfo() << "Showing help handbook start page.";
    help_->displayStartPage();
    showLater(*help_);
}

void MainWindow::onShowHandbookWizardPage()
{
    qInfo() << "Showing help handbook wizard page.";
    help_->displayWizardPage();
    showLater(*help_);
}
}
