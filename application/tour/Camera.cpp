#include "Camera.h"

#include <QDir>
#include <QEventLoop>
#include <QTextStream>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace tallymere::tour {

using namespace std::chrono_literals;

namespace {

/// What a page of the handbook is wide enough for, in pixels.
constexpr auto widthOfPage = 840;

QImage picture(QWidget& subject)
{
    wait(200ms);
    return subject.grab().toImage();
}
}

void wait(std::chrono::milliseconds duration)
{
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

void Camera::shoot(QWidget& subject, QString const& name)
{
    keep(picture(subject), name);
}

void Camera::shootForPage(QWidget& subject, QString const& name)
{
    keep(picture(subject).scaledToWidth(widthOfPage, Qt::SmoothTransformation), name);
}

void Camera::keep(QImage const& picture, QString const& name)
{
    auto const path = QDir(folder_).filePath(name + ending_ + QStringLiteral(".png"));
    if (!picture.save(path)) {
        QTextStream(stderr) << "Can't write " << path << '\n';
        isWhole_ = false;
    }
}
}
