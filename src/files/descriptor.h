#pragma once

#include <unistd.h>

#include <utility>

namespace zev {

/// Owns a file descriptor and closes it at its end; a negative one stands for none.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            reset();
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }

    [[nodiscard]] int get() const { return number_; }
    [[nodiscard]] bool isOpen() const { return number_ >= 0; }

private:
    void reset() {
        if (isOpen()) close(number_);
        number_ = -1;
    }

    int number_;
};

}  // namespace zev
