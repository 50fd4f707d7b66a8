#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace SkinKit {

// Bytes that belong to somebody else.
using ByteView = std::span<const std::uint8_t>;

// Leaves new elements unset where a vector would clear them: the buffers here are written in whole
// right after they are sized, and touching fresh memory twice is the dearest part of a small load.
template <typename T>
struct UnclearedAllocator : std::allocator<T> {
    // The same for elements of another type, as containers ask for it.
    template <typename U>
    struct rebind {
        using other = UnclearedAllocator<U>;
    };

    template <typename U>
    void construct(U* place)
    {
        ::new (static_cast<void*>(place)) U;
    }
    template <typename U, typename... Arguments>
    void construct(U* place, Arguments&&... arguments)
    {
        ::new (static_cast<void*>(place)) U(std::forward<Arguments>(arguments)...);
    }
};

// Bytes of our own. Growing it with resize() leaves the new bytes unset.
using ByteBuffer = std::vector<std::uint8_t, UnclearedAllocator<std::uint8_t>>;

// The same bytes as text, and text as bytes.
inline std::string_view asText(ByteView bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}
inline ByteView asBytes(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}
