// Shows the progress of long work, on a terminal only.
#pragma once
#include "tools/bok/streams.hpp"
#include <chrono>
#include <cstdint>
#include <string_view>

namespace bok {

// One line on the error stream that is rewritten in place and erased at the end. Short work shows nothing.
class Progress {
public:
    // `label` must outlive the object.
    Progress(Streams& streams, std::string_view label);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    // Shows `done` of `total` in per cent. Cheap enough to call for every page.
    void show(std::uint64_t done, std::uint64_t total);
    // Shows the label alone, at once: for work whose progress is unknown.
    void announce();
    // Erases the line, so that other output can follow.
    void hide();

private:
    using Clock = std::chrono::steady_clock;
    void draw(std::string_view line);

    Streams& streams_;
    std::string_view label_;
    Clock::time_point next_;
    std::uint64_t calls_ = 0;
    std::size_t width_ = 0;
};

} // namespace bok
