#include "Stored.h"

#include <storage/DocumentError.h>

#include <QByteArrayView>
#include <QCoreApplication>

namespace tallymere::storage {

std::string stored(QString const& text)
{
    auto const bytes = text.toUtf8();
    if (text.contains(QChar::Null) || QString::fromUtf8(bytes) != text) {
        throw DocumentError(QCoreApplication::translate(
            "ContentWriter", "The text holds a character that can't be stored. Write it without."));
    }
    return bytes.toStdString();
}

bool isStorable(std::string_view bytes)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // which reading drops
    return bytes.find('\0') == std::string_view::npos && !bytes.starts_with(byteOrderMark) &&
           QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())).isValidUtf8();
}

std::string stored(QDate const& date)
{
    return date.toString(Qt::ISODate).toStdString();
}
}
