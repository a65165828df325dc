// Owner of a file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

class CDescriptor {
public:
    CDescriptor() = default;
    explicit CDescriptor(int opened) : number(opened) {}
    CDescriptor(CDescriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    CDescriptor& operator=(CDescriptor&& other) noexcept {
        std::swap(number, other.number);
        return *this;
    }
    ~CDescriptor() { Close(); }

    // -1 if there is none.
    int Get() const { return number; }
    bool IsOpen() const { return number >= 0; }
    void Close() {
        if (number >= 0) close(number);
        number = -1;
    }

private:
    int number = -1;
};
