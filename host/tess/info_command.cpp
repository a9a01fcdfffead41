#include "host/tess/info_command.h"

#include <cstdio>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/export/report_pages.h"
#include "host/forms/expression_text.h"
#include "host/forms/fixed_text.h"
#include "host/forms/form_check.h"
#include "host/forms/form_members.h"
#include "host/forms/form_names.h"

namespace {

template <size_t Size> std::string Text(const char (&field)[Size]) {
    return ToUtf8(FixedText(field));
}

void PrintReport(const std::string &path) {
    const ReportPages report(path);
    const ReportFileHeader &header = report.Header();
    std::printf("report:  %s\n", Text(header.ReportName).c_str());
    std::printf("pages:   %d\n", +header.PageCount);
    std::printf("records: %d\n", +header.RecordCount);
    std::printf("paper:   %.2f x %.2f inches\n", static_cast<double>(header.PaperWidth),
                static_cast<double>(header.PaperHeight));
    std::printf("body:    %.2f x %.2f inches\n", static_cast<double>(header.PageWidth),
                static_cast<double>(header.PageHeight));
    if (header.LabelType) std::printf("labels:  sheet %u\n", +header.LabelType);
}

void PrintFields(const FormImage &form) {
    for (size_t row = 1; row < form.fields.size(); ++row) {
        const FieldRecord &field = form.fields[row];
        if (!field.InUse || field.FieldKind > FIELD_USER || field.ValueType < TYPE_NUMERIC ||
            field.ValueType > TYPE_PICTURE)
            continue;
        std::printf("  %-12s %-8s %s\n", kind_names[field.FieldKind], type_names[field.ValueType],
                    Text(field.FieldName).c_str());
    }
}

void PrintSections(const FormImage &form) {
    for (int number = 0; number < MAX_SECTIONS; ++number) {
        if (!form.sections[number].InUse) continue;
        int items = 0;
        for (const ItemRecord &item : form.items)
            items += item.SectionIndex == number && item.ItemType != ITEM_BAR &&
                     item.ItemType != ITEM_GROUP;
        std::printf("  %-18s %d item%s\n", SectionName(number).c_str(), items,
                    items == 1 ? "" : "s");
    }
}

void PrintForm(const std::string &path) {
    const FormImage form = ReadForm(path);
    const int version = ReadFormHeader(path).FormVersion;
    CheckForm(path, form);
    const FormHeader &header = form.header;
    std::printf("form:    %s\n", Text(header.ReportName).c_str());
    std::printf("kind:    %s, version %d\n", header.LabelType ? "labels" : "report", version);
    std::printf("margins: %.2f left, %.2f right, %.2f top, %.2f bottom inches\n",
                static_cast<double>(header.LeftMargin), static_cast<double>(header.RightMargin),
                static_cast<double>(header.TopMargin), static_cast<double>(header.BottomMargin));
    if (header.ReportFilter[0] != CELL_END)
        std::printf("filter:  %s\n", ExpressionOf(form, CellsAt(header.ReportFilter)).c_str());
    std::printf("sections:\n");
    PrintSections(form);
    std::printf("fields:\n");
    PrintFields(form);
    for (const UserFieldRecord &user : form.users)
        if (user.InUse)
            std::printf("  asked        %-8s %s\n",
                        user.ValueType >= 1 && user.ValueType <= 6 ? type_names[user.ValueType]
                                                                   : "",
                        Text(user.UserName).c_str());
}

} // namespace

int InfoCommand(const std::string &path) {
    const std::string bytes = ReadFileBytes(path);
    if (IsReport(bytes))
        PrintReport(path);
    else if (IsForm(bytes))
        PrintForm(path);
    else
        throw Failure(path + ": is neither a form (.FP) nor a report (.FRC)");
    return EXIT_DONE;
}
