#pragma once

#include "support/Exception.h"

#include <cstddef>
#include <utility>

// Intrusive reference-counting pointer for `Core::Object` descendants. Null when
// default-constructed; constructing from a raw pointer takes a reference. `->` and
// `*` on a null pointer log and throw `Core::NullPointerException`.
template <typename T>
class SmartPtr {
public:
    SmartPtr() noexcept = default;
    SmartPtr(std::nullptr_t) noexcept {} // NOLINT(google-explicit-constructor)
    SmartPtr(T *object) noexcept : object_(object) // NOLINT(google-explicit-constructor)
    {
        if (object_)
            object_->AddRef();
    }
    SmartPtr(const SmartPtr &other) noexcept : SmartPtr(other.object_) {}
    SmartPtr(SmartPtr &&other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <typename U>
    SmartPtr(const SmartPtr<U> &other) noexcept : SmartPtr(other.get()) // NOLINT(google-explicit-constructor)
    {
    }
    ~SmartPtr() { reset(); }

    SmartPtr &operator=(const SmartPtr &other) noexcept
    {
        SmartPtr(other).swap(*this);
        return *this;
    }
    SmartPtr &operator=(SmartPtr &&other) noexcept
    {
        SmartPtr(std::move(other)).swap(*this);
        return *this;
    }
    SmartPtr &operator=(T *object) noexcept
    {
        SmartPtr(object).swap(*this);
        return *this;
    }

    void reset() noexcept
    {
        if (T *old = std::exchange(object_, nullptr))
            old->Release();
    }
    void swap(SmartPtr &other) noexcept { std::swap(object_, other.object_); }

    T *get() const noexcept { return object_; }
    T *operator->() const { return &checked(); }
    T &operator*() const { return checked(); }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    bool isNull() const noexcept { return object_ == nullptr; }

    friend bool operator==(const SmartPtr &a, const SmartPtr &b) noexcept { return a.object_ == b.object_; }
    friend bool operator!=(const SmartPtr &a, const SmartPtr &b) noexcept { return a.object_ != b.object_; }
    friend bool operator==(const SmartPtr &a, std::nullptr_t) noexcept { return a.object_ == nullptr; }
    friend bool operator!=(const SmartPtr &a, std::nullptr_t) noexcept { return a.object_ != nullptr; }

private:
    T &checked() const
    {
        if (!object_)
            FOEDIT_THROW(Core::NullPointerException());
        return *object_;
    }

    T *object_ = nullptr;
};

namespace Core {
template <typename T>
using SmartPtr = ::SmartPtr<T>;
}
