// Compares the program with its model: boxes, controls and every file.
#include "book/page_text.hpp"
#include "core/command_ids.hpp"
#include "platform/text.hpp"
#include "walk_report.hpp"
#include "walk_walker.hpp"

namespace fs = std::filesystem;
namespace command = core::command;
using e2e::DriverError;
using e2e::FileDialog;
using e2e::MessageDialog;
using e2e::Window;

namespace walk {

std::string quoted(const std::wstring& text)
{
    std::wstring visible = L"\"";
    for (const wchar_t unit : text) {
        if (unit < L' ')
            visible += L"\\" + std::to_wstring(static_cast<unsigned>(unit));
        else
            visible += unit;
    }
    return platform::to_utf8(visible + L"\"");
}

std::string file_name(const std::wstring& path)
{
    return platform::to_utf8(fs::path(path).filename().wstring());
}

namespace {

// The name of the first part in which two pages differ.
std::string difference(const book::Page& is, const book::Page& expected)
{
    for (std::size_t box = 0; box < book::box_count; ++box) {
        if (is.text[box] != expected.text[box])
            return "box " + std::to_string(box + 1) + ": " + quoted(is.text[box]) + " instead of "
                + quoted(expected.text[box]);
    }
    if (is.stamp != expected.stamp)
        return "its stamp: " + quoted(is.stamp) + " instead of " + quoted(expected.stamp);
    if (is.mark != expected.mark || is.tab_number != expected.tab_number
        || is.tab_color != expected.tab_color)
        return "its mark or tab";
    if (is.scroll_first != expected.scroll_first || is.scroll_third != expected.scroll_third)
        return "its scroll places: " + std::to_string(is.scroll_first) + ", "
            + std::to_string(is.scroll_third) + " instead of " + std::to_string(expected.scroll_first) + ", "
            + std::to_string(expected.scroll_third);
    if (is.files != expected.files || is.current_file != expected.current_file)
        return "its files";
    return "its colours or its folder";
}

} // namespace

void Walker::check()
{
    if (!program_->is_running())
        throw DriverError("the program ended with code " + std::to_string(program_->exit_code()));
    check_no_dialog();
    check_files();
    check_boxes();
}

// A dialog that was answered may take a moment to close.
void Walker::check_no_dialog()
{
    constexpr e2e::milliseconds moment{ 2000 };
    if (e2e::wait_until([this] { return !program_->has_dialog(); }, moment))
        return;
    for (const Window window : e2e::top_windows(program_->process_id())) {
        if (MessageDialog::is_one(window))
            throw DriverError("an unexpected box: " + quoted(MessageDialog(window).text()));
        if (FileDialog::is_one(window))
            throw DriverError("an unexpected dialog: " + quoted(window.text()));
    }
}

void Walker::check_boxes()
{
    constexpr const char* names[] = { "box 1", "box 2", "box 3" };
    for (std::size_t i = 0; i < model.boxes.size(); ++i) {
        expect_same(names[i], box(i).text(), model.boxes[i].text);
        expect_same("an edit mark", box(i).is_modified(), model.boxes[i].edited);
    }
    expect_same("the title", main().text(), model.title());
    expect_same("the search box", main().child(command::search_box).text(), model.search);
    expect_same("the save button", main().child(command::save_if_changed).is_enabled(), model.is_edited());
    const Window combo = main().child(command::file_combo);
    const book::Page& page = model.current();
    expect_same("the file count", static_cast<std::size_t>(combo.send(CB_GETCOUNT)), page.files.size());
    if (!page.files.empty())
        expect_same(
            "the chosen file", static_cast<std::uint64_t>(combo.send(CB_GETCURSEL)), page.current_file);
}

// Checks every file, whether written in this step or not.
void Walker::check_files()
{
    const std::wstring now = book::current_time_text();
    for (auto& [file, expected] : model.files) {
        const std::string bytes = e2e::file_bytes(file);
        if (const auto known = bytes_.find(file);
            known != bytes_.end() && known->second == bytes && bytes_of(expected) == bytes)
            continue;
        const book::Book on_disk = e2e::load_book(file);
        const std::string where = file_name(file);
        if (const std::string wrong = model.learn(file, on_disk, step_began_, now); !wrong.empty())
            throw DriverError(where + ": " + wrong);
        const Record read = as_read(expected);
        for (std::size_t i = 0; i < read.pages.size(); ++i) {
            if (!(on_disk.pages[i] == read.pages[i].data))
                throw DriverError(where + " (order " + std::to_string(read.header.order_mode) + ", key "
                    + std::to_string(read.header.sort_key) + "), page " + std::to_string(i) + " differs in "
                    + difference(on_disk.pages[i], read.pages[i].data));
        }
        if (!(on_disk.header == read.header))
            throw DriverError(where + " differs in its header");
        if (bytes != bytes_of(expected))
            throw DriverError(where + " differs in its bytes");
        bytes_[file] = bytes;
        ++saves_;
    }
    for (const auto& [name, expected] : model.backups) {
        if (e2e::file_bytes(fs::path(model.backup_folder) / name) != bytes_of(expected))
            throw DriverError("the backup " + platform::to_utf8(name) + " differs");
    }
    if (root_.history() != model.history)
        throw DriverError("the history differs");
}

} // namespace walk
