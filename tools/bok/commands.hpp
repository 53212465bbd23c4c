// The commands, one function each. They return the exit code and throw Problem and UsageError.
#pragma once
#include "tools/bok/options.hpp"
#include "tools/bok/streams.hpp"

namespace bok {

int run_info(const Options& options, Streams& streams);
int run_pages(const Options& options, Streams& streams);
int run_order(const Options& options, Streams& streams);
int run_find(const Options& options, Streams& streams);
int run_check(const Options& options, Streams& streams);
int run_convert(const Options& options, Streams& streams);
int run_import(const Options& options, Streams& streams);
int run_export(const Options& options, Streams& streams);

} // namespace bok
