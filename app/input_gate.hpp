// Whether the main window takes page turns just now.
#pragma once
#include <functional>
#include <utility>

namespace app {

// Closed while a box or file dialog of the main window is open and while other windows hold it for dialogs of
// their own. Both nest: what closed it last must not open it for what closed it first.
class InputGate {
public:
    class Hold;

    InputGate() = default;
    // `changed` is called whenever the gate has opened or closed.
    explicit InputGate(std::function<void()> changed)
        : changed_(std::move(changed))
    {
    }

    bool is_open() const { return boxes_ == 0 && holds_ == 0; }
    // Each holding asks for one releasing; a releasing without its holding does nothing.
    void set_held(bool held)
    {
        if (held)
            add(holds_, 1);
        else if (holds_ > 0)
            add(holds_, -1);
    }

private:
    void add(int& count, int step)
    {
        const bool was_open = is_open();
        count += step;
        if (changed_ && is_open() != was_open)
            changed_();
    }

    std::function<void()> changed_;
    int boxes_ = 0;
    int holds_ = 0;
};

// Keeps the gate closed while it lives.
class InputGate::Hold {
public:
    explicit Hold(InputGate& gate)
        : gate_(gate)
    {
        gate_.add(gate_.boxes_, 1);
    }
    ~Hold() { gate_.add(gate_.boxes_, -1); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

private:
    InputGate& gate_;
};

} // namespace app
