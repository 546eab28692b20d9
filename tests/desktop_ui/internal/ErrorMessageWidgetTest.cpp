#include "internal/ErrorMessageWidget.h"

#include "support/Widgets.h"

#include <QLabel>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <memory>

using tlm::desktop_ui::internal::ErrorMessageWidget;
using tlm::testing::child;

namespace {

class ErrorMessageWidgetTest : public ::testing::Test
{
protected:
    ErrorMessageWidgetTest() { form.setLayout(new QVBoxLayout); }

    QWidget form;
    ErrorMessageWidget& line = *new ErrorMessageWidget(&form);
    QLabel& label = child<QLabel>(line, "messageLbl");
};
}

TEST_F(ErrorMessageWidgetTest, TakesNoRoomUntilThereIsSomethingToTell)
{
    form.layout()->addWidget(&line);
    auto const empty = form.sizeHint().height();
    form.show();

    EXPECT_FALSE(line.isVisible());
    line.showMessage("A message.");

    EXPECT_TRUE(line.isVisible());
    EXPECT_GT(form.sizeHint().height(), empty);
}

TEST_F(ErrorMessageWidgetTest, TellsTheMessageItShows)
{
    form.show();

    line.showMessage("The amount is missing.");

    EXPECT_EQ(label.text(), "The amount is missing.");
    EXPECT_EQ(line.message(), "The amount is missing.");
}

TEST_F(ErrorMessageWidgetTest, NoMessageHidesAndForgetsTheLastOne)
{
    form.show();
    line.showMessage("The amount is missing.");

    line.showMessage(std::nullopt);

    EXPECT_FALSE(line.isVisible());
    EXPECT_EQ(label.text(), "");
    EXPECT_EQ(line.message(), std::nullopt);
}

TEST_F(ErrorMessageWidgetTest, IsHiddenBeforeItForgets)
{
    // A shown label that clears its text would jump for a moment.
    form.show();
    line.showMessage("The amount is missing.");
    QString textWhenHidden;
    class HideWatch : public QObject
    {
    public:
        explicit HideWatch(std::function<void()> hidden) : hidden_(std::move(hidden)) {}

        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            if (event->type() == QEvent::Hide) {
                hidden_();
            }
            return false;
        }

    private:
        std::function<void()> hidden_;
    } watch([&] { textWhenHidden = label.text(); });
    line.installEventFilter(&watch);

    line.showMessage(std::nullopt);

    EXPECT_EQ(textWhenHidden, "The amount is missing.");
}

TEST_F(ErrorMessageWidgetTest, AnEmptyMessageShowsAnEmptyLine)
{
    form.show();

    line.showMessage(QString());

    EXPECT_TRUE(line.isVisible());
    EXPECT_EQ(line.message(), std::nullopt);
}

TEST_F(ErrorMessageWidgetTest, KeepsTheFormsTextAsMessageUntilOneIsTold)
{
    EXPECT_EQ(line.message(), "Error Message");
}

TEST_F(ErrorMessageWidgetTest, IsRedInEveryState)
{
    for (auto const group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        EXPECT_EQ(label.palette().brush(group, label.foregroundRole()), QBrush(Qt::red)) << group;
    }
}

TEST_F(ErrorMessageWidgetTest, FollowsTheFormsPaletteInAllElse)
{
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);

    form.setPalette(dark);

    EXPECT_EQ(label.palette().color(QPalette::Window), QColor(Qt::black));
    EXPECT_EQ(label.palette().color(label.foregroundRole()), QColor(Qt::red));
}

TEST_F(ErrorMessageWidgetTest, ShowsMarkupInWhatWasTypedToTheLetter)
{
    form.layout()->addWidget(&line);
    form.show();

    line.showMessage("The value, <h1>x</h1>, is not valid.");
    auto const marked = line.sizeHint().height();
    line.showMessage("The value, .h1.x./h1., is not valid.");

    EXPECT_EQ(marked, line.sizeHint().height());
}

TEST_F(ErrorMessageWidgetTest, ALongMessageGrowsDownAndNotAcross)
{
    form.layout()->addWidget(&line);
    form.resize(300, 100);
    form.show();

    line.showMessage(QString(2000, '9') + QString(" isn't an amount.").repeated(10));
    QApplication::processEvents();

    EXPECT_EQ(form.width(), 300);
    EXPECT_GT(label.height(), 3 * label.fontMetrics().height());
}

TEST_F(ErrorMessageWidgetTest, IsNamedAndSizedByItsForm)
{
    EXPECT_EQ(line.objectName(), "ErrorWdgt");
    EXPECT_EQ(line.windowTitle(), "Error Messages");
    EXPECT_EQ(line.sizePolicy(), QSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Preferred));
}
