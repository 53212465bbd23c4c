// The program's lists: columns under a header, in the theme's colours.
#pragma once
#include "look/wnd/themed.hpp"
#include "ovlib/gui/virtual_list.hpp"

namespace look {

// A header in the theme's colours.
class MyHeader : public ovlib::ListView::Header {
public:
    using Header::Header;

protected:
    void draw(ovlib::BackBuffer& buffer) override;
};

// A list class of the library with the theme's colours and a header in them. It applies the colours when it
// is created and at every apply_theme. Its constructors are those of `List`.
template <class List> class ThemedList : public List, public Themed {
public:
    using List::List;

    bool create(const std::wstring& title) override;

    void apply_theme() override;

private:
    MyHeader header_{ this };
};

extern template class ThemedList<ovlib::ReportListView>;
extern template class ThemedList<ovlib::VirtualList>;

class MyListView : public ThemedList<ovlib::ReportListView> {
public:
    using ThemedList::ThemedList;
};

class MyVirtualList : public ThemedList<ovlib::VirtualList> {
public:
    using ThemedList::ThemedList;
};

} // namespace look
