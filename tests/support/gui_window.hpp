// Windows whose messages a test can record and handle.
#pragma once
#include "ovlib/gui/editbox.hpp"
#include "ovlib/gui/subwnd.hpp"
#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace gui {

// Records the number of every message and lets the test handle it first.
template <class Base> class Watched : public Base {
public:
    using Base::Base;

    bool on_message(ovlib::WndMessage& message) override
    {
        seen.push_back(message.message);
        if (answer) {
            const auto keep_alive = answer; // the handler may delete the window
            return keep_alive(message);
        }
        return Base::on_message(message);
    }
    std::ptrdiff_t count(std::uint32_t message) const
    {
        return std::count(seen.begin(), seen.end(), message);
    }

    std::vector<std::uint32_t> seen;
    std::function<bool(ovlib::WndMessage&)> answer;
};

// A window created at this position and size.
template <class Base, int x, int y, int width, int height> class Placed : public Base {
public:
    using Base::Base;
    void create_params(CREATESTRUCTW& params) override
    {
        Base::create_params(params);
        params.x = x;
        params.y = y;
        params.cx = width;
        params.cy = height;
    }
};

// A placed and visible top-level window whose destruction does not end the message loop.
class TopWnd : public Placed<Watched<ovlib::BaseWnd>, 100, 80, 500, 400> {
public:
    using Placed::Placed;
    void on_destroyed(ovlib::WndMessage&) override { ++destroyed; }

    int destroyed = 0;
};

class PlainChild : public Placed<Watched<ovlib::ChildWnd>, 10, 20, 100, 30> {
public:
    PlainChild(ovlib::Wnd* parent, int id)
        : Placed(parent, id)
    {
    }
};

class PlainSub : public Placed<Watched<ovlib::SubWnd>, 200, 160, 300, 200> {
public:
    PlainSub(ovlib::Wnd* parent, int id)
        : Placed(parent, id)
    {
    }
    bool on_message(ovlib::WndMessage& message) override
    {
        if (message.message == WM_DESTROY)
            end_run();
        return Placed::on_message(message);
    }
};

class Edit : public Placed<Watched<ovlib::EditBox>, 10, 60, 300, 120> {
public:
    Edit(ovlib::Wnd* parent, int id)
        : Placed(parent, id)
    {
    }
    void create_params(CREATESTRUCTW& params) override
    {
        Placed::create_params(params);
        params.style |= extra_style;
    }

    LONG extra_style = 0;
};

// During its lifetime, creating a window of that class fails in this thread.
class RefusedWindows {
public:
    explicit RefusedWindows(std::wstring class_name)
    {
        refused_ = std::move(class_name);
        hook_ = SetWindowsHookExW(WH_CBT, &RefusedWindows::on_event, nullptr, GetCurrentThreadId());
    }
    RefusedWindows(const RefusedWindows&) = delete;
    RefusedWindows& operator=(const RefusedWindows&) = delete;
    ~RefusedWindows() { UnhookWindowsHookEx(hook_); }

private:
    static LRESULT CALLBACK on_event(int code, WPARAM wparam, LPARAM lparam)
    {
        if (code == HCBT_CREATEWND) {
            wchar_t name[64] = {};
            GetClassNameW(reinterpret_cast<HWND>(wparam), name, 64);
            if (lstrcmpiW(name, refused_.c_str()) == 0)
                return 1;
        }
        return CallNextHookEx(nullptr, code, wparam, lparam);
    }

    inline static std::wstring refused_;
    HHOOK hook_;
};

} // namespace gui
