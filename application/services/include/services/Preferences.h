#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>

namespace tallymere::services {

/// What belongs to a person rather than to a budget, kept between two starts in the user's settings.
class Preferences
{
public:
    /// \return whether the accounting wording was used last; the planning wording at the first start
    bool isAccounting() const;
    void setAccounting(bool isAccounting);

    /// \return path of the budget file that was open last, empty if there was none
    QString lastFile() const;
    void setLastFile(QString const& filePathName);

    /// Size and place of the window as Qt saves them, empty at the first start.
    QByteArray windowGeometry() const;
    void setWindowGeometry(QByteArray const& geometry);

private:
    QSettings settings_;
};
}
