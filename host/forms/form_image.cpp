#include "host/forms/form_image.h"

#include <cstring>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/forms/form_names.h"

namespace {

constexpr int LATER_DETAILS = SECTION_DETAIL_9 - SECTION_DETAIL_1; // unknown to versions 0 and 1
constexpr size_t FIELD_TAIL = 4; // bytes behind a field of version 0
constexpr uint16_t KIND_FONT = 0;
constexpr uint16_t KIND_PICTURE = 1;

class Reader {
public:
    Reader(const std::string &path, const std::string &bytes) : path_(path), bytes_(bytes) {}

    template <typename Record> void Take(Record *record) { TakeBytes(record, sizeof *record); }

    template <typename Record> void TakeRows(std::vector<Record> *rows, size_t count) {
        rows->resize(count);
        for (Record &row : *rows) Take(&row);
    }

    std::string TakeText(size_t size) {
        Need(size);
        place_ += size;
        return bytes_.substr(place_ - size, size);
    }

private:
    void Need(size_t size) const {
        if (size > bytes_.size() - place_)
            throw Failure(path_ + ": the form is cut short; open its backup (.BP) instead");
    }
    void TakeBytes(void *to, size_t size) {
        Need(size);
        std::memcpy(to, bytes_.data() + place_, size);
        place_ += size;
    }

    const std::string &path_;
    const std::string &bytes_;
    size_t place_ = 0;
};

FontImage TakeFont(Reader *reader) {
    FontImage font;
    uint16_t kind = KIND_FONT;
    reader->Take(&kind);
    font.picture = kind != KIND_FONT;
    if (!font.picture) {
        reader->Take(&font.font);
        return font;
    }
    uint32_t bits = 0;
    uint32_t info = 0;
    reader->Take(&font.point_height);
    reader->Take(&font.point_width);
    reader->Take(&bits);
    reader->Take(&info);
    if (info == 0) return font;
    font.bits = reader->TakeText(bits);
    font.info = reader->TakeText(info);
    return font;
}

void TakeFields(Reader *reader, FormImage *form) {
    form->fields.resize(form->header.FieldCount);
    for (FieldRecord &field : form->fields) {
        reader->Take(&field);
        if (form->header.FormVersion == 0) reader->TakeText(FIELD_TAIL);
        field.FieldName[sizeof field.FieldName - 1] = 0;
    }
}

void TakeSections(Reader *reader, FormImage *form) {
    const bool old = form->header.FormVersion < 2;
    for (int row = 0; row < MAX_SECTIONS; ++row) {
        if (old && row > SECTION_DETAIL_1 && row <= SECTION_DETAIL_9)
            form->sections[row] = DefaultSection();
        else
            reader->Take(&form->sections[row]);
    }
    if (!old) return;
    const auto renumber = [](int16_t section) {
        return static_cast<int16_t>(section > SECTION_DETAIL_1 ? section + LATER_DETAILS : section);
    };
    for (ItemRecord &item : form->items) item.SectionIndex = renumber(item.SectionIndex);
    for (FieldRecord &field : form->fields) field.SummarySection = renumber(field.SummarySection);
    for (BreakFieldRecord &row : form->breaks) row.SectionIndex = renumber(row.SectionIndex);
}

void TakeUsers(Reader *reader, FormImage *form) {
    for (UserFieldRecord &user : form->users) {
        reader->Take(&user);
        user.UserName[sizeof user.UserName - 1] = 0;
        user.UserPrompt[sizeof user.UserPrompt - 1] = 0;
    }
}

template <typename Record> void Append(std::string *bytes, const Record &record) {
    bytes->append(reinterpret_cast<const char *>(&record), sizeof record);
}

void AppendFont(std::string *bytes, const FontImage &font) {
    Append(bytes, font.picture ? KIND_PICTURE : KIND_FONT);
    if (!font.picture) {
        Append(bytes, font.font);
        return;
    }
    Append(bytes, font.point_height);
    Append(bytes, font.point_width);
    Append(bytes, static_cast<uint32_t>(font.bits.size()));
    Append(bytes, static_cast<uint32_t>(font.info.size()));
    *bytes += font.bits + font.info;
}

} // namespace

bool IsForm(const std::string &bytes) {
    uint16_t signature = 0;
    if (bytes.size() >= sizeof(FormHeader)) std::memcpy(&signature, bytes.data(), 2);
    return signature == SIGNATURE_FORM || signature == SIGNATURE_FORM_OTHER;
}

Cells CellsAt(const void *record_cells) {
    Cells cells;
    std::memcpy(cells.data(), record_cells, sizeof cells);
    return cells;
}

void PutCells(const Cells &cells, void *record_cells) {
    std::memcpy(record_cells, cells.data(), sizeof cells);
}

FormImage ReadForm(const std::string &path) {
    const std::string bytes = ReadFileBytes(path);
    if (!IsForm(bytes)) throw Failure(path + ": is not a form file");
    Reader reader(path, bytes);
    FormImage form;
    reader.Take(&form.header);
    if (form.header.FormVersion < 0 || form.header.FormVersion > FORM_VERSION)
        throw Failure(path + ": has the unknown version " +
                      std::to_string(form.header.FormVersion) + "; the file is damaged");
    if (form.header.ItemCount > MAX_ITEMS || form.header.FieldCount > MAX_FIELDS ||
        form.header.BreakCount > MAX_BREAKS || form.header.FontCount > MAX_FONTS)
        throw Failure(path + ": its tables pass their limits; the file is damaged");
    reader.TakeRows(&form.items, form.header.ItemCount);
    TakeFields(&reader, &form);
    reader.TakeRows(&form.breaks, form.header.BreakCount);
    TakeSections(&reader, &form);
    TakeUsers(&reader, &form);
    uint8_t marker = 0;
    reader.Take(&marker);
    if (marker != FONT_MARKER) throw Failure(path + ": has no font table; the file is damaged");
    for (int row = 0; row < form.header.FontCount; ++row) form.fonts.push_back(TakeFont(&reader));
    form.header.FormVersion = FORM_VERSION;
    return form;
}

FormHeader ReadFormHeader(const std::string &path) {
    FormHeader header{};
    const std::string bytes = ReadFilePart(path, 0, sizeof header);
    if (!IsForm(bytes)) throw Failure(path + ": is not a form file");
    std::memcpy(&header, bytes.data(), sizeof header);
    return header;
}

std::string FormBytes(const FormImage &form) {
    FormHeader header = form.header;
    header.ItemCount = static_cast<uint16_t>(form.items.size());
    header.FieldCount = static_cast<uint16_t>(form.fields.size());
    header.BreakCount = static_cast<uint16_t>(form.breaks.size());
    header.FontCount = static_cast<uint16_t>(form.fonts.size());
    std::string bytes;
    Append(&bytes, header);
    for (const ItemRecord &item : form.items) Append(&bytes, item);
    for (const FieldRecord &field : form.fields) Append(&bytes, field);
    for (const BreakFieldRecord &row : form.breaks) Append(&bytes, row);
    Append(&bytes, form.sections);
    Append(&bytes, form.users);
    Append(&bytes, static_cast<uint8_t>(FONT_MARKER));
    for (const FontImage &font : form.fonts) AppendFont(&bytes, font);
    return bytes;
}
