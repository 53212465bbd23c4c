// A text that an edit control takes over together with its memory must not differ from one that was set.
#include "ovlib/gui/back_buffer.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include <windows.h>
#include <cstddef>
#include <gtest/gtest.h>
#include <psapi.h>
#include <string>

namespace {

using gui::Edit;
using gui::TopWnd;

constexpr LONG many_lines = ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | WS_VSCROLL | WS_HSCROLL;
constexpr int width = 200;
constexpr int height = 120;

std::wstring lines(int count, const std::wstring& line)
{
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += line + L"\r\n";
    return text;
}

struct Bar {
    int min = 0;
    int max = 0;
    int page = 0;
    int pos = 0;

    friend bool operator==(const Bar&, const Bar&) = default;
};

Bar bar_of(const Edit& edit, int which)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(edit.hwnd(), which, &info);
    return { info.nMin, info.nMax, static_cast<int>(info.nPage), info.nPos };
}

class Renewal : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top.create(L"edit"));
        make(set_, 10);
        make(renewed_, 20 + width);
        gui::pump();
    }
    void TearDown() override { top.destroy(); }

    void make(Edit& edit, int left)
    {
        edit.extra_style = many_lines;
        ASSERT_TRUE(edit.create(L""));
        edit.set_limit(0);
        edit.set_tab_stops(4);
        edit.set_rect({ left, 10, left + width, 10 + height }, true);
    }
    // Sets everything that a new text resets: edits, a selection and both scroll positions.
    static void use(Edit& edit)
    {
        edit.set_text(lines(60, std::wstring(80, L'古')));
        edit.set_caret(10);
        edit.send(WM_CHAR, L'x', 1);
        edit.set_selection(3, 9);
        edit.scroll_v_to(20);
        edit.scroll_h_to(40);
        gui::pump();
    }
    std::wstring pixels(const Edit& edit) const
    {
        ovlib::BackBuffer copy;
        EXPECT_TRUE(copy.create(width, height));
        HDC const window = GetWindowDC(edit.hwnd());
        BitBlt(copy.dc().handle(), 0, 0, width, height, window, 0, 0, SRCCOPY);
        ReleaseDC(edit.hwnd(), window);
        ovlib::finish_drawing();
        const auto size = static_cast<std::ptrdiff_t>(copy.stride) * height;
        return { copy.bits, copy.bits + size };
    }
    void expect_same()
    {
        EXPECT_EQ(renewed_.text(), set_.text());
        EXPECT_EQ(renewed_.text_length(), set_.text_length());
        EXPECT_EQ(renewed_.send(EM_GETSEL, 0, 0), set_.send(EM_GETSEL, 0, 0));
        EXPECT_EQ(renewed_.is_modified(), set_.is_modified());
        EXPECT_EQ(renewed_.can_undo(), set_.can_undo());
        EXPECT_EQ(renewed_.limit(), set_.limit());
        EXPECT_EQ(renewed_.send(EM_GETLINECOUNT, 0, 0), set_.send(EM_GETLINECOUNT, 0, 0));
        EXPECT_EQ(renewed_.send(EM_GETFIRSTVISIBLELINE, 0, 0), set_.send(EM_GETFIRSTVISIBLELINE, 0, 0));
        EXPECT_EQ(renewed_.send(EM_POSFROMCHAR, 3, 0), set_.send(EM_POSFROMCHAR, 3, 0));
        EXPECT_EQ(bar_of(renewed_, SB_VERT), bar_of(set_, SB_VERT));
        EXPECT_EQ(bar_of(renewed_, SB_HORZ), bar_of(set_, SB_HORZ));
        gui::pump();
        EXPECT_TRUE(pixels(renewed_) == pixels(set_));
    }
    void expect_same_with(const std::wstring& text)
    {
        use(set_);
        use(renewed_);
        set_.set_text(text);
        renewed_.renew_text(text);
        expect_same();
    }

    TopWnd top;
    Edit set_{ &top, 1 };
    Edit renewed_{ &top, 2 };
};

TEST_F(Renewal, HasTheSameResultAsSetting)
{
    for (const std::wstring& text :
        { std::wstring{}, std::wstring{ L"一行" }, std::wstring{ L"\t印\t二\r\n" }, lines(40, L"短い"),
            lines(3, std::wstring(300, L'長')), lines(40, std::wstring(300, L'長')) }) {
        SCOPED_TRACE(text.size());
        expect_same_with(text);
    }
}

TEST_F(Renewal, EndsAtTheFirstNul)
{
    expect_same_with(std::wstring(L"前\0後", 3));
    expect_same_with(std::wstring(L"\0後", 2));
}

TEST_F(Renewal, LetsTheUserContinue)
{
    for (Edit* edit : { &set_, &renewed_ }) {
        edit->renew_text(L"本文");
        edit->set_caret(1);
        for (int i = 0; i < 50; ++i)
            edit->send(WM_CHAR, L'字', 1);
        EXPECT_EQ(edit->text(), L"本" + std::wstring(50, L'字') + L"文");
        EXPECT_TRUE(edit->is_modified());
        EXPECT_TRUE(edit->can_undo());
        edit->undo();
    }
    expect_same();
    set_.set_text(L"後で");
    renewed_.set_text(L"後で");
    expect_same();
}

TEST_F(Renewal, SetsTheTextOfAOneLineControl)
{
    Edit one{ &top, 3 };
    ASSERT_TRUE(one.create(L"古い"));
    one.set_subclassed(true);
    one.renew_text(L"新しい");
    EXPECT_EQ(one.text(), L"新しい");
    EXPECT_EQ(one.count(WM_SETTEXT), 1);
    EXPECT_EQ(one.count(EM_SETHANDLE), 0);
    EXPECT_EQ(one.caret(), 0);
}

std::size_t held_memory()
{
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.WorkingSetSize;
}

TEST_F(Renewal, ReleasesTheOldMemory)
{
    constexpr std::size_t mebibyte = 1024 * 1024;
    std::wstring text(mebibyte, L'字'); // 2 MiB, of which the control lays out only the first unit
    text[1] = L'\0';
    renewed_.renew_text(text);
    const std::size_t before = held_memory();
    ASSERT_GT(before, 0u);
    for (int i = 0; i < 60; ++i)
        renewed_.renew_text(text);
    EXPECT_LT(held_memory(), before + 60 * mebibyte);
}

} // namespace
