#pragma once

#include <QDir>
#include <QTemporaryDir>

namespace tlm::testing {

/// A home folder of a test's own, in which settings, working copies, logs and documents land while it lives.
class Home
{
public:
    Home()
    {
        qputenv("HOME", folder_.path().toUtf8());
        qputenv("XDG_STATE_HOME", folder_.filePath(QStringLiteral("state")).toUtf8());
        QDir(folder_.path()).mkdir(QStringLiteral("Documents"));
    }
    ~Home()
    {
        qputenv("HOME", before_);
        qunsetenv("XDG_STATE_HOME");
    }
    Home(Home const&) = delete;
    Home& operator=(Home const&) = delete;

    QString path(QString const& name) const { return folder_.filePath(name); }

private:
    QByteArray before_ = qgetenv("HOME");
    QTemporaryDir folder_;
};
}
