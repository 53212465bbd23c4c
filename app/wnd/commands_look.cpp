// Commands for the look of the pages and of the program, and for its settings.
#include "app/page_actions.hpp"
#include "app/settings_actions.hpp"
#include "app/wnd/main_commands.hpp"
#include "core/folders.hpp"
#include "core/passed_object.hpp"
#include "core/settings.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include <bit>

namespace app {

namespace {

// The settings window is modal: while it is open the main window turns no page, loads no Book, and shows its
// boxes over the settings window.
std::optional<look::SettingsChoice> ask_for_settings(MainParts& parts)
{
    const InputGate::Hold hold{ parts.talk.input() };
    const BoxOwner owner{ parts.talk, parts.settings };
    const std::wstring address = look::read_mail_address(core::folders().dat + L"\\mail_address.txt");
    const auto shown = look::current_settings(parts.session.book().header, core::settings());
    return parts.settings.ask(shown, address);
}

} // namespace

namespace commands {

using core::Outcome;

// The main menu is no box, so its palette starts with the first one.
Outcome show_palette(MainParts& parts, const CommandInput& input)
{
    HWND const sender = reinterpret_cast<HWND>(static_cast<std::intptr_t>(input.lparam));
    parts.palette.show_at_cursor(true, look::palette_box(GetDlgCtrlID(sender)));
    return Outcome::done;
}

Outcome repaint_box(MainParts& parts, const CommandInput& input)
{
    const look::MyBox* box = parts.desk.boxes()[static_cast<std::size_t>(input.code)];
    if (box->hwnd()) // for null the system repaints all windows
        InvalidateRect(box->hwnd(), nullptr, TRUE);
    return Outcome::done;
}

Outcome set_box_font(MainParts& parts, const CommandInput& input)
{
    const auto* font = core::PassedObject::find<LOGFONTW>(input.lparam);
    if (!font)
        return Outcome::failed;
    parts.desk.set_font(static_cast<std::size_t>(input.code), std::bit_cast<book::LogFont>(*font));
    return Outcome::done;
}

Outcome choose_theme(MainParts& parts, const CommandInput& input)
{
    book::BookHeader& header = parts.session.book().header;
    header.theme = input.id;
    parts.desk.apply_theme(header);
    return Outcome::done;
}

Outcome apply_theme_to_pages(MainParts& parts, const CommandInput&)
{
    color_all_pages(parts.session.book(), look::palette());
    parts.desk.repaint();
    return Outcome::done;
}

Outcome show_settings(MainParts& parts, const CommandInput&)
{
    const BookNote asked = note_book(parts.session.book());
    const std::optional<look::SettingsChoice> choice = ask_for_settings(parts);
    if (!choice || parts.talk.is_gone())
        return Outcome::failed;
    const Outcome outcome = apply_settings(parts.session, core::settings(), asked, *choice);
    if (outcome == Outcome::done)
        parts.links.start_shortcut_creation_async();
    return outcome;
}

} // namespace commands

} // namespace app
