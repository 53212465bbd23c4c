// Titles and messages of the commands on files and folders.
#pragma once
#include <string>

namespace app {

inline constexpr wchar_t add_files_title[] = L"ファイルの選択";
inline constexpr wchar_t duplicate_title[] = L"ファイルの保存先を指定してください";
inline constexpr wchar_t attachment_title[] = L"保存先を指定してください";
inline constexpr wchar_t choose_folder_title[] = L"ライブラリの選択";

std::wstring duplicated_text(const std::wstring& source, const std::wstring& copy);
std::wstring open_file_failure(const std::wstring& entry);
std::wstring show_in_folder_failure(const std::wstring& path);
std::wstring open_folder_failure(const std::wstring& folder);

} // namespace app
