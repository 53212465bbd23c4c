// The locks of pictures: a picture is loaded, played and drawn on different threads.
#pragma once
#include <mutex>

namespace core {

// Each lock exists once per process. Code that needs several takes them in this order: loader, drawing,
// frame.

// Held during a load, and by an animation while it plays, so that no load replaces a playing animation.
inline std::recursive_mutex& loader_lock()
{
    static std::recursive_mutex lock;
    return lock;
}

// Held while a picture is drawn or copied to the screen, and while the palette that drawing reads is changed.
inline std::recursive_mutex& drawing_lock()
{
    static std::recursive_mutex lock;
    return lock;
}

// Guards only the number of the current frame, which a click changes while the animation plays.
inline std::recursive_mutex& frame_lock()
{
    static std::recursive_mutex lock;
    return lock;
}

} // namespace core
