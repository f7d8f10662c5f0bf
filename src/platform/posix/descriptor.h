#pragma once

#include <unistd.h>

#include <utility>

namespace quenoria {

/// An open file of the kernel's, closed with its owner.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor()
    {
        if (isOpen())
            ::close(m_number);
    }

    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }

    /// False when the system could not keep all that was written.
    [[nodiscard]] bool close() { return ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number = -1;
};

} // namespace quenoria
