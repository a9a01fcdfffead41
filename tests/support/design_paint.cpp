#include "tests/support/design_paint.h"

#include "designer/item_paint.h"
#include "frame/text.h"

DesignPaint::DesignPaint() {
    session->view.ViewWidth = 1000;
    session->view.ViewHeight = 800;
    session->palette = {0, 0xFFFFFF, 0x7F7F7F, 0xFF, 0x7F7F00};
    session->device.SolidPen = CreatePen(PS_SOLID, 1, 0);
    session->device.DotPen = CreatePen(PS_DOT, 1, 0);
    session->device.GroupPen = CreatePen(PS_SOLID, 1, 0xFF);
    session->device.FontHeight = 40;
    session->form.Header.BarHeight = 40;
    session->form.Header.RulerFlags = RULER_INCHES | RULER_SHOWN;
    session->form.SelectedItem = -1;
}

DesignPaint::~DesignPaint() {
    for (const HPEN pen :
         {session->device.SolidPen, session->device.DotPen, session->device.GroupPen})
        DeleteObject(pen);
    for (const FontEntry *font = session->form.Fonts; font < session->form.Fonts + MAX_FONTS;
         ++font) {
        if (font->Font) DeleteObject(font->Font);
        if (font->Bitmap) DeleteObject(font->Bitmap);
    }
    if (session->designer) session->DropDesigner(session);
}

ItemRecord &DesignPaint::Add(int type, const RECT &place) {
    ItemRecord &item = session->form.Items[session->form.TotalItems++];
    item = ItemRecord{};
    item.ItemType = static_cast<uint16_t>(type);
    item.x = static_cast<int16_t>(place.left);
    item.y = static_cast<int16_t>(place.top);
    item.width = static_cast<int16_t>(place.right - place.left);
    item.height = static_cast<int16_t>(place.bottom - place.top);
    return item;
}

ItemRecord &DesignPaint::AddText(int type, const RECT &place, const std::string &text) {
    ItemRecord &item = Add(type, place);
    tessarine::CopyText(text.c_str(), item.LabelText, sizeof item.LabelText);
    return item;
}

FieldRecord &DesignPaint::AddField(int type, const RECT &place, const std::string &sample) {
    const int row = session.AddField(FIELD_DATA, "F", type);
    AddText(ITEM_FIELD, place, sample).FieldIndex = static_cast<int16_t>(row);
    return session->form.Fields[row];
}

int DesignPaint::AddFont() {
    const int row = session->form.FontCount++;
    FontEntry &font = session->form.Fonts[row];
    font.InUse = 1;
    font.Height = 30;
    for (int32_t &width : font.CharWidth) width = 20;
    font.LogFont.lfHeight = -30;
    tessarine::CopyText("Courier New", font.LogFont.lfFaceName, sizeof font.LogFont.lfFaceName);
    font.Font = CreateFontIndirectA(&font.LogFont);
    return row;
}

int DesignPaint::AddPicture() {
    const int row = session->form.FontCount++;
    FontEntry &picture = session->form.Fonts[row];
    picture.InUse = picture.IsPicture = 1;
    picture.PixelWidth = 8;
    picture.PixelHeight = 4;
    const HDC screen = GetDC(nullptr);
    picture.Bitmap = CreateCompatibleBitmap(screen, 8, 4);
    ReleaseDC(nullptr, screen);
    return row;
}

DesignPaint::Lines DesignPaint::Painted(int row) {
    return DrawingBy([&](HDC device) { tessarine::PaintItem(session, device, row); });
}
