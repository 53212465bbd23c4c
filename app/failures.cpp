#include "app/failures.hpp"
#include "book/my_exception.hpp"
#include "core/titles.hpp"
#include "platform/text.hpp"
#include <cstdint>

namespace app {

namespace {

FailureNotice ending(const std::wstring& text)
{
    return { text + L"\r\nアプリケーションを終了します．", BoxStyle::error, true };
}

std::wstring padded(int number)
{
    return platform::two_digits(static_cast<std::uint64_t>(number));
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
    text.append(core::program_name)
        .append(L" --\r\nThe last modifications were saved.\r\n@ WM_ENDSESSION\r\n\r\n");
    text += std::to_wstring(time.year) + L'/' + padded(time.month) + L'/' + padded(time.day);
    text += L' ' + padded(time.hour) + L':' + padded(time.minute) + L':' + padded(time.second);
    return text;
}

} // namespace app
