// Pages that a Book can hold but not keep.
#pragma once
#include "book/page.hpp"
#include <functional>
#include <string>

namespace bok {

// Changes what a save would not give back as it is: a stamp that is missing or too short becomes the current
// time, and separators that would end a field are removed. Calls `tell` with each change. Throws Problem for
// a page that no Book's file can have given.
void mend_page(book::Page& page, const std::function<void(const std::string&)>& tell);

} // namespace bok
