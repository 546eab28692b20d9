#pragma once

#include <QImage>
#include <QString>

#include <chrono>

class QWidget;

namespace tallymere::tour {

/// Lets the program paint and settle.
void wait(std::chrono::milliseconds duration);

/// Takes pictures into one folder, each under its own name with an ending that they all share.
class Camera
{
public:
    Camera(QString folder, QString ending) : folder_(std::move(folder)), ending_(std::move(ending)) {}

    void shoot(QWidget& subject, QString const& name);

    /// Takes the picture for a page of the handbook.
    void shootForPage(QWidget& subject, QString const& name);

    /// \return whether every picture was written
    bool isWhole() const { return isWhole_; }

private:
    void keep(QImage const& picture, QString const& name);

    QString folder_;
    QString ending_;
    bool isWhole_ = true;
};
}
