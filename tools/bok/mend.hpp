// Repairs pages that a Book in memory can hold but its file cannot.
#pragma once
#include "book/page.hpp"
#include <functional>
#include <string>

namespace bok {

// Changes everything that would come back from a saved file differently: a missing or short stamp becomes the
// current time, and separators that would end a field are removed. Calls `tell` with each change. Throws
// Problem for a page that cannot come from a Book's file.
void mend_page(book::Page& page, const std::function<void(const std::string&)>& tell);

} // namespace bok
