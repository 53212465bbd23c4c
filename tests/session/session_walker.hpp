// Drives a session and its model by choices from a random generator or a fuzzer, and compares them after each
// step.
#pragma once
#include "book/page_editor.hpp"
#include "session_model.hpp"
#include "tests/support/session_fakes.hpp"
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace session_walk {

constexpr std::size_t book_count = 4; // files the walk opens by name
constexpr std::size_t page_limit = 9; // pages of a Book in the walk

// In ASCII and short, for a message.
std::string visible(const std::wstring& text);

// Returns a number below `count`.
using Choose = std::function<std::uint32_t(std::uint32_t count)>;

class Walker {
public:
    explicit Walker(Choose choose);

    // False if the two differ: `complaint` describes the difference, `last_steps` the actions before it.
    bool step();
    // Also compares every file.
    bool check_all();

    std::string complaint;
    std::deque<std::string> last_steps;

private:
    // One action on the session and on the model.
    struct Action {
        std::string name;
        std::function<void()> session;
        std::function<void()> model;
    };
    using Maker = Action (Walker::*)();

    std::uint32_t below(std::uint32_t count) { return choose_(count); }
    bool one_in(std::uint32_t count) { return below(count) == 0; }
    std::wstring any_text();
    std::wstring any_line();
    std::wstring any_path();
    std::wstring& path_of(std::uint32_t number) { return paths_[number]; }

    void start();
    void make_files();
    void perform(const Action& action, std::uint32_t mask);
    void disturb();
    Action any_action();
    Action save();
    Action edit();
    Action page_action();
    Action order_action();
    Action settings_action();
    Action add_or_remove();
    Action mark_or_tab();
    Action file_action();
    Action list_edit();
    Action folder_action();
    Action book_action();
    Action under_the_desk();
    Action select_pages();
    Action replace_action();
    Action clip_action();
    Action paste_action();
    Action delete_selected();
    Action edit_window();
    Action page_editing();
    void change_world();
    void block(const std::wstring& path);
    void unblock(const std::wstring& path);
    void set_query();

    bool compare();
    std::string difference() const;
    std::string page_difference() const;
    std::string file_difference(const std::wstring& path) const;

    app::BookSession& session() { return room_->session; }
    book::Book& book() { return room_->session.book(); }

    Choose choose_;
    test_support::DataRoot root_;
    Model model_;
    std::unique_ptr<test_support::SessionRoom> room_;
    std::optional<book::PageEditor> editor_; // of the room's Book
    std::vector<std::wstring> paths_;
    std::size_t steps_ = 0;
};

// Takes this many steps with this seed. Returns a description of a difference with the last actions, or an
// empty text.
std::string walk(std::uint32_t seed, std::size_t steps);

} // namespace session_walk
