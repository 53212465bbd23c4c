#include "exhibits.hpp"
#include "look/wnd/image_button.hpp"
#include "look/wnd/my_check_box.hpp"

namespace gallery {

namespace {

using look::ImageButton;
using look::MyCheckBox;

struct ButtonState {
    const wchar_t* caption;
    UINT item_state;
    bool is_enabled;
};

constexpr ButtonState button_states[] = {
    { L"normal", 0, true },
    { L"pressed", ODS_SELECTED, true },
    { L"focused", ODS_FOCUS, true },
    { L"disabled", 0, false },
};

template <class Control> Control& in_state(GalleryWnd& wnd, Control& control, const ButtonState& state)
{
    control.enable(state.is_enabled);
    wnd.show_as(control, state.item_state);
    return control;
}

MyCheckBox& themed(MyCheckBox& box, bool is_checked)
{
    box.apply_theme();
    box.set_checked(is_checked);
    return box;
}

// The check boxes of the main window, in the widths that it gives them.
struct MainCheckBox {
    const wchar_t* text;
    SIZE size;
    bool is_fitted = false;
};

constexpr MainCheckBox main_check_boxes[] = {
    { L"マーク", { 50, 18 } },
    { L"マーク追跡", { 75, 18 } },
    { L"タブ", { 50, 18 } },
    { L"タブ追跡", { 80, 18 } },
    { L"昇順", { 50, 18 } },
    { L"ランダム", { 55, 18 } },
    { L"逆順", { 50, 18 } },
    { L"AND検索", { 65, 18 } },
    { L"大文字・小文字を区別しない", { 150, 18 } },
    { L"ファイルリストも検索", { 100, 18 }, true },
};

struct ProgramButton {
    const wchar_t* picture;
    SIZE size;
};

constexpr ProgramButton program_buttons[] = {
    { L"front", { 18, 26 } },
    { L"prev", { 18, 26 } },
    { L"next", { 18, 26 } },
    { L"back", { 18, 26 } },
    { L"loupe", { 22, 22 } },
    { L"clear", { 18, 22 } },
    { L"topfile", { 17, 22 } },
    { L"btmfile", { 17, 22 } },
    { L"reload", { 24, 20 } },
    { L"web_zoomin", { 20, 20 } },
    { L"web_zoomout", { 20, 20 } },
};

std::wstring sheet(const wchar_t* name)
{
    return std::wstring(name) + L".png";
}

} // namespace

void show_push_buttons(Shelf& shelf)
{
    shelf.group(L"CustomPushButton");
    for (const ButtonState& state : button_states)
        in_state(
            shelf.wnd(), shelf.add<ovlib::CustomPushButton>({ 84, 24 }, state.caption, L"押しボタン"), state);
    shelf.end_row();
    shelf.add<ovlib::CustomPushButton>({ 84, 24 }, L"long text", L"とても長い文字列のボタン");
    shelf.add<ovlib::CustomPushButton>({ 84, 24 }, L"ampersand", L"A && B & C");
    shelf.add<ovlib::CustomPushButton>({ 84, 24 }, L"no text", L"");
}

void show_check_boxes(Shelf& shelf)
{
    shelf.group(L"CustomCheckBox");
    for (const bool is_checked : { false, true }) {
        for (const ButtonState& state : { button_states[0], button_states[2], button_states[3] }) {
            auto& box = shelf.add<ovlib::CustomCheckBox>({ 80, 18 }, state.caption, L"チェック");
            box.set_checked(is_checked);
            in_state(shelf.wnd(), box, state);
        }
        shelf.end_row();
    }
    shelf.group(L"MyCheckBox");
    for (const bool is_checked : { false, true }) {
        for (const ButtonState& state : { button_states[0], button_states[2], button_states[3] })
            in_state(shelf.wnd(),
                themed(shelf.add<MyCheckBox>({ 80, 18 }, state.caption, L"チェック"), is_checked), state);
        shelf.end_row();
    }
    shelf.group(L"MyCheckBox: the main window's");
    bool is_checked = false;
    for (const MainCheckBox& main : main_check_boxes) {
        auto& box = themed(shelf.add<MyCheckBox>(main.size, L"", main.text), is_checked);
        box.set_font(shared_font(SharedFont::jp_7_bold));
        if (main.is_fitted)
            box.fit_to_text();
        is_checked = !is_checked;
    }
}

void show_image_buttons(Shelf& shelf)
{
    shelf.group(L"ImageButton: text, picture, both");
    for (const ButtonState& state : button_states) {
        in_state(shelf.wnd(), shelf.add<ImageButton>({ 65, 46 }, state.caption, L"Book"), state)
            .set_font(shared_font(SharedFont::ui_9_bold));
    }
    shelf.end_row();
    for (const ButtonState& state : button_states) {
        auto& button = in_state(shelf.wnd(), shelf.add<ImageButton>({ 65, 26 }, state.caption, L""), state);
        button.load_res_image(sheet(L"loupe"));
    }
    shelf.end_row();
    for (const ButtonState& state : { button_states[0], button_states[1], button_states[3] }) {
        auto& button = in_state(
            shelf.wnd(), shelf.add<ImageButton>({ 180, 43 }, state.caption, L"ファイルの追加"), state);
        button.load_res_image(sheet(L"add_files"));
        button.set_align(look::SheetAlign::left);
    }
    shelf.end_row();
    shelf.add<ImageButton>({ 65, 24 }, L"highlighted", L"資料").set_highlighted(true);
    auto& pressed = shelf.add<ImageButton>({ 65, 24 }, L"and pressed", L"資料");
    pressed.set_highlighted(true);
    shelf.wnd().show_as(pressed, ODS_SELECTED);
    shelf.add<ImageButton>({ 65, 24 }, L"square", L"保存").set_rounded(false);
    shelf.add<ImageButton>({ 40, 24 }, L"empty", L"");
}

void show_program_buttons(Shelf& shelf)
{
    shelf.group(L"ImageButton: the program's, at their sizes");
    for (const bool is_enabled : { true, false }) {
        for (const ProgramButton& shown : program_buttons) {
            auto& button = shelf.add<ImageButton>(shown.size, L"", L"");
            button.load_res_image(sheet(shown.picture));
            button.enable(is_enabled);
        }
        shelf.end_row();
    }
    for (const bool is_enabled : { true, false }) {
        shelf.add<ImageButton>({ 65, 20 }, L"", L"保存").enable(is_enabled);
        shelf.add<ImageButton>({ 36, 22 }, L"", L"資料").enable(is_enabled);
    }
}

} // namespace gallery
