// Opens the files that commands read, and refuses unsuitable ones with a clear message.
#pragma once
#include "book/book.hpp"
#include "tools/bok/streams.hpp"
#include <string>

namespace bok {

// Loads an undamaged Book in the current format. Throws Problem for everything else; for older and damaged
// Books the message suggests `convert`.
book::Book open_book(const std::string& path, Streams& streams);

// The flaws that a user may agree to.
enum class Consent { older_format, damaged_header };
using AskConsent = std::function<bool(Consent)>;

// The same, but reads an older format or a damaged header too if `ask` returns true.
book::Book open_any_book(const std::string& path, Streams& streams, const AskConsent& ask);

// The contents of a file, or of the input stream for "-".
std::string read_all(const std::string& path, Streams& streams);

// Throws Problem unless `path` names an ordinary file that can be opened and is not too large.
void check_readable(const std::wstring& path);

} // namespace bok
