#include "expr/tokenizer.h"

#include <cstdio>
#include <cstring>

#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int LITERAL_LIMIT = 100; // characters between the delimiters
constexpr int NAME_LIMIT = 100;
constexpr const char *NAME_STOPS = "()*/+#<=\"' .$,";

// A token being read off a text.
struct Reader {
    Session *session;
    const char *text; // where the token begins
    int place;        // how much of the text is consumed
    char *token;
    int length;

    char Next() const { return text[place]; }
    char After() const { return text[place] ? text[place + 1] : '\0'; }
    void Take() {
        if (length < NAME_LIMIT + 2) token[length++] = text[place];
        ++place;
    }
    char Finish(char token_class) {
        token[length] = 0;
        return token_class;
    }
    char Fail(const char *message, bool owned = true) {
        ShowBox(owned ? session->Window : nullptr, message);
        return Finish('E');
    }
};

struct LiteralWords {
    char closing;
    const char *too_long;
    const char *unclosed;
};

char ReadLiteral(Reader *reader, const LiteralWords &words) {
    reader->Take();
    for (int count = 0; reader->Next() != words.closing; ++count) {
        if (!reader->Next()) return reader->Fail(words.unclosed);
        if (count == LITERAL_LIMIT - 1) return reader->Fail(words.too_long, false);
        reader->Take();
    }
    reader->Take();
    return reader->Finish('S');
}

void TakeDigits(Reader *reader) {
    while (IsDigit(reader->Next())) reader->Take();
}

char ReadDotWord(Reader *reader) {
    reader->Take();
    while (reader->Next() && reader->Next() != '.') reader->Take();
    if (!reader->Next()) return reader->Fail("Missing dot in the dot operator");
    reader->Take();
    reader->Finish(0);
    UpperText(reader->token);
    const bool logical = !std::strcmp(reader->token, ".T.") || !std::strcmp(reader->token, ".F.");
    return logical ? 'B' : 'O';
}

char ReadPoint(Reader *reader) {
    if (!IsDigit(reader->After())) return ReadDotWord(reader);
    reader->Take();
    TakeDigits(reader);
    return reader->Finish('D');
}

bool StopsName(char before, char c, char after) {
    if (!c || std::strchr(NAME_STOPS, c)) return true;
    if (c == '-') return after != '>';
    return c == '>' && before != '-';
}

// No field has a longer name. Cut off, it could be taken for another field's.
char RefuseName(Reader *reader) {
    char text[NAME_LIMIT + 40];
    reader->token[NAME_LIMIT] = 0;
    std::snprintf(text, sizeof text, "Invalid data field: %s", UpperText(reader->token));
    return reader->Fail(text);
}

// Reads on after the first character, which a name has whatever it is.
char ReadName(Reader *reader) {
    char before = reader->text[reader->place - 1];
    while (!StopsName(before, reader->Next(), reader->After())) {
        before = reader->Next();
        reader->Take();
    }
    reader->Finish(0);
    if (reader->length > NAME_LIMIT) return RefuseName(reader);
    UpperText(reader->token);
    return reader->Next() == '(' ? 'G' : 'F';
}

char ReadNumber(Reader *reader) {
    TakeDigits(reader);
    if (reader->Next() == '.' && IsDigit(reader->After())) {
        reader->Take();
        TakeDigits(reader);
        return reader->Finish('D');
    }
    if (reader->Next() == '-' && reader->After() == '>') {
        reader->Take();
        reader->Take();
        return ReadName(reader) == 'E' ? 'E' : 'F';
    }
    return reader->Finish('N');
}

// The longest operator of the table, functions aside, that stands at this place.
int OperatorLength(const Session *session, const char *text) {
    size_t longest = 0;
    for (const OperatorRow &row : session->form.OperatorTable) {
        const size_t length = std::strlen(row.Text);
        if (!row.Function && length > longest && !std::strncmp(text, row.Text, length))
            longest = length;
    }
    return static_cast<int>(longest);
}

char ReadSingle(Reader *reader, char token_class) {
    reader->Take();
    return reader->Finish(token_class);
}

char ReadOperatorOrName(Reader *reader) {
    const int length = OperatorLength(reader->session, reader->text + reader->place);
    if (length == 0) {
        reader->Take();
        return ReadName(reader);
    }
    for (int count = 0; count < length; ++count) reader->Take();
    return reader->Finish('P');
}

char ReadToken(Reader *reader) {
    constexpr LiteralWords string_words{'"', "String too long.", "Missing closing quotes"};
    constexpr LiteralWords date_words{'}', "Invalid date.", "Missing closing bracket"};
    switch (const char first = reader->Next(); first) {
    case '\0': return reader->Finish('Z');
    case '"': return ReadLiteral(reader, string_words);
    case '{': return ReadLiteral(reader, date_words);
    case ',': return ReadSingle(reader, 'C');
    case '.': return ReadPoint(reader);
    case '(': return ReadSingle(reader, 'L');
    case ')': return ReadSingle(reader, 'R');
    default: return IsDigit(first) ? ReadNumber(reader) : ReadOperatorOrName(reader);
    }
}

} // namespace

char NextToken(Session *session, const char *text, char *token, int32_t *consumed) {
    Reader reader{session, text, 0, token, 0};
    token[0] = 0;
    while (reader.Next() == ' ') ++reader.place;
    const char token_class = ReadToken(&reader);
    *consumed = reader.place;
    return token_class;
}

} // namespace tessarine
