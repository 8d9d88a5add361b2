#pragma once

#include <unistd.h>

namespace zev {

/// A file descriptor, closed at its end; a negative one stands for none.
struct Descriptor {
    explicit Descriptor(int number) : value(number) {}
    ~Descriptor() {
        if (value >= 0) close(value);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    const int value;
};

}  // namespace zev
