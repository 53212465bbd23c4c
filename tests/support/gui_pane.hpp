// A file pane in a plain parent, with a test's own files and a fake shell.
#pragma once
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "core/locks.hpp"
#include "core/settings.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "media/wnd/filewnd.hpp"
#include "ovlib/gui/gdip.hpp"
#include "ovlib/win_app.hpp"
#include "tests/support/built_files.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include "tests/support/picture_file.hpp"
#include "tests/support/picture_files.hpp"
#include "tests/support/temp_folder.hpp"
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <objbase.h>
#include <string>
#include <vector>

namespace gui {

// A bitmap of one colour.
inline ovlib::GDI::Bitmap plain_bitmap(int width, int height, ovlib::Color color)
{
    ovlib::GDI::Bitmap bitmap;
    bitmap.create(width, height);
    const ovlib::MemDC dc;
    const ovlib::ObjectSelection selected{ dc, bitmap };
    const ovlib::GDI::Brush brush{ ovlib::GDI::solid_brush(color) };
    const RECT all{ 0, 0, width, height };
    FillRect(dc.handle(), &all, brush.handle());
    return bitmap;
}

// A 32-bit bitmap whose columns repeat these pixels, alpha in the highest byte.
inline ovlib::GDI::Bitmap premultiplied_bitmap(
    int width, int height, const std::vector<std::uint32_t>& columns)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    ovlib::GDI::Bitmap bitmap{ CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0) };
    auto* const pixels = static_cast<std::uint32_t*>(bits);
    for (int i = 0; pixels && i < width * height; ++i)
        pixels[i] = columns[static_cast<std::size_t>(i % width) % columns.size()];
    return bitmap;
}

class FakeThumbnails : public media::ThumbnailSource {
public:
    ovlib::GDI::Bitmap picture_of(const std::wstring& path, int side) override
    {
        asked.push_back(path);
        sides.push_back(side);
        if (meanwhile)
            std::exchange(meanwhile, nullptr)();
        return answer ? answer() : ovlib::GDI::Bitmap{};
    }

    std::function<ovlib::GDI::Bitmap()> answer;
    std::function<void()> meanwhile; // called once, like messages that the shell dispatches
    std::vector<std::wstring> asked;
    std::vector<int> sides;
};

class FakeDrag : public media::FileDrag {
public:
    void run(const std::wstring& path) override
    {
        dragged.push_back(path);
        if (meanwhile)
            meanwhile();
    }

    std::vector<std::wstring> dragged;
    std::function<void()> meanwhile;
};

// Records the commands that the pane sends.
class PaneParent : public TopWnd {
public:
    bool on_message(ovlib::WndMessage& message) override
    {
        if (message.message == WM_COMMAND) {
            commands.push_back(LOWORD(message.wparam));
            last_lparam = message.lparam;
            return true;
        }
        return TopWnd::on_message(message);
    }
    std::vector<int> taken() { return std::exchange(commands, {}); }

    std::vector<int> commands;
    std::int64_t last_lparam = 0;
};

class Pane : public testing::Test {
protected:
    static constexpr int width = 400;
    static constexpr int height = 300;

    Pane()
    {
        EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        ovlib::WinApp::instance = GetModuleHandleW(nullptr);
        ovlib::WinApp::data_root = root_.path();
        core::hold_data_root(ovlib::WinApp::data_root);
        core::init_folders(test_support::dist_path());
        core::settings() = {};
        ovlib::fill_image_extensions();
        look::load_theme(look::theme_standard);
        const ovlib::MemDC screen;
        look::make_shared_fonts(screen.handle());
        book_.pages.emplace_back();
        book_.rebuild_order();
        book_.header.gif_autoplay = 1;
        parent_ = std::make_unique<PaneParent>();
        parent_->create(L"");
        make_pane();
    }
    ~Pane() override
    {
        pane_.reset();
        parent_->destroy();
        parent_.reset();
        look::free_shared_fonts();
        ovlib::image_extensions.clear();
        core::settings() = {};
        SetCurrentDirectoryW(L"C:\\");
        CoUninitialize();
    }

    void make_pane()
    {
        pane_.reset();
        pane_ = std::make_unique<media::FileWnd>(parent_.get(), &book_,
            media::PaneShell{ thumbnails, properties, paths, has_drag ? &drag : nullptr });
        ASSERT_TRUE(pane_->create(L""));
        pane_->set_rect({ 0, 0, width, height }, false);
    }
    void end_pane()
    {
        pane_->destroy();
        pane_.reset();
    }

    std::wstring file(const std::wstring& name) const { return root_.file(name); }
    std::wstring write(const std::wstring& name, const test_support::FileContents& bytes) const
    {
        test_support::write_bytes(file(name), bytes);
        return file(name);
    }
    std::wstring write_gif(const std::wstring& name, std::initializer_list<int> delays, int side = 8) const
    {
        test_support::MovingGif gif{ side, side };
        int shade = 0;
        for (const int delay : delays)
            gif.frame(static_cast<test_support::MovingGif::Shade>(shade++ % 5), static_cast<unsigned>(delay));
        return write(name, gif.bytes());
    }

    void show(std::vector<std::wstring> entries, std::uint64_t current = 0)
    {
        book_.pages[0].files = std::move(entries);
        book_.pages[0].current_file = current;
        pane_->show_selected_file();
    }
    void show_gif(std::initializer_list<int> delays) { show({ write_gif(L"動.gif", delays) }); }

    media::FileWnd& pane() { return *pane_; }
    PaneParent& parent() { return *parent_; }
    book::Book& book() { return book_; }
    const media::ImageLoader& loader() { return pane_->loader(); }

    // A pixel of the canvas from which the pane paints.
    ovlib::Color at(int x, int y)
    {
        const std::scoped_lock hold{ core::drawing_lock() };
        return pixel(pane_->canvas(), x, y);
    }
    ovlib::Color middle() { return at(width / 2, height / 2); }
    int count(ovlib::Color color)
    {
        const std::scoped_lock hold{ core::drawing_lock() };
        return count_pixels(pane_->canvas(), color);
    }
    static ovlib::Color ground() { return look::palette().viewer_back; }

    void press(int x, int y) { pane_->send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
    void double_click(int x = 5, int y = 5)
    {
        press(x, y);
        pane_->send(WM_LBUTTONUP, 0, MAKELPARAM(x, y));
        pane_->send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(x, y));
        pane_->send(WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
    media::PlayState state() { return pane_->gif_thread().state(); }

    FakeThumbnails thumbnails;
    media::ShellPropertyReader properties;
    media::PathAnswers paths;
    FakeDrag drag;
    bool has_drag = true;

private:
    ovlib::GDIPSession gdip_;
    test_support::TempFolder root_;
    book::Book book_;
    std::unique_ptr<PaneParent> parent_;
    std::unique_ptr<media::FileWnd> pane_;
};

} // namespace gui
