// Typing into a box that holds a long text.
#include "bench/harness.hpp"
#include "bench/wnd/app_host.hpp"
#include "bench/wnd/plain_edits.hpp"
#include "core/command_ids.hpp"
#include "look/theme.hpp"

namespace bench {

namespace {

constexpr std::size_t characters = 500000;
constexpr int keys = 20; // per round

std::wstring long_text()
{
    constexpr std::wstring_view line =
        L"吾輩は猫である。名前はまだ無い。どこで生れたかとんと見当がつかぬ。\r\n";
    std::wstring text;
    while (text.size() + line.size() <= characters)
        text += line;
    return text;
}

book::Book long_book(bool wraps, const std::wstring& text)
{
    book::Book made;
    made.new_page(0, look::page_colors(look::palette()));
    made.pages.front().text[0] = text;
    made.header.wrap_text = wraps;
    return made;
}

// Puts the caret in the middle of the text and scrolls it into view.
void put_caret(HWND edit)
{
    SendMessageW(edit, EM_SETSEL, characters / 2, characters / 2);
    SendMessageW(edit, EM_SCROLLCARET, 0, 0);
}

Work typing_in(const AppHost& host, HWND edit)
{
    return [&host, edit] {
        SendMessageW(edit, WM_CHAR, L'猫', 1);
        host.settle();
    };
}

void run_typing_with(Bench& bench, bool wraps, const std::string& name)
{
    const std::wstring text = long_text();
    book::Book book = long_book(wraps, text);
    AppHost host{ book };
    HWND const box = host.control(core::command::box_1);
    const PlainEdits plain{ { box } };
    SetWindowTextW(plain.edit(0), text.c_str());
    put_caret(box);
    put_caret(plain.edit(0));
    Case typing{ name, typing_in(host, box), "a plain edit control", typing_in(host, plain.edit(0)), 1.5 };
    typing.repeats = keys;
    bench.run(typing);
}

} // namespace

void run_typing(Bench& bench)
{
    run_typing_with(bench, false, "a key in 500,000 characters");
    run_typing_with(bench, true, "a key in 500,000 characters, wrapped");
}

} // namespace bench
