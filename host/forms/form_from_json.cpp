#include "host/forms/form_from_json.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <set>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/data/csv_source.h"
#include "host/forms/expression_text.h"
#include "host/forms/form_members.h"
#include "host/forms/form_names.h"
#include "host/forms/json_place.h"

namespace {

template <size_t Count>
void Take(const Member (&members)[Count], const JsonPlace &object, void *record) {
    TakeMembers(members, Count, object, record);
}

template <size_t Count>
int TakeSet(const FlagWord (&words)[Count], const JsonPlace &object, const char *name, int usual) {
    return object.Has(name) ? TakeFlags(words, Count, object.At(name)) : usual;
}

template <size_t Count>
int TakeName(const char *const (&names)[Count], const JsonPlace &object, const char *name,
             int usual) {
    if (!object.Has(name)) return usual;
    const JsonPlace place = object.At(name);
    if (place.Value().is_number()) return place.Whole(INT16_MIN, UINT16_MAX);
    const std::string text = place.Text();
    std::string known;
    for (size_t value = 0; value < Count; ++value) {
        if (text == names[value]) return static_cast<int>(value);
        if (*names[value]) known += std::string(known.empty() ? "" : ", ") + names[value];
    }
    place.Fail("\"" + text + "\" is none of " + known);
}

// Refuses what a parser lets pass: members that stand twice, and nesting without end.
class JsonWatch {
public:
    bool operator()(int depth, Json::parse_event_t event, const Json &value) {
        const auto level = static_cast<size_t>(depth);
        if (level > DEEPEST) throw Failure("lists and objects stand too deep in one another");
        if (names_.size() < level + 2) names_.resize(level + 2);
        if (event == Json::parse_event_t::object_start) names_[level + 1].clear();
        if (event == Json::parse_event_t::key && !names_[level].insert(value).second)
            throw Failure(value.dump() + " stands twice in one object");
        return true;
    }

private:
    static constexpr size_t DEEPEST = 32;
    std::vector<std::set<std::string>> names_;
};

int16_t Short(double units, const JsonPlace &place) {
    if (!(units >= INT16_MIN && units <= INT16_MAX))
        place.Fail("the place lies outside of what a form can hold");
    return static_cast<int16_t>(units);
}

class FormBuilder {
public:
    FormBuilder(const Json &root, std::string folder, std::vector<std::string> *pictures)
        : root_(root, "", &asked_), folder_(std::move(folder)), pictures_(pictures) {}

    // Rows first, expressions last: an expression may name any row.
    FormImage Build() {
        form_.header = DefaultHeader();
        for (SectionRecord &section : form_.sections) section = DefaultSection();
        for (UserFieldRecord &user : form_.users) user.UserTokens[0] = CELL_END;
        TakeHeader();
        ForEach("fonts", [&](const JsonPlace &place) { TakeFont(place); });
        ForEach("fields", [&](const JsonPlace &place) { TakeField(place); });
        ForEach("user fields", [&](const JsonPlace &place) { TakeUser(place); });
        ForEach("breaks", [&](const JsonPlace &place) { TakeBreak(place); });
        ForEach("sections", [&](const JsonPlace &place) { TakeSection(place); });
        AddGroupItem();
        TakeExpressions();
        SettleHeader();
        root_.RefuseUnknown();
        return form_;
    }

private:
    template <typename Body> void ForEach(const char *name, Body body) {
        if (!root_.Has(name)) return;
        const JsonPlace list = root_.At(name);
        for (size_t index = 0; index < list.Size(); ++index) body(list.At(index));
    }

    void TakeHeader() {
        const JsonPlace object = root_.At("form");
        Take(header_members, object, &form_.header);
        if (object.Has("label"))
            Take(label_members, object.At("label"), &form_.header.LabelGeometry);
        if (object.Has("printer mode"))
            Take(paper_members, object.At("printer mode"), &form_.header.PrinterMode);
    }

    void SettleHeader() {
        const PrinterModeRecord &mode = form_.header.PrinterMode;
        const int16_t again[5] = {mode.Orientation, mode.PaperSize, mode.PaperLength,
                                  mode.PaperWidth, mode.PrintQuality};
        std::memcpy(form_.header.PrinterModeAgain, again, sizeof again);
        if (form_.header.ReportFilter[0] != CELL_END) form_.header.FormFlags |= FORM_HAS_FILTER;
    }

    // ---- fonts and pictures --------------------------------------------------------------------

    static std::string Unhex(const JsonPlace &place) {
        const std::string text = place.Text();
        if (text.size() % 2 || text.find_first_not_of("0123456789abcdefABCDEF") != text.npos)
            place.Fail("pairs of hexadecimal digits are expected here");
        std::string bytes;
        for (size_t index = 0; index + 1 < text.size(); index += 2)
            bytes += static_cast<char>(std::stoi(text.substr(index, 2), nullptr, 16));
        return bytes;
    }

    // A bitmap file: behind its 14 bytes of file header stand the information block and the bits.
    void TakePictureFile(const JsonPlace &place, FontImage *font) const {
        const std::string name = place.Text();
        const std::string bytes = PictureBytes(place);
        BITMAPFILEHEADER file{};
        BITMAPINFOHEADER info{};
        if (bytes.size() < sizeof file + sizeof info) place.Fail(name + " is no bitmap file");
        std::memcpy(&file, bytes.data(), sizeof file);
        std::memcpy(&info, bytes.data() + sizeof file, sizeof info);
        if (file.bfType != 0x4D42 || info.biSize != sizeof info ||
            info.biCompression > BI_BITFIELDS || file.bfOffBits < sizeof file + sizeof info ||
            file.bfOffBits > bytes.size())
            place.Fail(name + " is no bitmap file (BMP with a header of 40 bytes)");
        const bool compressed = info.biCompression == BI_RLE4 || info.biCompression == BI_RLE8;
        const double row = std::ceil(std::abs(1.0 * info.biWidth) * info.biBitCount / 32) * 4;
        if (!compressed && row * std::abs(1.0 * info.biHeight) > bytes.size() - file.bfOffBits)
            place.Fail(name + " is cut off: it holds fewer bits than its size needs");
        font->info = bytes.substr(sizeof file, file.bfOffBits - sizeof file);
        font->bits = bytes.substr(file.bfOffBits);
    }

    std::string PictureBytes(const JsonPlace &place) const {
        try {
            const std::string path = folder_ + place.CodePageText();
            if (pictures_) pictures_->push_back(path);
            return ReadFileBytes(path);
        } catch (const Failure &failure) {
            place.Fail(failure.what());
        }
    }

    void TakeFont(const JsonPlace &place) {
        FontImage font;
        font.picture = place.Has("picture") || place.Has("picture info");
        if (font.picture) {
            font.point_height =
                static_cast<uint16_t>(place.At("point height").Whole(0, UINT16_MAX));
            font.point_width = static_cast<uint16_t>(place.At("point width").Whole(0, UINT16_MAX));
            if (place.Has("picture")) {
                TakePictureFile(place.At("picture"), &font);
            } else {
                font.info = Unhex(place.At("picture info"));
                font.bits = Unhex(place.At("picture bits"));
            }
        } else {
            TakeTextFont(place, &font.font);
        }
        if (form_.fonts.size() == MAX_FONTS) place.Fail("a form has at most 32 fonts and pictures");
        font_names_.push_back(place.Has("name") ? place.At("name").Text() : "");
        form_.fonts.push_back(font);
    }

    static void TakeTextFont(const JsonPlace &place, PortableFont *font) {
        *font = DefaultFont();
        const int style = TakeSet(font_flags, place, "style", 0);
        font->Italic = style & 1 ? 1 : 0;
        font->Underline = style & 2 ? 1 : 0;
        font->StrikeOut = style & 4 ? 1 : 0;
        Take(font_members, place, font);
        if (place.Has("points")) {
            const JsonPlace points = place.At("points");
            font->Height = Short(-std::round(points.Number() * 250.0 / 72.0), points);
        }
        if (place.Has("bold") && place.At("bold").Flag()) font->Weight = FW_BOLD;
    }

    int16_t FontRow(const JsonPlace &place) const {
        if (place.Value().is_number())
            return static_cast<int16_t>(place.Whole(0, static_cast<int>(form_.fonts.size()) - 1));
        const std::string name = place.Text();
        const auto found = std::find(font_names_.begin(), font_names_.end(), name);
        if (found == font_names_.end())
            place.Fail("no font of the form has the name \"" + name + "\"");
        return static_cast<int16_t>(found - font_names_.begin());
    }

    // ---- fields --------------------------------------------------------------------------------

    void TakeField(const JsonPlace &place) {
        place.Object();
        FieldRecord field = DefaultField();
        field.FieldKind = static_cast<uint16_t>(TakeName(kind_names, place, "kind", FIELD_DATA));
        if (field.FieldKind == FIELD_FREE) field.InUse = 0;
        field.ValueType = static_cast<int16_t>(TakeName(type_names, place, "type", TYPE_TEXT));
        Take(field_members, place, &field);
        if (place.Has("name")) {
            const std::string name = place.At("name").CodePageText();
            if (name.size() >= sizeof field.FieldName)
                place.At("name").Fail("the name is too long");
            std::memcpy(field.FieldName, name.data(), name.size());
            SettleSystemRow(place, &field);
        }
        field.SummaryType =
            static_cast<int16_t>(TakeName(summary_names, place, "summary", SUMMARY_VALUE));
        field.SymbolKind =
            static_cast<uint16_t>(TakeName(symbol_names, place, "symbol", SYMBOL_NONE));
        field.SymbolWhen = static_cast<uint16_t>(TakeSet(symbol_flags, place, "symbol when", 0));
        field.FieldFlags = static_cast<uint16_t>(TakeSet(field_flags, place, "flags", 0));
        const int row = AppendField(&form_, field, place);
        if (place.Has("caption")) captioned_.insert(row);
    }

    // A system field is found by its name, and has the type of that field.
    static void SettleSystemRow(const JsonPlace &place, FieldRecord *field) {
        constexpr struct {
            const char *name;
            int16_t type;
            int16_t width;
        } rows[] = {{"SYS->PAGE", TYPE_NUMERIC, 4},    {"SYS->DATE", TYPE_DATE, 10},
                    {"SYS->TIME", TYPE_TEXT, 10},      {"SYS->REC_COUNT", TYPE_NUMERIC, 6},
                    {"SYS->PARA_BREAK", TYPE_TEXT, 2}, {"SYS->REPORT_NAME", TYPE_TEXT, 52}};
        if (field->FieldKind != FIELD_SYSTEM) return;
        for (size_t row = 0; row < std::size(rows); ++row) {
            if (std::strcmp(field->FieldName, rows[row].name)) continue;
            field->TableIndex = static_cast<int16_t>(row);
            if (!place.Has("type")) field->ValueType = rows[row].type;
            if (!place.Has("width")) field->FieldWidth = rows[row].width;
            return;
        }
        place.At("name").Fail(std::string("there is no system field ") + field->FieldName);
    }

    void TakeUser(const JsonPlace &place) {
        const int row =
            place.Has("row") ? place.At("row").Whole(0, MAX_USER_FIELDS - 1) : FreeUserRow(place);
        UserFieldRecord *user = &form_.users[row];
        if (user->InUse) place.At("row").Fail("two user fields stand in this row");
        user_rows_.push_back(row);
        user->InUse = 1;
        user->UserWidth = 20;
        user->ValueType = static_cast<int16_t>(TakeName(type_names, place, "type", TYPE_TEXT));
        Take(user_members, place, user);
        if (!*user->UserName) place.Fail("\"name\" is missing");
        if (!*user->UserPrompt) CopyName(user);
    }

    static void CopyName(UserFieldRecord *user) {
        std::memcpy(user->UserPrompt, user->UserName, sizeof user->UserPrompt - 1);
    }

    int FreeUserRow(const JsonPlace &place) const {
        for (int row = 0; row < MAX_USER_FIELDS; ++row)
            if (!form_.users[row].InUse) return row;
        place.Fail("a form has at most 12 user fields");
    }

    // A field by its name, or by NAME@ROW where several bear it.
    int16_t FieldRow(const JsonPlace &place) const {
        const std::string text = place.CodePageText();
        const int named = NamedRow(form_, text);
        if (named > 0) return static_cast<int16_t>(named);
        for (size_t row = 1; row < form_.fields.size(); ++row)
            if (text == form_.fields[row].FieldName && form_.fields[row].InUse)
                return static_cast<int16_t>(row);
        place.Fail("the form has no field \"" + place.Text() + "\"; add it to \"fields\"");
    }

    // A designer shows the caption on the bars of the section that sorts by the field.
    void CaptionField(int row) {
        FieldRecord &field = form_.fields[static_cast<size_t>(row)];
        std::memcpy(field.Caption, field.FieldName, sizeof field.Caption - 1);
    }

    void TakeBreak(const JsonPlace &place) {
        if (form_.breaks.size() == MAX_BREAKS) place.Fail("a form has at most 9 breaks");
        BreakFieldRecord row{};
        row.SectionIndex = static_cast<int16_t>(SectionRow(place.At("section")));
        if (row.SectionIndex < SECTION_SORT_HEADER_1 || row.SectionIndex > SECTION_SORT_HEADER_9)
            place.At("section").Fail("a break belongs to a sort header");
        row.SortField = FieldRow(place.At("sort"));
        row.BreakField = place.Has("break") ? FieldRow(place.At("break")) : row.SortField;
        if (!captioned_.count(row.SortField)) CaptionField(row.SortField);
        form_.breaks.push_back(row);
    }

    // ---- sections and items --------------------------------------------------------------------

    static int SectionRow(const JsonPlace &place) {
        const int section = SectionNumber(place.Text());
        if (section < 0)
            place.Fail("\"" + place.Text() +
                       "\" is no section; they are Page Header, Report Header, Sort Header 1 to 9, "
                       "Detail Section 1 to 9, Sort Footer 9 to 1, Report Footer, Page Footer");
        return section;
    }

    void AddItem(const JsonPlace &place, const ItemRecord &item) {
        if (form_.items.size() == MAX_ITEMS) place.Fail("a form has at most 320 items");
        form_.items.push_back(item);
    }

    void TakeSection(const JsonPlace &place) {
        const int number = SectionRow(place.At("section"));
        SectionRecord *section = &form_.sections[number];
        if (section->InUse) place.At("section").Fail("the section stands twice in the form");
        if (number < last_section_)
            place.At("section").Fail("the sections stand out of their order");
        last_section_ = number;
        section->InUse = 1;
        section->SectionFlags = static_cast<uint16_t>(TakeSet(section_flags, place, "flags", 0));
        Take(section_members, place, section);
        if (section->Across < 1) place.At("across").Fail("at least 1 is expected here");
        section->BarItem = static_cast<int16_t>(form_.items.size());
        const ItemRecord bar = TakeBar(place, number);
        AddItem(place, bar);
        y_ = bar.y + form_.header.BarHeight;
        if (place.Has("items")) {
            const JsonPlace list = place.At("items");
            for (size_t index = 0; index < list.Size(); ++index) TakeItem(list.At(index), number);
        }
        y_ = bar.y + bar.height;
    }

    ItemRecord TakeBar(const JsonPlace &place, int number) const {
        const double paper_width = form_.header.LabelType ? 0.0 : 8.5;
        ItemRecord bar = DefaultItem(ITEM_BAR);
        bar.x = std::max(Short(form_.header.LeftMargin * 250.0, place), int16_t{62});
        bar.width = Short(form_.header.LabelType
                              ? form_.header.LabelGeometry.LabelWidth * 250.0
                              : (paper_width - form_.header.LeftMargin - form_.header.RightMargin) *
                                    250.0 / form_.sections[number].Across,
                          place);
        bar.y = Short(y_, place);
        if (place.Has("bar")) TakeItemMembers(place.At("bar"), &bar, y_);
        const JsonPlace height = place.At("height");
        bar.height = Short(height.Measure() + form_.header.BarHeight, height);
        bar.SectionIndex = static_cast<int16_t>(number);
        return bar;
    }

    void TakeItem(const JsonPlace &place, int section) {
        const JsonPlace kind = place.At("item");
        const int type = ItemTypeNumber(kind.Text());
        if (type < 0 || type == ITEM_BAR)
            kind.Fail("\"" + kind.Text() + "\" is no item; they are label, field, line, picture");
        ItemRecord item = DefaultItem(type);
        item.SectionIndex = static_cast<int16_t>(section);
        TakeItemMembers(place, &item, y_);
        if (type == ITEM_FIELD) item.FieldIndex = FieldRow(place.At("field"));
        if (type == ITEM_GROUP) has_group_ = true;
        AddItem(place, item);
    }

    void TakeItemMembers(const JsonPlace &place, ItemRecord *item, int top) const {
        if (place.Has("at")) {
            item->x = Coordinate(place.At("at"), 0, 0);
            item->y = Coordinate(place.At("at"), 1, top);
        }
        if (place.Has("size")) {
            item->width = Coordinate(place.At("size"), 0, 0);
            item->height = Coordinate(place.At("size"), 1, 0);
        }
        if (place.Has("font")) item->FontIndex = FontRow(place.At("font"));
        Take(item_members, place, item);
        item->ItemFlags =
            static_cast<uint16_t>(TakeSet(item_flags, place, "flags", item->ItemFlags));
        item->OutlineSides = static_cast<uint16_t>(TakeSet(side_flags, place, "outline", 0));
        if (place.Has("brush")) Take(brush_members, place.At("brush"), &item->Background);
    }

    static int16_t Coordinate(const JsonPlace &pair, size_t index, int offset) {
        if (pair.Size() != 2) pair.Fail("two measures are expected here");
        return Short(pair.At(index).Measure() + offset, pair);
    }

    // Every form holds exactly one group item; it stands behind its section's bar.
    void AddGroupItem() {
        if (has_group_ || form_.items.empty()) return;
        ItemRecord group = DefaultItem(ITEM_GROUP);
        group.SectionIndex = form_.items[0].SectionIndex;
        group.x = form_.items[0].x;
        group.y = form_.items[0].y;
        form_.items.insert(form_.items.begin() + 1, group);
        for (SectionRecord &section : form_.sections)
            if (section.BarItem > 0) ++section.BarItem;
    }

    // ---- expressions ---------------------------------------------------------------------------

    void TakeExpressions() {
        const JsonPlace form = root_.At("form");
        if (form.Has("filter"))
            PutCells(CompileExpression(&form_, form.At("filter")), form_.header.ReportFilter);
        int row = 0;
        ForEach("fields", [&](const JsonPlace &place) {
            row += row + 1 == 32 ? 2 : 1;
            if (!place.Has("expression")) return;
            const Cells cells = CompileExpression(&form_, place.At("expression"));
            PutCells(cells, form_.fields[static_cast<size_t>(row)].FieldTokens);
        });
        size_t user = 0;
        ForEach("user fields", [&](const JsonPlace &place) {
            UserFieldRecord &field = form_.users[user_rows_[user++]];
            if (place.Has("expression"))
                PutCells(CompileExpression(&form_, place.At("expression")), field.UserTokens);
        });
        ForEach("sections", [&](const JsonPlace &place) {
            if (place.Has("filter"))
                PutCells(CompileExpression(&form_, place.At("filter")),
                         form_.sections[SectionRow(place.At("section"))].SectionFilter);
        });
    }

    AskedMembers asked_;
    JsonPlace root_;
    std::string folder_;
    std::vector<std::string> *pictures_;
    FormImage form_;
    std::vector<int> user_rows_; // in the order of the JSON
    std::vector<std::string> font_names_;
    std::set<int> captioned_; // rows of fields whose caption the JSON gives
    int y_ = 0;               // where the next section or the items of this one begin
    int last_section_ = -1;
    bool has_group_ = false;
};

} // namespace

FormImage FormFromJson(const std::string &path, const std::string &text, const std::string &folder,
                       std::vector<std::string> *pictures) {
    try {
        const Json root = Json::parse(text, JsonWatch());
        return FormBuilder(root, folder, pictures).Build();
    } catch (const Failure &failure) {
        throw Failure(path + ": " + failure.what());
    } catch (const Json::parse_error &error) {
        const auto end = static_cast<std::ptrdiff_t>(std::min(error.byte, text.size()));
        const auto line = 1 + std::count(text.begin(), text.begin() + end, '\n');
        throw Failure(path + ":" + std::to_string(line) + ": is no sound JSON: " + error.what());
    } catch (const Json::out_of_range &) {
        throw Failure(path + ": holds a number that is too large");
    } catch (const JsonMistake &mistake) {
        throw Failure(path + ":" + std::to_string(LineOfPointer(text, mistake.pointer)) + ": " +
                      (mistake.pointer.empty() ? "/" : mistake.pointer) + ": " + mistake.text);
    }
}
