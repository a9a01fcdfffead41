"""The tokens of a C++ source, for the tools that read sources without a compiler."""
import re
from typing import NamedTuple

TOKEN = re.compile(r'''(?P<skip>\s+|//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:[^\n\\]|\\.)*)
    |(?P<text>(?:u8|[LuU])?R"(?P<mark>[^()\s\\]*)\(.*?\)(?P=mark)"
        |(?:u8|[LuU])?"(?:[^"\\]|\\.)*"|(?:[LuU])?'(?:[^'\\]|\\.)*')
    |(?P<number>\.?\d(?:[\w.]|'\w)*)
    |(?P<word>[A-Za-z_]\w*)
    |(?P<sign>::|->|<<=|>>=|[-+*/%&|^=!<>]=|\+\+|--|&&|\|\||<<|.)''', re.S | re.M | re.X)


KINDS = ("text", "number", "word", "sign")


class Token(NamedTuple):
    kind: str  # text, number, word or sign
    text: str
    place: int
    line: int


def tokens_of(text):
    """All tokens; comments and preprocessor lines are none. ">>" is two, since it may end templates."""
    line = 1
    for match in TOKEN.finditer(text):
        if not match["skip"]:
            yield Token(next(kind for kind in KINDS if match[kind]), match[0],
                        match.start(), line)
        line += match[0].count("\n")
