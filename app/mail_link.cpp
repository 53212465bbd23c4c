#include "app/mail_link.hpp"
#include "media/entry_text.hpp"
#include "platform/text.hpp"

namespace app {

std::wstring mail_link(std::wstring_view address, std::wstring_view subject, std::wstring_view body)
{
    return platform::from_utf8("mailto:" + media::percent_encode(address)
        + "?Subject=" + media::percent_encode(subject) + "&Body=" + media::percent_encode(body));
}

} // namespace app
