#pragma once

#include <QObject>

#include <concepts>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace tlm::foundation {

/// Guarded, non-owning pointer to a `QObject`: becomes null when its pointee is destroyed.
///
/// Each guard, a copy too, joins the pointee on its own, so that ending one never unguards another. For a `T` that is
/// no `QObject`, such as a list item, it is a plain pointer. `T` may be incomplete where a guard is only declared;
/// pointing it at something needs the whole type, so that a `QObject` can't slip by unguarded. Guards don't order,
/// since a key that turns null by itself would break a set.
template <typename T>
class QtPtr
{
public:
    QtPtr() noexcept = default;
    QtPtr(std::nullptr_t) noexcept {}
    QtPtr(T* pointee) { watch(pointee); }
    QtPtr(QtPtr const& other) { watch(other.get()); }
    QtPtr(QtPtr&& other) { *this = std::move(other); }

    template <typename U>
    requires(!std::same_as<T, U> && std::convertible_to<U*, T*>) QtPtr(QtPtr<U> const& other) { watch(other.get()); }

    ~QtPtr() { forget(); }

    QtPtr& operator=(QtPtr const& other)
    {
        if (this != &other) {
            forget();
            watch(other.get());
        }
        return *this;
    }

    /// Leaves \a other null.
    QtPtr& operator=(QtPtr&& other)
    {
        if (this != &other) {
            *this = std::as_const(other);
            other.forget();
        }
        return *this;
    }

    T* get() const noexcept { return pointee_; }
    T* operator->() const noexcept { return pointee_; }
    T& operator*() const noexcept { return *pointee_; }
    explicit operator bool() const noexcept { return pointee_ != nullptr; }

    template <typename U>
    bool operator==(QtPtr<U> const& other) const noexcept
    {
        return pointee_ == other.get();
    }

    bool operator==(T const* other) const noexcept { return pointee_ == other; }

private:
    void watch(T* pointee)
    {
        if constexpr (std::is_base_of_v<QObject, T>) {
            if (pointee != nullptr) {
                connection_ = QObject::connect(pointee, &QObject::destroyed, [this] { forget(); });
            }
        }
        pointee_ = pointee;
    }

    void forget() const noexcept
    {
        pointee_ = nullptr;
        QObject::disconnect(std::exchange(connection_, {}));
    }

    // Mutable, since the pointee's end empties a guard that was declared const, too.
    mutable T* pointee_ = nullptr;
    mutable QMetaObject::Connection connection_;
};
}
