#include "tools/bok/progress.hpp"
#include <ostream>
#include <string>

namespace bok {

namespace {

constexpr std::chrono::milliseconds patience{ 500 }; // before the first line
constexpr std::chrono::milliseconds interval{ 100 }; // between two lines
// Reading the clock for every page would cost more than some commands spend on a page.
constexpr std::uint64_t calls_between_looks = 64;

} // namespace

Progress::Progress(Streams& streams, std::string_view label)
    : streams_(streams)
    , label_(label)
    , next_(Clock::now() + patience)
{
}

Progress::~Progress()
{
    hide();
}

void Progress::hide()
{
    if (width_ > 0)
        streams_.err << '\r' << std::string(width_, ' ') << '\r' << std::flush;
    width_ = 0;
}

void Progress::show(std::uint64_t done, std::uint64_t total)
{
    if (!streams_.err_is_terminal || ++calls_ % calls_between_looks != 0 || Clock::now() < next_)
        return;
    next_ = Clock::now() + interval;
    const std::uint64_t percent = total == 0 ? 100 : done * 100 / total;
    draw(std::string(label_) + ' ' + std::to_string(percent) + " %");
}

void Progress::announce()
{
    if (streams_.err_is_terminal)
        draw(std::string(label_) + " ...");
}

void Progress::draw(std::string_view line)
{
    const std::size_t missing = line.size() < width_ ? width_ - line.size() : 0;
    streams_.err << '\r' << line << std::string(missing, ' ') << std::flush;
    width_ = line.size() + missing;
}

} // namespace bok
