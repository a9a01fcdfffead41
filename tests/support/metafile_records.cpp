#include "tests/support/metafile_records.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <optional>

namespace {

constexpr size_t HEADER_WORDS = 9;
constexpr size_t RECORD_HEAD_WORDS = 3;
constexpr uint16_t META_END = 0;

uint16_t WordAt(const std::string &bytes, size_t word) {
    uint16_t value = 0;
    if (word * 2 + 2 <= bytes.size()) std::memcpy(&value, bytes.data() + word * 2, 2);
    return value;
}

uint32_t DoubleWordAt(const std::string &bytes, size_t word) {
    return WordAt(bytes, word) | static_cast<uint32_t>(WordAt(bytes, word + 1)) << 16;
}

template <typename... Values> std::string Print(const char *format, Values... values) {
    char text[200];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

std::string Place(const MetafileRecord &record, size_t y_word) {
    return Print("%d,%d", record.At(y_word + 1), record.At(y_word));
}

// ---- objects ----

struct MakerRow {
    uint16_t function;
    std::string (*describe)(const MetafileRecord &record);
};

std::string PenOf(const MetafileRecord &record) {
    return Print("pen %d %d %06X", record.At(0), record.At(1),
                 static_cast<unsigned>(record.DoubleAt(3)));
}

std::string BrushOf(const MetafileRecord &record) {
    return Print("brush %d %06X %d", record.At(0), static_cast<unsigned>(record.DoubleAt(1)),
                 record.At(3));
}

std::string FontOf(const MetafileRecord &record) {
    constexpr size_t face = 18;
    return Print("font %d %.32s", record.At(0),
                 record.bytes.size() > face ? record.bytes.c_str() + face : "");
}

constexpr MakerRow makers[] = {
    {META_CREATEPENINDIRECT, PenOf},
    {META_CREATEBRUSHINDIRECT, BrushOf},
    {META_CREATEFONTINDIRECT, FontOf},
    {META_CREATEPALETTE, [](const MetafileRecord &) { return std::string("palette"); }},
    {META_CREATEREGION, [](const MetafileRecord &) { return std::string("region"); }},
    {META_DIBCREATEPATTERNBRUSH, [](const MetafileRecord &) { return std::string("pattern"); }},
};

// The object table that a player keeps: an object takes the first free row.
class Objects {
public:
    explicit Objects(size_t rows) : rows_(rows) {}

    bool Make(const std::string &object) {
        const auto free = std::find(rows_.begin(), rows_.end(), std::nullopt);
        if (free == rows_.end()) return false;
        *free = object;
        return true;
    }
    std::optional<std::string> Get(int row) const {
        return row >= 0 && static_cast<size_t>(row) < rows_.size() ? rows_[static_cast<size_t>(row)]
                                                                   : std::nullopt;
    }
    void Delete(int row) { rows_[static_cast<size_t>(row)].reset(); }

private:
    std::vector<std::optional<std::string>> rows_;
};

// Goes through the records with an object table; false where a number names no object. made has
// what each record makes, selects or deletes.
bool FollowObjects(const std::vector<MetafileRecord> &records, size_t rows,
                   std::vector<std::string> *made) {
    Objects objects(rows);
    for (const MetafileRecord &record : records) {
        made->emplace_back();
        for (const MakerRow &maker : makers) {
            if (maker.function != record.function) continue;
            made->back() = maker.describe(record);
            if (!objects.Make(made->back())) return false;
        }
        const bool deletes = record.function == META_DELETEOBJECT;
        if (!deletes && record.function != META_SELECTOBJECT) continue;
        const auto object = objects.Get(record.At(0));
        if (!object) return false;
        made->back() = *object;
        if (deletes) objects.Delete(record.At(0));
    }
    return true;
}

// ---- records ----

bool TakeRecords(const std::string &bytes, Metafile *metafile) {
    const uint32_t largest = DoubleWordAt(bytes, 6);
    uint32_t found = 0;
    size_t word = HEADER_WORDS;
    while ((word + RECORD_HEAD_WORDS) * 2 <= bytes.size()) {
        const uint32_t size = DoubleWordAt(bytes, word);
        if (size < RECORD_HEAD_WORDS || (word + size) * 2 > bytes.size()) {
            metafile->fault = "a record passes the end";
            return false;
        }
        const uint16_t function = WordAt(bytes, word + 2);
        metafile->records.push_back(
            {function,
             bytes.substr((word + RECORD_HEAD_WORDS) * 2, (size - RECORD_HEAD_WORDS) * size_t{2})});
        found = std::max(found, size);
        word += size;
        if (function == META_END) break;
    }
    if (metafile->records.empty() || metafile->records.back().function != META_END)
        metafile->fault = "there is no end record";
    else if (word * 2 != bytes.size())
        metafile->fault = "bytes follow the end record";
    else if (found != largest)
        metafile->fault = "the largest record isn't the header's";
    return metafile->Sound();
}

MetafileText ExtendedText(const MetafileRecord &record) {
    MetafileText text{record.At(1), record.At(0), "", false, {}, {}};
    const auto length = static_cast<size_t>(record.At(2));
    size_t word = 4;
    text.clipped = record.At(3) & (ETO_CLIPPED | ETO_OPAQUE);
    if (text.clipped) {
        text.clip = {record.At(4), record.At(5), record.At(6), record.At(7)};
        word += 4;
    }
    text.text = record.bytes.substr(std::min(word * 2, record.bytes.size()), length);
    word += (length + 1) / 2;
    for (size_t place = 0; place < length && (word + place) * 2 < record.bytes.size(); ++place)
        text.advances.push_back(record.At(word + place));
    return text;
}

MetafileText PlainText(const MetafileRecord &record) {
    const auto length = static_cast<size_t>(record.At(0));
    const size_t behind = 1 + (length + 1) / 2;
    return {
        record.At(behind + 1), record.At(behind), record.bytes.substr(2, length), false, {}, {}};
}

std::string TextLine(const MetafileRecord &record) {
    const MetafileText text = TextOf(record);
    std::string line = Print("text %d,%d ", text.x, text.y) + text.text;
    if (text.clipped)
        line += Print(" clip %ld,%ld,%ld,%ld", text.clip.left, text.clip.top, text.clip.right,
                      text.clip.bottom);
    for (size_t place = 0; place < text.advances.size(); ++place)
        line += Print(place ? ",%d" : " by %d", text.advances[place]);
    return line;
}

std::string RoundRectLine(const MetafileRecord &record) {
    return "round " + Place(record, 4) + " " + Place(record, 2) + " by " + Place(record, 0);
}

std::string FillLine(const MetafileRecord &record) {
    return Print("fill %d,%d %d,%d %06X", record.At(5), record.At(4), record.At(3), record.At(2),
                 static_cast<unsigned>(record.DoubleAt(0)));
}

std::string PictureLine(const MetafileRecord &record) {
    return Print("picture %d,%d %d,%d from %d,%d %d,%d %06X", record.At(10), record.At(9),
                 record.At(8), record.At(7), record.At(6), record.At(5), record.At(4), record.At(3),
                 static_cast<unsigned>(record.DoubleAt(0)));
}

std::string CopyLine(const MetafileRecord &record) {
    return Print("copy %d,%d %d,%d from %d,%d %d,%d %06X", record.At(9), record.At(8), record.At(7),
                 record.At(6), record.At(5), record.At(4), record.At(3), record.At(2),
                 static_cast<unsigned>(record.DoubleAt(0)));
}

std::string ColorLine(const MetafileRecord &record) {
    return Print("color %06X", static_cast<unsigned>(record.DoubleAt(0)));
}

constexpr MakerRow drawers[] = {
    {META_TEXTOUT, TextLine},
    {META_EXTTEXTOUT, TextLine},
    {META_MOVETO, [](const MetafileRecord &record) { return "move " + Place(record, 0); }},
    {META_LINETO, [](const MetafileRecord &record) { return "line " + Place(record, 0); }},
    {META_ROUNDRECT, RoundRectLine},
    {META_RECTANGLE,
     [](const MetafileRecord &record) {
         return "rectangle " + Place(record, 2) + " " + Place(record, 0);
     }},
    {META_PATBLT, FillLine},
    {META_STRETCHDIB, PictureLine},
    {META_DIBSTRETCHBLT, CopyLine},
    {META_SETTEXTCOLOR, ColorLine},
    {META_SETBKCOLOR, [](const MetafileRecord &record) { return "on " + ColorLine(record); }},
    {META_SETBKMODE, [](const MetafileRecord &record) { return Print("mode %d", record.At(0)); }},
    {META_SETMAPMODE, [](const MetafileRecord &record) { return Print("map %d", record.At(0)); }},
    {META_SETWINDOWEXT, [](const MetafileRecord &record) { return "window " + Place(record, 0); }},
    {META_SETVIEWPORTEXT,
     [](const MetafileRecord &record) { return "viewport " + Place(record, 0); }},
};

std::string LineOf(const MetafileRecord &record, const std::string &object) {
    if (record.function == META_SELECTOBJECT) return "select " + object;
    if (record.function == META_DELETEOBJECT) return "delete " + object;
    for (const MakerRow &drawer : drawers)
        if (drawer.function == record.function) return drawer.describe(record);
    return Print("record %04X", record.function);
}

} // namespace

int MetafileRecord::At(size_t word) const { return static_cast<int16_t>(WordAt(bytes, word)); }
uint32_t MetafileRecord::DoubleAt(size_t word) const { return DoubleWordAt(bytes, word); }

Metafile ReadMetafile(const std::string &bytes) {
    Metafile metafile;
    if (bytes.size() < HEADER_WORDS * 2 || WordAt(bytes, 1) != HEADER_WORDS)
        metafile.fault = "there is no header";
    else if (size_t{DoubleWordAt(bytes, 3)} * 2 != bytes.size())
        metafile.fault = "the size isn't the header's";
    std::vector<std::string> made;
    if (metafile.Sound() && TakeRecords(bytes, &metafile) &&
        !FollowObjects(metafile.records, WordAt(bytes, 5), &made))
        metafile.fault = "a number names no object";
    return metafile;
}

std::string BytesOfMetafile(HMETAFILE metafile) {
    std::string bytes(GetMetaFileBitsEx(metafile, 0, nullptr), '\0');
    GetMetaFileBitsEx(metafile, static_cast<UINT>(bytes.size()), bytes.data());
    return bytes;
}

bool IsText(const MetafileRecord &record) {
    return record.function == META_TEXTOUT || record.function == META_EXTTEXTOUT;
}

MetafileText TextOf(const MetafileRecord &record) {
    return record.function == META_TEXTOUT ? PlainText(record) : ExtendedText(record);
}

std::vector<std::string> DrawingOf(const std::string &bytes) {
    const Metafile metafile = ReadMetafile(bytes);
    std::vector<std::string> objects;
    FollowObjects(metafile.records, WordAt(bytes, 5), &objects);
    std::vector<std::string> lines;
    for (size_t index = 0; index < objects.size(); ++index) {
        const MetafileRecord &record = metafile.records[index];
        const bool makes =
            std::any_of(std::begin(makers), std::end(makers), [&record](const MakerRow &maker) {
                return maker.function == record.function;
            });
        if (!makes && record.function != META_END) lines.push_back(LineOf(record, objects[index]));
    }
    if (!metafile.Sound()) lines.push_back("fault: " + metafile.fault);
    return lines;
}

std::vector<std::string> DrawingBy(const std::function<void(HDC)> &draw) {
    const HDC recorder = CreateMetaFileA(nullptr);
    draw(recorder);
    const HMETAFILE drawing = CloseMetaFile(recorder);
    const std::string bytes = BytesOfMetafile(drawing);
    DeleteMetaFile(drawing);
    return DrawingOf(bytes);
}

std::vector<std::string> LinesWith(const std::vector<std::string> &lines,
                                   const std::vector<std::string> &words) {
    std::vector<std::string> found;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(found),
                 [&words](const std::string &line) {
                     return std::any_of(words.begin(), words.end(), [&](const std::string &word) {
                         return line.compare(0, word.size(), word) == 0;
                     });
                 });
    return found;
}
