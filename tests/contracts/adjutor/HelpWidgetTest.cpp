#include "Handbook.h"

#include <QDesktopServices>
#include <QToolBar>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/MessageLog.h>

namespace tlm::adjutor {

namespace {

using testing::child;
using testing::expectMessage;

/// Stands in for the person's web browser.
class WebBrowser : public QObject
{
    Q_OBJECT

public:
    WebBrowser() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
    ~WebBrowser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

    QList<QUrl> opened;

public slots:
    void open(QUrl const& address) { opened.append(address); }
};

class HelpWidgetTest : public ::testing::Test
{
protected:
    void showStartPage()
    {
        help.displayStartPage();
        help.show();
        help.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    }

    /// Goes to the link by keyboard, as its first one has the focus after one Tab.
    void openFirstLink()
    {
        QTest::keyClick(&browser(help), Qt::Key_Tab);
        QTest::keyClick(&browser(help), Qt::Key_Return);
    }

    QString page() const { return browser(help).source().fileName(); }

    HelpWidget help{nullptr};
};

TEST_F(HelpWidgetTest, MakingOneLaysNothingOut)
{
    EXPECT_TRUE(help.findChildren<QWidget*>().isEmpty());
    EXPECT_FALSE(help.isVisible());
    EXPECT_TRUE(help.isWindow());
}

TEST_F(HelpWidgetTest, ItsWindowIsNamedAndOfReadableSize)
{
    EXPECT_EQ(help.windowTitle(), QStringLiteral("Tallymere Handbook"));
    EXPECT_EQ(help.size(), QSize(900, 700));
}

TEST_F(HelpWidgetTest, ItsParentOwnsIt)
{
    QWidget parent;

    auto const* const owned = new HelpWidget(&parent);

    EXPECT_EQ(owned->parentWidget(), &parent);
}

TEST_F(HelpWidgetTest, DisplayingAPageLeavesTheShowingToTheCaller)
{
    help.displayStartPage();

    EXPECT_FALSE(help.isVisible());
    EXPECT_EQ(heading(help), QStringLiteral("Tallymere Handbook"));
}

TEST_F(HelpWidgetTest, TheWizardPageIsFoundWithoutTheStartPage)
{
    help.displayWizardPage();

    EXPECT_EQ(heading(help), QStringLiteral("Starting a new budget"));
    EXPECT_FALSE(action(help, "backActn").isEnabled());
}

TEST_F(HelpWidgetTest, ShownBeforeAnyPageWasAskedForItBeginsWithTheStartPage)
{
    help.show();

    EXPECT_EQ(heading(help), QStringLiteral("Tallymere Handbook"));
}

TEST_F(HelpWidgetTest, ShownAgainItStaysOnThePageLeftOpen)
{
    showStartPage();
    help.displayWizardPage();
    help.close();

    help.show();

    EXPECT_EQ(page(), QStringLiteral("wizard.md"));
}

TEST_F(HelpWidgetTest, AskingForTheStartPageTwiceTakesOneStepBack)
{
    help.displayStartPage();
    help.displayStartPage();

    EXPECT_FALSE(action(help, "backActn").isEnabled());
}

TEST_F(HelpWidgetTest, ThereIsNoWayBackOrForwardAtFirst)
{
    help.displayStartPage();

    EXPECT_FALSE(action(help, "backActn").isEnabled());
    EXPECT_FALSE(action(help, "forwardActn").isEnabled());
    EXPECT_TRUE(action(help, "contentsActn").isEnabled());
}

TEST_F(HelpWidgetTest, ALinkOpensByKeyboard)
{
    showStartPage();

    openFirstLink();

    EXPECT_EQ(page(), QStringLiteral("budget-file.md"));
    EXPECT_EQ(heading(help), QStringLiteral("Your budget file"));
}

TEST_F(HelpWidgetTest, ALinkOpensByMouse)
{
    showStartPage();
    auto const link =
        browser(help).document()->find(QStringLiteral("The dashboard"), 0, QTextDocument::FindCaseSensitively);
    browser(help).setTextCursor(link);
    auto const end = browser(help).cursorRect(link).center();

    QTest::mouseClick(browser(help).viewport(), Qt::LeftButton, {}, end - QPoint(8, 0));

    EXPECT_EQ(page(), QStringLiteral("dashboard.md"));
}

TEST_F(HelpWidgetTest, BackAndForwardWalkThroughThePagesRead)
{
    showStartPage();
    openFirstLink();

    action(help, "backActn").trigger();
    EXPECT_EQ(page(), QStringLiteral("index.md"));
    EXPECT_FALSE(action(help, "backActn").isEnabled());
    EXPECT_TRUE(action(help, "forwardActn").isEnabled());

    action(help, "forwardActn").trigger();
    EXPECT_EQ(page(), QStringLiteral("budget-file.md"));
    EXPECT_TRUE(action(help, "backActn").isEnabled());
    EXPECT_FALSE(action(help, "forwardActn").isEnabled());
}

TEST_F(HelpWidgetTest, ContentsLeadBackToTheStartPage)
{
    showStartPage();
    help.displayWizardPage();

    action(help, "contentsActn").trigger();

    EXPECT_EQ(page(), QStringLiteral("index.md"));
    EXPECT_TRUE(action(help, "backActn").isEnabled());
}

TEST_F(HelpWidgetTest, ThePagesReadAreWalkedThroughByKeyboard)
{
    showStartPage();
    help.displayWizardPage();

    QTest::keyClick(&browser(help), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(page(), QStringLiteral("index.md"));
    QTest::keyClick(&browser(help), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(page(), QStringLiteral("wizard.md"));
    QTest::keyClick(&browser(help), Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(page(), QStringLiteral("index.md"));
}

TEST_F(HelpWidgetTest, EscapeClosesTheWindow)
{
    showStartPage();

    QTest::keyClick(&browser(help), Qt::Key_Escape);

    EXPECT_FALSE(help.isVisible());
}

TEST_F(HelpWidgetTest, TheButtonsAreReachedByKeyboardAndNamedForAScreenReader)
{
    showStartPage();
    auto& toolBar = child<QToolBar>(help, QStringLiteral("handbookTbr"));

    for (auto* const step : toolBar.actions()) {
        EXPECT_NE(toolBar.widgetForAction(step)->focusPolicy() & Qt::TabFocus, 0) << step->text().toStdString();
        EXPECT_FALSE(step->shortcut().isEmpty()) << step->text().toStdString();
        EXPECT_FALSE(step->text().isEmpty());
    }
    EXPECT_EQ(toolBar.actions().size(), 3);
    EXPECT_TRUE(browser(help).hasFocus());
    EXPECT_FALSE(browser(help).accessibleName().isEmpty());
    EXPECT_FALSE(toolBar.accessibleName().isEmpty());
}

TEST_F(HelpWidgetTest, AMissingPageSaysSoAndLeadsToTheContents)
{
    expectMessage(QtWarningMsg, QStringLiteral("The handbook has nothing at \"qrc:/handbook/holidays.md\""));
    showStartPage();

    browser(help).setSource(QUrl(QStringLiteral("holidays.md")));

    EXPECT_EQ(heading(help), QStringLiteral("This page is missing"));
    openFirstLink();
    EXPECT_EQ(page(), QStringLiteral("index.md"));
}

TEST_F(HelpWidgetTest, AMissingImageIsLoggedAndLeftOut)
{
    expectMessage(QtWarningMsg, QStringLiteral("The handbook has nothing at \"qrc:/handbook/dial.png\""));
    help.displayStartPage();

    auto const image = browser(help).loadResource(QTextDocument::ImageResource, QUrl(QStringLiteral("dial.png")));

    EXPECT_FALSE(image.isValid());
}

TEST_F(HelpWidgetTest, NoFileOfTheComputerIsShownAsAPage)
{
    expectMessage(QtWarningMsg, QStringLiteral("The handbook has nothing at \"file:///etc/hostname\""));
    help.displayStartPage();

    browser(help).setSource(QUrl(QStringLiteral("file:///etc/hostname")));

    EXPECT_TRUE(browser(help).toPlainText().contains(QStringLiteral("This page is missing")));
}

TEST_F(HelpWidgetTest, ALinkToTheWebOpensInTheBrowserOfTheDesktop)
{
    WebBrowser web;
    showStartPage();
    browser(help).setMarkdown(QStringLiteral("[Home page](https://tallymere.example/)"));

    openFirstLink();

    ASSERT_EQ(web.opened.size(), 1);
    EXPECT_EQ(web.opened.first(), QUrl(QStringLiteral("https://tallymere.example/")));
    EXPECT_EQ(page(), QStringLiteral("index.md"));
}
}
}

#include "HelpWidgetTest.moc"
