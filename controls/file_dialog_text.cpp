#include "controls/file_dialog_text.hpp"

namespace ovlib {

namespace {

// Removes and returns the text before the next null; the null is removed too.
std::wstring_view take_text(std::wstring_view& buffer)
{
    const std::wstring_view text = buffer.substr(0, buffer.find(L'\0'));
    buffer.remove_prefix(text.size() == buffer.size() ? text.size() : text.size() + 1);
    return text;
}

} // namespace

std::wstring filter_text(const std::vector<FileFilter>& filters)
{
    std::wstring text;
    for (const FileFilter& filter : filters)
        text += filter.name + L'\0' + filter.pattern + L'\0';
    return text;
}

std::vector<std::wstring> chosen_paths(std::wstring_view buffer, bool multiple)
{
    const std::wstring first{ take_text(buffer) };
    if (first.empty())
        return {};
    // A root such as `C:\` already ends with a separator.
    const std::wstring folder = first.back() == L'\\' ? first : first + L"\\";
    std::vector<std::wstring> paths;
    while (multiple) {
        const std::wstring_view name = take_text(buffer);
        if (name.empty())
            break;
        paths.push_back(folder + std::wstring{ name });
    }
    // A single file is returned as a full path, also with `multiple`.
    if (paths.empty())
        paths.push_back(first);
    return paths;
}

} // namespace ovlib
