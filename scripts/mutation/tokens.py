"""Splits C++ text into tokens."""

import re
from typing import NamedTuple

PATTERN = re.compile(
    r"""
    (?P<space>\s+)
  | (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>\#(?:\\\n|[^\n])*)
  | (?P<string>(?:u8|[uUL])?R"(?P<mark>[^(\n]*)\(.*?\)(?P=mark)"\w*
             | (?:u8|[uUL])?"(?:\\.|[^"\\\n])*"\w*)
  | (?P<character>(?:u8|[uUL])?'(?:\\[^\n][^'\n]*|[^'\\\n])')
  | (?P<number>(?:0[xX][\da-fA-F']+|(?:\d[\d']*\.?[\d']*|\.\d[\d']*)(?:[eE][+-]?\d+)?)\w*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<sign><=>|->\*|<<=|>>=|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|.)
    """,
    re.DOTALL | re.VERBOSE,
)


class Token(NamedTuple):
    """A token and its range [start, end) in the text."""

    kind: str  # "string", "character", "number", "word" or "sign"
    text: str
    start: int
    end: int


def tokens_of(text: str) -> list[Token]:
    """The tokens of a text, without comments and preprocessor lines."""
    found = []
    for match in PATTERN.finditer(text):
        kind = match.lastgroup if match.lastgroup != "mark" else "string"
        if kind not in ("space", "comment", "directive"):
            found.append(Token(kind, match.group(), match.start(), match.end()))
    return found


def spelling(text: str) -> list[str]:
    """The texts of the tokens. Equal for texts that differ only in layout and comments."""
    return [token.text for token in tokens_of(text)]
