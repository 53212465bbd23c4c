#include "app/failures.hpp"
#include "app/titles.hpp"
#include "book/my_exception.hpp"
#include "platform/text.hpp"

namespace app {

using platform::two_digits;

namespace {

FailureNotice ending(const std::wstring& text)
{
    return { text + L"\r\nアプリケーションを終了します．", BoxStyle::error, true };
}

} // namespace

FailureNotice failure_notice(const std::exception_ptr& failure, FailedAt where)
{
    try {
        std::rethrow_exception(failure);
    } catch (const MyException& error) {
        if (where == FailedAt::command && !error.is_fatal())
            return { error.message, BoxStyle::warning, false };
        return ending(error.message);
    } catch (const std::exception& error) {
        return ending(platform::from_utf8(error.what()));
    }
}

std::wstring end_of_logon_text(const platform::LocalTime& time)
{
    std::wstring text = L"-- ";
    text.append(program_name).append(L" --\r\nThe last modifications were saved.\r\n@ WM_ENDSESSION\r\n\r\n");
    text += std::to_wstring(time.year) + L'/' + two_digits(time.month) + L'/' + two_digits(time.day);
    text += L' ' + two_digits(time.hour) + L':' + two_digits(time.minute) + L':' + two_digits(time.second);
    return text;
}

} // namespace app
