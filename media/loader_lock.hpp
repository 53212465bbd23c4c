// The locks of a picture that is loaded on one thread and played on another.
#pragma once
#include <mutex>

namespace media {

// Both one for the process. The order is loader, drawing, frame.

// Held for a whole load, and by an animation for as long as it plays: what plays is not loaded over.
inline std::recursive_mutex& loader_lock()
{
    static std::recursive_mutex lock;
    return lock;
}

// Of the current frame alone, which clicks change while the animation plays.
inline std::recursive_mutex& frame_lock()
{
    static std::recursive_mutex lock;
    return lock;
}

} // namespace media
