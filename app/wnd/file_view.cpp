#include "app/wnd/file_view.hpp"
#include "core/folders.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/text_stream.hpp"
#include <utility>

namespace app {

using ovlib::to_rect;

namespace {

constexpr look::SharedFont note_font = look::SharedFont::ui_9_bold;

} // namespace

FileView::FileView(
    ovlib::Wnd* parent, book::Book* book, media::PathAnswers& paths, const ovlib::MenuPictures& menu_pictures)
    : paths_(paths)
    , pane_(parent, book,
          { .thumbnails = thumbnails_,
              .properties = properties_,
              .paths = paths,
              .drag = &drag_,
              .menu_pictures = &menu_pictures })
{
}

bool FileView::create()
{
    small_picture_.set_film(
        ovlib::GDI::Bitmap{ ovlib::GDI::load_bitmap(core::folders().res + L"\\perfo.bmp") });
    return pane_.create(L"");
}

void FileView::place(const MainLayout& layout)
{
    pane_.set_rect(to_rect(layout.file_pane), false);
}

bool FileView::show_selected_file()
{
    pane_.show_selected_file();
    if (pane_.is_loading())
        return false;
    const media::ImageLoader& loader = pane_.loader();
    const auto query = queries_.make();
    media::FileFacts facts = loader.facts_to_show();
    // Reading the facts may dispatch messages. If a later call came meanwhile, its facts are the right ones.
    if (!queries_.is_latest(query))
        return false;
    facts_ = std::move(facts);
    small_picture_.fetch(loader.path(), facts_.kind, thumbnails_, paths_);
    return queries_.is_latest(query);
}

void FileView::draw_note(const ovlib::DC& dc, const MainLayout& layout, const std::wstring& counter) const
{
    if (counter.empty())
        return;
    ovlib::GDI::TextStream text{ dc };
    text.back_mode = TRANSPARENT;
    text.color = look::palette().list_text;
    text.font = look::shared_font(note_font);
    text.x = layout.file_counter.left;
    text.y = layout.file_counter.top;
    text << counter;
    const FileNote place = file_note(layout);
    text.flags |= DT_END_ELLIPSIS;
    text.draw(facts_.text, to_rect(place.facts));
    text.draw(facts_.size_text, to_rect(place.size));
    small_picture_.draw(dc, place.picture);
}

} // namespace app
