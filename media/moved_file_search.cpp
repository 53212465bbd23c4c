#include "media/moved_file_search.hpp"
#include "media/entry_text.hpp"

namespace media {

namespace {

constexpr wchar_t no_hash[] = L"ハッシュの生成に失敗しました\r\n";

bool is_ready(const MovedFileSearch& with)
{
    if (!with.store.is_ready()) {
        with.talk.warn(L"Shortcut の初期化に失敗しました");
        return false;
    }
    if (!with.names.is_ready()) {
        with.talk.warn(L"Hash の初期化に失敗しました");
        return false;
    }
    return true;
}

// The path's link; empty, after a warning, if it cannot be computed.
std::wstring link_to(const std::wstring& path, const MovedFileSearch& with)
{
    std::optional<std::wstring> link = with.names.link_of(path);
    if (!link)
        with.talk.warn(no_hash + path);
    return link.value_or(L"");
}

// The current path of the file; empty, after a warning, if it was not found.
std::wstring find(const std::wstring& path, const MovedFileSearch& with)
{
    const std::wstring link = link_to(path, with);
    if (link.empty())
        return {};
    if (!with.paths.exists(link)) {
        with.talk.warn(L"ショートカットファイルが見つかりませんでした\r\n" + path);
        with.talk.offer_removal();
        return {};
    }
    std::wstring found = with.store.resolve(link);
    if (!found.empty() && with.paths.exists(found))
        return found;
    with.talk.warn(L"ファイルの探索に失敗しました\r\n" + path);
    return {};
}

// Makes a link for the new path. The old one is kept: links are never deleted.
bool make_link(const std::wstring& found, const MovedFileSearch& with)
{
    const std::wstring link = link_to(found, with);
    if (link.empty())
        return false;
    if (with.store.save(found, link))
        return true;
    with.talk.warn(L"ショートカットの作成に失敗しました\r\n" + link);
    return false;
}

} // namespace

bool search_moved_file(const std::wstring& entry, MovedFileSearch with)
{
    // is_url needs the entry as written: made absolute, an address would look like a path in the current
    // folder.
    const std::wstring path = is_url(entry) ? std::wstring{} : with.paths.absolute(entry);
    if (entry.empty() || path.empty()) {
        with.talk.warn(L"このファイルは探索できません: " + entry);
        return false;
    }
    if (with.paths.exists(path) || !is_ready(with))
        return false;
    const std::wstring found = find(path, with);
    if (found.empty())
        return false;
    if (!with.talk.ask(L"ファイルが見つかりました．リストを更新しますか？\r\n" + found))
        return false;
    return make_link(found, with) && with.talk.replace_entry(found);
}

} // namespace media
