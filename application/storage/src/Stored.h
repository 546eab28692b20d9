#pragma once

#include <QDate>
#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

/// Values as the file holds them.
namespace tallymere::storage {

inline std::int64_t integer(long long number)
{
    return number;
}

/// \return \a text in UTF-8, from which it can be read back to the letter
/// \throws DocumentError when it can't
std::string stored(QString const& text);

/// \return whether \a bytes are a text that can be stored
bool isStorable(std::string_view bytes);

std::string stored(QDate const& date);
}
