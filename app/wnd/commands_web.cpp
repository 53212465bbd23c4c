// Commands for the web.
#include "app/menus.hpp"
#include "app/wnd/main_commands.hpp"
#include "app/wnd/popup_menu.hpp"

namespace app::commands {

core::Outcome show_web_menu(MainParts& parts, const CommandInput&)
{
    show_menu(parts, web_menu({}), menu_flags::web, mouse_on_screen());
    return core::Outcome::done;
}

} // namespace app::commands
