#include "bench/harness.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <stdexcept>

namespace bench {

namespace {

double milliseconds_of(const Work& work, int repeats)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < repeats; ++i)
        work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count() / repeats;
}

double median(std::vector<double> times)
{
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

// Subject and yardstick alternate within every round, so that a change in the machine's load meets both.
Result measure(const Case& work, const Options& options)
{
    const auto typical = [&](const std::vector<double>& times) {
        return options.quietest ? *std::ranges::min_element(times) : median(times);
    };
    Result result{ work.name, 0, work.against, 0, work.target_ratio, work.target_ms };
    std::vector<double> subject;
    std::vector<double> yardstick;
    for (int round = 0; round < work.rounds; ++round) {
        if (work.prepare)
            work.prepare();
        subject.push_back(milliseconds_of(work.subject, work.repeats));
        if (work.yardstick)
            yardstick.push_back(milliseconds_of(work.yardstick, work.repeats));
    }
    result.ms = typical(subject);
    if (work.yardstick)
        result.yardstick_ms = typical(yardstick);
    else if (const auto told = options.outside.find(work.against); told != options.outside.end())
        result.yardstick_ms = told->second;
    return result;
}

const char* verdict(const Result& result)
{
    const bool has_ratio = result.target_ratio > 0 && result.yardstick_ms > 0;
    if (!has_ratio && result.target_ms <= 0)
        return "-";
    const bool ratio_met = !has_ratio || result.ms <= result.target_ratio * result.yardstick_ms;
    const bool time_met = result.target_ms <= 0 || result.ms <= result.target_ms;
    return ratio_met && time_met ? "met" : "missed";
}

std::string number(const char* format, double value, bool is_known)
{
    char text[32] = "-";
    if (is_known)
        std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string target_text(const Result& result)
{
    std::string text = number("%.2fx", result.target_ratio, result.target_ratio > 0);
    if (result.target_ms > 0)
        text = (result.target_ratio > 0 ? text + ", " : "") + number("%g ms", result.target_ms, true);
    return text;
}

void print(const Result& result, bool tab_separated)
{
    const bool has_yardstick = result.yardstick_ms > 0;
    const char* const format = tab_separated ? "%s\t%s\t%s\t%s\t%s\t%s\t%s\n"
                                             : "%-42s %10s ms   %-34s %10s ms  %8s  target %-12s %s\n";
    std::printf(format, result.name.c_str(), number("%.3f", result.ms, true).c_str(),
        result.against.empty() ? "-" : result.against.c_str(),
        number("%.3f", result.yardstick_ms, has_yardstick).c_str(),
        number("%.3f", has_yardstick ? result.ms / result.yardstick_ms : 0, has_yardstick).c_str(),
        target_text(result).c_str(), verdict(result));
    std::fflush(stdout);
}

} // namespace

Bench::Bench(Options options)
    : options_(std::move(options))
{
}

book::Book& Bench::big_book()
{
    if (!has_book_) {
        std::wstring error;
        if (!book_.load(options_.book, error, [](const std::wstring&) { return false; }))
            throw std::runtime_error(platform::to_utf8(error));
        has_book_ = true;
    }
    return book_;
}

void Bench::run(const Case& work)
{
    print(measure(work, options_), options_.tab_separated);
}

void Bench::add(const Result& result)
{
    print(result, options_.tab_separated);
}

void expect(bool holds)
{
    if (!holds)
        throw std::runtime_error("the work was not done");
}

} // namespace bench
