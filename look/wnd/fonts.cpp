#include "look/wnd/fonts.hpp"
#include "look/box_look.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include <array>
#include <bit>

namespace look {

namespace {

std::array<ovlib::GDI::Font, shared_font_count>& shared_fonts()
{
    static std::array<ovlib::GDI::Font, shared_font_count> fonts;
    return fonts;
}

HFONT make_font(const book::LogFont& record)
{
    static_assert(sizeof(LOGFONTW) == sizeof(book::LogFont));
    const auto system_record = std::bit_cast<LOGFONTW>(record);
    return CreateFontIndirectW(&system_record);
}

} // namespace

HFONT make_box_font(const book::LogFont& record)
{
    return is_usable_font(record) ? make_font(with_ended_name(record)) : nullptr;
}

void make_shared_fonts(HDC dc)
{
    const int pixels_per_inch = GetDeviceCaps(dc, LOGPIXELSY);
    for (std::size_t i = 0; i < shared_font_count; ++i)
        shared_fonts()[i].renew(make_font(shared_font_record(static_cast<SharedFont>(i), pixels_per_inch)));
}

void free_shared_fonts()
{
    for (ovlib::GDI::Font& font : shared_fonts())
        font.reset();
}

HFONT shared_font(SharedFont font)
{
    return shared_fonts()[static_cast<std::size_t>(font)].handle();
}

} // namespace look
