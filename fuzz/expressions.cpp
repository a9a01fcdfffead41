#include <cstring>
#include <memory>

#include "expr/evaluator.h"
#include "expr/symbols.h"
#include "expr/validate.h"
#include "frame/memory.h"
#include "fuzz/changes.h"
#include "fuzz/guarded_heap.h"
#include "fuzz/kinds.h"
#include "fuzz/watch.h"
#include "tests/support/test_session.h"

namespace {

constexpr const char *words[] = {"(",
                                 ")",
                                 "+",
                                 "-",
                                 "*",
                                 "/",
                                 "=",
                                 "<>",
                                 ".",
                                 ">",
                                 "<",
                                 ">=",
                                 "<=",
                                 ".OR.",
                                 ".AND.",
                                 ".NOT.",
                                 "$",
                                 ",",
                                 ".TOTAL-OF.",
                                 ".AVE-OF.",
                                 ".MAX-OF.",
                                 ".MIN-OF.",
                                 ".COUNT-OF.",
                                 ".IF.",
                                 ".THEN.",
                                 ".ELSE.",
                                 "LEN(",
                                 "UPPER(",
                                 "LOWER(",
                                 "TRIM(",
                                 "WORD(",
                                 "CHAR(",
                                 "MIN(",
                                 "MAX(",
                                 "VAL(",
                                 "ROUND(",
                                 "ABS(",
                                 "WEEKDAY(",
                                 "DAY(",
                                 "MONTH(",
                                 "YEAR(",
                                 "LEFT(",
                                 "RIGHT(",
                                 "STR(",
                                 "DTOC(",
                                 "DTOS(",
                                 "CTOD(",
                                 "MONTHTOS(",
                                 " ",
                                 "N",
                                 "D",
                                 "T",
                                 "L",
                                 "W",
                                 "0",
                                 "1",
                                 "-1",
                                 "12.75",
                                 "1e9",
                                 "2147483647",
                                 "4294967296",
                                 "99999999999999999999",
                                 "\"text\"",
                                 "\"\"",
                                 "\"12/31/97\"",
                                 "{12/31/97}",
                                 "{2/29/2000}",
                                 "{",
                                 "}",
                                 "'",
                                 ".T.",
                                 ".F.",
                                 "SYS->PAGE",
                                 "SYS->DATE",
                                 "SYS->TIME",
                                 "SYS->REC_COUNT",
                                 "DLG->",
                                 "->"};

std::vector<std::string> Seeds() {
    return {"N+D*2-(N/3)",
            ".IF. L .THEN. UPPER(T) .ELSE. LEFT(T,2)+RIGHT(T,N)",
            "DTOC(W)+DTOS(W+30)+STR(D)",
            "\"a\" $ T .AND. .NOT. L .OR. N>=2",
            "ROUND(D,2)+VAL(\"12.5\")+ABS(-N)",
            "WORD(T,2)-CHAR(T,1)+TRIM(LOWER(T))",
            ".TOTAL-OF. N + .AVE-OF. D",
            "CTOD(\"12/31/97\")-W+DAY(W)*MONTH(W)-YEAR(W)",
            "MONTHTOS(N)+WEEKDAY(W)",
            "MIN(N,MAX(D,SYS->PAGE))<>LEN(T)"};
}

std::string Changed(Random *random, const std::string &input) {
    if (!random->OneIn(3)) return ChangedText(random, input, words);
    std::string text;
    for (size_t count = random->Below(random->OneIn(20) ? 130 : 14); count > 0; --count)
        text += random->Of(words);
    return text;
}

// What a form knows as data fields are the rows that are there.
int32_t __stdcall CheckField(HWND, FieldRecord *record, int32_t, void *) {
    if (std::strlen(record->FieldName) != 1 || !std::strchr("NDTLW", *record->FieldName)) return 0;
    record->ValueType = TYPE_NUMERIC;
    return 1;
}

class Table {
public:
    Table() {
        session_->FormBlock.CheckFieldProc = CheckField;
        Number("N", TYPE_NUMERIC)->LongValue = 7;
        Number("D", TYPE_DOUBLE)->DoubleValue = -12.345;
        std::strcpy(Number("T", TYPE_TEXT)->TextValue, "some Text");
        Number("L", TYPE_LOGICAL)->LongValue = 1;
        Number("W", TYPE_DATE)->LongValue = 19971231;
        rows_ = session_->form.FieldCount;
        blocks_ = tessarine::LiveBlocks();
    }

    void Run(const char *text) {
        auto *cells = static_cast<uint16_t *>(GuardedBlock(MAX_CELLS * sizeof(uint16_t)));
        int32_t place = 0;
        const int mode = text[0] & 1;
        if (tessarine::GenerateSymbols(session_, text, cells, &place, mode) &&
            tessarine::ValidateExp(session_, cells, mode)) {
            Evaluate(cells, 0);
            Evaluate(cells, 1);
            char shown[300];
            tessarine::ExpressionText(session_, cells, shown, sizeof shown);
        }
        FreeGuardedBlock(cells);
        Restore();
    }

private:
    FieldRecord *Number(const char *name, int type) {
        return &session_->form.Fields[session_.AddField(FIELD_DATA, name, type)];
    }

    void Evaluate(const uint16_t *cells, int run) {
        FieldRecord result{};
        tessarine::EvaluateExpression(session_, cells, &result, run);
        tessarine::OurFree(result.TextValue);
    }

    // The rows that the expression added go; no other block may be left.
    void Restore() {
        tessarine::FormState &form = session_->form;
        for (int row = rows_; row < form.FieldCount; ++row) {
            tessarine::OurFree(form.Fields[row].TextValue);
            form.Fields[row] = FieldRecord{};
        }
        form.FieldCount = rows_;
        if (tessarine::LiveBlocks() != blocks_) TellAndEnd("a block of an expression is left");
    }

    BareSession session_;
    int rows_;
    int blocks_;
};

void Run(const std::string &input) {
    static Table table;
    auto *text = static_cast<char *>(GuardedBlock(input.size() + 1));
    std::memcpy(text, input.c_str(), input.size() + 1);
    table.Run(text);
    FreeGuardedBlock(text);
}

} // namespace

const Kind expressions = {"expression", Seeds, Changed, Run};
