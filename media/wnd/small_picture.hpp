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

// Asked of the shell once, when a file is chosen, and only drawn in a paint: the shell may let messages
// through, and paints must not nest.
class SmallPicture {
public:
    // A strip that is drawn over videos; without one they stand plain.
    void set_film(ovlib::GDI::Bitmap film) { film_ = std::move(film); }

    // Drops what was there. Nothing for an empty path; for a file whose share does not answer the icon of its
    // kind, which is known from the name.
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
    bool is_blended_ = false; // the thumbnail, for its alpha
    std::unique_ptr<ovlib::SHIcon> icon_;
    core::LatestRequest fetches_;
};

} // namespace media
