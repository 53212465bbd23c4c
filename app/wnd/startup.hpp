// Start and end of the process.
#pragma once

namespace app {

// Runs the program. 0 after a normal run, -1 after a failure, which was reported to the user.
int run_application();

} // namespace app
