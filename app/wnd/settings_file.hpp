// The settings on disk.
#pragma once

namespace app {

// Reads "pagewick.ini" into settings().
void load_settings();
// Writes settings() to that file. If it cannot be written, it is left as it is without a message.
void store_settings();

} // namespace app
