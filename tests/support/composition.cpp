#include "tests/support/composition.h"

#include <cstring>

#include "form/defaults.h"
#include "frame/fatal_error.h"
#include "frame/mapping.h"
#include "frame/memory.h"
#include "frame/text.h"
#include "output/page_store.h"
#include "output/report_file.h"
#include "run/items.h"

namespace {

constexpr int TEXT_ROOM = 1000;
constexpr int BAR_WIDTH = 500;
constexpr int MARKER_WIDTH = 400;

int16_t Short(int value) { return static_cast<int16_t>(value); }

} // namespace

Composition::Composition() : run(session->run), input_(MAX_FIELDS + 1) {
    run.InputTable = input_.data();
    session->report.RunPhase = tessarine::PHASE_RECORDS;
    session->report.CancelState = tessarine::CANCEL_NONE;
    session->report.PageCount = run.PageNumber = 1;
    run.LastSection = -1;
    run.FirstOnPage = run.FirstInGroup = 1;
    run.CurrentY = run.RowBottom = run.TopOrigin = 100;
    run.LeftOrigin = run.CurrentX = 50;
    run.BodyBottom = session->report.PageBottomUnits = 1000;
    std::strcpy(session->report.TimeText, "12:34:56");
    session->UnwindPoint = 1; // as below an entry point
    session->printer.DevMode = &mode_;
    session->printer.InfoDevice = CreateCompatibleDC(nullptr);
    session->drawing.LogPixelsX = session->drawing.LogPixelsY = 500;
    tessarine::ApplyMapping(session, session->printer.InfoDevice);
    session->printer.InfoPixelsX = session->drawing.LogPixelsX;
    session->form.Header.ReportFilter[0] = CELL_END;
    std::strcpy(session->RunBlock.TempDir, folder.Root().c_str());
    tessarine::AllocPageStore(session);
    tessarine::StartRecorder(session, "");
}

Composition::~Composition() {
    for (FieldRecord &row : input_) tessarine::OurFree(row.TextValue);
    if (session->pages.ShownPage) DeleteMetaFile(session->pages.ShownPage);
    tessarine::ReleasePageStore(session);
    DeleteFileA(session->pages.OutputPath);
    DeleteDC(session->printer.InfoDevice);
    for (int row = 0; row < MAX_FONTS; ++row)
        if (session->form.Fonts[row].Font) DeleteObject(session->form.Fonts[row].Font);
}

SectionRecord &Composition::Section(int section, int height, int flags, int across) {
    SectionRecord &record = session->form.Sections[section];
    section_ = section;
    rows_.Section(section, height, flags);
    ItemRecord &bar = session->form.Items[record.BarItem];
    bar.x = 0;
    bar.width = BAR_WIDTH;
    bar.height = Short(height + 1);
    record.Across = Short(across);
    record.SectionFilter[0] = CELL_END;
    record.SectionHeight = Short(height);
    record.FirstItem = record.BarItem;
    record.ItemTotal = 1;
    return record;
}

ItemRecord &Composition::Item(int type, int x, int y, int width, int height) {
    ItemRecord &item = rows_.Item(type, section_, x, y, width, height);
    item.ItemFlags = FLAG_LEFT | FLAG_TOP;
    ++session->form.Sections[section_].ItemTotal;
    return item;
}

ItemRecord &Composition::Marker(const std::string &text, int height) {
    ItemRecord &item = Item(ITEM_LABEL, 0, 0, MARKER_WIDTH, height);
    tessarine::CopyText(text.c_str(), item.LabelText, sizeof item.LabelText);
    return item;
}

ItemRecord &Composition::FieldItem(int x, int y, int width, int height, int field) {
    ItemRecord &item = Item(ITEM_FIELD, x, y, width, height);
    item.FieldIndex = Short(field);
    return item;
}

SectionRecord &Composition::Band(int section, int height, const std::string &text, int flags) {
    SectionRecord &record = Section(section, height, flags);
    Marker(text, height);
    return record;
}

int Composition::TextField(const std::string &value, int flags) {
    const int row = session.AddField(FIELD_DATA, "TEXT", TYPE_TEXT, TEXT_ROOM);
    Field(row).FieldFlags = static_cast<uint16_t>(flags);
    tessarine::CopyText(value.c_str(), Field(row).TextValue, TEXT_ROOM + 2);
    return row;
}

int Composition::NumberField(int32_t value) {
    const int row = session.AddField(FIELD_DATA, "NUMBER", TYPE_NUMERIC);
    Field(row).LongValue = value;
    Field(row).ThousandsChar[0] = 0;
    Field(row).NegativePrefix[0] = 0;
    return row;
}

int Composition::CalcField(const std::vector<int> &cells) {
    const int row = session.AddField(FIELD_CALC, "CALC->C", TYPE_NUMERIC);
    FormRows::Store(cells, Field(row).FieldTokens);
    return row;
}

int Composition::Constant(int32_t value) {
    return rows_.Constant(std::to_string(value), TYPE_NUMERIC, value, value);
}

void Composition::Break(int field, int header) { rows_.Break(field, field, header); }

void Composition::Filter(int section, const std::vector<int> &cells) {
    FormRows::Store(cells, session->form.Sections[section].SectionFilter);
}

std::vector<std::string> Composition::DrawingOfLast() {
    tessarine::PrintItem(session, session->pages.PageRecorder, session->form.TotalItems - 1);
    return Drawing();
}

std::string Composition::Record() {
    const HMETAFILE page = CloseMetaFile(session->pages.PageRecorder);
    const std::string bytes = BytesOfMetafile(page);
    DeleteMetaFile(page);
    tessarine::StartRecorder(session, "");
    return bytes;
}

std::vector<std::string> Composition::Drawing() { return DrawingOf(Record()); }
std::vector<std::string> Composition::Marks() { return MarksOf(Record()); }

std::vector<std::string> Composition::MarksOf(const std::string &bytes) {
    const Metafile metafile = ReadMetafile(bytes);
    std::vector<std::string> marks;
    for (const MetafileRecord &record : metafile.records) {
        if (!IsText(record)) continue;
        const MetafileText text = TextOf(record);
        marks.push_back(std::to_string(text.y) + " " + text.text);
    }
    if (!metafile.Sound()) marks.push_back(metafile.fault);
    return marks;
}

std::vector<std::string> Composition::PageMarks(int page) {
    const uint32_t *table = session->pages.PageTable + page;
    const std::string report = ReadWholeFile(session->pages.ReportPath);
    return MarksOf(report.substr(table[0], table[1] - table[0]));
}

void Composition::StartFile() {
    session->OutputToFile = 1;
    std::strcpy(session->pages.OutputPath, folder.Path("OUT.FRC").c_str());
    tessarine::WriteEmptyHeader(session, session->pages.OutputPath);
}

int CodeOfUnwinding(Session *session, void (*routine)(void *), void *data) {
    try {
        routine(data);
    } catch (const tessarine::Unwinding &) {
        return session->ErrorCode;
    }
    return 0;
}
