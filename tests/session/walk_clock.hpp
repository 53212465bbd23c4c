// The clock of a program under test, which only tests advance.
#pragma once
#include <string>

namespace session_walk {

void advance_clock(); // by a second
void reset_clock();
std::wstring clock_text(); // 14 digits

} // namespace session_walk
