#include "driver_test.hpp"
#include "driver_screen.hpp"
#include "platform/text.hpp"
#include "tests/support/built_files.hpp"
#include <algorithm>

namespace e2e {

namespace {

std::string test_name()
{
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(info->test_suite_name()) + "." + info->name();
    std::ranges::replace(name, '/', '-'); // in the name of a parameterised test, which becomes a folder name
    return name;
}

} // namespace

void EndToEnd::SetUp()
{
    root_ = std::make_unique<DataRoot>(platform::from_utf8(test_name()));
}

void EndToEnd::TearDown()
{
    if (HasFailure())
        save_screenshot(std::filesystem::path(test_support::artifacts_path()) / (test_name() + ".bmp"));
    program_.reset();
    if (root_ && !HasFailure())
        root_->remove();
}

Program& EndToEnd::start(const std::wstring& arguments)
{
    program_.reset();
    program_ = std::make_unique<Program>(root().program(), arguments);
    return *program_;
}

Window EndToEnd::open(const std::filesystem::path& book)
{
    root().write_history({ book.wstring() });
    return start().wait_for_window();
}

std::filesystem::path EndToEnd::open_numbered_book(std::size_t page_count)
{
    std::vector<book::Page> pages;
    for (std::size_t i = 1; i <= page_count; ++i)
        pages.push_back(make_page(numeral(i)));
    auto file = root().add_book(L"手帖.bok", std::move(pages));
    open(file);
    expect_page(numeral(1));
    return file;
}

void EndToEnd::write_first(const std::wstring& text, const Where& where)
{
    program().click_into(box(core::command::box_1));
    const std::wstring expected = text + box(core::command::box_1).text();
    type_text(text);
    expect_soon(
        expected, [&] { return box(core::command::box_1).text(); }, where);
    expect_soon(
        L"手帖 *", [&] { return title(); }, where);
}

void EndToEnd::close()
{
    main_window().post(WM_CLOSE);
    EXPECT_EQ(program().exit_code(), 0u);
}

void EndToEnd::answer_box(const std::wstring& text, Icon icon, int button, const Where& where)
{
    const auto traced = trace(where);
    const MessageDialog box = program().wait_for_box();
    EXPECT_EQ(box.text(), text);
    EXPECT_EQ(box.icon(), icon);
    if (HasFailure())
        save_screenshot(std::filesystem::path(test_support::artifacts_path()) / (test_name() + "_box.bmp"));
    box.answer(button);
}

void EndToEnd::expect_fatal_start(const std::wstring& message, const Where& where)
{
    const auto traced = trace(where);
    answer_box(message + closing_words, Icon::error, IDOK);
    const MessageDialog last = program().wait_for_box();
    EXPECT_EQ(last.text(), L"Error: ウィンドウの作成に失敗");
    EXPECT_EQ(last.caption(), L"Pagewick");
    EXPECT_EQ(last.icon(), Icon::error);
    last.answer(IDOK);
    EXPECT_EQ(program().exit_code(), failed_exit_code);
}

void EndToEnd::type_text(std::wstring_view text) const
{
    program().await_input();
    e2e::type_text(text);
}

void EndToEnd::chord(std::initializer_list<WORD> keys) const
{
    program().await_input();
    e2e::chord(keys);
}

void EndToEnd::click(POINT screen) const
{
    program().await_input();
    e2e::click(screen);
}

void EndToEnd::double_click(POINT screen) const
{
    program().await_input();
    e2e::double_click(screen);
}

void EndToEnd::right_click(POINT screen) const
{
    program().await_input();
    e2e::right_click(screen);
}

void EndToEnd::drag(POINT from, POINT to) const
{
    program().await_input();
    move_mouse(from);
    press_mouse(from);
    require("the mouse is held", [&] { return program().holds_mouse(); });
    lead_mouse(from, to);
    release_mouse(to);
    require("the mouse is let go", [&] { return !program().holds_mouse(); });
}

void EndToEnd::turn_wheel(POINT screen, int notches) const
{
    program().await_input();
    e2e::turn_wheel(screen, notches);
}

void EndToEnd::expect_page(const std::wstring& box1, const Where& where) const
{
    expect_soon(
        box1,
        [&] {
            std::wstring text = box(core::command::box_1).text();
            if (text.ends_with(L"\r\n"))
                text.erase(text.size() - 2);
            return text;
        },
        where);
}

std::wstring as_loaded(const std::wstring& text)
{
    return text.empty() ? text : text + L"\r\n";
}

std::wstring numeral(std::size_t number)
{
    return std::wstring(1, L"〇一二三四五六七八九"[number]);
}

} // namespace e2e
