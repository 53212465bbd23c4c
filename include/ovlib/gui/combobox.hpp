// The system's combo box.
#pragma once
#include "ovlib/gui/syscontrol.hpp"

namespace ovlib {

// Indices count from 0. A query without a result, such as for an index out of range, returns CB_ERR (-1).
class ComboBox : public SysControl {
public:
    // `style` contains the CBS_ bits.
    ComboBox(Wnd* parent, int control_id, DWORD style);

    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    virtual int count() const;
    virtual void clear();
    virtual void show_list(bool shown);
    virtual int remove(int index);
    virtual int insert(int index, const std::wstring& text);
    // Returns the index of the new item, or CB_ERR or CB_ERRSPACE.
    virtual int add(const std::wstring& text, std::int64_t value);
    virtual int add(const std::wstring& text);
    virtual void set_item_data(int index, std::int64_t value);
    virtual std::int64_t item_data(int index) const;
    virtual void set_min_visible(int count);
    virtual int select(int index);
    virtual int selected() const;
    virtual void clear_selection();
    virtual int text_length(int index) const;
    // Empty if there is no such item.
    virtual std::wstring item_text(int index) const;
    // Replaces the text of an item, which keeps its value and its selection. Without `redraw` the box stays
    // frozen until the caller calls set_redraw(true). Does nothing for an index out of range.
    virtual void replace(int index, const std::wstring& text, bool redraw);
    // Searches from the item after `start`, wraps at the end; -1 searches from the first item.
    virtual int find_exact(const std::wstring& text, int start) const;
    virtual HWND edit_child() const;

    using SysControl::text_length;

    // Prevents the implicit conversion of numbers and literals to bool.
    template <class T>
    requires(!std::same_as<T, bool>) void show_list(T) = delete;

    int min_visible() const;

private:
    DWORD style_;
};

} // namespace ovlib
