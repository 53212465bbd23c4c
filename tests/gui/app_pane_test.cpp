// The file pane in the main window: when it loads, and how it ends.
#include "core/locks.hpp"
#include "media/wnd/filewnd.hpp"
#include "ovlib/gui/gdip.hpp"
#include "tests/support/gui_app_controls.hpp"
#include "tests/support/gui_silent_share.hpp"
#include "tests/support/gui_window.hpp"
#include "tests/support/picture_files.hpp"
#include <mutex>
#include <objbase.h>

namespace {

namespace command = core::command;
using media::LoaderState;
using test_support::MovingGif;
using test_support::plain;

class PaneOfWindow : public gui::AppControls {
protected:
    PaneOfWindow()
    {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        ovlib::fill_image_extensions();
    }
    ~PaneOfWindow() override
    {
        close();
        ovlib::image_extensions.clear();
        CoUninitialize();
    }

    std::wstring add(const std::wstring& name, const test_support::FileContents& bytes) const
    {
        test_support::write_bytes(file(name), bytes);
        return name;
    }
    std::wstring add_png(const std::wstring& name, ovlib::Color color) const
    {
        return add(name, test_support::png_file(8, 8, plain(color)));
    }
    std::wstring add_gif(const std::wstring& name, std::uint32_t delay = 3) const
    {
        return add(name, MovingGif(8, 8).frames(3, delay).bytes());
    }
    void open_pages(const std::vector<std::vector<std::wstring>>& files, bool autoplay = true)
    {
        book::Book book;
        for (const std::vector<std::wstring>& entries : files) {
            book.pages.push_back(page(L"一\r\n"));
            book.pages.back().files = entries;
        }
        book.header.gif_autoplay = autoplay ? 1 : 0;
        open(std::move(book));
    }
    media::FileWnd& pane() const { return the<media::FileWnd>(); }
    const std::wstring& shown() const { return pane().loader().path(); }
    bool is_loader_free() const
    {
        const std::unique_lock hold{ core::loader_lock(), std::try_to_lock };
        return hold.owns_lock();
    }

private:
    ovlib::GDIPSession gdip_;
};

TEST_F(PaneOfWindow, ShowsTheSelectedFileOfTheCurrentPage)
{
    open_pages({ { add_png(L"a.png", ovlib::rgb(255, 0, 0)), add_png(L"b.png", ovlib::rgb(0, 255, 0)) },
        { add_gif(L"c.gif") }, {} });
    EXPECT_EQ(shown(), file(L"a.png"));
    command(command::next_file);
    EXPECT_EQ(shown(), file(L"b.png"));
    command(command::move_file_to_top);
    EXPECT_EQ(shown(), file(L"b.png")) << "the selection goes with the entry";
    command(command::next_page);
    EXPECT_EQ(shown(), file(L"c.gif"));
    EXPECT_TRUE(pane().gif_thread().is_held());
    command(command::next_page);
    EXPECT_EQ(shown(), L"");
    EXPECT_FALSE(pane().gif_thread().is_held());
    EXPECT_EQ(place_of(pane().hwnd()),
        app::main_layout({ window().client_size().cx, window().client_size().cy }).file_pane);
}

TEST_F(PaneOfWindow, ItLoadsOnlyIfTheFileMayHaveChanged)
{
    open_pages({ { add_png(L"a.png", ovlib::rgb(255, 0, 0)) } });
    ASSERT_TRUE(DeleteFileW(file(L"a.png").c_str()));
    for (const int id : std::initializer_list<int>{ command::toggle_mark, 6002, 6000, 5001 })
        command(id);
    EXPECT_EQ(pane().loader().state(), LoaderState::picture);
    command(command::request_refresh, 0x2);
    EXPECT_EQ(pane().loader().state(), LoaderState::nothing);
}

// Every query may take seconds, so the load, the facts, the small picture, its icon and the names in the
// combo share one answer.
TEST_F(PaneOfWindow, AShareThatDoesNotAnswerIsQueriedOnceForEachPageTurn)
{
    const gui::SilentShare share;
    book::Book book = book_of({ page(L"一\r\n"), page(L"二\r\n"), page(L"三\r\n"), page(L"四\r\n") });
    book.pages[1].files = { L"\\\\silent\\share\\a.png", L"\\\\silent\\share\\b.txt" };
    book.pages[2].files = { L"\\\\silent\\share\\b.txt", L"\\\\silent\\share\\c.gif" };
    book.pages[3].files = { add_png(L"d.png", ovlib::rgb(255, 0, 0)), L"\\\\silent\\share\\e.png",
        L"\\\\silent\\other\\e.png" };
    book.header.auto_file_search = 0;
    open(std::move(book));
    const auto questions_of_next_page = [&] {
        gui::SilentShare::makers_questions = 0;
        command(command::next_page);
        return gui::SilentShare::makers_questions;
    };
    EXPECT_EQ(questions_of_next_page(), 1);
    EXPECT_EQ(shown(), L"\\\\silent\\share\\a.png");
    EXPECT_EQ(questions_of_next_page(), 1) << "the next load asks again";
    EXPECT_EQ(shown(), L"\\\\silent\\share\\b.txt");
    EXPECT_EQ(questions_of_next_page(), 2) << "once for each share";
    EXPECT_EQ(pane().loader().state(), LoaderState::picture);
}

TEST_F(PaneOfWindow, AnInterpolationIsStoredAndAppliedToThePane)
{
    open_pages({ { add_png(L"a.png", ovlib::rgb(255, 0, 0)) } });
    EXPECT_EQ(pane().loader().interpolation_mode, 7);
    command(5001);
    EXPECT_EQ(core::settings().interpolation_command, 5001);
    EXPECT_EQ(pane().loader().interpolation_mode, 5);
    command(5000);
    EXPECT_EQ(pane().loader().interpolation_mode, 0);
}

TEST_F(PaneOfWindow, AutoplayIsASettingOfTheBook)
{
    open_pages({ { add_gif(L"a.gif") } }, false);
    EXPECT_EQ(pane().gif_thread().state(), media::PlayState::paused);
}

TEST_F(PaneOfWindow, PagesCanBeTurnedAndTheWindowClosedWhileAnAnimationPlays)
{
    open_pages({ { add_gif(L"a.gif") }, { add_gif(L"b.gif", 65535) }, { add_gif(L"c.gif") } });
    for (int i = 0; i < 16; ++i)
        command(i % 4 < 2 ? command::next_page : command::previous_page);
    EXPECT_TRUE(pane().gif_thread().is_held());
    close();
    EXPECT_TRUE(is_loader_free());
}

// The window is destroyed without a message to the pane, as after a failed start. The pane's destructor stops
// the thread.
TEST_F(PaneOfWindow, AWindowDestroyedWithoutACloseLeavesNoThread)
{
    class Silent : public media::FileWnd {
    public:
        using FileWnd::FileWnd;
        bool on_message(ovlib::WndMessage& message) override
        {
            return message.message != WM_DESTROY && FileWnd::on_message(message);
        }
    };
    open_pages({ { add_gif(L"a.gif", 65535) } });
    book::Book shown = book();
    media::ShellThumbnails thumbnails;
    media::ShellPropertyReader properties;
    media::PathAnswers paths;
    close();
    gui::TopWnd parent;
    ASSERT_TRUE(parent.create(L""));
    {
        Silent pane{ &parent, &shown, { thumbnails, properties, paths } };
        ASSERT_TRUE(pane.create(L""));
        pane.set_rect({ 0, 0, 100, 100 }, false);
        pane.show_selected_file();
        ASSERT_TRUE(pane.gif_thread().is_held());
        parent.destroy();
        EXPECT_TRUE(pane.gif_thread().is_held());
    }
    EXPECT_TRUE(is_loader_free());
}

} // namespace
