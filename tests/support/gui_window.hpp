// Windows whose messages a test can watch and answer.
#pragma once
#include <algorithm>
#include <functional>
#include <vector>

#include "ovlib/gui/editbox.hpp"
#include "ovlib/gui/subwnd.hpp"

namespace gui {

// Notes the number of every message and lets the test answer first.
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

// A top window, placed and shown without ending the loop when it goes.
class TopWnd : public Watched<ovlib::BaseWnd> {
public:
    using Watched::Watched;
    void on_destroyed(ovlib::WndMessage&) override { ++destroyed; }
    void create_params(CREATESTRUCTW& params) override
    {
        Watched::create_params(params);
        params.x = 100;
        params.y = 80;
        params.cx = 500;
        params.cy = 400;
    }

    int destroyed = 0;
};

class PlainChild : public Watched<ovlib::ChildWnd> {
public:
    PlainChild(ovlib::Wnd* parent, int id)
        : Watched(parent, id)
    {
    }
    void create_params(CREATESTRUCTW& params) override
    {
        Watched::create_params(params);
        params.x = 10;
        params.y = 20;
        params.cx = 100;
        params.cy = 30;
    }
};

class PlainSub : public Watched<ovlib::SubWnd> {
public:
    PlainSub(ovlib::Wnd* parent, int id)
        : Watched(parent, id)
    {
    }
    void create_params(CREATESTRUCTW& params) override
    {
        Watched::create_params(params);
        params.x = 200;
        params.y = 160;
        params.cx = 300;
        params.cy = 200;
    }
    bool on_message(ovlib::WndMessage& message) override
    {
        if (message.message == WM_DESTROY)
            end_run();
        return Watched::on_message(message);
    }
};

class Edit : public Watched<ovlib::EditBox> {
public:
    Edit(ovlib::Wnd* parent, int id)
        : Watched(parent, id)
    {
    }
    void create_params(CREATESTRUCTW& params) override
    {
        Watched::create_params(params);
        params.style |= extra_style;
        params.x = 10;
        params.y = 60;
        params.cx = 300;
        params.cy = 120;
    }

    LONG extra_style = 0;
};

} // namespace gui
