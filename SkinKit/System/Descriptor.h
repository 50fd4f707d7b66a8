#pragma once

#include "SkinKit/Base/Bytes.h"

#include <cerrno>
#include <cstddef>
#include <optional>
#include <span>
#include <system_error>
#include <utility>

namespace SkinKit {

// An open file's number, closed at the end of its life, and what all system calls on files share.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor();

    // Opens a file, never as the terminal of the process nor for its children; new ones get what
    // the umask leaves of reading and writing. Negative when that fails.
    static Descriptor open(const char* path, int flags);

    // Negative when nothing is open.
    int number() const { return number_; }
    // Gives it to the caller, who then closes it.
    int release() { return std::exchange(number_, -1); }

    // Why the last system call of this thread failed.
    static std::error_code lastError();

    // What `call` returns once no signal interrupts it; -1 when it fails. Not for close(), which
    // closes the descriptor either way.
    template <typename Call>
    static auto uninterrupted(const Call& call)
    {
        while (true) {
            const auto result = call();
            if (result != -1 || errno != EINTR)
                return result;
        }
    }

    // Reads until `bytes` is full or the file ends; the number of bytes, or nothing on an error.
    std::optional<std::size_t> readFully(std::span<std::uint8_t> bytes) const;
    static std::error_code writeFully(int descriptor, ByteView bytes);
    // Writes and closes; the first error, as some file systems report a full disk only on closing.
    std::error_code writeAndClose(ByteView bytes);

private:
    int number_;
};

}
