#include "Origin.h"

#include "Replacement.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <system_error>

namespace tallymere::storage {

namespace {

constexpr qint64 mostBytes = 1 << 16;
}

void Origin::write(QByteArray const& path) const
{
    replaceBytes(path,
                 QJsonDocument(QJsonObject{{"file", filePathName}, {"content", QString::fromLatin1(digest.toHex())}})
                     .toJson(QJsonDocument::Compact));
}

std::optional<Origin> Origin::read(QByteArray const& path)
{
    auto const bytes = DurableFile::open(path).read(0, mostBytes);
    auto const told = QJsonDocument::fromJson(bytes).object();
    if (!told.contains("file") || !told.contains("content")) {
        return std::nullopt;
    }
    return Origin{told["file"].toString(), QByteArray::fromHex(told["content"].toString().toLatin1())};
}
}
