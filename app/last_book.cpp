#include "app/last_book.hpp"

namespace app {

bool open_last_book(const std::vector<std::wstring>& history, const LastBookSteps& steps)
{
    while (!history.empty()) {
        const std::size_t before = history.size();
        if (steps.open(history.front()))
            return true;
        // An entry that is still there would be tried again for ever.
        if (history.size() >= before)
            steps.drop_first();
    }
    return steps.create();
}

} // namespace app
