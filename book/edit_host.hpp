// The session of the open Book, as the windows that edit its pages see it.
#pragma once
#include "book/page_editor.hpp"
#include "book/replace.hpp"
#include <cstddef>
#include <cstdint>
#include <optional>

namespace book {

enum class EditEnd { unchanged, save, restore };

// Nothing is thrown: failures are reported to the user. Each call refreshes the main window and may dispatch
// messages. Afterwards the caller's window may be closed or destroyed.
class EditHost {
public:
    virtual ~EditHost() = default;

    // False while the main window shows a box or a dialog: whatever changed now, its command would go on with
    // something else than it asked about.
    virtual bool accepts_input() const = 0;

    // The number of replacements; nullopt if nothing was done.
    virtual std::optional<std::size_t> replace_in_all_pages(const ReplaceRequest& request) = 0;
    virtual std::optional<std::size_t> replace_in_current_page(const ReplaceRequest& request) = 0;

    // After the user said yes to the request.
    virtual EditResult paste_pages(PageEditor& editor, const PasteRequest& request) = 0;
    virtual EditResult delete_pages(PageEditor& editor, const DeleteRequest& request) = 0;
    // Goes to a position in display order; nullopt stays.
    virtual void show_position(std::optional<std::uint64_t> position) = 0;

    // Loads the Book's file again. False if that was not done: memory still has the changes.
    virtual bool restore_pages() = 0;
    // The same, and resets the page editor.
    virtual bool restore_pages(PageEditor& editor) = 0;
    // After the window was closed. False if the changes should be discarded and could not be: the window must
    // be shown again, unless the program ends.
    virtual bool end_editing(EditEnd end) = 0;
};

} // namespace book
