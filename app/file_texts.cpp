#include "app/file_texts.hpp"

namespace app {

std::wstring duplicated_text(const std::wstring& source, const std::wstring& copy)
{
    return L"ファイルを複製しました．\r\n\r\nFrom:\r\n" + source + L"\r\n\r\nTo:\r\n" + copy;
}

std::wstring open_file_failure(const std::wstring& entry)
{
    return L"Error: ファイルを開けませんでした.\r\n" + entry;
}

std::wstring show_in_folder_failure(const std::wstring& path)
{
    return L"Error: ファイルの場所を開けませんでした.\r\n" + path;
}

std::wstring open_folder_failure(const std::wstring& folder)
{
    return L"ライブラリを開けませんでした．\r\n" + folder;
}

} // namespace app
