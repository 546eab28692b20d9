#include <services/Preferences.h>

namespace tallymere::services {

namespace {

auto const accountingKey = QStringLiteral("isAccounting");
auto const lastFileKey = QStringLiteral("lastFile");
auto const geometryKey = QStringLiteral("windowGeometry");

/// Writes only what is new: each write has the whole file written and synced again.
template <typename Value>
void keep(QSettings& settings, QString const& key, Value const& value)
{
    if (!settings.contains(key) || settings.value(key).template value<Value>() != value) {
        settings.setValue(key, value);
    }
}
}

bool Preferences::isAccounting() const
{
    return settings_.value(accountingKey, false).toBool();
}

void Preferences::setAccounting(bool isAccounting)
{
    keep(settings_, accountingKey, isAccounting);
}

QString Preferences::lastFile() const
{
    return settings_.value(lastFileKey).toString();
}

void Preferences::setLastFile(QString const& filePathName)
{
    keep(settings_, lastFileKey, filePathName);
}

QByteArray Preferences::windowGeometry() const
{
    return settings_.value(geometryKey).toByteArray();
}

void Preferences::setWindowGeometry(QByteArray const& geometry)
{
    keep(settings_, geometryKey, geometry);
}
}
