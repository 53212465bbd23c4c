// Commands for the web.
#include "app/mail_link.hpp"
#include "app/menus.hpp"
#include "app/wnd/main_commands.hpp"
#include "app/wnd/popup_menu.hpp"
#include "core/passed_object.hpp"
#include "media/wnd/shell_open.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace app::commands {

using core::Outcome;

Outcome show_web_menu(MainParts& parts, const CommandInput&)
{
    show_menu(parts, web_menu({}), menu_flags::web, ovlib::mouse_on_screen());
    return Outcome::done;
}

Outcome write_mail(MainParts& parts, const CommandInput& input)
{
    const auto* address = core::PassedObject::find<std::wstring>(input.lparam);
    if (!address)
        return Outcome::failed;
    if (!media::open_by_shell(parts.window.hwnd(), mail_link(*address, L"", L"")))
        parts.talk.tell(mail_failure, BoxStyle::warning);
    return Outcome::done;
}

} // namespace app::commands
