#pragma once

#include <string>
#include <vector>

/// The words by which the tables of a budget are made.
///
/// Files that people keep hold these words to the letter, and every file is compared with them: a change of one is a new
/// version of the file.
namespace tallymere::storage::tables {

/// \return the words for all tables and indexes of \a version, 1 to 3
std::string ofVersion(unsigned int version);

/// \return what the database's own list of tables and indexes tells of them, sorted: type, name, table and words, parted by
///         blanks
std::vector<std::string> listOf(unsigned int version);

/// \return the words for what the present version has beside or instead of the items of version 1
std::string newSinceVersion1();

/// \return the words that make the tables of version 2 those of the present version, with all that is in them. References
///         must not be looked after meanwhile: accounts go and come back.
std::string replacingVersion2();
}
