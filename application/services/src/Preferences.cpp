#include <services/Preferences.h>

namespace tallymere::services {

namespace {

auto const accountingKey = QStringLiteral("isAccounting");
auto const lastFileKey = QStringLiteral("lastFile");
auto const geometryKey = QStringLiteral("windowGeometry");
}

bool Preferences::isAccounting() const
{
    return settings_.value(accountingKey, false).toBool();
}

void Preferences::setAccounting(bool isAccounting)
{
    settings_.setValue(accountingKey, isAccounting);
}

QString Preferences::lastFile() const
{
    return settings_.value(lastFileKey).toString();
}

void Preferences::setLastFile(QString const& filePathName)
{
    settings_.setValue(lastFileKey, filePathName);
}

QByteArray Preferences::windowGeometry() const
{
    return settings_.value(geometryKey).toByteArray();
}

void Preferences::setWindowGeometry(QByteArray const& geometry)
{
    settings_.setValue(geometryKey, geometry);
}
}
