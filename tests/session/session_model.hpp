// A model of what a user may expect of the session: simple rules on simple records. Each page has a permanent
// identity, and nothing is stored that can be derived.
#pragma once
#include "book/replace.hpp"
#include "book/search.hpp"
#include "model_file.hpp"
#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace session_walk {

struct Box {
    std::wstring text;
    bool is_edited = false;
};

// Thrown by an action that fails.
struct Failure {
    std::wstring text;
    bool is_fatal = true;
};

enum class Choice { yes, no, cancel };
enum class Code { always, if_changed, ask };
enum class Order { sorted, random, reversed };

// The settings of a Book that the user can choose.
struct BookSettings {
    bool wraps = false;
    bool plays_gifs = false;
    bool searches_files = false;
    std::int32_t sort_key = 0;
    std::int32_t tab_label_box = 0;
};

class Model {
public:
    // The user and the file system.
    std::deque<bool> answers;
    std::deque<Choice> choices; // to questions with a third button
    std::deque<std::wstring> paths;
    std::function<void()> while_open;
    std::vector<std::wstring> said;
    std::map<std::wstring, std::wstring> files; // by path, in code units
    std::set<std::wstring> blocked; // replaced by a folder
    std::set<std::wstring> touched; // files written since the last check
    std::vector<std::wstring> history;
    std::vector<std::wstring> stored_history;
    std::wstring history_file;
    std::wstring backup_folder;
    std::int32_t theme = 0;
    bool backs_up = false;
    bool is_busy = false;
    book::ClipMode clip = book::ClipMode::none; // of the page editor
    bool is_gone = true;
    bool is_loading = false;
    book::SearchQuery asked;

    // The desk.
    std::array<Box, 3> boxes;
    std::optional<std::wstring> list_edit; // the text in the editor of the file list, if edited
    std::array<std::int32_t, 2> scroll{};
    std::wstring title;
    unsigned shown = 0; // the page in the boxes

    // The Book.
    Record book;
    std::vector<unsigned> ids; // of the pages
    std::wstring path;
    std::vector<std::uint64_t> order;
    bool needs_update = false;
    std::vector<book::SearchHit> hits;

    void start();
    void run(const std::function<void()>& action, std::uint32_t mask);
    void close();

    std::size_t index_at(std::uint64_t position) const;
    std::size_t current() const { return index_at(book.header.position); }
    std::size_t shown_index() const;
    bool has_edits() const;
    void type(std::size_t box, const std::wstring& text);
    void renew_mark();

    bool save(Code code);
    bool create();
    bool open(std::wstring chosen);
    bool load(const std::wstring& file);
    void save_as();
    void back_up(bool asks);

    void turn(int direction);
    bool go_to(std::uint64_t position);
    void go_to_last();
    void slide_to(std::uint64_t position); // shows the page even if it was current
    void go_to_tab(std::uint64_t number);
    void change_order(Order kind, std::uint32_t fresh_seed);
    void apply_settings(const BookSettings& chosen);
    void add(bool at_end);
    void swap(int direction);
    void remove();
    void toggle_mark();
    void toggle_tab(std::uint32_t color);
    void remove_tab(std::size_t index, std::uint32_t color);

    // False if a command that changes the list must be given up.
    bool may_change_list();
    void apply_list();
    void select(std::int64_t row);
    void step(std::int64_t by);
    void move(std::int64_t by);
    void sort(bool descending);
    void remove_file();
    void remove_all_files();
    void append(const std::vector<std::wstring>& chosen);
    void add_files(const std::vector<std::wstring>& chosen);
    void add_dropped_files(const std::vector<std::wstring>& dropped);
    void add_pages_of_files(const std::vector<std::wstring>& dropped);
    void set_folder(const std::wstring& chosen);
    void clear_folder();

    void prepare_editing();
    void replace(const book::ReplaceRequest& request, bool in_all);
    void set_clip(book::ClipMode mode);
    void clear_selection();
    void paste(bool at_end);
    void remove_selected();

    // Changes stored pages without notifying the session.
    void insert_under(std::size_t index, book::Page page);
    void remove_under(std::uint64_t position);
    void swap_under(std::size_t first, std::size_t second);
    book::Page fresh_page() const;

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    static constexpr std::uint32_t full = 0xF47F; // every view

    // A page and its position, as a question records them.
    struct Note {
        std::uint64_t position;
        unsigned id;
        std::uint64_t revision;
        std::wstring stamp;
        friend bool operator==(const Note&, const Note&) = default;
    };

    book::Page* page();
    void set_list(book::Page& listed, std::wstring text);
    Note note();
    // What a question about the edits is about.
    std::pair<unsigned, std::uint64_t> on_desk() const;
    void say(const std::wstring& text) { said.push_back(text); }
    void call();
    void tell(int style, const std::wstring& text);
    bool ask(int style, const std::wstring& text);
    std::wstring choose(const std::wstring& what);
    bool exists(const std::wstring& file) const { return files.count(file) != 0 || blocked.count(file) != 0; }

    bool leave();
    bool write(const std::wstring& file);
    bool write_book();
    void clean();
    void forget_shown();
    void follow();
    void erase_selected();
    void pages_moved();
    void show();
    void show_title();
    std::uint32_t settle();
    void recount();
    void rebuild();
    void refresh_counts();
    void remember();
    void forget(const std::wstring& file);
    void store_history();
    void clear();
    void read(const std::wstring& file);
    void fail(const Failure& failure);

    bool keeps_file_ = false; // at the end of the program
    unsigned next_id_ = 1;
    std::uint64_t revision_ = 0;
    std::uint32_t pending_ = 0;
    int depth_ = 0;
};

} // namespace session_walk
