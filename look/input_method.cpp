#include "look/input_method.hpp"

namespace look {

void open_on_focus(InputMethod& method, bool is_wanted)
{
    if (!is_wanted || !method.acquire())
        return;
    if (!method.is_open())
        method.open();
    method.release();
}

} // namespace look
