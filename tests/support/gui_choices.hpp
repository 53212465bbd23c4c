// Answers the colour and the font dialog of the system without showing them.
#pragma once
#include "tests/support/gui_calls.hpp"
#include <windows.h>
#include <commdlg.h>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

// The addresses of the imports, which the linker names after the functions.
extern "C" void* __imp_ChooseColorW; // NOLINT(bugprone-reserved-identifier)
extern "C" void* __imp_ChooseFontW; // NOLINT(bugprone-reserved-identifier)

namespace gui {

// Answers the colour dialog.
class ColorAnswer {
public:
    explicit ColorAnswer(
        std::optional<COLORREF> answer, std::function<void()> meanwhile = [] {})
    {
        chosen = answer;
        action = std::move(meanwhile);
        shown.clear();
    }

    static inline std::vector<CHOOSECOLORW> shown;

private:
    static BOOL WINAPI note(CHOOSECOLORW* record)
    {
        shown.push_back(*record);
        action();
        record->rgbResult = chosen.value_or(0x777777);
        return chosen.has_value();
    }
    static inline std::optional<COLORREF> chosen;
    static inline std::function<void()> action;
    ReplacedImport<decltype(ChooseColorW)> import_{ &__imp_ChooseColorW, &note };
};

// Answers the font dialog.
class FontAnswer {
public:
    explicit FontAnswer(
        std::optional<LONG> height, std::function<void()> meanwhile = [] {})
    {
        chosen = height;
        action = std::move(meanwhile);
        shown.clear();
        fonts.clear();
    }

    static inline std::vector<CHOOSEFONTW> shown;
    static inline std::vector<LOGFONTW> fonts;

private:
    static BOOL WINAPI note(CHOOSEFONTW* record)
    {
        shown.push_back(*record);
        fonts.push_back(*record->lpLogFont);
        action();
        record->lpLogFont->lfHeight = chosen.value_or(-99);
        return chosen.has_value();
    }
    static inline std::optional<LONG> chosen;
    static inline std::function<void()> action;
    ReplacedImport<decltype(ChooseFontW)> import_{ &__imp_ChooseFontW, &note };
};

} // namespace gui
