// The window of the search results.
#include "book/page.hpp"
#include "book/wnd/book_search_result_wnd.hpp"
#include "core/command_ids.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_input.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <memory>

namespace {

using book::RefillCause;
using book::SearchHit;

constexpr int choose_result = core::command::choose_result;

// Every line of a box has ten units.
class TenUnitLines final : public book::BoxLines {
public:
    std::size_t line_of(std::size_t, std::uint64_t position) const override
    {
        return static_cast<std::size_t>(position / 10);
    }
    std::size_t line_count(std::size_t) const override { return 100'000; }
    std::uint64_t line_start(std::size_t, std::size_t line) const override { return line * 10; }
};

class ResultsWindow : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top_.create(L"top"));
        top_.answer = [this](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND && LOWORD(message.wparam) == choose_result) {
                const auto* hit = reinterpret_cast<const SearchHit*>(message.lparam);
                EXPECT_TRUE(!hit || hit == &window_.chosen());
                chosen_.push_back(hit ? *hit : SearchHit{});
                const auto react = std::exchange(reaction_, {});
                if (react)
                    react();
                return true;
            }
            return false;
        };
        top_.show(true);
        ASSERT_TRUE(gui::point_at({ 900, 700 }));
        book_.clear();
    }
    ~ResultsWindow() override { top_.destroy(); }

    void show_hits(std::vector<SearchHit> hits)
    {
        book_.hits = std::move(hits);
        window_.show(true);
        ASSERT_TRUE(gui::pump_until([&] { return GetFocus() == list().hwnd(); }));
    }
    const look::MyVirtualList& list() const { return window_.list(); }
    std::vector<std::wstring> cells(int row) const
    {
        std::vector<std::wstring> texts;
        for (int column = 0; column < 4; ++column)
            texts.push_back(list().cell_text(row, column));
        return texts;
    }
    std::vector<SearchHit> take_chosen() { return std::exchange(chosen_, {}); }
    POINT row_place(int row) const
    {
        RECT rect{ LVIR_LABEL, 0, 0, 0 };
        SendMessageW(
            list().hwnd(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
        return gui::on_screen(list(), { rect.left + 4, (rect.top + rect.bottom) / 2 });
    }
    static void press(WORD key)
    {
        gui::press_key(key);
        gui::pump_until([&] { return GetAsyncKeyState(key) >= 0; });
        gui::pump();
    }

    using Hits = std::vector<SearchHit>;
    const Hits three_{ { L"猫", 100, 12, 13 }, { L"猫", 101, 3, 4 }, { L"犬", 201, 5, 6 } };
    const SearchHit first_{ L"", 100, 12, 13 };
    const SearchHit second_{ L"", 101, 3, 4 };
    const SearchHit third_{ L"", 201, 0, 0 };

    const gui::Look look_;
    book::Book book_;
    TenUnitLines lines_;
    gui::TopWnd top_;
    std::vector<SearchHit> gone_to_;
    book::BookSearchResultWnd window_{ &top_, 0,
        { book_, lines_,
            [] {
                return RECT{ 400, 100, 900, 700 };
            },
            [this](const SearchHit& hit) { gone_to_.push_back(hit); } } };
    std::vector<SearchHit> chosen_;
    std::function<void()> reaction_; // to the next choice
};

TEST_F(ResultsWindow, HasItsClassAndClientSizeAndOpensOverItsGround)
{
    EXPECT_EQ(window_.hwnd(), nullptr) << "it is created at its first opening";
    show_hits({});
    wchar_t name[64] = {};
    GetClassNameW(window_.hwnd(), name, 64);
    EXPECT_EQ(std::wstring(name), L"ovlib_book_search_result_wnd[35]");
    EXPECT_EQ(window_.client_size().cx, 300);
    EXPECT_EQ(window_.client_size().cy, 300);
    const RECT place = window_.rect();
    EXPECT_NEAR((place.left + place.right) / 2, 650, 1);
    EXPECT_NEAR((place.top + place.bottom) / 2, 400, 1);
    EXPECT_TRUE(GetWindowLongW(window_.hwnd(), GWL_STYLE) & WS_THICKFRAME);
    EXPECT_EQ(GetWindow(window_.hwnd(), GW_OWNER), top_.hwnd());
}

TEST_F(ResultsWindow, KeepsPlaceSizeAndColumnsWhenItIsOpenedAgain)
{
    show_hits(three_);
    window_.move(120, 130, false);
    window_.resize(420, 380, true);
    const auto set_width = [&](int column, int width) {
        SendMessageW(list().hwnd(), LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), width);
    };
    set_width(0, 140);
    set_width(3, 170);
    window_.show(false);
    show_hits(three_);
    const RECT place = window_.rect();
    EXPECT_EQ(place.left, 120);
    EXPECT_EQ(place.top, 130);
    EXPECT_EQ(place.right - place.left, 420);
    EXPECT_EQ(place.bottom - place.top, 380);
    EXPECT_EQ(list().column_width(0), 140);
    EXPECT_EQ(list().column_width(3), 170);
}

TEST_F(ResultsWindow, GivesTheLastColumnTheRestOfItsWidth)
{
    show_hits(three_);
    EXPECT_EQ(list().column_count(), 4);
    const int widths[] = { 80, 60, 60, 100 };
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(list().column_width(column), widths[column]) << column;
    window_.resize(600, 300, true);
    EXPECT_EQ(list().column_width(3), window_.client_size().cx - 200 - GetSystemMetrics(SM_CXVSCROLL));
    EXPECT_EQ(list().size().cx, window_.client_size().cx);
    EXPECT_EQ(list().size().cy, window_.client_size().cy);
}

TEST_F(ResultsWindow, ShowsARowForEachHitAndTheirNumber)
{
    book_.header.position = 6;
    show_hits(three_);
    ASSERT_EQ(list().count(), 3);
    using Cells = std::vector<std::wstring>;
    EXPECT_EQ(cells(0), (Cells{ L"猫", L"Box 1", L"2", L"12-13" }));
    EXPECT_EQ(cells(1), (Cells{ L"猫", L"Box 2", L"1", L"3-4" }));
    EXPECT_EQ(cells(2), (Cells{ L"犬", L"File 2", L"", L"" }));
    EXPECT_EQ(window_.text(), L"p.7 の検索結果  [3件]");
    book_.hits.clear();
    window_.refill(RefillCause::content_changed);
    EXPECT_EQ(list().count(), 0);
    EXPECT_EQ(window_.text(), L"p.7 の検索結果");
}

TEST_F(ResultsWindow, ChoosesTheFirstRowWhenItOpensAndAfterASearch)
{
    show_hits(three_);
    EXPECT_EQ(take_chosen(), Hits{ first_ });
    EXPECT_EQ(list().selected(), 0);
    for (const RefillCause cause : { RefillCause::page_shown, RefillCause::query_changed }) {
        window_.refill(cause);
        EXPECT_EQ(take_chosen(), Hits{ first_ });
        EXPECT_EQ(list().selected(), 0);
    }
}

TEST_F(ResultsWindow, ChoosesNothingWhenOnlyTheContentChanged)
{
    show_hits(three_);
    take_chosen();
    book_.hits.erase(book_.hits.begin());
    window_.refill(RefillCause::content_changed);
    EXPECT_TRUE(take_chosen().empty());
    EXPECT_EQ(list().selected(), -1);
    EXPECT_EQ(list().count(), 2);
}

TEST_F(ResultsWindow, KeepsRowAndScrollPositionWhenEqualHitsComeAgain)
{
    Hits many;
    for (std::uint64_t i = 0; i < 200; ++i)
        many.push_back({ L"語", 100, i, i + 1 });
    show_hits(many);
    press(VK_END);
    ASSERT_EQ(list().selected(), 199);
    const auto top_row = [&] { return SendMessageW(list().hwnd(), LVM_GETTOPINDEX, 0, 0); };
    const LRESULT before = top_row();
    ASSERT_GT(before, 0);
    take_chosen();
    window_.refill(RefillCause::content_changed);
    EXPECT_EQ(list().selected(), 199);
    EXPECT_EQ(top_row(), before);
    EXPECT_TRUE(take_chosen().empty());
    window_.refill(RefillCause::page_shown);
    EXPECT_EQ(list().selected(), 0);
    EXPECT_EQ(top_row(), 0);
}

TEST_F(ResultsWindow, SendsNullWithoutHits)
{
    show_hits(three_);
    take_chosen();
    book_.hits.clear();
    window_.refill(RefillCause::page_shown);
    EXPECT_EQ(take_chosen(), Hits{ SearchHit{} });
    for (const RefillCause cause : { RefillCause::page_shown, RefillCause::content_changed }) {
        window_.refill(cause);
        EXPECT_TRUE(take_chosen().empty()) << "what is selected now, the user selected";
    }
    window_.refill(RefillCause::query_changed);
    EXPECT_EQ(take_chosen(), Hits{ SearchHit{} });
}

TEST_F(ResultsWindow, StillChoosesTheFirstHitWhileClosedButFillsNoRows)
{
    book_.hits = three_;
    window_.refill(RefillCause::query_changed);
    EXPECT_EQ(take_chosen(), Hits{ first_ });
    EXPECT_EQ(window_.hwnd(), nullptr);
    show_hits(three_);
    window_.show(false);
    take_chosen();
    book_.hits = { three_[1] };
    window_.refill(RefillCause::page_shown);
    EXPECT_EQ(take_chosen(), Hits{ second_ });
    EXPECT_EQ(list().count(), 3);
    window_.refill(RefillCause::content_changed);
    EXPECT_TRUE(take_chosen().empty());
    book_.hits.clear();
    window_.refill(RefillCause::page_shown);
    EXPECT_EQ(take_chosen(), Hits{ SearchHit{} });
    show_hits({ three_[2] });
    EXPECT_EQ(list().count(), 1);
    EXPECT_EQ(take_chosen(), Hits{ third_ });
}

TEST_F(ResultsWindow, ChoosesByArrowsAndHomeAndEnd)
{
    show_hits(three_);
    take_chosen();
    press(VK_DOWN);
    EXPECT_EQ(take_chosen(), Hits{ second_ });
    press(VK_END);
    EXPECT_EQ(take_chosen(), Hits{ third_ });
    press(VK_UP);
    EXPECT_EQ(take_chosen(), Hits{ second_ });
    press(VK_HOME);
    EXPECT_EQ(take_chosen(), Hits{ first_ });
    press(VK_HOME);
    EXPECT_TRUE(take_chosen().empty()) << "it is chosen already";
}

TEST_F(ResultsWindow, AClickChoosesARowAlsoTheSelectedOne)
{
    show_hits(three_);
    take_chosen();
    gui::click_at(row_place(2));
    ASSERT_TRUE(gui::pump_until([&] { return !chosen_.empty(); }));
    gui::pump();
    EXPECT_EQ(chosen_.front(), third_);
    take_chosen();
    Sleep(GetDoubleClickTime() + 50); // the next click is no double click
    gui::click_at(row_place(2));
    ASSERT_TRUE(gui::pump_until([&] { return !chosen_.empty(); }));
    EXPECT_EQ(chosen_.back(), third_);
    EXPECT_TRUE(gone_to_.empty());
}

TEST_F(ResultsWindow, EnterAndADoubleClickGoToThePlace)
{
    show_hits(three_);
    press(VK_DOWN);
    press(VK_RETURN);
    EXPECT_EQ(gone_to_, Hits{ second_ });
    gui::click_at(row_place(0));
    gui::click_at(row_place(0));
    ASSERT_TRUE(gui::pump_until([&] { return gone_to_.size() == 2; }));
    EXPECT_EQ(gone_to_.back(), first_);
}

TEST_F(ResultsWindow, EnterWithoutARowGoesNowhere)
{
    show_hits({});
    press(VK_RETURN);
    EXPECT_TRUE(gone_to_.empty());
    EXPECT_TRUE(window_.is_open());
}

TEST_F(ResultsWindow, EscClosesIt)
{
    show_hits(three_);
    press(VK_ESCAPE);
    EXPECT_FALSE(window_.is_open());
    EXPECT_TRUE(gui::pump_until([&] { return GetFocus() == top_.hwnd(); }));
}

TEST_F(ResultsWindow, ARefillDuringAChoiceWaitsForItsEnd)
{
    show_hits(three_);
    take_chosen();
    reaction_ = [&] {
        book_.hits = { three_[1] };
        window_.refill(RefillCause::page_shown);
        EXPECT_EQ(list().count(), 3) << "the list is in its own notification";
    };
    press(VK_DOWN);
    ASSERT_TRUE(gui::pump_until([&] { return list().count() == 1; }));
    EXPECT_EQ(list().selected(), 0);
    EXPECT_EQ(chosen_.back(), second_);
}

TEST_F(ResultsWindow, ReadsRowsBackAndRefusesThoseThatDoNotExist)
{
    show_hits(three_);
    SearchHit hit{ L"old", 7, 8, 9 };
    EXPECT_TRUE(window_.parse_row(0, hit));
    EXPECT_EQ(hit, first_);
    EXPECT_TRUE(window_.parse_row(2, hit));
    EXPECT_EQ(hit, third_);
    for (const int row : { -1, 3, 1 << 30 }) {
        EXPECT_FALSE(window_.parse_row(row, hit)) << row;
        EXPECT_EQ(hit, SearchHit{}) << row;
    }
}

TEST_F(ResultsWindow, ShowsAHundredThousandHitsWithoutStoringRows)
{
    Hits many;
    for (std::uint64_t i = 0; i < 100'000; ++i)
        many.push_back({ L"語", 102, i * 3, i * 3 + 1 });
    show_hits(std::move(many));
    EXPECT_EQ(list().count(), 100'000);
    EXPECT_EQ(window_.text(), L"p.1 の検索結果  [100000件]");
    EXPECT_EQ(list().cell_text(99'999, 3), L"299997-299998");
    EXPECT_EQ(list().cell_text(99'999, 2), L"30000");
    // Not by a key or a click: for them Wine visits each row to deselect it.
    const_cast<look::MyVirtualList&>(list()).select(99'999);
    EXPECT_EQ(take_chosen().back().start, 299'997u);
}

TEST_F(ResultsWindow, FollowsTheThemeWhileOpenAndWhileClosed)
{
    const auto color = [&](UINT message) {
        return static_cast<std::uint32_t>(SendMessageW(list().hwnd(), message, 0, 0));
    };
    show_hits(three_);
    for (std::int32_t theme = look::theme_standard; theme <= look::theme_blue; ++theme) {
        window_.show(theme % 2 == 0);
        look::load_theme(theme);
        look::apply_theme_to_windows();
        window_.show(true);
        EXPECT_EQ(color(LVM_GETBKCOLOR), look::palette().box_back.value) << theme;
        EXPECT_EQ(color(LVM_GETTEXTCOLOR), look::palette().list_text.value) << theme;
        UpdateWindow(list().hwnd());
        const ovlib::ClientDC dc(list());
        EXPECT_EQ(GetPixel(dc.handle(), 200, 250), look::palette().box_back.value) << theme;
    }
}

TEST_F(ResultsWindow, TitlesAndCellsFitTheirColumns)
{
    show_hits({ { L"検索する語", 10'199, 0, 0 }, { L"検索する語", 102, 100'000, 100'010 } });
    const auto fits = [&](const std::wstring& text, int column) {
        const auto width =
            SendMessageW(list().hwnd(), LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text.c_str()));
        EXPECT_LE(width + 12, list().column_width(column)) << column;
    };
    for (int column = 0; column < 4; ++column)
        fits(book::result_columns[static_cast<std::size_t>(column)].title, column);
    fits(L"検索する語", 0);
    fits(L"Box 3", 1);
    fits(L"10001", 2);
    fits(L"100000-100010", 3);
}

TEST_F(ResultsWindow, LosesNoHandlesOverManyOpenings)
{
    book_.hits = three_;
    const auto open_and_close = [&] {
        window_.show(true);
        window_.show(false);
    };
    open_and_close(); // the system keeps what the first opening needs
    const gui::GdiCrowd crowd{ 120 };
    for (int i = 0; i < 250; ++i)
        open_and_close();
    gui::expect_handles_to_spare(20);
}

} // namespace
