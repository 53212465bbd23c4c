// A model of what a user may expect of the open Book during a walk: simple rules on simple records,
// independent of the program's handlers.
#pragma once
#include "book/book.hpp"
#include "book/search.hpp"
#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace walk {

// Placeholder in a stamp for a time that is known only from the written file. Compares later than every time.
inline constexpr wchar_t unknown_time[] = L"??????????????";

inline constexpr std::size_t half_stamp = 14;

inline constexpr unsigned no_page = 0;

struct Page {
    book::Page data;
    unsigned id = no_page; // identifies the page wherever it is moved
};

// A Book in a file or in the program.
struct Record {
    book::BookHeader header;
    std::vector<Page> pages;
};

// The boundary of a Book that has none set.
inline constexpr int first_divider = 112;

inline constexpr wchar_t missing_folder[] = L"C:\\資料";

// The file name of a path.
std::wstring name_of(const std::wstring& path);
// The bytes of the record's file.
std::string bytes_of(const Record& record);
// The record in memory after its file was read.
Record as_read(Record record);

struct Box {
    std::wstring text;
    bool edited = false;
};

// A message box or dialog that the program shows in a step, and the answer.
struct Talk {
    enum class Kind { message, file_dialog, overwrite };
    Kind kind = Kind::message;
    std::wstring text; // text of the box or caption of the dialog; unused for an overwrite question
    int answer = 0; // a button
    std::wstring path; // chosen in a dialog; empty: cancelled
};

enum class Track { marks, tabs };
enum class Order { sorted, random, reversed };

class Model {
public:
    // Decides the answer to each question of the program.
    std::function<bool()> says_yes;
    std::wstring backup_folder;
    std::wstring data_root;

    std::map<std::wstring, Record> files; // the contents of every Book's file, by path
    std::map<std::wstring, Record> backups; // by file name
    std::vector<std::wstring> history;

    std::wstring path;
    Record book;
    std::array<Box, 3> boxes;
    std::array<int, 2> scroll{}; // first visible lines of boxes 1 and 3, to be set before each step
    std::int32_t theme = book::standard_theme;
    bool accepts_input = true;
    std::wstring search;
    bool all_terms = false;
    bool ignore_case = false;
    bool in_file_list = false;

    std::vector<Talk> talks; // of this step
    void begin_step();

    book::Page& current();
    std::size_t index_at(std::uint64_t position) const;
    std::size_t page_count() const { return book.pages.size(); }
    std::int32_t tab_count() const;
    std::uint64_t current_tab() { return current().tab_number; }
    bool is_edited() const;
    bool is_sorted() const;
    bool is_sorted_by_time() const;
    std::wstring title() const;

    void type(std::size_t box, std::size_t start, std::size_t end, const std::wstring& text);

    void save_always();
    void save_if_changed();
    void save_after_question();
    void turn(int direction);
    void go_to_end(bool last);
    void go_to_tab(std::uint64_t number);
    void slide_to(std::uint64_t position);
    void swap(int direction);
    void change_order(Order order);
    void toggle_track(Track track);
    void toggle_mark();
    void toggle_tab();
    void delete_page();
    void add_page(bool at_end);
    void choose_folder(const std::wstring& chosen); // empty: the dialog is cancelled
    void open_missing_folder();
    void clear_folder();
    void refresh(std::uint32_t mask);
    void search_for(const std::wstring& text)
    {
        search = text;
        choose_first_hit();
    }
    // After one of the switches of the search changed.
    void choose_first_hit();

    void select_file(std::size_t place);
    void step_file(int by); // clamped
    void move_file(int by); // clamped
    void remove_file();
    void remove_all_files();
    void sort_files(bool descending);
    void add_file(const std::wstring& chosen); // empty: the dialog is cancelled
    void leave_duplicate();
    void apply_list(const std::vector<std::wstring>& entries);
    // The first rows of the results are chosen one after the other.
    void choose_hits(std::size_t count);
    std::size_t hit_count();
    // For an entry whose file is missing.
    void search_missing_file();
    void open_missing_file();
    void show_missing_file();
    // The selected entry; empty if there is none.
    std::wstring entry();

    void apply_theme(std::int32_t identifier);
    void choose_settings(std::int32_t sort_key, bool plays_gifs);
    void color_all_pages();
    void choose_color(std::size_t box, bool is_text, std::uint32_t color);

    // An empty `chosen` cancels the dialog.
    void new_book(const std::wstring& chosen);
    void open_book(const std::wstring& chosen);
    void save_as(const std::wstring& chosen);
    void open_history(std::size_t place);
    void restore();
    void backup();
    void about(const std::wstring& text);
    // The windows that edit pages. Both begin with `open_editing` and end with `close_editing`; the page
    // editor has the current page selected.
    void open_editing();
    void replace_all(const std::wstring& old, const std::wstring& by);
    void delete_selected();
    void paste_selected(bool cut);
    void close_editing(const std::wstring& question);
    // The program starts with the first Book of its history.
    void start();
    void close() { save_always(); }

    // Sets the seed of a random order, which is known only from the file.
    void take_seed(std::uint32_t seed);
    // Takes unpredictable times from a Book that this step wrote. Returns a description of a wrong time, or
    // an empty text.
    std::string learn(const std::wstring& file, const book::Book& on_disk, const std::wstring& earliest,
        const std::wstring& latest);

private:
    void tell(const std::wstring& text);
    std::wstring in_full(const std::wstring& entry_text) const;
    bool ask(const std::wstring& text);
    void store_scroll();
    void write();
    bool leave();
    void finish(bool shows_page);
    void show();
    void mark_clean();
    void forget_shown();
    void recount();
    void rebuild_order();
    void load(const std::wstring& file);
    void remember(const std::wstring& file);
    void insert_page(std::size_t index);
    bool find(int direction);
    book::SearchQuery query() const;
    void pages_moved();
    Page* page_with(unsigned id);

    std::vector<std::uint64_t> order_;
    unsigned shown_ = no_page;
    unsigned next_id_ = 1;
    bool was_reordered_ = false; // in this step
    bool has_changed_ = false; // since a window that edits pages was opened
};

} // namespace walk
