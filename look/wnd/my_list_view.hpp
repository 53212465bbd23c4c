// The list of the program: columns under a header in the theme's colours.
#pragma once
#include "look/wnd/themed.hpp"
#include "ovlib/gui/listview.hpp"

namespace look {

// Takes the theme's colours when it is created and at every apply_theme.
class MyListView : public ovlib::ReportListView, public Themed {
public:
    // `style` holds further LVS_ bits.
    MyListView(ovlib::Wnd* parent, int control_id, DWORD style = 0);

    bool create(const std::wstring& title) override;

    void apply_theme() override;

private:
    class MyHeader : public Header {
    public:
        using Header::Header;

    protected:
        void draw(ovlib::BackBuffer& buffer) override;
    };

    MyHeader header_{ this };
};

} // namespace look
