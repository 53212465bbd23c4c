// The settings on disk.
#pragma once

namespace app {

// From "pagewick.ini" into settings().
void load_settings();
// The other way. A file that cannot be written stays as it is, without a word.
void store_settings();

} // namespace app
