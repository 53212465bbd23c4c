// Commands on the Book as a whole and on the program.
#include "app/menus.hpp"
#include "app/wnd/main_commands.hpp"
#include "app/wnd/popup_menu.hpp"
#include "core/command_ids.hpp"
#include "core/titles.hpp"

namespace app::commands {

namespace command = core::command;
using core::Outcome;
using core::outcome_of;

Outcome create_book(MainParts& parts, const CommandInput&)
{
    return outcome_of(parts.session.create_book());
}

Outcome open_book(MainParts& parts, const CommandInput&)
{
    return outcome_of(parts.session.open_book({}));
}

// For a number beyond the history the path is empty, and open_book asks the user for one.
Outcome open_history_entry(MainParts& parts, const CommandInput& input)
{
    const auto& entries = parts.session.history().entries();
    const auto place = static_cast<std::size_t>(input.id - command::first_history_entry);
    return outcome_of(parts.session.open_book(place < entries.size() ? entries[place] : std::wstring{}));
}

Outcome show_history(MainParts& parts, const CommandInput&)
{
    parts.talk.history_window().show(true);
    return Outcome::done;
}

Outcome save(MainParts& parts, const CommandInput& input)
{
    return outcome_of(parts.session.save(static_cast<SaveCode>(input.id)));
}

Outcome save_as(MainParts& parts, const CommandInput&)
{
    parts.session.save_book_as();
    return Outcome::done;
}

Outcome restore(MainParts& parts, const CommandInput&)
{
    return outcome_of(parts.session.load_book(parts.session.book().path));
}

Outcome back_up(MainParts& parts, const CommandInput&)
{
    std::wstring result;
    parts.session.back_up_book(&result);
    if (!result.empty())
        parts.talk.tell(result, BoxStyle::plain);
    return Outcome::done;
}

Outcome show_book_menu(MainParts& parts, const CommandInput&)
{
    POINT below{ parts.layout.book_button.left, parts.layout.book_button.bottom };
    ClientToScreen(parts.window.hwnd(), &below);
    show_menu(parts, book_menu(parts.desk.has_edits()), menu_flags::book, below);
    return Outcome::done;
}

Outcome about(MainParts& parts, const CommandInput&)
{
    parts.talk.tell(core::about_text(), BoxStyle::plain);
    return Outcome::done;
}

Outcome close_program(MainParts& parts, const CommandInput&)
{
    parts.window.send(WM_CLOSE, 0, 0);
    return Outcome::done;
}

Outcome set_accepting_input(MainParts& parts, const CommandInput& input)
{
    parts.talk.input().set_held(input.lparam == 0);
    return Outcome::done;
}

Outcome request_refresh(MainParts& parts, const CommandInput& input)
{
    parts.session.merge(static_cast<core::RefreshMask>(input.lparam));
    return Outcome::done;
}

Outcome ignore(MainParts&, const CommandInput&)
{
    return Outcome::done;
}

} // namespace app::commands
