#pragma once

namespace Core {

// Base of every reference-counted object of the engine. The count is intrusive: a
// `SmartPtr` adds a reference on construction and copy and releases it on
// destruction; the last release calls `OnFinalRelease`, which deletes the object.
// Objects start with a count of 0, so the first `SmartPtr` to hold one owns it.
class Object {
public:
    Object() = default;
    // A copy is a new object: it does not inherit the original's holders.
    Object(const Object &) noexcept : references_(0) {}
    Object &operator=(const Object &) noexcept { return *this; }
    virtual ~Object() = default;

    void AddRef() const noexcept { ++references_; }
    void Release() const noexcept
    {
        if (--references_ == 0)
            const_cast<Object *>(this)->OnFinalRelease();
    }
    int referenceCount() const noexcept { return references_; }

protected:
    virtual void OnFinalRelease() { delete this; }

private:
    mutable int references_ = 0; // holders alive now; the object dies when it drops to 0
};

} // namespace Core
