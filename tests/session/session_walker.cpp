#include "session_walker.hpp"
#include "core/settings.hpp"
#include "walk_clock.hpp"
#include <random>
#include <utility>

namespace session_walk {

namespace {

using test_support::FakeDesk;

constexpr std::size_t kept_steps = 30;

} // namespace

std::string visible(const std::wstring& text)
{
    std::string shown;
    for (const wchar_t unit : text.substr(0, 60)) {
        if (unit >= L' ' && unit < 0x7F)
            shown += static_cast<char>(unit);
        else
            shown += "\\" + std::to_string(static_cast<unsigned>(unit));
    }
    return shown + (text.size() > 60 ? "..." : "");
}

Walker::Walker(Choose choose)
    : choose_(std::move(choose))
{
    reset_clock();
    for (std::size_t i = 0; i < book_count; ++i)
        paths_.push_back(root_.file(std::wstring(1, static_cast<wchar_t>(L'a' + i)) + L".bok"));
    model_.history_file = root_.file(L"history.txt");
    model_.backup_folder = core::folders().book_backup;
    look::load_theme(look::theme_standard);
    model_.theme = look::theme_standard;
    make_files();
}

void Walker::start()
{
    room_ = std::make_unique<test_support::SessionRoom>(model_.history_file);
    editor_.emplace(book());
    model_.clip = book::ClipMode::none;
    model_.asked = {};
    model_.answers.clear();
    room_->session.history().load();
    for (const bool answer : { one_in(2), one_in(2) }) {
        room_->talk.answers.push_back(answer);
        model_.answers.push_back(answer);
    }
    room_->talk.paths = { paths_[below(book_count)] };
    model_.paths = room_->talk.paths;
    session().run([this] { session().open_last_book(); });
    model_.start();
}

void Walker::perform(const Action& action, std::uint32_t mask)
{
    last_steps.push_back(action.name);
    session().run([&] {
        action.session();
        session().merge(mask);
    });
    model_.run(action.model, mask);
}

bool Walker::step()
{
    static constexpr std::array<std::uint32_t, 4> masks{ 0, core::refresh::full, core::refresh::full_but_page,
        core::refresh::controls };
    ++steps_;
    while (last_steps.size() > kept_steps)
        last_steps.pop_front();
    if (!room_ || room_->talk.gone) {
        last_steps.push_back("start");
        start();
        return compare();
    }
    if (one_in(3))
        advance_clock();
    if (one_in(12))
        change_world();
    room_->talk.answers.clear();
    room_->talk.paths.clear();
    room_->talk.choices.clear();
    model_.choices.clear();
    for (int i = 0; i < 2; ++i) {
        const std::uint32_t choice = below(3);
        room_->talk.choices.push_back(static_cast<app::Answer>(choice));
        model_.choices.push_back(static_cast<Choice>(choice));
    }
    for (int i = 0; i < 3; ++i) {
        room_->talk.answers.push_back(!one_in(3));
        room_->talk.paths.push_back(any_path());
    }
    model_.answers = room_->talk.answers;
    model_.paths = room_->talk.paths;
    if (one_in(8))
        disturb();
    perform(any_action(), masks[below(masks.size())]);
    room_->talk.while_open = {};
    model_.while_open = {};
    return compare() && (steps_ % 64 != 0 || check_all());
}

bool Walker::check_all()
{
    for (const auto& [path, text] : model_.files)
        model_.touched.insert(path);
    return compare();
}

bool Walker::compare()
{
    for (std::wstring& said : room_->talk.said) // error numbers differ between systems
        if (said.starts_with(L"system error"))
            said = L"system error";
    complaint = difference();
    room_->talk.said.clear();
    model_.said.clear();
    for (const std::wstring& path : std::exchange(model_.touched, {}))
        if (complaint.empty())
            complaint = file_difference(path);
    return complaint.empty();
}

std::string Walker::file_difference(const std::wstring& path) const
{
    if (!platform::is_regular_file(path))
        return "no file " + visible(path);
    if (test_support::read_text(path) == model_.files.at(path))
        return {};
    return "the file " + visible(path);
}

std::string Walker::page_difference() const
{
    const book::Book& is = room_->session.book();
    if (is.pages.size() != model_.book.pages.size())
        return "pages: " + std::to_string(is.pages.size()) + " instead of "
            + std::to_string(model_.book.pages.size());
    for (std::size_t i = 0; i < is.pages.size(); ++i) {
        const book::Page& page = is.pages[i];
        const book::Page& expected = model_.book.pages[i];
        const std::string name = "stored page " + std::to_string(i) + ", ";
        for (std::size_t box = 0; box < 3; ++box)
            if (page.text[box] != expected.text[box])
                return name + "box " + std::to_string(box + 1) + ": " + visible(page.text[box])
                    + " instead of " + visible(expected.text[box]);
        if (page.stamp != expected.stamp)
            return name + "stamp " + visible(page.stamp) + " instead of " + visible(expected.stamp);
        if (page.scroll_first != expected.scroll_first || page.scroll_third != expected.scroll_third)
            return name + "scroll " + std::to_string(page.scroll_first) + " instead of "
                + std::to_string(expected.scroll_first);
        if (page.files != expected.files || page.current_file != expected.current_file)
            return name + "files";
        if (!(page == expected))
            return name + "mark " + std::to_string(page.mark) + ", tab " + std::to_string(page.tab_number)
                + ", selection " + std::to_string(static_cast<int>(page.selected)) + ", folder "
                + visible(page.reference_folder) + " or a colour instead of mark "
                + std::to_string(expected.mark) + ", tab " + std::to_string(expected.tab_number)
                + ", selection " + std::to_string(static_cast<int>(expected.selected)) + ", folder "
                + visible(expected.reference_folder);
    }
    return {};
}

std::string Walker::difference() const
{
    const FakeDesk& desk = room_->desk;
    const book::Book& is = room_->session.book();
    const auto& said = room_->talk.said;
    for (std::size_t i = 0; i < std::max(said.size(), model_.said.size()); ++i) {
        const std::wstring a = i < said.size() ? said[i] : L"nothing";
        const std::wstring b = i < model_.said.size() ? model_.said[i] : L"nothing";
        if (a != b)
            return "said: " + visible(a) + " instead of " + visible(b);
    }
    if (room_->talk.gone != model_.is_gone)
        return "the program's end";
    if (is.path != model_.path)
        return "path: " + visible(is.path) + " instead of " + visible(model_.path);
    if (std::string pages = page_difference(); !pages.empty())
        return pages;
    if (!(is.header == model_.book.header))
        return "the header: position " + std::to_string(is.header.position) + ", expected "
            + std::to_string(model_.book.header.position);
    if (room_->session.history().entries() != model_.history)
        return "the history";
    if (model_.is_gone)
        return {};
    for (std::size_t box = 0; box < 3; ++box)
        if (desk.boxes[box].text != model_.boxes[box].text
            || desk.boxes[box].is_edited != model_.boxes[box].is_edited)
            return "box " + std::to_string(box + 1) + " shows " + visible(desk.boxes[box].text)
                + " instead of " + visible(model_.boxes[box].text);
    if (desk.list_edit != model_.list_edit)
        return "the editor of the file list";
    if (desk.scroll != model_.scroll)
        return "the scroll of the boxes";
    const book::Page* shown = room_->session.shown_page();
    const std::size_t shown_index = shown ? static_cast<std::size_t>(shown - is.pages.data()) : book::npos;
    if (shown_index != model_.shown_index())
        return "the shown page";
    if (is.current_index() != model_.current())
        return "the current page";
    if (desk.title != model_.title || desk.has_edited_mark != model_.has_edits())
        return "the title " + visible(desk.title) + " instead of " + visible(model_.title);
    if (is.hits != model_.hits)
        return "hits: " + std::to_string(is.hits.size()) + " instead of "
            + std::to_string(model_.hits.size());
    return {};
}

std::string walk(std::uint32_t seed, std::size_t steps)
{
    std::mt19937 generator(seed);
    Walker walker(
        [&generator](std::uint32_t count) { return static_cast<std::uint32_t>(generator() % count); });
    for (std::size_t i = 0; i < steps; ++i) {
        if (walker.step())
            continue;
        std::string report =
            "seed " + std::to_string(seed) + ", step " + std::to_string(i + 1) + ": " + walker.complaint;
        for (const std::string& step : walker.last_steps)
            report += "\n  " + step;
        return report;
    }
    return walker.check_all() ? std::string{} : "at the end: " + walker.complaint;
}

} // namespace session_walk
