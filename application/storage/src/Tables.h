#pragma once

#include <string>
#include <vector>

/// The words by which the tables of a budget are made.
///
/// Files that people keep hold these words to the letter, and every file is compared with them: a change of one is a new
/// version of the file.
namespace tallymere::storage::tables {

/// \return the words for all tables and indexes of \a version, 1 or 2
std::string ofVersion(unsigned int version);

/// \return what the database's own list of tables and indexes tells of them, sorted: type, name, table and words, parted by
///         blanks
std::vector<std::string> listOf(unsigned int version);

/// \return the words for what version 2 has beside or instead of the items of version 1
std::string newInVersion2();
}
