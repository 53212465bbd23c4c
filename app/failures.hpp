// How a failure is reported to the user, and the text of the file that is written when Windows ends the
// session.
#pragma once
#include "platform/clock.hpp"
#include <cstdint>
#include <exception>
#include <string>

namespace app {

// Styles of message boxes, with the system's numbers.
enum class BoxStyle : std::uint32_t {
    plain = 0,
    error = 16,
    question = 36,
    warning = 48,
    warning_question = 52
};

// The system's number of the yes button.
inline constexpr int answer_yes = 6;

struct FailureNotice {
    std::wstring text;
    BoxStyle style = BoxStyle::error;
    bool ends_program = true;

    friend bool operator==(const FailureNotice&, const FailureNotice&) = default;
};

enum class FailedAt { creation, command };

// The notice for an exception that left a command or the creation of the main window. `failure` must not be
// null.
FailureNotice failure_notice(const std::exception_ptr& failure, FailedAt where);

// The complete text of the file written at WM_ENDSESSION.
std::wstring end_of_logon_text(const platform::LocalTime& time);

} // namespace app
