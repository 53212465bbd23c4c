// Whether the main window accepts page turns.
#pragma once
#include <functional>
#include <utility>

namespace app {

// Closed while the main window shows a box or a file dialog, and while other windows hold it for their own
// dialogs. Both kinds are counted, so the end of the latest one does not open the gate while an earlier one
// lasts.
class InputGate {
public:
    class Hold;

    InputGate() = default;
    // `changed` is called each time the gate opens or closes.
    explicit InputGate(std::function<void()> changed)
        : changed_(std::move(changed))
    {
    }

    bool is_open() const { return boxes_ == 0 && holds_ == 0; }
    // Each true must be followed by one false. A false without a true has no effect.
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

// Keeps the gate closed for the length of a scope.
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
