#include "driver_drag.hpp"
#include "driver_input.hpp"
#include "driver_wait.hpp"
#include <ole2.h>

namespace e2e {

namespace {

constexpr auto partner_class = L"e2e_drag_partner";
constexpr POINT corner{ 20, 20 };
constexpr int side = 40;

} // namespace

// The end comes from the test and not from the buttons, whose state not every screen passes on.
class DragPartner::Source : public ovlib::ComObject<Source, IDropSource, IID_IDropSource> {
public:
    explicit Source(DragPartner& partner)
        : partner_(partner)
    {
    }
    virtual ~Source() = default;
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape_pressed, DWORD) override
    {
        if (escape_pressed)
            return DRAGDROP_S_CANCEL;
        return partner_.is_released_ ? DRAGDROP_S_DROP : S_OK;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override
    {
        partner_.feedback_ = static_cast<int>(effect);
        return DRAGDROP_S_USEDEFAULTCURSORS;
    }

private:
    DragPartner& partner_;
};

class DragPartner::Target : public ovlib::ComObject<Target, IDropTarget, IID_IDropTarget> {
public:
    explicit Target(DragPartner& partner)
        : partner_(partner)
    {
    }
    virtual ~Target() = default;
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD, POINTL, DWORD* effect) override
    {
        ++partner_.entries_;
        *effect = DROPEFFECT_COPY;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) override
    {
        *effect = DROPEFFECT_COPY;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) override
    {
        *effect = DROPEFFECT_COPY;
        FORMATETC asked{ CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL };
        STGMEDIUM medium{};
        if (SUCCEEDED(data->GetData(&asked, &medium))) {
            read(static_cast<HDROP>(medium.hGlobal));
            ReleaseStgMedium(&medium);
        }
        ++partner_.drops_;
        return S_OK;
    }

private:
    void read(HDROP drop) const
    {
        const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
        for (UINT i = 0; i < count; ++i) {
            std::wstring path(DragQueryFileW(drop, i, nullptr, 0), L'\0');
            DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size() + 1));
            partner_.received_.push_back(path);
        }
    }

    DragPartner& partner_;
};

DragPartner::DragPartner()
    : thread_([this] { run(); })
{
    require("the partner's window shows", [this] { return hwnd_ != nullptr; });
}

DragPartner::~DragPartner()
{
    is_released_ = true;
    PostMessageW(hwnd_, WM_CLOSE, 0, 0);
    thread_.join();
}

POINT DragPartner::place() const
{
    return Window{ hwnd_ }.center();
}

void DragPartner::run()
{
    OleInitialize(nullptr);
    WNDCLASSW info{};
    info.lpfnWndProc = &DragPartner::on_message;
    info.lpszClassName = partner_class;
    info.hbrBackground = static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH));
    RegisterClassW(&info);
    HWND const hwnd = CreateWindowExW(WS_EX_TOPMOST, partner_class, L"drag", WS_POPUP | WS_VISIBLE, corner.x,
        corner.y, side, side, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    auto* const target = new Target{ *this };
    RegisterDragDrop(hwnd, target);
    hwnd_ = hwnd;
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    RevokeDragDrop(hwnd);
    target->Release();
    DestroyWindow(hwnd);
    OleUninitialize();
}

LRESULT CALLBACK DragPartner::on_message(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam)
{
    auto* const partner = reinterpret_cast<DragPartner*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (message == WM_LBUTTONDOWN && partner && partner->fill_) {
        partner->drag();
        return 0;
    }
    if (message == WM_CLOSE) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(hwnd, message, wparam, lparam);
}

void DragPartner::drag()
{
    auto* const data = new test_support::FakeSource;
    auto* const source = new Source{ *this };
    fill_(*data);
    is_dragging_ = true;
    DWORD effect = 0;
    result_ = DoDragDrop(data, source, DROPEFFECT_COPY | DROPEFFECT_MOVE, &effect);
    effect_ = effect;
    source->Release();
    data->Release();
    is_dragging_ = false;
}

void DragPartner::drag_to(POINT to, const std::function<void(test_support::FakeSource&)>& fill)
{
    fill_ = fill;
    is_released_ = false;
    feedback_ = -1;
    result_ = S_OK;
    at_ = to;
    require("a drag begins", [this] {
        move_mouse(place());
        press_mouse(place());
        return wait_until([this] { return is_dragging_.load(); }, milliseconds{ 500 });
    });
    lead_mouse(place(), to);
    require("the program answers the drag", [this, to] { return moves_on(to) && feedback().has_value(); });
}

bool DragPartner::moves_on(POINT around)
{
    move_mouse({ around.x + 1, around.y });
    move_mouse(around);
    return true;
}

void DragPartner::release(Then then)
{
    is_released_ = true;
    release_mouse(at_);
    if (then == Then::wait)
        wait_for_end();
}

void DragPartner::cancel()
{
    press(VK_ESCAPE);
    wait_for_end();
    release_mouse(at_);
}

// Each question about going on comes with a movement or a key.
void DragPartner::wait_for_end() const
{
    require("the drag ends", [this] { return !is_dragging_; });
}

std::optional<DWORD> DragPartner::feedback() const
{
    const int reported = feedback_;
    return reported < 0 ? std::nullopt : std::optional{ static_cast<DWORD>(reported) };
}

std::vector<std::wstring> DragPartner::received() const
{
    return received_;
}

} // namespace e2e
