#pragma once

#include <QDate>

#include <string_view>

/// Calendar days as files tell them: the year, the month and the day, parted by hyphens.
namespace tallymere::storage::days {

inline constexpr std::size_t length = 10;

/// \return whether \a text is a day of the years 1 to 9999
bool isDay(std::string_view text);

/// \return the day, an invalid one for a text that isn't any
QDate toDay(std::string_view text);
}
