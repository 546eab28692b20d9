#include "Camera.h"
#include "Stops.h"

#include <program/Application.h>
#include <program/Program.h>

#include <QAction>
#include <QPalette>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextStream>
#include <QUrl>

#include <chrono>
#include <cstdio>

namespace {

using namespace tallymere::program;
using namespace tallymere::tour;
using tlm::desktop_ui::MainWindow;
using namespace std::chrono_literals;

/// Qt derives what is disabled from the colour of buttons, as if that were light: almost black on dark.
QPalette darkPalette()
{
    QPalette palette(QColor(45, 48, 52));
    palette.setColor(QPalette::Base, QColor(32, 34, 37));
    palette.setColor(QPalette::AlternateBase, QColor(40, 43, 47));
    palette.setColor(QPalette::Highlight, QColor(61, 125, 190));
    palette.setColor(QPalette::Link, QColor(110, 170, 230));
    for (auto const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText}) {
        palette.setColor(QPalette::Disabled, role, QColor(172, 176, 182));
    }
    return palette;
}

/// Takes the handbook's first page and one with a picture.
void shootHandbook(Camera& camera, MainWindow& window)
{
    window.findChild<QAction*>(QStringLiteral("handbookActn"))->trigger();
    wait(400ms);
    for (auto* const other : QApplication::topLevelWidgets()) {
        if (auto* const page = other->findChild<QTextBrowser*>(); page != nullptr && other->isVisible()) {
            camera.shoot(*other, QStringLiteral("handbook"));
            page->setSource(QUrl(QStringLiteral("debts.md")));
            camera.shoot(*other, QStringLiteral("handbook-debts"));
            other->hide();
        }
    }
}

void shootEach(Camera& camera, MainWindow& window, bool isAccounting, QString const& ending)
{
    for (auto const& stop : stops(isAccounting)) {
        show(stop, window);
        camera.shoot(window, stop.name + ending);
    }
}

/// Goes through the views of a wording as they come up, and as they are in the smallest window.
void walk(Camera& camera, MainWindow& window, bool isAccounting)
{
    auto const dashboard = QStringLiteral("dashboard") + (isAccounting ? QStringLiteral("-accounting") : QString());
    auto const smallest = QStringLiteral("-smallest");
    auto const sizeAtFirst = window.size();
    camera.shoot(window, dashboard);
    shootEach(camera, window, isAccounting, QString());
    window.resize(window.minimumSize());
    shootEach(camera, window, isAccounting, smallest);
    emit window.prepareShowDashboard();
    camera.shoot(window, dashboard + smallest);
    if (isAccounting) {
        shootHandbook(camera, window);
    }
    window.resize(sizeAtFirst);
}

/// Takes the pictures of the handbook's own pages.
void illustrate(Camera& camera, MainWindow& window, bool isAccounting)
{
    for (auto const& stop : stops(isAccounting)) {
        window.resize(stop.windowForPage.expandedTo(window.minimumSize()));
        show(stop, window);
        camera.shootForPage(*window.centralWidget(), stop.page);
    }
}
}

/// usage: tallymere-tour FOLDER light|dark|handbook [SCALE'S NAME]
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
        QTextStream(stderr) << "usage: tallymere-tour FOLDER light|dark|handbook [SCALE'S NAME]\n";
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (arguments.at(2) == QLatin1String("dark")) {
        QApplication::setPalette(darkPalette());
    }
    auto const isForHandbook = arguments.at(2) == QLatin1String("handbook");
    Camera camera(arguments.at(1), isForHandbook ? QString() : u'-' + arguments.mid(2).join(u'-'));
    for (auto const isAccounting : {false, true}) {
        Program program(StartOptions{{}, true, isAccounting});
        program.start();
        (isForHandbook ? illustrate : walk)(camera, program.window(), isAccounting);
    }
    return camera.isWhole() ? 0 : 1;
}
