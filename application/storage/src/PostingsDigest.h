#pragma once

#include <QByteArray>

#include <SQLiteCpp/Statement.h>
#include <array>
#include <cstdint>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

/// A digest of postings that doesn't depend on their order, and follows each change without reading the others.
class PostingsDigest
{
public:
    /// \param row one of `postingRows`
    void add(SQLite::Statement const& row);
    void remove(SQLite::Statement const& row);

    /// Adds and removes what \a other did.
    void add(PostingsDigest const& other);

    QByteArray bytes() const;

private:
    using Sums = std::array<std::uint64_t, 4>;

    static Sums sumsOf(SQLite::Statement const& row);

    Sums sums_{};
};

/// What happened to the postings of a budget.
struct PostingsChange
{
    PostingsDigest digest;          ///< of those that came, less those that went
    bool haveOtherAccounts = false; ///< an account got another number, which its postings tell of
};

/// \return a digest of all postings in \a database
PostingsDigest digestOfPostings(SQLite::Database const& database);
}
