// The picture of each menu item, by command.
#pragma once
#include "core/command_ids.hpp"
#include <array>

namespace app {

namespace command = core::command;

struct BitmapFile {
    int command;
    const wchar_t* file; // in the resource folder, without its extension ".bmp"
};

// Command 2544 has a picture but no menu item yet.
inline constexpr std::array bitmap_files{
    BitmapFile{ command::add_files, L"add_files" },
    BitmapFile{ command::add_page_at_end, L"ins_page_end" },
    BitmapFile{ command::add_dropped_pages, L"add_pages" },
    BitmapFile{ command::backup_book, L"backup" },
    BitmapFile{ command::show_web_viewer, L"chat" },
    BitmapFile{ command::duplicate_file, L"copy" },
    BitmapFile{ command::copy_pages, L"copy" },
    BitmapFile{ command::link_file, L"link" },
    BitmapFile{ command::cut_pages, L"cut" },
    BitmapFile{ command::delete_page, L"trashbox" },
    BitmapFile{ command::delete_pages, L"trashbox" },
    BitmapFile{ command::show_history, L"books" },
    BitmapFile{ command::first_history_entry, L"history" },
    BitmapFile{ command::add_page_here, L"ins_page_cur" },
    BitmapFile{ command::file_removal_menu, L"eraser" },
    BitmapFile{ command::save_always, L"save_file" },
    BitmapFile{ command::save_book_as, L"save_file_as" },
    BitmapFile{ command::first_file, L"topfile_mn" },
    BitmapFile{ command::last_file, L"btmfile_mn" },
    BitmapFile{ command::show_settings, L"gear" },
    BitmapFile{ command::open_book, L"book" },
    BitmapFile{ command::show_book_editor, L"edit" },
    BitmapFile{ command::show_file_in_folder, L"open_folder" },
    BitmapFile{ command::open_reference_folder, L"open_folder" },
    BitmapFile{ command::show_file_list_editor, L"filelist" },
    BitmapFile{ command::show_palette, L"palette" },
    BitmapFile{ command::show_replace, L"replace" },
    BitmapFile{ command::paste_pages, L"paste" },
};

} // namespace app
