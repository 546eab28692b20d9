#include <tlm/desktop_ui/MainWindow.h>

#include <QApplication>
#include <QTimer>

#include <cstdio>

using tlm::desktop_ui::MainWindow;

namespace {

/// Answers the window as a presenter with an empty budget would.
void answer(MainWindow& window)
{
    auto const dollar = fiscora::Currency::USD;
    fiscora::Money const nothing(dollar);
    QObject::connect(&window, &MainWindow::prepareShowDashboard, &window, [&window, dollar, nothing] {
        window.onShowDashboard({nothing, nothing, nothing, nothing, nothing}, {}, {}, std::chrono::days(14), dollar,
                               tlm::navigation::CurrencyDisplayOptions::Code);
    });
    QObject::connect(&window, &MainWindow::checkIsBudgetFileDirty, &window,
                     [&window] { window.onCheckCleanExit(false); });
}

bool holds(bool condition, char const* what)
{
    std::printf("%s: %s\n", condition ? "holds" : "FAILS", what);
    return condition;
}
}

int main(int argc, char** argv)
{
    QApplication const application(argc, argv);
    tlm::navigation::ConfigurationOptions const options;
    MainWindow window(options);
    answer(window);

    window.show();
    auto const shown = holds(window.isVisible(), "the window is shown");
    auto const answered = holds(window.centralWidget()->objectName() == QLatin1String("DashboardWdgt"),
                                "the dashboard is its central view");
    QTimer::singleShot(0, &window, &QWidget::close);
    QApplication::exec();
    auto const gone = holds(!window.isVisible(), "closing it ends the program");

    return shown && answered && gone ? 0 : 1;
}
