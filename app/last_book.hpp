// Opens the Book that was open last.
#pragma once
#include <functional>
#include <string>
#include <vector>

namespace app {

struct LastBookSteps {
    // Opens this Book. If it returns false, it has reported the failure and usually removed the path from the
    // history.
    std::function<bool(std::wstring path)> open;
    std::function<bool()> create; // asks the user for the path of a new Book
    std::function<void()> drop_first; // removes the first entry of the history
};

// Tries the history from its first entry on, then a new Book. False if no Book is open afterwards. `history`
// refers to the list that the steps shorten.
bool open_last_book(const std::vector<std::wstring>& history, const LastBookSteps& steps);

} // namespace app
