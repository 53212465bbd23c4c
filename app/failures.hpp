// How a failure is told to the user, and what is left behind when Windows ends the logon.
#pragma once
#include "platform/clock.hpp"
#include <cstdint>
#include <exception>
#include <string>

namespace app {

// Styles of message boxes, as the system numbers them.
enum class BoxStyle : std::uint32_t {
    plain = 0,
    error = 16,
    question = 36,
    warning = 48,
    warning_question = 52
};

// The button that means yes.
inline constexpr int answer_yes = 6;

struct FailureNotice {
    std::wstring text;
    BoxStyle style = BoxStyle::error;
    bool ends_program = true;

    friend bool operator==(const FailureNotice&, const FailureNotice&) = default;
};

enum class FailedAt { creation, command };

// What to tell of an exception that left the creation of the main window or a command. `failure` must hold
// one.
FailureNotice failure_notice(const std::exception_ptr& failure, FailedAt where);

// The whole text of the file written at WM_ENDSESSION.
std::wstring end_of_logon_text(const platform::LocalTime& time);

} // namespace app
