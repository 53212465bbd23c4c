// Commands that open the windows in which the Book's pages are edited.
#include "app/edit_actions.hpp"
#include "app/wnd/main_commands.hpp"
#include "core/command_ids.hpp"

namespace app::commands {

// The selection is read first: the boxes may be filled again before the window opens.
core::Outcome show_editing_window(MainParts& parts, const CommandInput& input)
{
    const std::wstring selection = parts.desk.focused_selection();
    if (!prepare_editing(parts.session) || parts.talk.is_gone())
        return core::Outcome::failed;
    if (input.id == core::command::show_replace)
        parts.replace_window.open(selection);
    else
        parts.book_editor.open();
    return core::Outcome::done;
}

} // namespace app::commands
