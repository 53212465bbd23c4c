// The clock of a program under test, which goes on only when it is told to.
#pragma once
#include <string>

namespace session_walk {

void advance_clock(); // by a second
void reset_clock();
std::wstring clock_text(); // 14 digits

} // namespace session_walk
