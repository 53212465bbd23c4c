// Fakes of the session's two interfaces as plain records, and a session with them in a new data root.
#pragma once
#include "app/book_session.hpp"
#include "core/data_root.hpp"
#include "core/folders.hpp"
#include "core/settings.hpp"
#include "look/theme.hpp"
#include "platform/file.hpp"
#include "tests/support/temp_folder.hpp"
#include <algorithm>
#include <array>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace test_support {

class FakeDesk final : public app::PageDesk {
public:
    struct Box {
        std::wstring text;
        bool is_edited = false;
    };

    static constexpr std::int32_t first_divider = 112;

    std::array<Box, book::box_count> boxes;
    std::array<std::int32_t, 2> scroll{}; // of boxes 1 and 3
    book::SearchQuery asked; // the user's query
    std::wstring title;
    bool has_edited_mark = false;
    int shown_count = 0;
    bool was_shown_already = false; // at the last showing
    std::wstring shown_stamp; // of the page in the boxes
    std::function<void()> while_showing; // called between two boxes
    std::function<void()> while_applying; // called while a Book's theme is applied

    std::optional<std::wstring> list_edit; // the text of the file list's editor, if edited

    // Types as a user would.
    void type(std::size_t box, std::wstring text) { boxes[box] = { std::move(text), true }; }

    bool has_edits() const override
    {
        return list_edit.has_value() || std::ranges::any_of(boxes, &Box::is_edited);
    }
    std::optional<std::wstring> file_list_edit() const override { return list_edit; }
    void drop_file_list_edit() override { list_edit.reset(); }
    app::BoxEdits edits() const override
    {
        app::BoxEdits texts;
        for (std::size_t box = 0; box < boxes.size(); ++box)
            if (boxes[box].is_edited)
                texts[box] = boxes[box].text;
        return texts;
    }
    void show(const book::Page& page, bool is_shown_already) override
    {
        ++shown_count;
        was_shown_already = is_shown_already;
        scroll = { page.scroll_first, page.scroll_third };
        boxes[0] = { page.text[0], false };
        if (while_showing)
            while_showing();
        boxes[1] = { page.text[1], false };
        boxes[2] = { page.text[2], false };
        shown_stamp = page.stamp;
    }
    void store_scroll(book::Page& page) const override
    {
        page.scroll_first = scroll[0];
        page.scroll_third = scroll[1];
    }
    void mark_clean() override
    {
        for (Box& box : boxes)
            box.is_edited = false;
        list_edit.reset();
    }
    void show_title(const std::wstring& text, bool is_edited) override
    {
        title = text;
        has_edited_mark = is_edited;
    }
    void apply_theme(book::BookHeader& header) override
    {
        if (while_applying)
            while_applying();
        header.theme = look::load_theme(header.theme);
    }
    void apply_divider_and_fonts(book::BookHeader& header) override
    {
        if (header.divider == 0)
            header.divider = first_divider;
    }
    book::SearchQuery query() const override { return asked; }
};

// Answers from its lists and records all messages: "tell 48: text", "ask 36: text".
class FakeTalk final : public app::Talk {
public:
    std::vector<std::wstring> said;
    std::deque<bool> answers; // when empty: no
    std::deque<app::Answer> choices; // when empty: yes
    std::vector<std::vector<std::wstring>> committed_lists;
    std::deque<std::wstring> paths; // chosen in dialogs; when empty: cancelled
    std::function<void()> while_open; // called once, while the next box or dialog is open
    std::function<void()> on_close;
    bool gone = false;
    bool busy = false;

    bool is_gone() const override { return gone; }
    bool is_busy() const override { return busy; }
    void tell(const std::wstring& text, app::BoxStyle style) override { open(L"tell", text, style); }
    bool ask(const std::wstring& text, app::BoxStyle style) override
    {
        open(L"ask", text, style);
        return next(answers);
    }
    app::Answer ask_or_cancel(const std::wstring& text) override
    {
        say(L"ask or cancel: " + text);
        call();
        return next(choices);
    }
    void file_list_committed(const std::vector<std::wstring>& files) override
    {
        committed_lists.push_back(files);
    }
    void tell_system_error(std::uint32_t code) override
    {
        say(L"system error " + std::to_wstring(code));
        call();
    }
    void show_banner(const std::wstring& text) override { say(L"banner: " + text); }
    std::wstring choose_book_to_open() override { return choose(L"open"); }
    std::wstring choose_book_path(const wchar_t* title, const std::wstring& start) override
    {
        return choose(std::wstring(L"choose ") + title + L": " + start);
    }
    void history_changed() override { ++history_changes; }
    void book_loaded() override { say(L"loaded"); }
    void close_program() override
    {
        say(L"close");
        if (on_close)
            on_close();
        gone = true;
    }

    // Answers dialogs that the session does not show itself.
    std::wstring choose(const std::wstring& what)
    {
        say(what);
        call();
        return next(paths);
    }
    std::vector<std::wstring> take_said() { return std::exchange(said, {}); }

    int history_changes = 0;

private:
    template <class Value> static Value next(std::deque<Value>& values)
    {
        if (values.empty())
            return {};
        Value value = std::move(values.front());
        values.pop_front();
        return value;
    }
    void say(std::wstring text) { said.push_back(std::move(text)); }
    void open(const std::wstring& kind, const std::wstring& text, app::BoxStyle style)
    {
        say(kind + L" " + std::to_wstring(static_cast<std::uint32_t>(style)) + L": " + text);
        call();
    }
    void call()
    {
        if (const std::function<void()> hook = std::exchange(while_open, {}))
            hook();
    }
};

// The data root of a test. Restores the current directory at the end.
class DataRoot {
public:
    DataRoot()
    {
        core::hold_data_root(folder.path());
        core::init_folders(folder.path());
        core::folders().book_backup = folder.file(L"book_backup");
        core::settings() = {};
    }
    DataRoot(const DataRoot&) = delete;
    DataRoot& operator=(const DataRoot&) = delete;
    ~DataRoot()
    {
        platform::set_current_directory(before_);
        core::settings() = {};
    }

    std::wstring file(const std::wstring& name) const { return folder.file(name); }
    std::wstring backup(const std::wstring& name) const { return core::folders().book_backup + L"\\" + name; }

    TempFolder folder;

private:
    std::wstring before_ = platform::current_directory();
};

// A session as in the program: the page view shows the page, and closing saves.
class SessionRoom {
public:
    explicit SessionRoom(const std::wstring& history_file)
        : session({ desk, talk, [this](core::View view) { serve(view); }, [] {}, [this] { ++renewals; } },
            history_file)
    {
        talk.on_close = [this] { session.save_at_close(); };
    }
    SessionRoom(const SessionRoom&) = delete;
    SessionRoom& operator=(const SessionRoom&) = delete;

    FakeDesk desk;
    FakeTalk talk;
    std::vector<core::View> served;
    int renewals = 0; // how often the session reported new hits of the shown page
    std::function<void(core::View)> while_serving; // called before a view is served
    app::BookSession session;

private:
    void serve(core::View view)
    {
        served.push_back(view);
        if (while_serving)
            while_serving(view);
        if (view == core::View::page)
            session.show_current_page();
    }
};

} // namespace test_support
