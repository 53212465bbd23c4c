// Measures work against a yardstick taken in the same run. A harness of our own: Debian ships Google
// Benchmark for Linux only, and one harness must serve Windows programs under Wine as well.
#pragma once
#include "book/book.hpp"
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace bench {

using Work = std::function<void()>;

// `subject` is held against `yardstick`, against a time measured outside under the name `against`, or against
// nothing but `target_ms`.
struct Case {
    std::string name;
    Work subject;
    std::string against = {}; // what the yardstick is, in words
    Work yardstick = nullptr; // null: taken from outside, if told
    double target_ratio = 0; // greatest subject / yardstick that meets the target; 0: no such target
    double target_ms = 0; // likewise for the bare time
    int rounds = 9; // the median counts
    Work prepare = nullptr; // before every round, not measured
    int repeats = 1; // how often a round does both; times are those of one
};

struct Result {
    std::string name;
    double ms = 0;
    std::string against;
    double yardstick_ms = 0; // 0: not measured
    double target_ratio = 0;
    double target_ms = 0;
};

struct Options {
    std::wstring book; // the big Book's file
    std::wstring scratch; // a file that may be written and is removed
    std::map<std::string, double> outside; // yardsticks measured by the caller: name and milliseconds
    std::vector<std::string> only; // suites to run; empty: all
    bool tab_separated = false;
    bool quietest = false; // the least of the rounds counts, not the median: for a busy machine
};

class Bench {
public:
    explicit Bench(Options options);

    const Options& options() const { return options_; }
    // Loaded at the first call and shared by the suites, which leave it as they found it.
    book::Book& big_book();
    // Runs subject and yardstick in turns, so that both meet the same machine, and prints the medians.
    void run(const Case& work);
    // Prints what was measured otherwise.
    void add(const Result& result);

private:
    Options options_;
    book::Book book_;
    bool has_book_ = false;
};

// Keeps the compiler from dropping the work that made `value`.
inline volatile unsigned char kept = 0;
template <typename Value> void keep(const Value& value)
{
    kept = *reinterpret_cast<const volatile unsigned char*>(&value);
}

struct Suite {
    const char* name;
    void (*run)(Bench&);
};

void run_load_save(Bench& bench);
void run_search(Bench& bench);
void run_order(Bench& bench);
void run_tabs(Bench& bench);
#if defined(_WIN32)
void run_paint(Bench& bench);
void run_start(Bench& bench);
void run_pages(Bench& bench);
void run_typing(Bench& bench);
void run_media(Bench& bench);
void run_links(Bench& bench);
#endif

} // namespace bench
