// The open document: settings, pages, their display order and the occurrences found on the current page.
#pragma once
#include "book/book_header.hpp"
#include "book/my_exception.hpp"
#include "book/page.hpp"
#include "book/search.hpp"
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace book {

inline constexpr std::size_t page_limit = 100000;
inline constexpr std::int32_t tab_limit = 256;
inline constexpr std::size_t npos = static_cast<std::size_t>(-1);

// Takes a question and answers true for yes.
using AskUser = std::function<bool(const std::wstring& question)>;

// A page without text in these colours, stamped now.
Page empty_page(const PageColors& colors);

// An index is a place in `pages` (stored order); a position is a place in display order. `position_to_index`
// is the only bridge. Used on one thread.
class Book {
public:
    // Raised when a page more would pass `page_limit`. Not fatal: the Book stays as it was.
    class PageCountOver : public MyException {
    public:
        PageCountOver();
    };

    void clear();

    // The stored index shown at `position`, or npos past the end. A stale `order` maps to the position
    // itself.
    std::size_t position_to_index(std::uint64_t position) const;
    // The page at header.position as a stored index, or npos.
    std::size_t current_index() const { return position_to_index(header.position); }
    // The same page, or null.
    Page* current_page();
    const Page* current_page() const;

    // Puts `page` at stored place `index`, makes that number the position and sets needs_update. Null past
    // the end. Throws PageCountOver on a full Book, whatever the index.
    Page* insert_page(std::size_t index, Page page);
    // The same with an empty page in these colours, stamped now.
    void new_page(std::size_t index, const PageColors& colors);
    // Erases every page whose selection is exactly `selected`. True if there was one.
    bool remove_selected();
    // The same for the page editor: keeps the position inside, and an emptied Book gets one empty page in
    // these colours.
    bool delete_selected(const PageColors& colors);
    // Puts the selected pages before stored place `index`, in their order. `copy`: copies of them, which are
    // `pasted`. `cut`: the pages themselves, which stay selected. The last of them becomes the position, a
    // stored index. False if `index` is past the end, if no page is selected or if `mode` is none. Throws
    // PageCountOver if pages and selected pages together reach `page_limit`, also for a cut. The Book has not
    // changed when it returns false or throws.
    bool paste_selected(std::size_t index, ClipMode mode);
    // Erases the page at `position` and keeps the position inside. An emptied Book gets one empty page in
    // these colours. False when there is no page there.
    bool remove_page_at(std::uint64_t position, const PageColors& colors);

    // Moves the position by one and returns the page there; null, unmoved, at either end or for direction 0.
    Page* step(int direction);
    // Moves to the nearest page in that direction that matches and returns it, with its hits in `hits`. When
    // none does the position stays and the page there is returned; direction 0 only finds that page's hits.
    // Null without a page.
    Page* find(int direction, const SearchQuery& query);

    // Renumbers tabs and counts tabs and marks. Tabs beyond the limit are dropped.
    void recount();
    // The first stored page with this tab number; null for none and for 0. Right after a recount it costs
    // nothing.
    Page* page_of_tab(std::uint64_t number);
    // Exchanges two stored pages. Both indices must be valid.
    void swap_pages(std::size_t first, std::size_t second);

    // When needs_update is set: clears it, drops the hits, recounts and rebuilds the order.
    void refresh_counts();
    // Throws std::out_of_range for a stamp of fewer than 14 characters under the key `modified`.
    void rebuild_order();

    // False with the reason in `error`. Takes the path by value: loading clears the Book's own path, and an
    // entry of the history may be erased meanwhile.
    bool load(std::wstring path, std::wstring& error, const AskUser& ask_user);
    // True when the file could be opened for writing. Trims the texts of the pages as it writes them.
    bool save();
    // The same to another file: the path in the file system may differ from `path`, which may be relative to
    // the data root.
    bool save_to(const std::wstring& file);

    BookHeader header;
    std::wstring path; // empty before the first save
    std::vector<Page> pages; // stored order, the order of the file
    std::vector<std::uint64_t>
        order; // stored indices in display order before reversal; empty for the stored order
    std::uint64_t file_size = 0; // bytes, after the last load or save
    std::int32_t tab_count = 0;
    std::vector<std::size_t> tab_indices; // of the pages with tabs, in stored order, at the last recount
    std::int32_t mark_count = 0;
    // Raised by every insertion, removal and exchange of stored pages, by clearing and by loading: a stored
    // index names the same page only while this lasts.
    std::uint64_t revision = 0;
    bool needs_update = false; // pages came or went, or the sort key changed
    std::vector<SearchHit> hits;
};

} // namespace book
