#pragma once

#include <map>
#include <memory>

namespace tlm::desktop_ui::internal {

/// Makes equal values once: whoever asks with an equal key, while another still holds the value, shares it.
///
/// A view with thousands of rows thus holds one list of currencies and not thousands.
/// \tparam Value constructs from \a key, and is a function of it alone
template <typename Value, typename Key>
std::shared_ptr<Value const> shared(Key const& key)
{
    static std::map<Key, std::weak_ptr<Value const>> made;
    if (auto const known = made.find(key); known != made.end()) {
        if (auto value = known->second.lock()) {
            return value;
        }
    }
    std::erase_if(made, [](auto const& entry) { return entry.second.expired(); });
    auto value = std::make_shared<Value const>(key);
    made.emplace(key, value);
    return value;
}
}
