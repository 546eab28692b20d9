#pragma once

#include <QByteArray>

#include <array>
#include <cstdint>

namespace tallymere::storage {

struct PostingWords;

/// A digest of postings that doesn't depend on their order, and follows each change without reading the others.
///
/// It tells apart what happens to a household's books; it isn't made against people who want two books to look the same.
class PostingsDigest
{
public:
    void add(PostingWords const& words);
    void remove(PostingWords const& words);

    /// Adds and removes what \a other did.
    void add(PostingsDigest const& other);

    QByteArray bytes() const;

private:
    std::array<std::uint64_t, 2> sums_{};
};
}
