// Files that commands read, refused with a clear word when they cannot be what they should be.
#pragma once
#include "book/book.hpp"
#include "tools/bok/streams.hpp"
#include <string>

namespace bok {

// Loads a sound Book in the current format. Throws Problem for everything else: older and damaged Books are
// told to go to `convert`.
book::Book open_book(const std::string& path, Streams& streams);

// What a file answers when it is no sound Book.
enum class Consent { older_format, damaged_header };
using AskConsent = std::function<bool(Consent)>;

// The same, but an older format or a damaged header is read when `ask` allows it.
book::Book open_any_book(const std::string& path, Streams& streams, const AskConsent& ask);

// The whole of a file, or of the input stream for "-".
std::string read_all(const std::string& path, Streams& streams);

// Throws Problem unless `path` names an ordinary file that can be opened and is not too large.
void check_readable(const std::wstring& path);

} // namespace bok
