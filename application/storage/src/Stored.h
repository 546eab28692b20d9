#pragma once

#include <QDate>
#include <QString>

#include <cstdint>
#include <string>

/// Values as the file holds them.
namespace tallymere::storage {

inline std::int64_t integer(long long number)
{
    return number;
}

/// \return \a text in UTF-8, from which it can be read back to the letter
/// \throws DocumentError when it can't
std::string stored(QString const& text);

std::string stored(QDate const& date);
}
