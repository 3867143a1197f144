#pragma once

#include <vector>

namespace Core {

// A plain value vector; `size()` answers in the engine's `int` positions.
template <typename T>
class Vector : public std::vector<T> {
public:
    using std::vector<T>::vector;
    Vector() = default;
    Vector(const std::vector<T> &other) : std::vector<T>(other) {} // NOLINT(google-explicit-constructor)
    Vector(std::vector<T> &&other) : std::vector<T>(std::move(other)) {} // NOLINT(google-explicit-constructor)

    int size() const noexcept { return static_cast<int>(std::vector<T>::size()); }
    T &operator[](int index) { return std::vector<T>::operator[](static_cast<std::size_t>(index)); }
    const T &operator[](int index) const { return std::vector<T>::operator[](static_cast<std::size_t>(index)); }
};

} // namespace Core
