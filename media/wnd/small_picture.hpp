// The small picture of a file beside its facts.
#pragma once
#include "core/latest_request.hpp"
#include "media/file_facts.hpp"
#include "media/wnd/shell_thumbnail.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/shicon.hpp"
#include "platform/geometry.hpp"
#include <memory>
#include <string>
#include <utility>

namespace media {

inline constexpr int small_picture_side = 32;

// Queried from the shell once, when a file is selected; a paint only draws it. The shell may dispatch
// messages, and paints must not nest.
class SmallPicture {
public:
    // A strip that is drawn over the pictures of videos; without it they are drawn plain.
    void set_film(ovlib::GDI::Bitmap film) { film_ = std::move(film); }

    // Replaces the previous picture. An empty path has no picture. A file on a share that does not answer
    // gets the icon of its kind, which is known from the name.
    void fetch(
        const std::wstring& path, FileKind kind, ThumbnailSource& thumbnails, const PathAnswers& paths);
    void clear();
    void draw(const ovlib::DC& dc, platform::Point at) const;

private:
    void draw_thumbnail(const ovlib::DC& dc, platform::Point at) const;
    void draw_film(const ovlib::DC& dc, platform::Point at) const;

    ovlib::GDI::Bitmap film_;
    FileKind kind_ = FileKind::unknown;
    ShellThumbnail thumbnail_;
    bool is_blended_ = false; // draw the thumbnail with its alpha
    std::unique_ptr<ovlib::SHIcon> icon_;
    core::LatestRequest fetches_;
};

} // namespace media
