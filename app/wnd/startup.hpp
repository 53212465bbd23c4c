// How the process comes up and goes down.
#pragma once

namespace app {

// Runs the program between its entry and its end. 0 after a normal run, -1 after a failure, which was told.
int run_application();

} // namespace app
