// Mails are written in the user's mail program, which opens addresses of this form.
#pragma once
#include <string>
#include <string_view>

namespace app {

inline constexpr wchar_t mail_failure[] = L"Error: 既定のメーラーを開けませんでした．";

std::wstring mail_link(std::wstring_view address, std::wstring_view subject, std::wstring_view body);

} // namespace app
