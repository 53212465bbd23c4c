// Records a drawn control's calls on a device context with a metafile, which keeps them in order.
#pragma once
#include "ovlib/gui/button.hpp"
#include <windows.h>
#include <algorithm>
#include <string>

namespace gui {

class DrawingRecord {
public:
    DrawingRecord(ovlib::CustomButton& button, SIZE size, UINT state)
    {
        HDC const dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_BUTTON;
        item.itemAction = ODA_DRAWENTIRE;
        item.itemState = state;
        item.hwndItem = button.hwnd();
        item.hDC = dc;
        item.rcItem = { 0, 0, size.cx, size.cy };
        button.draw_item(item);
        HENHMETAFILE const file = CloseEnhMetaFile(dc);
        EnumEnhMetaFile(nullptr, file, &note, this, nullptr);
        DeleteEnhMetaFile(file);
    }

    // One letter per drawing call: "c" for a copied picture, "t" for a text, "?" for anything else.
    const std::string& marks() const { return marks_; }

private:
    static int CALLBACK note(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM self)
    {
        reinterpret_cast<DrawingRecord*>(self)->add(record->iType);
        return 1;
    }
    void add(DWORD type)
    {
        // Records that draw nothing: state, selections and the metafile's own.
        static constexpr DWORD silent[] = { EMR_HEADER, EMR_EOF, EMR_SAVEDC, EMR_RESTOREDC,
            EMR_INTERSECTCLIPRECT, EMR_EXTSELECTCLIPRGN, EMR_SETBKMODE, EMR_SETTEXTCOLOR, EMR_SETBKCOLOR,
            EMR_SETTEXTALIGN, EMR_MOVETOEX, EMR_EXTCREATEFONTINDIRECTW, EMR_SELECTOBJECT, EMR_DELETEOBJECT };
        if (std::find(std::begin(silent), std::end(silent), type) != std::end(silent))
            return;
        const bool copied = type == EMR_SETDIBITSTODEVICE || type == EMR_STRETCHDIBITS || type == EMR_BITBLT;
        marks_ += copied ? 'c' : type == EMR_EXTTEXTOUTW ? 't' : '?';
    }

    std::string marks_;
};

} // namespace gui
