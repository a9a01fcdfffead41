#include "tests/support/test_session.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "form/built_in_tables.h"
#include "form/defaults.h"
#include "form/field_table.h"
#include "form/form_tables.h"
#include "frame/memory.h"
#include "frame/session_table.h"

namespace {

constexpr int TEST_CHAR_WIDTH = 12;
constexpr int TEST_LINE_HEIGHT = 40;

void FillTestFont(FontEntry *font) {
    font->InUse = 1;
    font->Height = TEST_LINE_HEIGHT;
    font->Ascent = TEST_LINE_HEIGHT - 8;
    for (int c = 1; c < 256; ++c) font->CharWidth[c] = TEST_CHAR_WIDTH;
}

} // namespace

BareSession::BareSession() {
    tessarine::OpenRunSession(&session_);
    session_->SessionKind = tessarine::KIND_REPORT;
    tessarine::InitVariables(session_);
    tessarine::AllocArrayMem(session_);
    session_->form.FontCount = 1;
    FillTestFont(&session_->form.Fonts[0]);
}

BareSession::~BareSession() {
    for (int row = 0; row < session_->form.FieldCount; ++row)
        tessarine::OurFree(session_->form.Fields[row].TextValue);
    tessarine::FreeArrayMem(session_);
    tessarine::FreeOperatorTable(session_);
    tessarine::FreeSession(session_);
}

int OpenSessions() {
    const auto &slots = tessarine::session_table.SessionTable;
    return static_cast<int>(std::count_if(std::begin(slots), std::end(slots),
                                          [](const Session *session) { return session; }));
}

int SessionForm::AddField(const FieldRecord &field) {
    const int row = tessarine::NewFieldSlot(session_);
    FieldRecord &record = FieldRow(row);
    record = field;
    if (field.ValueType == TYPE_TEXT) {
        const auto room = static_cast<size_t>(field.FieldWidth) + 2;
        record.TextValue = static_cast<char *>(tessarine::OurAlloc(room));
        record.TextValue[0] = 0;
    }
    return row;
}

ItemRecord &SessionForm::AddItem(const ItemRecord &item) {
    const int row = session_->form.TotalItems++;
    if (item.ItemType == ITEM_BAR)
        SectionRow(item.SectionIndex).BarItem = static_cast<int16_t>(row);
    return session_->form.Items[row] = item;
}

// The first name that no other process has taken: making the folder is what takes it.
TemporaryFolder::TemporaryFolder() {
    static unsigned made = 0;
    char base[MAX_PATH];
    GetTempPathA(sizeof base, base);
    do {
        char name[40];
        std::snprintf(name, sizeof name, "tes%lx.%x", GetCurrentProcessId(), made++);
        path_ = base + std::string(name);
    } while (!CreateDirectoryA(path_.c_str(), nullptr) && GetLastError() == ERROR_ALREADY_EXISTS);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string ReadWholeFile(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteWholeFile(const std::string &path, const std::string &bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<long>(bytes.size()));
}
