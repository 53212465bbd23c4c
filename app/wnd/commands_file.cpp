// Commands on the current page's files and reference folder.
#include "app/file_actions.hpp"
#include "app/file_texts.hpp"
#include "app/menus.hpp"
#include "app/wnd/main_commands.hpp"
#include "app/wnd/popup_menu.hpp"
#include "app/wnd/shell_folders.hpp"
#include "core/command_ids.hpp"
#include "core/data_root.hpp"
#include "core/settings.hpp"
#include "media/display_name.hpp"
#include "media/system_paths.hpp"
#include "media/wnd/shell_link.hpp"
#include "media/wnd/shell_open.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "platform/file.hpp"

namespace app {

namespace {

// Acts only while the entry that was searched for is still selected. Boxes and the shell's own search
// dispatch messages, so the page and the selection can change meanwhile.
class MovedFileTalk : public media::SearchTalk {
public:
    explicit MovedFileTalk(MainParts& parts)
        : parts_(parts)
        , asked_(note_entry(parts.session.book()))
    {
    }
    void warn(const std::wstring& text) override { parts_.talk.tell(text, BoxStyle::warning); }
    bool ask(const std::wstring& text) override { return parts_.talk.ask(text, BoxStyle::question); }
    void offer_removal() override
    {
        if (is_still_there())
            parts_.window.send_command(core::command::remove_file, 0, 0);
    }
    bool replace_entry(const std::wstring& found) override
    {
        if (!is_still_there() || !app::replace_entry(parts_.session.book(), *asked_, found))
            return false;
        parts_.session.note_content_change();
        const auto row = static_cast<int>(asked_->place);
        parts_.controls.file_combo().replace(row, media::display_name(found), true);
        return true;
    }

private:
    bool is_still_there() const
    {
        return asked_ && !parts_.talk.is_gone() && is_same(*asked_, parts_.session.book());
    }

    MainParts& parts_;
    std::optional<EntryNote> asked_;
};

} // namespace

namespace commands {

namespace command = core::command;
using core::Outcome;
using core::outcome_of;

Outcome show_file_menu(MainParts& parts, const CommandInput&)
{
    const book::Page* page = parts.session.book().current_page();
    if (!page)
        return Outcome::failed;
    FileMenuState state;
    state.entry_count = page->files.size();
    state.is_file_list_editor_open = parts.file_list_editor.is_open();
    state.interpolation_command = core::settings().interpolation_command;
    if (const std::wstring* entry = book::selected_entry(*page)) {
        core::set_current_directory(L"");
        state.entry = *entry;
        state.entry_name = media::display_name(*entry, parts.path_answers);
        state.is_entry_file = parts.path_answers.kind_of(*entry) == platform::PathKind::regular_file;
    }
    show_menu(parts, file_menu(state), menu_flags::file, ovlib::mouse_on_screen());
    return Outcome::done;
}

// If it is open already, it is only filled again.
Outcome show_file_list_editor(MainParts& parts, const CommandInput&)
{
    if (parts.file_list_editor.is_open())
        parts.session.merge(static_cast<core::RefreshMask>(core::View::file_list_editor));
    else
        parts.file_list_editor.show(true);
    return Outcome::done;
}

Outcome choose_file_in_combo(MainParts& parts, const CommandInput&)
{
    return app::select_file(parts.session, parts.controls.file_combo().selected());
}

// The refresh mask of this command leaves out the combo box, which needs no refill. Only its selection
// changes, here.
Outcome select_file(MainParts& parts, const CommandInput& input)
{
    const Outcome outcome = select_file_by(parts.session, input.id);
    if (outcome == Outcome::done)
        parts.controls.file_combo().select(
            static_cast<int>(parts.session.book().current_page()->current_file));
    return outcome;
}

Outcome move_file(MainParts& parts, const CommandInput& input)
{
    return app::move_file(parts.session, input.id);
}

Outcome sort_files(MainParts& parts, const CommandInput& input)
{
    return app::sort_files(parts.session, input.id);
}

Outcome add_files(MainParts& parts, const CommandInput&)
{
    const std::vector<std::wstring> added = app::add_files(parts.session, [&parts] {
        ovlib::modern::FileOpenDialog dialog{ &parts.window };
        dialog.set_title(add_files_title);
        dialog.allow_multiple(true);
        return parts.talk.choose_paths(dialog);
    });
    if (added.empty())
        return Outcome::failed;
    parts.links.start_shortcut_creation_async(added);
    return Outcome::done;
}

Outcome add_dropped_files(MainParts& parts, const CommandInput&)
{
    const std::vector<std::wstring> added = app::add_dropped_files(parts.session, parts.drops.take_paths());
    if (added.empty())
        return Outcome::failed;
    parts.links.start_shortcut_creation_async(added);
    return Outcome::done;
}

Outcome remove_file(MainParts& parts, const CommandInput&)
{
    return app::remove_file(parts.session);
}

Outcome remove_all_files(MainParts& parts, const CommandInput&)
{
    return app::remove_all_files(parts.session);
}

Outcome duplicate_file(MainParts& parts, const CommandInput&)
{
    return app::duplicate_file(
        parts.session, [&parts](const std::wstring& source) { return parts.talk.choose_copy(source); });
}

Outcome search_moved_file(MainParts& parts, const CommandInput&)
{
    if (!may_change_list(parts.session))
        return Outcome::failed;
    const book::Page* page = parts.session.book().current_page();
    if (!page)
        return Outcome::failed;
    core::set_current_directory(L"");
    media::ShellLink link{ parts.window.hwnd() };
    media::HashedLinkNames names{ link_folder() + L"\\" };
    media::SystemPaths paths;
    MovedFileTalk talk{ parts };
    const std::wstring* entry = book::selected_entry(*page);
    const std::wstring searched = entry ? *entry : std::wstring{};
    return outcome_of(media::search_moved_file(searched, { link, names, paths, talk }));
}

Outcome show_viewer(MainParts& parts, const CommandInput&)
{
    parts.file_view.open_viewer();
    return Outcome::done;
}

// An existing file is opened by its full path: for a bare name the shell would also search the system's
// programs.
Outcome open_file(MainParts& parts, const CommandInput&)
{
    const std::optional<EntryNote> asked = note_entry(parts.session.book());
    if (!asked)
        return Outcome::failed;
    core::set_current_directory(L"");
    const bool is_there = platform::exists(asked->text);
    if (media::open_by_shell(parts.window.hwnd(), is_there ? core::full_path(asked->text) : asked->text))
        return Outcome::done;
    parts.talk.tell(open_file_failure(asked->text), BoxStyle::warning);
    return Outcome::failed;
}

Outcome show_file_in_folder(MainParts& parts, const CommandInput&)
{
    const std::optional<EntryNote> asked = note_entry(parts.session.book());
    if (!asked)
        return Outcome::failed;
    core::set_current_directory(L"");
    const std::wstring path = media::full_entry(asked->text);
    if (media::show_in_folder(parts.window.hwnd(), path))
        return Outcome::done;
    parts.talk.tell(show_in_folder_failure(path), BoxStyle::warning);
    return Outcome::failed;
}

Outcome choose_interpolation(MainParts& parts, const CommandInput& input)
{
    core::settings().interpolation_command = input.id;
    parts.file_view.scale_anew();
    return Outcome::done;
}

Outcome show_folder_menu(MainParts& parts, const CommandInput&)
{
    const book::Page* page = parts.session.book().current_page();
    if (!page)
        return Outcome::failed;
    show_menu(
        parts, folder_menu(!page->reference_folder.empty()), menu_flags::folder, ovlib::mouse_on_screen());
    return Outcome::done;
}

Outcome open_folder(MainParts& parts, const CommandInput&)
{
    const book::Page* page = parts.session.book().current_page();
    if (!page)
        return Outcome::failed;
    const std::wstring folder = page->reference_folder;
    core::set_current_directory(L"");
    if (media::open_by_shell(parts.window.hwnd(), folder))
        return Outcome::done;
    parts.talk.tell(open_folder_failure(folder), BoxStyle::plain);
    return Outcome::failed;
}

Outcome choose_folder(MainParts& parts, const CommandInput&)
{
    return app::choose_folder(parts.session, [&parts] {
        const std::wstring folder = parts.session.book().current_page()->reference_folder;
        ovlib::modern::FolderOpenDialog dialog{ &parts.window };
        dialog.set_title(choose_folder_title);
        dialog.set_folder(folder.empty() ? desktop_folder() : folder);
        return parts.talk.choose_paths(dialog);
    });
}

Outcome clear_folder(MainParts& parts, const CommandInput&)
{
    return app::clear_folder(parts.session);
}

} // namespace commands

} // namespace app
