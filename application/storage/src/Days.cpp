#include "Days.h"

#include <algorithm>
#include <array>

namespace tallymere::storage::days {

namespace {

struct Parts
{
    int year = 0;
    int month = 0;
    int day = 0;
};

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool hasShape(std::string_view text)
{
    constexpr std::array places{0U, 1U, 2U, 3U, 5U, 6U, 8U, 9U};
    return text.size() == length && text[4] == '-' && text[7] == '-' &&
           std::ranges::all_of(places, [text](auto const place) { return isDigit(text[place]); });
}

int numberOfTwo(std::string_view text, std::size_t place)
{
    return (text[place] - '0') * 10 + (text[place + 1] - '0');
}

Parts partsOf(std::string_view text)
{
    return {.year = numberOfTwo(text, 0) * 100 + numberOfTwo(text, 2),
            .month = numberOfTwo(text, 5),
            .day = numberOfTwo(text, 8)};
}

bool isLeap(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int daysOf(int year, int month)
{
    constexpr std::array days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeap(year) ? 29 : days.at(static_cast<std::size_t>(month - 1));
}

bool isDay(Parts const& parts)
{
    return parts.year >= 1 && parts.month >= 1 && parts.month <= 12 && parts.day >= 1 &&
           parts.day <= daysOf(parts.year, parts.month);
}
}

bool isDay(std::string_view text)
{
    return hasShape(text) && isDay(partsOf(text));
}

QDate toDay(std::string_view text)
{
    if (!hasShape(text)) {
        return {};
    }
    auto const parts = partsOf(text);
    return isDay(parts) ? QDate(parts.year, parts.month, parts.day) : QDate();
}
}
