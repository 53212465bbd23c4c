// How far long work has come, told on a terminal and nowhere else.
#pragma once
#include "tools/bok/streams.hpp"
#include <chrono>
#include <cstdint>
#include <string_view>

namespace bok {

// One line on the error stream, rewritten in place and gone at the end. Short work shows nothing.
class Progress {
public:
    // `label` has to outlive the object.
    Progress(Streams& streams, std::string_view label);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    // `done` of `total`; cheap enough to be called for every page.
    void show(std::uint64_t done, std::uint64_t total);
    // Work whose steps cannot be seen from here: shows the label alone, at once.
    void announce();
    // Takes the line away, so that other words find their place.
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
