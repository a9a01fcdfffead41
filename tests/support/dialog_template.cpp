#include "tests/support/dialog_template.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr LONG CLOSED_COMBO = 14;

// Reads an extended template word by word.
class Reader {
public:
    explicit Reader(const void *at) : at_(static_cast<const uint8_t *>(at)) {}

    uint16_t Word() { return Take<uint16_t>(); }
    uint32_t Long() { return Take<uint32_t>(); }
    int Short() { return Take<int16_t>(); }
    void Skip(size_t bytes) { at_ += bytes; }
    void Align() { at_ += (4 - reinterpret_cast<uintptr_t>(at_) % 4) % 4; }
    // A text, or a number behind the word 0xFFFF, which is put into ordinal.
    std::string Text(int *ordinal = nullptr) {
        uint16_t letter = Word();
        if (letter == 0xFFFF) {
            const int number = Word();
            if (ordinal) *ordinal = number;
            return "";
        }
        std::string text;
        for (; letter; letter = Word()) text += static_cast<char>(letter);
        return text;
    }

private:
    template <typename Value> Value Take() {
        Value value;
        std::memcpy(&value, at_, sizeof value);
        at_ += sizeof value;
        return value;
    }

    const uint8_t *at_;
};

ControlKind ButtonKind(DWORD style) {
    switch (style & BS_TYPEMASK) {
    case BS_AUTOCHECKBOX: return CHECK_BOX;
    case BS_AUTORADIOBUTTON: return RADIO_BUTTON;
    case BS_GROUPBOX: return GROUP_BOX;
    default: return PUSH_BUTTON;
    }
}

// By the numbers that stand for the system's window classes.
ControlKind KindOf(int window_class, DWORD style) {
    constexpr ControlKind kinds[] = {PUSH_BUTTON, EDIT, STATIC, LIST, LIST, COMBO};
    return window_class == 0x80 ? ButtonKind(style) : kinds[window_class - 0x80];
}

TemplateControl ReadControl(Reader &reader) {
    TemplateControl control{};
    reader.Align();
    reader.Skip(2 * sizeof(DWORD));
    control.style = reader.Long();
    control.place.left = reader.Short();
    control.place.top = reader.Short();
    control.place.right = control.place.left + reader.Short();
    control.place.bottom = control.place.top + reader.Short();
    control.id = static_cast<int>(reader.Long());
    int window_class = 0;
    reader.Text(&window_class);
    control.text = reader.Text();
    reader.Skip(reader.Word());
    control.kind = KindOf(window_class, control.style);
    if (control.kind == COMBO) control.place.bottom = control.place.top + CLOSED_COMBO;
    return control;
}

DialogTemplate ReadTemplate(const char *name) {
    const HRSRC found = FindResourceA(nullptr, name, MAKEINTRESOURCEA(5)); // a dialog
    Reader reader(LockResource(LoadResource(nullptr, found)));
    DialogTemplate dialog;
    dialog.name = name;
    reader.Skip(2 * sizeof(WORD) + 2 * sizeof(DWORD));
    dialog.style = reader.Long();
    const int controls = reader.Word();
    reader.Skip(2 * sizeof(WORD));
    dialog.size.cx = reader.Short();
    dialog.size.cy = reader.Short();
    reader.Text();
    reader.Text();
    dialog.title = reader.Text();
    dialog.points = reader.Word();
    reader.Skip(2 * sizeof(WORD));
    dialog.face = reader.Text();
    for (int control = 0; control < controls; ++control)
        dialog.controls.push_back(ReadControl(reader));
    return dialog;
}

BOOL CALLBACK TakeName(HMODULE, LPCSTR, LPSTR name, LONG_PTR names) {
    reinterpret_cast<std::vector<std::string> *>(names)->push_back(name);
    return TRUE;
}

} // namespace

std::vector<DialogTemplate> AllDialogTemplates() {
    std::vector<std::string> names;
    EnumResourceNamesA(nullptr, MAKEINTRESOURCEA(5), TakeName, reinterpret_cast<LONG_PTR>(&names));
    std::vector<DialogTemplate> dialogs;
    for (const std::string &name : names) dialogs.push_back(ReadTemplate(name.c_str()));
    return dialogs;
}
