// The page editor: its range, selection, clip, drag and texts.
#include "book/page_editor.hpp"
#include "book/page_editor_view.hpp"
#include <gtest/gtest.h>

namespace {

using book::Book;
using book::ClipMode;
using book::EditResult;
using book::PageEditor;
using book::PageRange;
using book::PageSelection;
using book::PastePlace;
using book::RangeSide;

constexpr auto none = PageSelection::none;
constexpr auto selected = PageSelection::selected;
constexpr auto pasted = PageSelection::pasted;
constexpr int strip = 370;

class PageEditorTest : public testing::Test {
protected:
    PageEditorTest() { fill(5); }

    void fill(std::size_t count)
    {
        book.clear();
        book.pages.resize(count);
        editor.reset();
    }
    void go_to(std::uint64_t position, bool is_shift_down = false)
    {
        book.header.position = position;
        editor.update(PageEditor::KeepRange::no, is_shift_down);
    }
    // As the refresh of every operation that moves pages does.
    void refresh(bool is_shift_down = false) { go_to(book.header.position, is_shift_down); }
    void follow(std::optional<std::uint64_t> position)
    {
        if (position)
            go_to(*position);
    }
    std::vector<std::size_t> selected_indices() const
    {
        std::vector<std::size_t> indices;
        for (std::size_t i = 0; i < book.pages.size(); ++i)
            if (book.pages[i].selected == selected)
                indices.push_back(i);
        return indices;
    }

    Book book;
    PageEditor editor{ book };
};

using Indices = std::vector<std::size_t>;

TEST_F(PageEditorTest, RangeIsTheCurrentPageAfterAMovement)
{
    go_to(3);
    EXPECT_EQ(editor.range(), (PageRange{ 3, 3 }));
    EXPECT_EQ(editor.range_anchor(), 3u);
}

TEST_F(PageEditorTest, RangeGrowsBothWaysWithShift)
{
    go_to(2);
    go_to(4, true);
    EXPECT_EQ(editor.range(), (PageRange{ 2, 4 }));
    go_to(1, true);
    EXPECT_EQ(editor.range(), (PageRange{ 1, 2 }));
    EXPECT_EQ(editor.range_end(), 1u);
    editor.update(PageEditor::KeepRange::yes, false);
    EXPECT_EQ(editor.range(), (PageRange{ 1, 2 }));
    go_to(0);
    EXPECT_EQ(editor.range(), (PageRange{ 0, 0 }));
}

// The jump led to a page that is another one after the change.
TEST_F(PageEditorTest, ARangeBeginsAnewIfPagesChangeAfterAJump)
{
    go_to(1);
    go_to(3, true);
    follow(editor.jump(RangeSide::first));
    ASSERT_EQ(editor.range(), (PageRange{ 1, 3 }));
    book.pages[3].selected = selected;
    ASSERT_EQ(editor.remove(*editor.delete_request(), {}), EditResult::done);
    refresh();
    EXPECT_EQ(editor.range(), (PageRange{ 1, 1 }));
}

TEST_F(PageEditorTest, FailsToPasteBeyondTheEndAndChangesNothing)
{
    book.pages[0].selected = selected;
    ASSERT_TRUE(editor.copy());
    book.header.position = book.pages.size() + 1;
    const auto request = editor.paste_request(PastePlace::here);
    ASSERT_TRUE(request);
    EXPECT_EQ(editor.paste(*request), EditResult::failed);
    EXPECT_FALSE(editor.has_changed());
    EXPECT_EQ(book.pages.size(), 5u);
}

TEST_F(PageEditorTest, DoesNothingWithoutACurrentPage)
{
    go_to(2);
    book.header.position = 9;
    editor.update(PageEditor::KeepRange::no, false);
    EXPECT_EQ(editor.range_end(), 2u);
    editor.select_current_page(true);
    EXPECT_EQ(editor.selected_count(), 0u);
    book.pages.clear();
    EXPECT_EQ(editor.range(), (PageRange{ 0, 0 }));
    editor.select_range(true);
    editor.jump(RangeSide::first);
    EXPECT_EQ(editor.begin_drag(100, strip), 0u) << "the position is beyond the pages";
}

TEST_F(PageEditorTest, RangeEndsAtTheLastPageThatIsLeft)
{
    go_to(1);
    go_to(4, true);
    book.pages.resize(2);
    EXPECT_EQ(editor.range(), (PageRange{ 1, 1 }));
    editor.select_range(true);
    EXPECT_EQ(selected_indices(), (Indices{ 1 }));
    fill(2);
    go_to(1, true);
    EXPECT_EQ(editor.range(), (PageRange{ 0, 1 }));
}

TEST_F(PageEditorTest, JumpsToBothEndsAndKeepsTheRange)
{
    go_to(1);
    go_to(3, true);
    EXPECT_EQ(editor.jump(RangeSide::last), std::nullopt) << "it is there already";
    EXPECT_EQ(editor.range_anchor(), 1u);
    const auto first = editor.jump(RangeSide::first);
    ASSERT_EQ(first, 1u);
    go_to(*first);
    refresh(); // a second refresh of the same page
    EXPECT_EQ(editor.range(), (PageRange{ 1, 3 }));
    EXPECT_EQ(editor.range_anchor(), 3u);
    const auto last = editor.jump(RangeSide::last);
    ASSERT_EQ(last, 3u);
    go_to(*last);
    EXPECT_EQ(editor.range(), (PageRange{ 1, 3 }));
    EXPECT_EQ(editor.range_anchor(), 1u);
    go_to(2);
    EXPECT_EQ(editor.range(), (PageRange{ 2, 2 })) << "a turn after the jump begins anew";
    go_to(3);
    EXPECT_EQ(editor.range(), (PageRange{ 3, 3 }));
}

TEST_F(PageEditorTest, ResetsTheRangeWithShiftToo)
{
    go_to(1);
    go_to(3, true);
    editor.select_range(true);
    EXPECT_TRUE(editor.is_range_selected());
    editor.reset_range();
    EXPECT_EQ(editor.range(), (PageRange{ 3, 3 }));
    EXPECT_FALSE(editor.is_range_selected());
    EXPECT_EQ(editor.selected_count(), 3u) << "the selection stays";
}

TEST_F(PageEditorTest, MovementUnchecksTheRange)
{
    editor.select_range(true);
    editor.update(PageEditor::KeepRange::yes, false);
    EXPECT_TRUE(editor.is_range_selected());
    go_to(1, true);
    EXPECT_TRUE(editor.is_range_selected());
    go_to(2);
    EXPECT_FALSE(editor.is_range_selected());
}

TEST_F(PageEditorTest, SelectsPageAndRange)
{
    go_to(3);
    editor.select_current_page(true);
    EXPECT_EQ(editor.selected_count(), 1u);
    go_to(1, true);
    book.pages[2].selected = pasted;
    editor.select_range(true);
    EXPECT_EQ(selected_indices(), (Indices{ 1, 2, 3 }));
    editor.select_current_page(false);
    EXPECT_EQ(selected_indices(), (Indices{ 2, 3 }));
    editor.select_range(false);
    EXPECT_EQ(editor.selected_count(), 0u);
}

TEST_F(PageEditorTest, ClearsPastedPagesToo)
{
    book.pages[0].selected = selected;
    book.pages[1].selected = pasted;
    editor.clear_selection();
    EXPECT_EQ(editor.selected_count(), 0u);
    EXPECT_EQ(book.pages[1].selected, none);
}

// The check box names the page on the screen, the range names stored pages.
TEST_F(PageEditorTest, SelectsRangesByStoredIndicesInASortedBook)
{
    book.order = { 4, 3, 2, 1, 0 };
    go_to(0);
    editor.select_current_page(true);
    EXPECT_EQ(selected_indices(), (Indices{ 4 }));
    EXPECT_TRUE(page_editor_view(editor, book).is_page_selected);
    editor.clear_selection();
    go_to(1, true);
    editor.select_range(true);
    EXPECT_EQ(selected_indices(), (Indices{ 0, 1 }));
}

TEST_F(PageEditorTest, SelectingGivesUpThePendingClip)
{
    const auto gives_up = [this](auto select) {
        editor.select_current_page(true);
        EXPECT_TRUE(editor.cut());
        select();
        EXPECT_EQ(editor.clip_mode(), ClipMode::none);
        EXPECT_EQ(editor.paste_request(PastePlace::at_end), std::nullopt);
    };
    gives_up([this] { editor.select_current_page(true); });
    gives_up([this] { editor.select_range(true); });
    gives_up([this] { editor.clear_selection(); });
}

TEST_F(PageEditorTest, ClipNeedsASelection)
{
    EXPECT_FALSE(editor.copy());
    EXPECT_FALSE(editor.cut());
    EXPECT_EQ(editor.clip_mode(), ClipMode::none);
    book.pages[0].selected = pasted;
    EXPECT_FALSE(editor.copy());
    book.pages[0].selected = selected;
    EXPECT_TRUE(editor.copy());
    EXPECT_EQ(editor.clip_mode(), ClipMode::copy);
    EXPECT_TRUE(editor.cut());
    EXPECT_EQ(editor.clip_mode(), ClipMode::cut);
}

TEST_F(PageEditorTest, PastesACopyAndEndsTheClip)
{
    go_to(1);
    editor.select_current_page(true);
    editor.copy();
    const auto request = editor.paste_request(PastePlace::at_end);
    ASSERT_TRUE(request);
    EXPECT_EQ(paste_question(*request), L"コピーした 1 枚のページを位置 [6] に貼付けますか？");
    EXPECT_EQ(editor.paste(*request), EditResult::done);
    EXPECT_EQ(book.pages.size(), 6u);
    EXPECT_EQ(book.header.position, 5u);
    EXPECT_TRUE(editor.has_changed());
    EXPECT_EQ(editor.clip_mode(), ClipMode::none);
    EXPECT_EQ(editor.selected_count(), 1u) << "the copy does not count";
    refresh(true);
    EXPECT_EQ(editor.range(), (PageRange{ 1, 5 })) << "with Shift held";
    refresh();
    EXPECT_EQ(editor.range(), (PageRange{ 5, 5 }));
}

TEST_F(PageEditorTest, PastesACutAtTheCurrentPosition)
{
    book.pages[0].text[0] = L"moved";
    editor.select_current_page(true);
    go_to(4);
    editor.cut();
    const auto request = editor.paste_request(PastePlace::here);
    ASSERT_TRUE(request);
    EXPECT_EQ(paste_question(*request), L"カットした 1 枚のページを位置 [5] に貼付けますか？");
    EXPECT_EQ(editor.paste(*request), EditResult::done);
    EXPECT_EQ(book.pages[3].text[0], L"moved");
    EXPECT_EQ(editor.selected_count(), 1u) << "a cut stays selected";
}

TEST_F(PageEditorTest, PastesNothingThatWasNotAskedAbout)
{
    const auto is_refused = [this](auto change) {
        fill(5);
        book.pages[0].selected = selected;
        go_to(2);
        editor.copy();
        const auto request = editor.paste_request(PastePlace::here);
        ASSERT_TRUE(request);
        change();
        const std::size_t count = book.pages.size();
        EXPECT_EQ(editor.paste(*request), EditResult::none);
        EXPECT_EQ(book.pages.size(), count);
        EXPECT_FALSE(editor.has_changed());
    };
    is_refused([this] { book.header.position = 3; });
    is_refused([this] { book.pages[1].selected = selected; });
    is_refused([this] { book.new_page(5, {}), book.header.position = 2; });
    is_refused([this] { editor.cut(); });
    is_refused([this] { editor.clear_selection(); });
    is_refused([this] { fill(5); });
}

TEST_F(PageEditorTest, ALimitLeavesEverythingAsItWas)
{
    fill(99999);
    editor.select_current_page(true);
    editor.cut();
    const auto request = editor.paste_request(PastePlace::at_end);
    ASSERT_TRUE(request);
    EXPECT_THROW(editor.paste(*request), Book::PageCountOver);
    EXPECT_EQ(editor.clip_mode(), ClipMode::cut);
    EXPECT_FALSE(editor.has_changed());
}

TEST_F(PageEditorTest, DeletesWhatWasAskedAbout)
{
    EXPECT_EQ(editor.delete_request(), std::nullopt);
    go_to(1);
    go_to(4, true);
    editor.select_range(true);
    const auto request = editor.delete_request();
    ASSERT_TRUE(request);
    EXPECT_EQ(delete_question(*request), L"選択した 4 枚のページを削除しますか？");
    book.pages[0].selected = selected;
    EXPECT_EQ(editor.remove(*request, {}), EditResult::none);
    book.pages[0].selected = none;
    EXPECT_EQ(editor.remove(*request, {}), EditResult::done);
    EXPECT_EQ(book.pages.size(), 1u);
    EXPECT_TRUE(editor.has_changed());
    refresh(true);
    EXPECT_EQ(editor.range(), (PageRange{ 0, 0 })) << "with Shift held";
    EXPECT_EQ(editor.remove(*request, {}), EditResult::none);
}

TEST_F(PageEditorTest, LeavesAnEmptyPageWhenAllAreDeleted)
{
    go_to(4, true);
    editor.select_range(true);
    EXPECT_EQ(editor.remove(*editor.delete_request(), {}), EditResult::done);
    EXPECT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.header.position, 0u);
    EXPECT_EQ(editor.selected_count(), 0u);
}

TEST_F(PageEditorTest, ResetKeepsTheSelectionAndCountsIt)
{
    book.pages[1].selected = selected;
    book.pages[2].selected = pasted;
    go_to(1);
    editor.copy();
    editor.paste(*editor.paste_request(PastePlace::here));
    editor.copy();
    editor.begin_drag(0, strip);
    editor.reset();
    EXPECT_FALSE(editor.has_changed());
    EXPECT_FALSE(editor.is_dragging());
    EXPECT_EQ(editor.clip_mode(), ClipMode::none);
    EXPECT_EQ(editor.selected_count(), 1u);
    EXPECT_EQ(editor.range(), (PageRange{ 1, 1 }));
}

TEST_F(PageEditorTest, DragDrawsARange)
{
    go_to(1);
    follow(editor.begin_drag(3 * 74, strip)); // page 3 of 5
    EXPECT_EQ(editor.range(), (PageRange{ 1, 3 })) << "from the page on the screen";
    EXPECT_EQ(editor.drag_to(3 * 74 + 10, strip), std::nullopt) << "still the same page";
    follow(editor.drag_to(1000, strip));
    EXPECT_EQ(editor.range(), (PageRange{ 1, 4 }));
    follow(editor.drag_to(-1000, strip));
    EXPECT_EQ(editor.range(), (PageRange{ 0, 1 }));
    editor.end_drag();
    EXPECT_EQ(editor.drag_to(100, strip), std::nullopt);
    go_to(2);
    EXPECT_EQ(editor.range(), (PageRange{ 2, 2 }));
}

TEST(PositionOnStrip, MapsTheWidthToThePages)
{
    struct Case {
        int x;
        std::size_t pages;
        std::uint64_t position;
    };
    for (const Case& place :
        std::initializer_list<Case>{ { 0, 1, 0 }, { 369, 1, 0 }, { 370, 1, 0 }, { 184, 2, 0 }, { 185, 2, 1 },
            { 369, 2, 1 }, { 0, 370, 0 }, { 1, 370, 1 }, { 200, 370, 200 }, { 369, 370, 369 },
            { 370, 370, 369 }, { 1, 100000, 270 }, { 369, 100000, 99729 }, { 370, 100000, 99999 },
            { 5000, 100000, 99999 }, { -1, 100000, 0 }, { -5000, 2, 0 }, { 9, 0, 0 } })
        EXPECT_EQ(book::position_on_strip(place.x, strip, place.pages), place.position)
            << place.x << " of " << place.pages;
}

TEST_F(PageEditorTest, ViewShowsRangePageAndCount)
{
    go_to(1);
    book::PageEditorView view = page_editor_view(editor, book);
    EXPECT_EQ(view.title, L"ブックエディタ");
    EXPECT_EQ(view.page_label, L"2 を選択");
    EXPECT_FALSE(view.is_page_selected);
    EXPECT_FALSE(view.is_range_selected);
    EXPECT_EQ(view.first, (book::RangeButton{ L"2", none, true }));
    EXPECT_FALSE(view.last.is_visible);
    editor.select_current_page(true);
    book.pages[3].selected = pasted;
    go_to(3, true);
    view = page_editor_view(editor, book);
    EXPECT_EQ(view.title, L"ブックエディタ  [ 1ページ選択中 ]");
    EXPECT_EQ(view.page_label, L"4 を選択");
    EXPECT_FALSE(view.is_page_selected) << "a pasted page is not selected";
    EXPECT_EQ(view.first, (book::RangeButton{ L"2", selected, true }));
    EXPECT_EQ(view.last, (book::RangeButton{ L"4", pasted, true }));
    editor.select_range(true);
    view = page_editor_view(editor, book);
    EXPECT_EQ(view.title, L"ブックエディタ  [ 3ページ選択中 ]");
    EXPECT_TRUE(view.is_page_selected);
    EXPECT_TRUE(view.is_range_selected);
}

TEST(PageEditorMenu, GreysByEveryState)
{
    for (const bool has_selection : { false, true })
        for (const ClipMode mode : { ClipMode::none, ClipMode::copy, ClipMode::cut })
            for (const bool changed : { false, true }) {
                const book::PageMenuState state{ has_selection, mode, changed };
                using ovlib::menu_item;
                using ovlib::menu_separator;
                const bool may_paste = has_selection && mode != ClipMode::none;
                const ovlib::MenuRows expected{
                    menu_item(1059, L"コピー", has_selection && mode != ClipMode::copy),
                    menu_item(1060, L"切取り", has_selection && mode != ClipMode::cut),
                    menu_item(1063, L"削除", has_selection),
                    menu_separator(),
                    menu_item(1061, L"貼付け (末尾)", may_paste),
                    menu_item(1062, L"貼付け (現在の位置)", may_paste),
                    menu_separator(),
                    menu_item(1065, L"選択の取消し", has_selection),
                    menu_item(1008, L"編集の取消し(復元)", changed),
                    menu_separator(),
                    menu_item(1037, L"終了", changed),
                };
                EXPECT_EQ(page_editor_menu(state), expected);
                for (const ovlib::MenuRow& row : expected)
                    EXPECT_EQ(book::may_run_page_command(row.id, state), row.id == 0 || row.enabled);
            }
}

TEST(PageKeys, RunTheirCommands)
{
    using book::PageKey;
    const std::vector<std::pair<PageKey, int>> plain{ { PageKey::left, 1011 }, { PageKey::right, 1010 },
        { PageKey::home, 1012 }, { PageKey::end, 1013 }, { PageKey::space, 1036 }, { PageKey::del, 1063 } };
    const std::vector<std::pair<PageKey, int>> with_ctrl{ { PageKey::c, 1059 }, { PageKey::x, 1060 },
        { PageKey::v, 1062 } };
    for (const auto& [key, id] : plain) {
        EXPECT_EQ(book::page_key_command(key, false), id);
        EXPECT_EQ(book::page_key_command(key, true), 0);
    }
    for (const auto& [key, id] : with_ctrl) {
        EXPECT_EQ(book::page_key_command(key, true), id);
        EXPECT_EQ(book::page_key_command(key, false), 0);
    }
}

TEST(PageEditorPlaces, AreInsideTheWindowAndApart)
{
    namespace place = book::page_editor_place;
    const std::vector<platform::Rect> places{ place::select_page, place::first_page, place::previous_page,
        place::next_page, place::last_page, place::select_range, place::reset_range, place::range_start,
        place::range_end, place::strip, place::trace_selection };
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_GE(places[i].left, 15);
        EXPECT_LE(places[i].right, book::page_editor_client_size.width - 15);
        EXPECT_LE(places[i].bottom, book::page_editor_client_size.height);
        for (std::size_t j = i + 1; j < places.size(); ++j)
            EXPECT_TRUE(places[i].right <= places[j].left || places[j].right <= places[i].left
                || places[i].bottom <= places[j].top || places[j].bottom <= places[i].top)
                << i << " and " << j;
    }
    EXPECT_EQ(place::strip.top, book::page_editor_client_size.height / 2 + 24);
    EXPECT_EQ(place::strip.width(), 370);
    EXPECT_EQ(place::strip.height(), 16);
}

} // namespace
