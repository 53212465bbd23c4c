#include "platform/file.hpp"
#include <utility>

namespace platform {

File::File(std::intptr_t handle) noexcept
    : handle_(handle)
{
}

File::File(File&& other) noexcept
    : handle_(std::exchange(other.handle_, no_handle))
{
}

File& File::operator=(File&& other) noexcept
{
    if (this != &other) {
        close();
        handle_ = std::exchange(other.handle_, no_handle);
    }
    return *this;
}

File::~File()
{
    close();
}

bool File::is_open() const
{
    return handle_ != no_handle;
}

} // namespace platform
