// The thread of an animation reads the palette too, and holds the drawing lock meanwhile.
#include "core/locks.hpp"
#include "look/theme.hpp"
#include <atomic>
#include <chrono>
#include <cstring>
#include <gtest/gtest.h>
#include <thread>

namespace {

using look::ThemePalette;

bool is_whole(const ThemePalette& seen)
{
    const ThemePalette expected = look::theme_colors(seen.current_theme);
    return std::memcmp(&seen, &expected, sizeof seen) == 0;
}

// Copies the palette colour by colour, as drawing code reads it.
ThemePalette palette_read_slowly()
{
    ThemePalette copy;
    const auto* from = reinterpret_cast<const volatile std::uint32_t*>(&look::palette());
    auto* to = reinterpret_cast<std::uint32_t*>(&copy);
    for (std::size_t i = 0; i < sizeof copy / sizeof *to; ++i)
        to[i] = from[i];
    return copy;
}

TEST(ThemeThreads, ReadAWholePaletteUnderTheDrawingLock)
{
    look::load_theme(look::theme_standard);
    std::atomic<bool> stop = false;
    std::atomic<int> torn = 0;
    std::atomic<int> changes_seen = 0;
    std::thread animation{ [&] {
        std::int32_t last = 0;
        while (!stop) {
            ThemePalette seen;
            {
                const std::scoped_lock hold{ core::drawing_lock() };
                seen = palette_read_slowly();
            }
            torn += is_whole(seen) ? 0 : 1;
            changes_seen += seen.current_theme != last ? 1 : 0;
            last = seen.current_theme;
        }
    } };
    constexpr int enough = 200;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds{ 20 };
    for (std::int32_t turn = 0; changes_seen < enough && std::chrono::steady_clock::now() < deadline; ++turn)
        look::load_theme(look::theme_standard + turn % 6);
    stop = true;
    animation.join();
    look::load_theme(look::theme_standard);
    EXPECT_EQ(torn, 0);
    EXPECT_GE(changes_seen, enough);
}

TEST(ThemeThreads, WaitForADrawingBeforeTheColoursChange)
{
    look::load_theme(look::theme_standard);
    std::atomic<bool> started = false;
    std::atomic<bool> done = false;
    std::thread chooser;
    {
        const std::scoped_lock drawing{ core::drawing_lock() };
        chooser = std::thread{ [&] {
            started = true;
            look::load_theme(look::theme_dark);
            done = true;
        } };
        while (!started)
            std::this_thread::yield();
        bool changed_early = false;
        const auto drawn = std::chrono::steady_clock::now() + std::chrono::milliseconds{ 30 };
        while (std::chrono::steady_clock::now() < drawn)
            changed_early = changed_early || done || look::palette().current_theme != look::theme_standard;
        EXPECT_FALSE(changed_early);
    }
    chooser.join();
    EXPECT_EQ(look::palette().current_theme, look::theme_dark);
    look::load_theme(look::theme_standard);
}

TEST(ThemeThreads, MayChangeTheColoursInsideADrawingOfTheirOwn)
{
    const std::scoped_lock outer{ core::drawing_lock() };
    const std::scoped_lock inner{ core::drawing_lock() };
    EXPECT_EQ(look::load_theme(look::theme_dark), look::theme_dark);
    look::load_theme(look::theme_standard);
}

} // namespace
