// What OK in the settings window changes.
#pragma once
#include "app/book_session.hpp"
#include "core/settings.hpp"
#include "look/settings_view.hpp"
#include <cstdint>
#include <string>

namespace app {

inline constexpr wchar_t sort_failure[] = L"ソート条件の変更に失敗しました．";

// The Book whose settings the window shows. Another one may be open when the user presses OK.
struct BookNote {
    std::wstring path;
    std::uint64_t revision = 0;

    friend bool operator==(const BookNote&, const BookNote&) = default;
};
BookNote note_book(const book::Book& book);

// Stores the choice in the Book and in `settings`. If the pages of a sorted Book get another order, the user
// is asked about edits first. The old sort key is kept if edits cannot be saved, or if the pages cannot be
// ordered by the new one, which is reported: a Book with a key that fails could not be opened again. Fails,
// and stores nothing, if the open Book is not the one of `asked`.
core::Outcome apply_settings(BookSession& session, core::Settings& settings, const BookNote& asked,
    const look::SettingsChoice& choice);

} // namespace app
