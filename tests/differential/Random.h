#pragma once

#include "tests/support/Bytes.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <random>

// Chance with a fixed seed, and the damage that it does to files.
namespace differential {

class Random {
public:
    explicit Random(unsigned seed) : engine_(seed) {}

    // 0 … count - 1.
    std::size_t below(std::size_t count) { return engine_() % count; }
    int between(int first, int last)
    {
        return first + static_cast<int>(below(static_cast<std::size_t>(last - first) + 1));
    }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    std::uint32_t word() { return static_cast<std::uint32_t>(engine_()); }
    std::uint8_t byte() { return static_cast<std::uint8_t>(engine_()); }

    template <typename T>
    T oneOf(std::initializer_list<T> values)
    {
        return values.begin()[below(values.size())];
    }

    support::ByteBuffer bytes(std::size_t count)
    {
        support::ByteBuffer bytes(count);
        for (auto& byte : bytes)
            byte = this->byte();
        return bytes;
    }

private:
    std::mt19937 engine_;
};

// Damages a file as files are damaged: bits flipped, bytes overwritten, the end cut off or grown.
// Most of it happens in the first `headBytes`, where one byte decides about all that follows.
inline void damage(support::ByteBuffer& file, Random& random, std::size_t headBytes)
{
    for (auto times = random.below(3) + 1; times > 0 && !file.empty(); --times) {
        const auto reach = random.oneIn(3) ? file.size() : std::min(headBytes, file.size());
        auto& byte = file[random.below(reach)];
        switch (random.below(5)) {
        case 0: byte = static_cast<std::uint8_t>(byte ^ 1U << random.below(8)); break;
        case 1: byte = random.byte(); break;
        case 2: byte = random.oneOf<std::uint8_t>({0, 1, 2, 3, 0x7F, 0x80, 0xFF}); break;
        case 3:
            file.resize(file.size() - random.below(std::min<std::size_t>(file.size(), 9)));
            break;
        default: support::append(file, random.bytes(random.below(9)));
        }
    }
}

}
