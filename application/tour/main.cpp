#include <program/Application.h>
#include <program/Program.h>

#include <QAction>
#include <QDir>
#include <QEventLoop>
#include <QPalette>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <chrono>
#include <cstdio>

namespace {

using namespace tallymere::program;
using namespace std::chrono_literals;

QPalette darkPalette()
{
    QPalette palette(QColor(45, 48, 52));
    palette.setColor(QPalette::Base, QColor(32, 34, 37));
    palette.setColor(QPalette::AlternateBase, QColor(40, 43, 47));
    palette.setColor(QPalette::Highlight, QColor(61, 125, 190));
    palette.setColor(QPalette::Link, QColor(110, 170, 230));
    return palette;
}

/// Lets the program paint and settle.
void wait(std::chrono::milliseconds duration)
{
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Goes through the views of one window and writes a picture of each.
class Tour
{
public:
    Tour(QString folder, QString suffix) : folder_(std::move(folder)), suffix_(std::move(suffix)) {}

    /// \return whether every picture was written
    bool walk(tlm::desktop_ui::MainWindow& window)
    {
        shoot(window, QStringLiteral("dashboard"));
        window.resize(window.minimumSize());
        shoot(window, QStringLiteral("dashboard-smallest"));
        window.findChild<QAction*>(QStringLiteral("handbookActn"))->trigger();
        wait(400ms);
        for (auto* const other : QApplication::topLevelWidgets()) {
            if (other != &window && other->isVisible() && other->isWindow()) {
                shoot(*other, QStringLiteral("handbook"));
                other->hide();
            }
        }
        return isWhole_;
    }

private:
    void shoot(QWidget& window, QString const& name)
    {
        wait(200ms);
        auto const path = QDir(folder_).filePath(name + suffix_ + QStringLiteral(".png"));
        if (!window.grab().save(path)) {
            QTextStream(stderr) << "Can't write " << path << '\n';
            isWhole_ = false;
        }
    }

    QString folder_;
    QString suffix_;
    bool isWhole_ = true;
};
}

/// usage: tallymere-tour FOLDER light|dark [SCALE'S NAME]
int main(int argc, char** argv)
{
    QTemporaryDir const home;
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    QCoreApplication::setOrganizationName(QStringLiteral("Tallymere"));
    QCoreApplication::setApplicationName(QStringLiteral("tallymere"));
    Application const application(argc, argv);
    auto const arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        QTextStream(stderr) << "usage: tallymere-tour FOLDER light|dark [SCALE'S NAME]\n";
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (arguments.at(2) == QLatin1String("dark")) {
        QApplication::setPalette(darkPalette());
    }
    Program program(StartOptions{{}, true, {}});
    program.start();
    Tour tour(arguments.at(1), QLatin1Char('-') + arguments.mid(2).join(QLatin1Char('-')));
    return tour.walk(program.window()) ? 0 : 1;
}
