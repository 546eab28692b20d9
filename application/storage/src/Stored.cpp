#include "Stored.h"

#include <storage/DocumentError.h>

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

std::string stored(QDate const& date)
{
    return date.toString(Qt::ISODate).toStdString();
}
}
