// Measures work against a yardstick of the same run. A harness of our own, because it must also run in
// Windows programs under Wine and Debian ships Google Benchmark for Linux only.
#pragma once
#include "book/book.hpp"
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace bench {

using Work = std::function<void()>;

// `subject` is compared with `yardstick`, with a time that the caller measured under the name `against`, or
// only with `target_ms`.
struct Case {
    std::string name;
    Work subject;
    std::string against = {}; // describes the yardstick
    Work yardstick = nullptr; // null: Options::outside, if it has one
    double target_ratio = 0; // the largest subject / yardstick that meets the target; 0: no such target
    double target_ms = 0; // likewise for the time alone
    int rounds = 9; // the median is printed
    Work prepare = nullptr; // runs before every round, not measured
    int repeats = 1; // repetitions per round; times are per repetition
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
    std::wstring scratch; // a temporary file that is written and removed
    std::map<std::string, double> outside; // yardsticks measured by the caller: name and milliseconds
    std::vector<std::string> only; // suites to run; empty: all
    bool tab_separated = false;
    bool quietest = false; // prints the minimum of the rounds instead of the median, for a busy machine
};

class Bench {
public:
    explicit Bench(Options options);

    const Options& options() const { return options_; }
    // Loaded at the first call and shared by the suites, which must restore what they change.
    book::Book& big_book();
    // Measures a case and prints its row.
    void run(const Case& work);
    // Prints a row that was measured elsewhere.
    void add(const Result& result);

private:
    Options options_;
    book::Book book_;
    bool has_book_ = false;
};

// Throws unless the measured work was done.
void expect(bool holds);

// Keeps the compiler from optimising away the work that produced `value`.
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
void run_edits(Bench& bench);
#if defined(_WIN32)
void run_paint(Bench& bench);
void run_start(Bench& bench);
void run_pages(Bench& bench);
void run_typing(Bench& bench);
void run_media(Bench& bench);
void run_links(Bench& bench);
void run_drops(Bench& bench);
void run_windows(Bench& bench);
#endif

} // namespace bench
