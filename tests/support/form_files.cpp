#include "tests/support/form_files.h"

#include <cstring>

#include "form/font_table.h"
#include "form/form_reader.h"
#include "form/form_writer.h"
#include "frame/boundary.h"
#include "frame/host_data.h"
#include "frame/owned.h"
#include "frame/text.h"
#include "tests/support/bitmaps.h"

using namespace tessarine;

namespace {

constexpr int LATER_SECTIONS = 8; // detail sections 2 to 9

template <typename Record> void Append(std::string *bytes, const Record &record) {
    bytes->append(reinterpret_cast<const char *>(&record), sizeof record);
}

int16_t Earlier(int16_t section) {
    return static_cast<int16_t>(section > SECTION_DETAIL_1 ? section - LATER_SECTIONS : section);
}

} // namespace

FullForm::FullForm() {
    Section(SECTION_PAGE_HEADER, 100);
    Section(SECTION_SORT_HEADER_1, 100);
    Section(SECTION_DETAIL_1, 200);
    Section(SECTION_SORT_FOOTER_1, 100);
    Section(SECTION_PAGE_FOOTER, 100);
    const int name = Field(FIELD_DATA, "TABLE->NAME", TYPE_TEXT, 20);
    const int number = Field(FIELD_DATA, "TABLE->N", TYPE_NUMERIC, 8);
    const int page = Field(FIELD_SYSTEM, "SYS->PAGE", TYPE_NUMERIC, 4);
    fields[static_cast<size_t>(page)].TableIndex = SYSTEM_PAGE;
    shared = Constant("5", TYPE_NUMERIC, 5, 5.0);
    const int sum = Field(FIELD_CALC, "CALC->More", TYPE_NUMERIC, 8);
    Store({number, 503, shared}, fields[static_cast<size_t>(sum)].FieldTokens);
    fields[static_cast<size_t>(sum)].SummarySection = SECTION_SORT_FOOTER_1;
    const int gone = Field(FIELD_FREE, "", TYPE_TEXT);
    FieldRecord &free_row = fields[static_cast<size_t>(gone)];
    std::memset(&free_row, 0xA5, sizeof free_row);
    free_row.FieldKind = FIELD_FREE;
    free_row.InUse = 0;
    free_row.TextValue = nullptr;
    const int user = UserField("CITY", TYPE_TEXT, 0);
    const int asked = Field(FIELD_USER, "DLG->CITY", TYPE_TEXT, 20);
    fields[static_cast<size_t>(asked)].TableIndex = static_cast<int16_t>(user);
    Store({number, 510, shared}, header.ReportFilter);
    header.FormFlags = FORM_HAS_FILTER;
    Store({number, 510, shared}, sections[SECTION_DETAIL_1].SectionFilter);
    Store({shared}, users[user].UserTokens);
    Break(name, name, SECTION_SORT_HEADER_1);
    PortableFont bold = fonts[0];
    bold.Weight = 700;
    fonts.push_back(bold);
    Label(SECTION_PAGE_HEADER, 200, 10, 300, 40, "Names").FontIndex = 1;
    ItemRecord group{};
    group.SectionIndex = SECTION_PAGE_HEADER;
    items[SECTION_PAGE_HEADER].push_back(group);
    FieldItem(SECTION_SORT_HEADER_1, 200, 10, 300, 40, name);
    FieldItem(SECTION_DETAIL_1, 200, 10, 300, 40, sum);
    FieldItem(SECTION_DETAIL_1, 600, 10, 300, 40, asked);
    FieldItem(SECTION_PAGE_FOOTER, 200, 10, 300, 40, page);
    Line(SECTION_SORT_FOOTER_1, 200, 10, 300, 40, 2);
    Label(SECTION_SORT_FOOTER_1, 600, 10, 300, 40, "End");
}

std::string PictureRow() {
    BITMAPINFOHEADER info{};
    info.biSize = sizeof info;
    info.biWidth = 4;
    info.biHeight = 2;
    info.biPlanes = 1;
    info.biBitCount = 8;
    info.biClrUsed = 256;
    std::string block;
    Append(&block, info);
    block.append(256 * 4, '\x40');
    return PictureRowOf(block, "\1\2\3\4\5\6\7\10");
}

std::string WithFontRow(std::string bytes, const std::string &row) {
    auto header = RecordAt<FormHeader>(bytes, 0);
    ++header.FontCount;
    PutRecord(&bytes, 0, header);
    return bytes + row;
}

FormBlocks::FormBlocks(const std::string &bytes) {
    const auto header = RecordAt<FormHeader>(bytes, 0);
    items = sizeof header;
    fields = items + header.ItemCount * sizeof(ItemRecord);
    breaks = fields + header.FieldCount * sizeof(FieldRecord);
    sections = breaks + header.BreakCount * sizeof(BreakFieldRecord);
    users = sections + MAX_SECTIONS * sizeof(SectionRecord);
    marker = users + MAX_USER_FIELDS * sizeof(UserFieldRecord);
    fonts = marker + 1;
}

std::string InOldVersion(const std::string &bytes, int version) {
    const FormBlocks blocks(bytes);
    auto header = RecordAt<FormHeader>(bytes, 0);
    header.FormVersion = static_cast<int16_t>(version);
    std::string old;
    Append(&old, header);
    for (size_t place = blocks.items; place < blocks.fields; place += sizeof(ItemRecord)) {
        auto item = RecordAt<ItemRecord>(bytes, place);
        item.SectionIndex = Earlier(item.SectionIndex);
        Append(&old, item);
    }
    for (size_t place = blocks.fields; place < blocks.breaks; place += sizeof(FieldRecord)) {
        auto field = RecordAt<FieldRecord>(bytes, place);
        field.SummarySection = Earlier(field.SummarySection);
        Append(&old, field);
        if (version == 0) old += "drop";
    }
    old += bytes.substr(blocks.breaks, blocks.sections - blocks.breaks);
    const size_t row = sizeof(SectionRecord);
    old += bytes.substr(blocks.sections, (SECTION_DETAIL_1 + 1) * row);
    old += bytes.substr(blocks.sections + SECTION_SORT_FOOTER_9 * row);
    return old;
}

FormFiles::FormFiles() {
    host_data = HostData{};
    session->SessionKind = KIND_DESIGNER;
}

FormFiles::~FormFiles() {
    host_data = HostData{};
    CloseFileHandle(session->form.FormLock);
    for (int row = 0; row < MAX_FONTS; ++row) ReleaseFontRow(session, row);
}

std::string FormFiles::Put(const std::string &bytes, std::string name) {
    if (name.empty()) name = "FORM" + std::to_string(++files_) + ".FP";
    const std::string path = folder.Path(name);
    WriteWholeFile(path, bytes);
    return path;
}

int FormFiles::Read(const std::string &path) {
    char buffer[260];
    CopyText(path.c_str(), buffer, sizeof buffer);
    return AtEntry(
        session,
        [&] {
            const FormRead outcome = ReadFormFile(session, buffer);
            return outcome == FormRead::Done      ? READ_DONE
                   : outcome == FormRead::Refused ? READ_REFUSED
                                                  : READ_UNOPENED;
        },
        [&] { return session->ErrorCode; });
}

int FormFiles::Save(const std::string &path) {
    CopyText(path.c_str(), buffer_, sizeof buffer_);
    return AtEntry(
        session, [&] { return FrSave(session, buffer_); }, [&] { return -session->ErrorCode; });
}

void FormFiles::ExpectBox(const char *text, const char *title) {
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.Log()[0], (BoxRecord{title, text, {IDOK}}));
}
