#pragma once

#include "Days.h"
#include "Stored.h"
#include "UnsoundBudget.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>

#include <QDate>
#include <QString>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>
#include <string>

/// Reads the values of a row by its columns, the first being 0.
namespace tallymere::storage::rows {

/// \throws UnsoundBudget unless the content keeps \a rule
inline void require(bool isMet, char const* rule)
{
    if (!isMet) {
        throw UnsoundBudget(UnsoundBudget::Reason::Damaged, rule);
    }
}

/// \throws UnsoundBudget for a text that this program would find under other bytes than it has
inline QString text(SQLite::Statement const& row, int column)
{
    auto const value = row.getColumn(column);
    auto const* const bytes = value.getText(); // before its length, which it may change
    auto const size = value.getBytes();
    require(isStorable({bytes, static_cast<std::size_t>(size)}), "no text");
    return QString::fromUtf8(bytes, size);
}

inline std::string word(SQLite::Statement const& row, int column)
{
    return row.getColumn(column).getString();
}

inline bool isNull(SQLite::Statement const& row, int column)
{
    return row.getColumn(column).isNull();
}

inline int number(SQLite::Statement const& row, int column)
{
    return row.getColumn(column).getInt();
}

inline long long integer(SQLite::Statement const& row, int column)
{
    return row.getColumn(column).getInt64();
}

inline fiscora::Currency currency(SQLite::Statement const& row, int column)
{
    return fiscora::toCurrency(word(row, column));
}

/// \throws UnsoundBudget for a text that is no date
inline QDate date(SQLite::Statement const& row, int column)
{
    auto const value = row.getColumn(column);
    auto day = days::toDay({value.getText(), static_cast<std::size_t>(value.getBytes())});
    require(day.isValid(), "no date");
    return day;
}
}
