#include "PostingsDigest.h"

#include "PostingRows.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <SQLiteCpp/Column.h>
#include <algorithm>
#include <functional>
#include <string>

namespace tallymere::storage {

namespace {

constexpr int columns = 9;

void tell(std::string& told, std::int64_t number)
{
    told.append(reinterpret_cast<char const*>(&number), sizeof number);
}

/// Tells the length of a text too, so that values that follow each other can't be taken for others.
void tell(std::string& told, SQLite::Column const& value)
{
    if (value.isInteger()) {
        tell(told, value.getInt64());
        return;
    }
    auto const* const text = value.getText(); // before its length, which it may change
    auto const size = value.getBytes();
    tell(told, size);
    told.append(text, static_cast<std::size_t>(size));
}
}

void PostingsDigest::add(SQLite::Statement const& row)
{
    std::ranges::transform(sums_, sumsOf(row), sums_.begin(), std::plus());
}

void PostingsDigest::remove(SQLite::Statement const& row)
{
    std::ranges::transform(sums_, sumsOf(row), sums_.begin(), std::minus());
}

void PostingsDigest::add(PostingsDigest const& other)
{
    std::ranges::transform(sums_, other.sums_, sums_.begin(), std::plus());
}

QByteArray PostingsDigest::bytes() const
{
    return {reinterpret_cast<char const*>(sums_.data()), sizeof sums_};
}

PostingsDigest::Sums PostingsDigest::sumsOf(SQLite::Statement const& row)
{
    std::string told;
    for (auto column = 1; column < columns; ++column) { // the id is no content
        tell(told, row.getColumn(column));
    }
    auto const hash = QCryptographicHash::hash(QByteArrayView(told), QCryptographicHash::Blake2b_256);
    Sums sums{};
    for (auto place = 0U; place < sums.size(); ++place) {
        sums[place] = qFromLittleEndian<quint64>(hash.constData() + place * sizeof(quint64));
    }
    return sums;
}

PostingsDigest digestOfPostings(SQLite::Database const& database)
{
    PostingsDigest digest;
    SQLite::Statement row(database, postingRows);
    while (row.executeStep()) {
        digest.add(row);
    }
    return digest;
}
}
