// The lock of everything that an animation draws with from its own thread.
#pragma once
#include <mutex>

namespace media {

// One for the process. Held while a picture is drawn or copied to the screen, and while the colours change
// that the drawing reads. Where the loader lock is needed too it is taken first.
inline std::recursive_mutex& drawing_lock()
{
    static std::recursive_mutex lock;
    return lock;
}

} // namespace media
