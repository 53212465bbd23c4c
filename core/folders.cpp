#include "core/folders.hpp"

namespace core {

Folders folders_below(std::wstring_view data_root)
{
    Folders made;
    made.data_root = data_root;
    made.dat = made.data_root + L"\\dat";
    made.res = made.data_root + L"\\res";
    made.book_backup = made.data_root + L"\\book_backup";
    made.download = made.dat + L"\\download";
    made.shortcut = made.dat + L"\\shortcut";
    made.webview2_profiles = made.dat + L"\\webview2_profiles";
    return made;
}

Folders& folders()
{
    static Folders of_process;
    return of_process;
}

void init_folders(std::wstring_view data_root)
{
    folders() = folders_below(data_root);
}

std::wstring settings_file(const Folders& in)
{
    return in.dat + L"\\pagewick.ini";
}
std::wstring history_file(const Folders& in)
{
    return in.dat + L"\\history.txt";
}
std::wstring custom_colors_file(const Folders& in)
{
    return in.dat + L"\\custom_colors.dat";
}
std::wstring end_of_logon_file(const Folders& in)
{
    return in.data_root + L"\\pagewick_log.txt";
}

} // namespace core
