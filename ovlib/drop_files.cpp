#include "ovlib/gui/drop_files.hpp"
#include "ovlib/gui/drag_files.hpp"
#include "ovlib/gui/wnd.hpp"
#include "ovlib/handles.hpp"
#include "ovlib/system_error.hpp"
#include "platform/scoped_flag.hpp"
#include <limits>
#include <utility>

namespace ovlib {

namespace {

using Bytes = std::span<const std::byte>;

struct Formats {
    CLIPFORMAT descriptor = registered(L"FileGroupDescriptorW");
    CLIPFORMAT contents = registered(L"FileContents");

    static CLIPFORMAT registered(const wchar_t* name)
    {
        return static_cast<CLIPFORMAT>(RegisterClipboardFormatW(name));
    }
};

const Formats& formats()
{
    static const Formats registered;
    return registered;
}

bool has(IDataObject& data, CLIPFORMAT format)
{
    FORMATETC asked = memory_format(format);
    return data.QueryGetData(&asked) == S_OK;
}

// The first kind that the source offers; one that offers files and text counts as files.
DropSource kind_of(IDataObject& data)
{
    if (has(data, CF_HDROP))
        return DropSource::files;
    if (has(data, formats().descriptor))
        return DropSource::virtual_files;
    return has(data, CF_UNICODETEXT) ? DropSource::text : DropSource::nothing;
}

std::wstring from_code_page(std::string_view text)
{
    const int size = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), needed);
    return wide;
}

struct OpenFile {
    using Handle = HANDLE;
    static Handle invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Handle file) noexcept { CloseHandle(file); }
};

// Writes the whole block in one call and returns the system's error code, or 0. A path that leads to a device
// is a failure.
DWORD write_file(const std::wstring& path, Bytes bytes)
{
    constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const unique_handle<OpenFile> file{ CreateFileW(
        path.c_str(), GENERIC_WRITE, share_all, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr) };
    if (!file)
        return GetLastError();
    if (GetFileType(file.get()) != FILE_TYPE_DISK)
        return ERROR_BAD_DEVICE;
    DWORD written = 0;
    const auto size = static_cast<DWORD>(bytes.size());
    if (!WriteFile(file.get(), bytes.data(), size, &written, nullptr))
        return GetLastError();
    return written == size ? ERROR_SUCCESS : ERROR_DISK_FULL;
}

// OLE calls these objects, and no exception may reach it.
template <class Body> HRESULT guarded(DWORD* effect, Body body)
try {
    body();
    return S_OK;
} catch (...) {
    if (effect != nullptr)
        *effect = no_drop;
    return E_UNEXPECTED;
}

} // namespace

DropFiles::DropFiles(Wnd* window, Hooks hooks)
    : window_(window)
    , hooks_(std::move(hooks))
{
    formats();
    CoCreateInstance(CLSID_DragDropHelper, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&image_));
}

bool DropFiles::can_accept(DropSource kind, std::uint32_t kinds) const
{
    if (DragScope::is_dragging() || (hooks_.is_accepting && window_ != nullptr && !hooks_.is_accepting()))
        return false;
    return is_allowed(kind, kinds);
}

template <class Step> void DropFiles::show_drag_image(Step step)
{
    if (image_)
        step(*image_.Get());
}

HRESULT DropFiles::DragEnter(IDataObject* data, DWORD, POINTL at, DWORD* reported)
{
    if (reported == nullptr)
        return E_INVALIDARG;
    const Microsoft::WRL::ComPtr<DropFiles> self{ this };
    return guarded(reported, [&] {
        enter(data, at, *reported);
        *reported = effect;
        show_drag_image([&](IDropTargetHelper& image) {
            POINT place{ at.x, at.y };
            if (data != nullptr && window_ != nullptr)
                image.DragEnter(window_->hwnd(), data, &place, effect);
        });
        notify(DropCode::entered);
    });
}

// While a drop runs, its result and its place stay.
void DropFiles::enter(IDataObject* data, POINTL at, DWORD offered)
{
    effect = no_drop;
    source = DropSource::nothing;
    if (is_dropping_)
        return;
    paths.clear();
    point = at;
    if (data == nullptr)
        return;
    source = kind_of(*data);
    effect = drop_effect(can_accept(source, allowed_kinds), offered);
}

HRESULT DropFiles::DragOver(DWORD, POINTL at, DWORD* reported)
{
    if (reported == nullptr)
        return E_INVALIDARG;
    const Microsoft::WRL::ComPtr<DropFiles> self{ this };
    return guarded(reported, [&] {
        if (!is_dropping_)
            point = at;
        *reported = effect;
        show_drag_image([&](IDropTargetHelper& image) {
            POINT place{ at.x, at.y };
            image.DragOver(&place, effect);
        });
        notify(DropCode::moved);
    });
}

HRESULT DropFiles::DragLeave()
{
    const Microsoft::WRL::ComPtr<DropFiles> self{ this };
    return guarded(nullptr, [&] {
        show_drag_image([](IDropTargetHelper& image) { image.DragLeave(); });
        notify(DropCode::left);
    });
}

// Calls of the source and the dialogs of a drop dispatch messages, and one of those may take this object's
// last other reference along.
HRESULT DropFiles::Drop(IDataObject* data, DWORD, POINTL at, DWORD* reported)
{
    if (reported == nullptr)
        return E_INVALIDARG;
    const Microsoft::WRL::ComPtr<DropFiles> self{ this };
    return guarded(reported, [&] {
        if (is_dropping_) {
            *reported = no_drop;
            return;
        }
        const platform::ScopedFlag dropping{ is_dropping_ };
        show_drag_image([&](IDropTargetHelper& image) {
            POINT place{ at.x, at.y };
            if (data != nullptr)
                image.Drop(data, &place, effect);
        });
        drop(data, at, *reported);
    });
}

void DropFiles::drop(IDataObject* data, POINTL at, DWORD& reported)
{
    point = at;
    // A box may have opened since the source entered.
    const bool is_wanted = effect == drop_copy && data != nullptr && can_accept(source, allowed_kinds);
    if (const auto code = is_wanted ? take(*data, source) : std::nullopt) {
        reported = drop_copy;
        notify(*code);
        return;
    }
    paths.clear();
    reported = no_drop;
    notify(DropCode::nothing_taken);
}

std::optional<DropCode> DropFiles::take(IDataObject& data, DropSource kind)
{
    const auto if_taken = [](bool is_taken, DropCode code) {
        return is_taken ? std::optional{ code } : std::nullopt;
    };
    switch (kind) {
    case DropSource::files:
        return if_taken(take_files(data), DropCode::files);
    case DropSource::virtual_files:
        return if_taken(take_virtual_files(data), DropCode::virtual_files);
    case DropSource::text:
        return if_taken(take_text(data), DropCode::text);
    default:
        return std::nullopt;
    }
}

bool DropFiles::take_files(IDataObject& data)
{
    StorageMedium medium;
    if (!medium.get(data, memory_format(CF_HDROP)))
        return false;
    const GlobalBlock block{ medium.memory() };
    paths = dropped_paths(block.bytes(), &from_code_page);
    return !paths.empty();
}

bool DropFiles::take_text(IDataObject& data)
{
    StorageMedium medium;
    if (!medium.get(data, memory_format(CF_UNICODETEXT)))
        return false;
    const GlobalBlock block{ medium.memory() };
    paths = { dropped_text(block.bytes()) };
    return true;
}

bool DropFiles::take_virtual_files(IDataObject& data)
{
    std::vector<VirtualFile> files;
    {
        StorageMedium medium;
        if (!medium.get(data, memory_format(formats().descriptor)))
            return false;
        const GlobalBlock block{ medium.memory() };
        files = virtual_files(block.bytes());
    }
    LONG index = 0;
    for (const VirtualFile& file : files) {
        if (!has_window()) // closed during one of the dialogs
            break;
        save_virtual_file(data, file, index++);
    }
    return !paths.empty();
}

// The block is written and released before the next question, so only one is held at a time.
void DropFiles::save_virtual_file(IDataObject& data, const VirtualFile& file, LONG index)
{
    StorageMedium medium;
    if (!medium.get(data, memory_format(formats().contents, index)) || file.name.empty())
        return;
    const GlobalBlock block{ medium.memory() };
    const std::uint64_t size = content_size(file, block.bytes().size());
    if (size == 0)
        return;
    if (size > std::numeric_limits<DWORD>::max()) { // more than one call can write
        report_failure(ERROR_FILE_TOO_LARGE, file.name);
        return;
    }
    std::wstring name = file.name;
    if (!ask_for_path(name))
        return;
    const DWORD error = write_file(name, block.bytes().first(static_cast<std::size_t>(size)));
    if (error == ERROR_SUCCESS)
        paths.push_back(std::move(name));
    else
        report_failure(error, name);
}

bool DropFiles::ask_for_path(std::wstring& name)
{
    std::wstring* const outer = std::exchange(asked_name_, &name);
    const std::int64_t answer =
        notify(DropCode::save_path, static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(&name)));
    asked_name_ = outer;
    return answer != 0 && !name.empty();
}

std::wstring* DropFiles::proposed_name(std::int64_t lparam) const
{
    const auto asked = static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(asked_name_));
    return asked_name_ != nullptr && asked == lparam ? asked_name_ : nullptr;
}

void DropFiles::report_failure(std::uint32_t error, const std::wstring& name)
{
    const std::wstring text = system_error_text(error) + name;
    if (window_ == nullptr)
        return;
    if (hooks_.show_failure)
        hooks_.show_failure(text);
    else
        window_->message_box(text, save_failure_caption, MB_ICONWARNING);
}

std::int64_t DropFiles::notify(DropCode code, std::int64_t lparam)
{
    constexpr std::uint32_t first_message = 0x8000;
    if (!has_window() || message < first_message)
        return 0;
    notified_ = std::pair{ code, lparam };
    const std::int64_t answer = window_->send(message, MAKEWPARAM(0, static_cast<WORD>(code)), lparam);
    notified_.reset();
    return answer;
}

bool DropFiles::has_window() const
{
    return window_ != nullptr && window_->is_window();
}

bool DropFiles::take_notification(DropCode code, std::int64_t lparam)
{
    const bool is_own = notified_ == std::pair{ code, lparam };
    if (is_own)
        notified_.reset();
    return is_own;
}

} // namespace ovlib
