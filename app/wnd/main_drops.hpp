// Drops of files, attachments and text on the main window.
#pragma once
#include "app/page_note.hpp"
#include "app/settings_actions.hpp"
#include "ovlib/gui/drop_files.hpp"
#include <cstdint>
#include <optional>
#include <string>
#include <vector>
#include <wrl/client.h>

namespace app {

struct MainParts;

// Messages of the main window: a notification of its drop target, and the posted one that shows the question
// about dropped files.
inline constexpr std::uint32_t drop_notification = 0x8001;
inline constexpr std::uint32_t drop_question = 0x8002;
// A timer of the main window: the question waits for the end of a box.
inline constexpr std::uintptr_t question_timer = 1;

// A drop is a call of the other process, which waits until it returns. So the question about the files is
// shown after it, by a posted message. Only the paths of attachments are asked for within the drop, because
// they decide its result.
class MainDrops {
public:
    // `parts` must outlive it.
    explicit MainDrops(MainParts& parts);
    ~MainDrops();
    MainDrops(const MainDrops&) = delete;
    MainDrops& operator=(const MainDrops&) = delete;

    // Registers the target of the main window. If the system refuses it, nothing can be dropped.
    void start();
    // Nothing can be dropped afterwards. May be called again.
    void stop();

    // Returns the result of drop_notification. Any program can send that message.
    std::int64_t on_notification(std::uint16_t code, std::int64_t lparam);
    // Serves drop_question and question_timer.
    void ask_about_files();
    // The paths that the running command adds. Empty if no drop sent it.
    std::vector<std::wstring> take_paths();

private:
    // Dropped files until the user has chosen what to do with them.
    struct Question {
        std::vector<std::wstring> paths;
        platform::Point center; // of the window that asks
        std::optional<PageNote> page;
        BookNote book;
    };

    bool is_accepting() const;
    bool can_ask() const;
    void ask_later();
    std::int64_t serve(ovlib::DropCode code, std::int64_t lparam);
    void take_question(platform::Point center);
    bool is_same(const Question& question) const;
    int ask(const Question& question);
    void put_text(const std::wstring& text, platform::Point at);
    bool choose_path(std::wstring* name);
    void show_failure(const std::wstring& text);

    MainParts& parts_;
    Microsoft::WRL::ComPtr<ovlib::DropFiles> target_; // null while nothing can be dropped
    std::optional<Question> question_; // until its message comes
    bool is_asking_ = false;
    std::vector<std::wstring> paths_; // of the command that is being sent
};

} // namespace app
