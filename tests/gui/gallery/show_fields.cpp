#include "exhibits.hpp"
#include "look/wnd/input_form.hpp"
#include "look/wnd/mybox.hpp"
#include "ovlib/gui/combobox.hpp"

namespace gallery {

namespace {

constexpr wchar_t japanese[] = L"吾輩は猫である。名前はまだ無い。どこで生れたかとんと見当がつかぬ。"
                               L"何でも薄暗いじめじめした所でニャーニャー泣いていた事だけは記憶している。\r\n"
                               L"The quick brown fox jumps over the lazy dog. 0123456789\r\n"
                               L"𠮷野家 ①②③ ～－＼ ｱｲｳ\r\n四\r\n五\r\n六\r\n七";

template <class Box> Box& shown_box(Box& box, const wchar_t* text)
{
    box.set_font(shared_font(SharedFont::jp_10));
    box.set_text(text);
    return box;
}

void fill(ovlib::ComboBox& combo)
{
    for (const wchar_t* text :
        { L"一.png", L"資料.pdf", L"とても長い名前のファイルで、枠に入りきらないもの.mp4" })
        combo.add(text);
    combo.select(1);
}

} // namespace

void show_combo_boxes(Shelf& shelf)
{
    shelf.group(L"ComboBox");
    fill(shelf.add<ovlib::ComboBox>({ 200, 20 }, L"closed", L"", static_cast<DWORD>(CBS_DROPDOWNLIST)));
    auto& disabled =
        shelf.add<ovlib::ComboBox>({ 200, 20 }, L"disabled", L"", static_cast<DWORD>(CBS_DROPDOWNLIST));
    fill(disabled);
    disabled.enable(false);
    shelf.end_row();
    auto& editable =
        shelf.add<ovlib::ComboBox>({ 200, 20 }, L"with an edit field", L"", static_cast<DWORD>(CBS_DROPDOWN));
    fill(editable);
    auto& open = shelf.add<ovlib::ComboBox>(
        { 200, 20 }, L"with its list open", L"", static_cast<DWORD>(CBS_DROPDOWNLIST));
    fill(open);
    shelf.wnd().when_shown([&open] {
        SetFocus(open.hwnd());
        open.show_list(false);
        open.show_list(true);
    });
    shelf.place(1, 70, L"");
}

void show_text_boxes(Shelf& shelf)
{
    shelf.group(L"Text boxes");
    shown_box(shelf.add<look::QBox>({ 230, 96 }, L"QBox", L""), japanese);
    auto& wrapped = shown_box(shelf.add<look::QBox>({ 230, 96 }, L"wrapped", L""), japanese);
    wrapped.set_wrap(true);
    wrapped.set_font(shared_font(SharedFont::jp_10));
    shelf.end_row();
    shown_box(shelf.add<look::DBox>({ 230, 96 }, L"DBox, read-only", L""), japanese).set_read_only(true);
    auto& selected = shown_box(shelf.add<look::DBox>({ 230, 96 }, L"disabled", L""), japanese);
    selected.enable(false);
    shelf.end_row();
    shown_box(shelf.add<look::ABox>({ 230, 28 }, L"ABox", L""),
        L"一行だけの文章。長い文章は枠の外に続く、どこまでも")
        .set_font(shared_font(SharedFont::jp_10_bold));
    shown_box(shelf.add<look::ABox>({ 230, 28 }, L"read-only", L""), L"一行だけの文章").set_read_only(true);
}

void show_fields(Shelf& shelf)
{
    shelf.group(L"Fields");
    shelf.add<look::BookSearchBox>({ 230, 22 }, L"BookSearchBox", L"猫 \"名前は\" AND")
        .set_font(shared_font(SharedFont::jp_9));
    shelf.add<look::InputForm>({ 230, 22 }, L"InputForm", L"置換する文字列")
        .set_font(shared_font(SharedFont::jp_9));
}

} // namespace gallery
