#include <program/Application.h>
#include <program/Program.h>

#include <QAction>
#include <QDir>
#include <QEventLoop>
#include <QImage>
#include <QPalette>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextStream>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <cstdio>

namespace {

using namespace tallymere::program;
using tlm::desktop_ui::MainWindow;
using namespace std::chrono_literals;

/// What a page of the handbook is wide enough for, in pixels.
constexpr auto widthOfPage = 840;

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

/// Takes pictures into one folder, each under its own name with an ending that they all share.
class Camera
{
public:
    Camera(QString folder, QString ending) : folder_(std::move(folder)), ending_(std::move(ending)) {}

    void shoot(QWidget& subject, QString const& name) { keep(picture(subject), name); }

    /// Takes the picture for a page of the handbook.
    void shootForPage(QWidget& subject, QString const& name)
    {
        keep(picture(subject).scaledToWidth(widthOfPage, Qt::SmoothTransformation), name);
    }

    /// \return whether every picture was written
    bool isWhole() const { return isWhole_; }

private:
    static QImage picture(QWidget& subject)
    {
        wait(200ms);
        return subject.grab().toImage();
    }

    void keep(QImage const& picture, QString const& name)
    {
        auto const path = QDir(folder_).filePath(name + ending_ + QStringLiteral(".png"));
        if (!picture.save(path)) {
            QTextStream(stderr) << "Can't write " << path << '\n';
            isWhole_ = false;
        }
    }

    QString folder_;
    QString ending_;
    bool isWhole_ = true;
};

void choose(MainWindow& window, QString const& view)
{
    window.findChild<QAction*>(view + QStringLiteral("Actn"))->trigger();
}

QStringList planningViews()
{
    return {QStringLiteral("bills"), QStringLiteral("debts"), QStringLiteral("goals"), QStringLiteral("nontracks"),
            QStringLiteral("wages")};
}

/// Takes the handbook's first page and one with a picture.
void shootHandbook(Camera& camera, MainWindow& window)
{
    choose(window, QStringLiteral("handbook"));
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

/// Goes through the views as they come up, and as they are in the smallest window.
void walk(Camera& camera, MainWindow& window)
{
    camera.shoot(window, QStringLiteral("dashboard"));
    for (auto const& view : planningViews()) {
        choose(window, view);
        camera.shoot(window, view);
    }
    window.resize(window.minimumSize());
    for (auto const& view : planningViews()) {
        choose(window, view);
        camera.shoot(window, view + QStringLiteral("-smallest"));
    }
    emit window.prepareShowDashboard();
    camera.shoot(window, QStringLiteral("dashboard-smallest"));
    shootHandbook(camera, window);
}

/// Takes the pictures of the handbook's own pages.
void illustrate(Camera& camera, MainWindow& window)
{
    window.resize(window.minimumSize());
    for (auto const& view : planningViews()) {
        choose(window, view);
        camera.shootForPage(*window.centralWidget(), QStringLiteral("planning-") + view);
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
    Program program(StartOptions{{}, true, {}});
    program.start();
    auto const isForHandbook = arguments.at(2) == QLatin1String("handbook");
    Camera camera(arguments.at(1), isForHandbook ? QString() : u'-' + arguments.mid(2).join(u'-'));
    (isForHandbook ? illustrate : walk)(camera, program.window());
    return camera.isWhole() ? 0 : 1;
}
