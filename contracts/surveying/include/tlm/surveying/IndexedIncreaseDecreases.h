#pragma once

#include <fiscora/Money.h>

#include <map>

namespace tlm::surveying {

/// Amounts that a finished survey adds, parted by the way they move the account's balance.
/// \tparam Key budget item or account that an amount is added to
template <typename Key>
struct IndexedIncreaseDecreases
{
    std::map<Key, fiscora::Money> increases;
    std::map<Key, fiscora::Money> decreases;

    friend bool operator==(IndexedIncreaseDecreases const&, IndexedIncreaseDecreases const&) = default;
};
}
