// Drops of files, attachments and text on a window.
#pragma once
#include "controls/drop_data.hpp"
#include "ovlib/gui/com_object.hpp"
#include <functional>
#include <oleidl.h>
#include <optional>
#include <shlobj.h>
#include <string>
#include <utility>
#include <vector>
#include <wrl/client.h>

namespace ovlib {

class Wnd;

inline constexpr wchar_t save_failure_caption[] = L"保存エラー";

// What the window is notified of: `message` with the code in the high word of wparam.
enum class DropCode : std::uint16_t {
    nothing_taken = 0,
    files = 1,
    virtual_files = 2, // saved as files
    text = 3,
    entered = 4,
    moved = 5,
    left = 6,
    save_path = 7, // asks for a path, see proposed_name; zero declines
};

// The target of a window. It is created on the heap, registered with RegisterDragDrop and used on the
// window's thread. The order of the virtual functions is fixed. A source that reaches this object while a
// drop runs is refused: dialogs of the drop dispatch messages.
class DropFiles : public ComObject<DropFiles, IDropTarget, IID_IDropTarget> {
public:
    struct Hooks {
        // Whether the window takes drops at this moment. Empty: always.
        std::function<bool()> is_accepting;
        // Shows why an attachment could not be written. Empty: a message box of the window.
        std::function<void(const std::wstring& text)> show_failure;
    };

    // Both, and what the hooks use, must live until `detach`.
    explicit DropFiles(Wnd* window, Hooks hooks = {});
    // Nothing is notified afterwards, although the system may keep references.
    void detach() { window_ = nullptr; }

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragLeave() override;
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;
    // Put the data into `paths`. False if there was none.
    virtual bool take_virtual_files(IDataObject& data);
    virtual bool take_files(IDataObject& data);
    virtual bool take_text(IDataObject& data); // as one entry
    virtual ~DropFiles() = default;
    virtual bool can_accept(DropSource source, std::uint32_t kinds) const;

    // During the notification `save_path` with this lparam: the name that the source proposes, to be replaced
    // by a full path. Null otherwise: any program can send that message with any address.
    std::wstring* proposed_name(std::int64_t lparam) const;

    // Whether this object has sent the notification that the window got, and sent it only once: any program
    // can send the same message.
    bool take_notification(DropCode code, std::int64_t lparam);

    std::uint32_t message = 0; // of the notifications; none below 0x8000
    std::uint32_t effect = no_drop; // decided when the source entered
    POINTL point{}; // of the last event, on the screen
    std::vector<std::wstring> paths; // the result of a drop, until a source enters
    DropSource source = DropSource::nothing;
    std::uint32_t allowed_kinds = all_drop_kinds;

private:
    void enter(IDataObject* data, POINTL at, DWORD offered);
    void drop(IDataObject* data, POINTL at, DWORD& effect);
    std::optional<DropCode> take(IDataObject& data, DropSource kind);
    void save_virtual_file(IDataObject& data, const VirtualFile& file, LONG index);
    bool ask_for_path(std::wstring& name);
    void report_failure(std::uint32_t error, const std::wstring& name);
    std::int64_t notify(DropCode code, std::int64_t lparam = 0);
    bool has_window() const;
    // Shows the picture that the source drags along.
    template <class Step> void show_drag_image(Step step);

    Wnd* window_;
    Hooks hooks_;
    Microsoft::WRL::ComPtr<IDropTargetHelper> image_;
    std::wstring* asked_name_ = nullptr;
    std::optional<std::pair<DropCode, std::int64_t>> notified_; // until the window got it
    bool is_dropping_ = false;
};

} // namespace ovlib
