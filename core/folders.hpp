// The folders and files that belong to the program.
#pragma once
#include <string>
#include <string_view>

namespace core {

// Paths without a trailing separator.
struct Folders {
    std::wstring data_root;
    std::wstring dat; // must exist: settings, history, web lists, colours
    std::wstring res; // must exist: bitmaps and images of the interface
    std::wstring book_backup; // created by the backup command
    std::wstring download; // reserved
    std::wstring shortcut; // created by the shortcut worker
    std::wstring webview2_profiles; // created by the browser host
};

Folders folders_below(std::wstring_view data_root);

// The folders of this process. Set once at start-up.
Folders& folders();
void init_folders(std::wstring_view data_root);

std::wstring settings_file(const Folders& in);
std::wstring history_file(const Folders& in);
std::wstring custom_colors_file(const Folders& in);
std::wstring end_of_logon_file(const Folders& in);

} // namespace core
