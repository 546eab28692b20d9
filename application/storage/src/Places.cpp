#include <storage/Places.h>

#include <QStandardPaths>

namespace tallymere::storage {

Places Places::ofUser()
{
    auto const data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    return {data + QStringLiteral("/working-copies"), data + QStringLiteral("/backups")};
}
}
