// The three boxes in which a page is edited: their texts, colours, fonts, scroll positions, wrapping and the
// divider between them.
#pragma once
#include "app/book_session.hpp"
#include "app/main_layout.hpp"
#include "app/wnd/main_controls.hpp"
#include "book/result_rows.hpp"
#include "book/wnd/filelist_editor.hpp"
#include "look/box_look.hpp"
#include "look/wnd/mybox.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace app {

class BoxDesk : public PageDesk, public book::BoxLines {
public:
    // All must outlive the desk. `controls` provides the search query. The editor of the file list counts as
    // a fourth box. `searches_selection` returns whether only the pages selected in the page editor match a
    // search.
    BoxDesk(ovlib::Wnd* parent, MainControls& controls, book::FileListEditor& file_list,
        std::function<bool()> searches_selection);

    bool create();
    // Also puts the divider where `boxes` has it.
    void place(const PageBoxes& boxes);
    void show();
    const PageBoxes& layout() const { return layout_; }
    // Moves the divider below box 1, as far as there is room. Returns its new position.
    int set_divider(int y);

    std::array<look::MyBox*, book::box_count> boxes() { return { &q_box_, &a_box_, &d_box_ }; }
    std::array<const look::MyBox*, book::box_count> boxes() const { return { &q_box_, &a_box_, &d_box_ }; }

    // `page` is the page whose text is in the boxes, or null. True if the wrapping changed: the boxes are new
    // controls then.
    bool set_state(bool read_only, bool wrap, const book::Page* page);
    void repaint();
    // A font that cannot be used leaves the box without one and is recorded in the process log.
    void set_font(std::size_t box, const book::LogFont& record);
    // Removes the selections in the boxes. Then selects the place of `hit`, if it is in a box; null for none.
    void select_hit(const book::SearchHit* hit);
    // The selected text of the box that has the focus; empty if there is none.
    std::wstring focused_selection() const;

    // The index of the box that sends a colour message; nullopt for other controls.
    std::optional<std::size_t> box_of(const ovlib::WndMessage& message) const;
    // Handles such a message with the colours of `page`. False for other controls and without a page.
    bool on_color(ovlib::WndMessage& message, const book::Page* page, look::BoxUse use);

    bool has_edits() const override;
    BoxEdits edits() const override;
    std::optional<std::wstring> file_list_edit() const override;
    void drop_file_list_edit() override { file_list_.clear_modified(); }
    void show(const book::Page& page, bool is_shown_already) override;
    void store_scroll(book::Page& page) const override;
    void mark_clean() override;
    void show_title(const std::wstring& title, bool is_edited) override;
    void apply_theme(book::BookHeader& header) override;
    void apply_divider_and_fonts(book::BookHeader& header) override;
    book::SearchQuery query() const override;

    std::size_t line_of(std::size_t box, std::uint64_t position) const override;
    std::size_t line_count(std::size_t box) const override;
    std::uint64_t line_start(std::size_t box, std::size_t line) const override;
    std::optional<std::wstring> unwrapped_text(std::size_t box) const override;

private:
    void place_boxes();
    void restore_scroll(const book::Page& page);
    void bring_lost_boxes_back(bool read_only, bool wrap, const book::Page* page);

    ovlib::Wnd* parent_;
    MainControls& controls_;
    book::FileListEditor& file_list_;
    std::function<bool()> searches_selection_;
    PageBoxes layout_;
    look::QBox q_box_;
    look::ABox a_box_;
    look::DBox d_box_;
    std::array<ovlib::GDI::Brush, book::box_count> brushes_;
};

// Sets the colours of a control in its colour message. The system does not take over the brush, so `brush`
// must live until the next such message.
bool answer_colors(ovlib::WndMessage& message, look::BoxColors colors, ovlib::GDI::Brush& brush);

} // namespace app
