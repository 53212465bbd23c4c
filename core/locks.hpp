// The locks of pictures, which are loaded on one thread, played on another and drawn on a third.
#pragma once
#include <mutex>

namespace core {

// One of each for the process. Where several are needed they are taken in this order: loader, drawing, frame.

// Held for a whole load, and by an animation for as long as it plays: what plays is not loaded over.
inline std::recursive_mutex& loader_lock()
{
    static std::recursive_mutex lock;
    return lock;
}

// Held while a picture is drawn or copied to the screen, and while the colours change that the drawing reads.
inline std::recursive_mutex& drawing_lock()
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

} // namespace core
