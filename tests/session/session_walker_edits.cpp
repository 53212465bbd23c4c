// What the windows that edit pages do, as steps of the walk.
#include "app/edit_actions.hpp"
#include "book/page_editor.hpp"
#include "session_walker.hpp"

namespace session_walk {

Walker::Action Walker::select_pages()
{
    const std::uint32_t states = below(1U << page_limit);
    const auto apply = [states](std::vector<book::Page>& pages) {
        for (std::size_t i = 0; i < pages.size(); ++i)
            pages[i].selected = static_cast<book::PageSelection>(states >> i & 1U);
    };
    return { "select pages " + std::to_string(states), [this, apply] { apply(book().pages); },
        [this, apply] { apply(model_.book.pages); } };
}

Walker::Action Walker::replace_action()
{
    book::ReplaceRequest request;
    request.search = one_in(3) ? any_text() : one_in(2) ? L"a" : any_line();
    request.replacement = one_in(4) ? L"" : any_text();
    request.targets = below(8);
    request.letter_case = one_in(2) ? book::LetterCase::folded : book::LetterCase::exact;
    book::remove_separators(request);
    const bool in_all = one_in(2);
    return { "replace " + visible(request.search) + " by " + visible(request.replacement),
        [this, request, in_all] {
            if (in_all)
                app::replace_in_all_pages(session(), request);
            else
                app::replace_in_current_page(session(), request);
        },
        [this, request, in_all] { model_.replace(request, in_all); } };
}

// The clip stays until pages are pasted or deleted, the selection is given up or the editor opens again,
// whatever else happens meanwhile.
Walker::Action Walker::clip_action()
{
    if (one_in(4))
        return { "clear the selection", [this] { editor_->clear_selection(); },
            [this] { model_.clear_selection(); } };
    const bool cut = one_in(2);
    return { cut ? "cut" : "copy", [this, cut] { cut ? editor_->cut() : editor_->copy(); },
        [this, cut] { model_.set_clip(cut ? book::ClipMode::cut : book::ClipMode::copy); } };
}

Walker::Action Walker::paste_action()
{
    const bool at_end = one_in(2);
    if (model_.clip == book::ClipMode::none || book().pages.size() * 2 > page_limit)
        return clip_action();
    return { at_end ? "paste at the end" : "paste at the position",
        [this, at_end] {
            const auto place = at_end ? book::PastePlace::at_end : book::PastePlace::here;
            if (const auto request = editor_->paste_request(place))
                app::paste_pages(session(), *editor_, *request);
        },
        [this, at_end] { model_.paste(at_end); } };
}

Walker::Action Walker::delete_selected()
{
    return { "delete the selected pages",
        [this] {
            if (const auto request = editor_->delete_request())
                app::delete_pages(session(), *editor_, *request);
        },
        [this] { model_.remove_selected(); } };
}

Walker::Action Walker::edit_window()
{
    switch (below(4)) {
    case 0:
        return { "prepare editing",
            [this] {
                app::prepare_editing(session());
                editor_->reset();
            },
            [this] {
                model_.run([this] { model_.prepare_editing(); }, 0);
                model_.clip = book::ClipMode::none;
            } };
    case 1:
        return { "end editing and save", [this] { app::end_editing(session(), app::EditEnd::save); },
            [this] { model_.run([this] { model_.save(Code::always); }, core::refresh::full); } };
    case 2:
        return { "end editing and restore", [this] { app::end_editing(session(), app::EditEnd::restore); },
            [this] { model_.run([this] { model_.load(std::wstring(model_.path)); }, core::refresh::full); } };
    default:
        return { "end editing", [this] { app::end_editing(session(), app::EditEnd::unchanged); },
            [this] { model_.run([] {}, core::refresh::full); } };
    }
}

Walker::Action Walker::page_editing()
{
    static constexpr std::array<Maker, 8> makers{ &Walker::select_pages, &Walker::select_pages,
        &Walker::replace_action, &Walker::clip_action, &Walker::paste_action, &Walker::paste_action,
        &Walker::delete_selected, &Walker::edit_window };
    return (this->*makers[below(makers.size())])();
}

} // namespace session_walk
