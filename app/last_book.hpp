// Opening the Book that was open last.
#pragma once
#include <functional>
#include <string>
#include <vector>

namespace app {

struct LastBookSteps {
    // Opens this Book; on false it has told the user and usually dropped the path from the history.
    std::function<bool(std::wstring path)> open;
    std::function<bool()> create; // asks the user for the place of a new Book
    std::function<void()> drop_first; // takes the first entry off the history
};

// Tries the history from its first entry, then a new Book. False when there is no Book at the end. `history`
// is live: the steps shorten it.
bool open_last_book(const std::vector<std::wstring>& history, const LastBookSteps& steps);

} // namespace app
