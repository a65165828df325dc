// The owner of a handle, whatever its kind: it holds at most one, and closes it at its end.
//
// Traits tell the kind: the handle's type, the value that stands for none, and the call that closes. What that call
// needs besides the handle is a field of the traits, which move with it. Each kind has its alias where it belongs.
#pragma once

#include <utility>

// What most traits begin with: null stands for none.
template <class Pointer>
struct NullTraits {
    using Type = Pointer;
    static constexpr Type Empty() { return nullptr; }
};

template <class Traits>
class CHandle {
public:
    using Type = typename Traits::Type;

    CHandle() = default;
    explicit CHandle(Type owned, Traits kind = {}) : traits(kind), handle(owned) {}
    CHandle(const CHandle&) = delete;
    CHandle& operator=(const CHandle&) = delete;
    CHandle(CHandle&& other) noexcept : traits(other.traits), handle(other.Detach()) {}
    CHandle& operator=(CHandle&& other) noexcept {
        if (this == &other) return *this;
        Close();
        traits = other.traits;
        handle = other.Detach();
        return *this;
    }
    ~CHandle() { Close(); }

    // Takes ownership; what was held before is closed.
    void Attach(Type owned) {
        Close();
        handle = owned;
    }
    // Gives ownership to the caller.
    Type Detach() { return std::exchange(handle, Traits::Empty()); }
    // Where a call puts the handle that it makes; what was held before is closed.
    Type* Receive() {
        Close();
        return &handle;
    }
    void Close() {
        if (!IsEmpty()) traits.Close(Detach());
    }
    Type GetHandle() const { return handle; }
    bool IsEmpty() const { return handle == Traits::Empty(); }

private:
    [[no_unique_address]] Traits traits{};
    Type handle = Traits::Empty();
};
