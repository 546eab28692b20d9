#pragma once

#include <cstddef>

namespace tlm::foundation {

/// Plain non-owning pointer. Whoever keeps one sees to it that the pointee lives longer.
template <typename T>
class ObserverPtr
{
public:
    constexpr ObserverPtr() noexcept = default;
    constexpr ObserverPtr(std::nullptr_t) noexcept {}
    constexpr ObserverPtr(T* pointee) noexcept : pointee_(pointee) {}

    constexpr T* get() const noexcept { return pointee_; }
    constexpr T* operator->() const noexcept { return pointee_; }
    constexpr T& operator*() const noexcept { return *pointee_; }
    explicit constexpr operator bool() const noexcept { return pointee_ != nullptr; }

    friend constexpr bool operator==(ObserverPtr const&, ObserverPtr const&) noexcept = default;

private:
    T* pointee_ = nullptr;
};
}
