#include "core/titles.hpp"
#include "platform/path_text.hpp"

namespace core {

std::wstring version_text(std::uint32_t version)
{
    std::wstring text = std::to_wstring(version);
    if (text.size() < 2)
        text.insert(0, 2 - text.size(), L'0');
    return text.insert(text.size() - 2, L".");
}

std::wstring message_caption(std::wstring_view book_path)
{
    std::wstring caption{ program_name };
    caption.append(L" v").append(version_text(program_version));
    if (!book_path.empty())
        caption.append(L" - ").append(platform::path_stem(book_path));
    return caption;
}

std::wstring about_text()
{
    return message_caption({}) + L"\r\nby the Pagewick developers";
}

std::wstring title_text(std::wstring_view book_path, TitleState state, std::wstring_view extra)
{
    std::wstring title;
    if (state.needs_update)
        title = L"Book needs update";
    else if (book_path.empty())
        title = L"No Title";
    else
        title.append(platform::path_stem(book_path)).append(state.changed ? L" *" : L"");
    return title.append(extra);
}

} // namespace core
