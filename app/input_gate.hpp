// Whether the main window takes page turns just now.
#pragma once

namespace app {

// Closed while a box or file dialog of the main window is open, however deep they nest, and while another
// window holds it for a dialog of its own.
class InputGate {
public:
    class Hold;

    bool is_open() const { return boxes_ == 0 && !held_; }
    void set_held(bool held) { held_ = held; }

private:
    int boxes_ = 0;
    bool held_ = false;
};

// Keeps the gate closed while it lives.
class InputGate::Hold {
public:
    explicit Hold(InputGate& gate)
        : gate_(gate)
    {
        ++gate_.boxes_;
    }
    ~Hold() { --gate_.boxes_; }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

private:
    InputGate& gate_;
};

} // namespace app
