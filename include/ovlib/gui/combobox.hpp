// The system's combo box.
#pragma once
#include "ovlib/gui/syscontrol.hpp"

namespace ovlib {

// Indices count from 0. What has no answer, such as the item at an index out of range, is CB_ERR (-1).
class ComboBox : public SysControl {
public:
    // `style` holds the CBS_ bits.
    ComboBox(Wnd* parent, int control_id, DWORD style);

    std::wstring class_info(WNDCLASSEXW& info) override;
    void create_params(CREATESTRUCTW& params) override;

    virtual int count() const;
    virtual void clear();
    virtual void show_list(bool shown);
    virtual int remove(int index);
    virtual int insert(int index, const std::wstring& text);
    // Return the new item's index, or CB_ERR or CB_ERRSPACE.
    virtual int add(const std::wstring& text, std::int64_t value);
    virtual int add(const std::wstring& text);
    virtual void set_item_data(int index, std::int64_t value);
    virtual std::int64_t item_data(int index) const;
    virtual void set_min_visible(int count);
    virtual int select(int index);
    virtual int selected() const;
    virtual void clear_selection();
    virtual int text_length(int index) const;
    // Empty when there is no such item.
    virtual std::wstring item_text(int index) const;
    // Gives the item another text; it keeps its value and stays selected. Without `redraw` the box stays
    // frozen until the caller ends that with set_redraw. An index out of range does nothing.
    virtual void replace(int index, const std::wstring& text, bool redraw);
    // Searches behind `start`, from the first item for -1, and goes round.
    virtual int find_exact(const std::wstring& text, int start) const;
    virtual HWND edit_child() const;

    using SysControl::text_length;

    // Neither a number nor a literal may turn into a bool unseen.
    template <class T>
    requires(!std::same_as<T, bool>) void show_list(T) = delete;

    int min_visible() const;

private:
    DWORD style_;
};

} // namespace ovlib
