#include "HandbookBrowser.h"

#include <tlm/adjutor/HelpWidget.h>

#include <QAction>
#include <QToolBar>
#include <QVBoxLayout>

// A static library's resources are dropped by the linker unless asked for; the macro must stand in no namespace.
static void registerPages()
{
    Q_INIT_RESOURCE(handbook);
}

namespace tlm::adjutor {

namespace {

/// Tool bars keep the keyboard out unless told otherwise.
QAction* addStep(QToolBar* toolBar, QString const& objectName, QString const& text, QKeySequence const& shortcut)
{
    auto* const step = toolBar->addAction(text);
    step->setObjectName(objectName);
    step->setShortcut(shortcut);
    step->setToolTip(QStringLiteral("%1 (%2)").arg(step->iconText(), shortcut.toString(QKeySequence::NativeText)));
    toolBar->widgetForAction(step)->setFocusPolicy(Qt::StrongFocus);
    return step;
}
}

HelpWidget::HelpWidget(foundation::QtPtr<QWidget> const& parent) : QWidget(parent.get())
{
    setObjectName(QStringLiteral("HelpWdgt"));
    setWindowTitle(tr("Tallymere Handbook"));
    resize(900, 700);
}

void HelpWidget::displayStartPage()
{
    display(QStringLiteral("index"));
}

void HelpWidget::displayWizardPage()
{
    display(QStringLiteral("wizard"));
}

void HelpWidget::showEvent(QShowEvent* event)
{
    if (browser_ == nullptr) {
        displayStartPage();
    }
    QWidget::showEvent(event);
}

void HelpWidget::display(QString const& page)
{
    if (browser_ == nullptr) {
        layOut();
    }
    browser_->setSource(HandbookBrowser::address(page));
}

void HelpWidget::layOut()
{
    registerPages();
    browser_ = new HandbookBrowser(this);
    browser_->setObjectName(QStringLiteral("handbookTxtbrwsr"));
    browser_->setAccessibleName(tr("Handbook page"));
    auto* const toolBar = new QToolBar(tr("Handbook"), this);
    toolBar->setObjectName(QStringLiteral("handbookTbr"));
    toolBar->setAccessibleName(tr("Handbook pages"));
    fill(toolBar);
    addClosing();
    auto* const layout = new QVBoxLayout(this);
    layout->setObjectName(QStringLiteral("helpVbxlyt"));
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(toolBar);
    layout->addWidget(browser_);
    setFocusProxy(browser_);
}

void HelpWidget::fill(QToolBar* toolBar)
{
    auto* const back = addStep(toolBar, QStringLiteral("backActn"), tr("&Back"), QKeySequence::Back);
    auto* const forward = addStep(toolBar, QStringLiteral("forwardActn"), tr("&Forward"), QKeySequence::Forward);
    auto* const contents =
        addStep(toolBar, QStringLiteral("contentsActn"), tr("&Contents"), QKeySequence(Qt::ALT | Qt::Key_Home));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(back, &QAction::triggered, browser_, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, browser_, &QTextBrowser::forward);
    connect(contents, &QAction::triggered, this, &HelpWidget::displayStartPage);
}

void HelpWidget::addClosing()
{
    auto* const closing = new QAction(tr("Close"), this);
    closing->setObjectName(QStringLiteral("closeActn"));
    closing->setShortcuts({QKeySequence(QKeySequence::Close), QKeySequence(QKeySequence::Cancel)});
    connect(closing, &QAction::triggered, this, &QWidget::close);
    addAction(closing);
}
}
