"""The edits that put a fault into a file.

For each kind of edit, a function yields all edits of that kind in a file.
"""

import re
from collections.abc import Callable, Iterator
from dataclasses import dataclass

from mutation.reading import CONTROL, Reading, Statement, read
from mutation.tokens import Token, spelling

COMPARISONS = {"<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
               "==": ("!=",), "!=": ("==",)}
OPERATORS = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "&&": "||", "||": "&&", "&": "|",
             "|": "&", "<<": ">>", ">>": "<<"}
COMPACT_OPERATORS = {"+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|=",
                     "++": "--", "--": "++"}
ESCAPED = ("'", "\\")  # characters that need an escape in a character literal
ESCAPES = {"n": "r", "r": "n", "t": "n", "0": "1"}
STRING = r'(\w*")(.*)("\w*)'
RAW_STRING = r'(\w*R"[^(]*\()(.*)(\)[^("]*"\w*)'
# Escape sequences and conversions of printf; their letters are not changed.
NO_LETTERS = r"\\.[0-9a-fA-F]*|%[-.0-9lzt]*\w"
DEFAULTS = ("{}", "0", "0.0", "false", "nullptr", '""', "std::nullopt")

# A statement that begins with one of these words is never dropped.
KEPT = CONTROL | {"return", "using", "typedef", "static_assert", "static", "const", "constexpr",
                  "constinit", "auto", "struct", "class", "enum", "union", "goto", "asm",
                  "template", "typename", "namespace", "else", "do", "try", "friend"}
NO_CALLS = CONTROL | {"return", "sizeof", "decltype", "noexcept", "alignof", "operator", "requires"}


@dataclass(frozen=True)
class Edit:
    """Replaces the text in [start, end) by `new`."""

    kind: str
    start: int
    end: int
    new: str


Edits = Iterator[Edit]


def _spaced(reading: Reading, token: Token) -> bool:
    """Whether blanks surround the token, as around a binary operator."""
    return reading.text[token.start - 1].isspace() and reading.text[token.end].isspace()


def _comparisons(reading: Reading) -> Edits:
    for token in reading.tokens:
        if token.kind == "sign" and _spaced(reading, token):
            for new in COMPARISONS.get(token.text, ()):
                yield Edit("comparison", token.start, token.end, new)


def _conditions(reading: Reading) -> Edits:
    """Negates the conditions of `if` and `while`, and removes "!"."""
    tokens = reading.tokens
    for index, token in enumerate(tokens[:-1]):
        if token.text == "!" and tokens[index + 1].start == token.end:
            yield Edit("condition", token.start, token.end, "")
        if token.text not in ("if", "while") or tokens[index + 1].text != "(":
            continue
        last = reading.partner[index + 1]
        inner = tokens[index + 2:last]
        if inner[0].text != "!" and not {"=", ";"} & {each.text for each in inner}:
            start, end = inner[0].start, inner[-1].end
            yield Edit("condition", start, end, f"!({reading.text[start:end]})")


def _operators(reading: Reading) -> Edits:
    tokens = reading.tokens
    for index, token in enumerate(tokens[1:-1], 1):
        if token.kind != "sign":
            continue
        beside = (tokens[index - 1], tokens[index + 1])
        joins_texts = token.text.startswith("+") and any(each.kind == "string" for each in beside)
        if token.text in COMPACT_OPERATORS and not joins_texts:
            yield Edit("operator", token.start, token.end, COMPACT_OPERATORS[token.text])
        elif token.text in OPERATORS and _spaced(reading, token) and not joins_texts:
            yield Edit("operator", token.start, token.end, OPERATORS[token.text])


def _number_beside(text: str) -> tuple[str, ...]:
    """The number plus and minus one unit of its last digit, as text."""
    parts = re.fullmatch(r"(0[xX])?([\da-fA-F']+?)(\.\d*)?([eE][+-]?\d+)?([uUlLzZfF]*)", text)
    if not parts or "'" in text:
        return ()
    prefix, whole, fraction, exponent, suffix = (part or "" for part in parts.groups())
    ending = exponent + suffix
    if prefix:
        number = int(whole, 16)
        return tuple(f"{prefix}{near:0{len(whole)}X}{suffix}" for near in (number + 1, number - 1)
                     if near >= 0)
    if fraction in ("", ".", ".0"):
        number, octal = int(whole), len(whole) if whole.startswith("0") else 0
        return tuple(f"{near:0{octal}d}{fraction}{ending}" for near in (number + 1, number - 1)
                     if near >= 0)
    number, places = int(whole + fraction[1:]), len(fraction) - 1
    digits = [f"{near:0{places + 1}d}" for near in (number + 1, number - 1)]
    return tuple(f"{each[:-places]}.{each[-places:]}{ending}" for each in digits)


def _character_beside(text: str) -> str:
    """A character literal with another character."""
    before, inner = text.split("'", 1)
    inner = inner[:-1]
    if inner.startswith("\\"):
        return f"{before}'\\{ESCAPES[inner[1]]}'" if inner[1:] in ESCAPES else f"{before}'x'"
    near = chr(ord(inner) + 1)
    return f"{before}'{'x' if near in ESCAPED else near}'"


def _constants(reading: Reading) -> Edits:
    for token in reading.tokens:
        if token.kind == "number":
            for new in _number_beside(token.text):
                yield Edit("constant", token.start, token.end, new)
        elif token.kind == "character":
            yield Edit("constant", token.start, token.end, _character_beside(token.text))


def _drops(reading: Reading) -> Edits:
    """Drops statements that neither declare nor return anything."""
    for statement in reading.statements:
        if not _is_action(reading, statement):
            continue
        start, end = reading.tokens[statement.first].start, reading.tokens[statement.last].end
        rest = reading.text[end:].split("\n", 1)[0].strip()
        # A line that becomes empty loses its indent too. The lines below keep their numbers.
        while not statement.is_controlled and not rest and reading.text[start - 1] == " ":
            start -= 1
        lines = reading.text.count("\n", start, end)
        yield Edit("statement", start, end, (";" if statement.is_controlled else "") + "\n" * lines)


def _is_action(reading: Reading, statement: Statement) -> bool:
    tokens, at = reading.tokens, statement.first
    first = tokens[at]
    if first.text in KEPT or first.text in ("[", ";", "{", "}"):
        return False
    if first.kind != "word" or first.text in ("break", "continue", "throw", "delete"):
        return True
    # A name, which may be qualified and have template arguments.
    while tokens[at].kind == "word" or tokens[at].text in ("::", "<"):
        if tokens[at].text == "<":
            end = reading.angle_end(at)
            if end == at:
                return False
            at = end
        elif tokens[at].kind == "word" and tokens[at + 1].kind == "word":
            return False  # a type and a name
        at += 1
        if tokens[at].kind == "word" and tokens[at - 1].text == ">":
            return False
    # clang-format puts the sign of a pointer or a reference right after the type.
    return tokens[at].text not in ("*", "&", "&&") or _spaced(reading, tokens[at])


def _arguments(reading: Reading) -> Edits:
    """Swaps neighbouring arguments of the same form."""
    for opening, kind in reading.kinds.items():
        before = reading.tokens[opening - 1]
        is_call = (kind == "group" and reading.tokens[opening].text == "("
                   and (before.kind == "word" and before.text not in NO_CALLS or before.text == ">")
                   and reading.bodies[opening])
        if not is_call and kind != "list":
            continue
        parts = _parts(reading, opening)
        for (left_first, left_last), (first, last) in zip(parts, parts[1:]):
            start, end = reading.tokens[left_first].start, reading.tokens[last].end
            left = reading.text[start: reading.tokens[left_last].end]
            right = reading.text[reading.tokens[first].start: end]
            between = reading.text[reading.tokens[left_last].end: reading.tokens[first].start]
            alike = _form(reading, left_first, left_last) == _form(reading, first, last)
            if alike and spelling(left) != spelling(right):
                yield Edit("arguments", start, end, right + between + left)


def _parts(reading: Reading, opening: int) -> list[tuple[int, int]]:
    """The first and the last token of each argument between the brackets."""
    end = reading.partner.get(opening, opening + 1)
    parts, at = [], opening + 1
    first = at
    while at < end:
        text = reading.tokens[at].text
        if text == "," and at > first:
            parts.append((first, at - 1))
            first = at + 1
        elif text == "<" and reading.text[reading.tokens[at].start - 1] != " ":
            at = reading.angle_end(at)
        elif text in ("(", "[", "{"):
            at = reading.partner.get(at, at)
        at += 1
    return parts + [(first, end - 1)] if first < end else parts


def _form(reading: Reading, first: int, last: int) -> str:
    """The form of an argument: a name, a number or another expression."""
    tokens = reading.tokens[first: last + 1]
    if len(tokens) == 2 and tokens[0].text == "-":
        tokens = tokens[1:]
    if len(tokens) == 1:
        return "truth" if tokens[0].text in ("true", "false") else tokens[0].kind
    if tokens[-1].text == ")" and tokens[0].kind == "word":
        return "call " + tokens[0].text
    if all(token.kind == "word" or token.text in (".", "->", "::") for token in tokens):
        return "member"
    return f"other {tokens[0].text}"


def _strings(reading: Reading) -> Edits:
    """Empties strings, fills empty ones, and changes a character in the middle."""
    for token in reading.tokens:
        if token.kind != "string":
            continue
        form = RAW_STRING if re.match(r'\w*R"', token.text) else STRING
        opening, inner, closing = re.fullmatch(form, token.text, re.DOTALL).group(1, 2, 3)
        yield Edit("string", token.start, token.end, opening + ("" if inner else "x") + closing)
        plain = re.sub(NO_LETTERS, lambda found: " " * len(found.group()), inner)
        letters = [place for place, letter in enumerate(plain) if re.match("[A-Za-z0-9]", letter)]
        if letters:
            place = letters[len(letters) // 2]
            letter = {"z": "a", "Z": "A", "9": "0"}.get(inner[place], chr(ord(inner[place]) + 1))
            changed = inner[:place] + letter + inner[place + 1:]
            yield Edit("string", token.start, token.end, opening + changed + closing)


def _truths(reading: Reading) -> Edits:
    for token in reading.tokens:
        if token.text in ("true", "false"):
            yield Edit("truth", token.start, token.end, "false" if token.text == "true" else "true")


def _returns(reading: Reading) -> Edits:
    """Inserts an early return, or replaces a returned value by a default one."""
    for at, routine in reading.starts:
        start = reading.tokens[at].start
        if routine.returns == "void" and not reading.is_at(at, "return"):
            yield Edit("return", start, start, "return; ")
        elif routine.returns == "value" and at == routine.opening + 1:
            if not reading.is_at(at, "return"):
                yield Edit("return", start, start, "return {}; ")
    for statement in reading.statements:
        tokens = reading.tokens[statement.first: statement.last]
        if tokens[0].text != "return" or len(tokens) < 2 or statement.routine.returns != "value":
            continue
        start, end = tokens[1].start, tokens[-1].end
        if "".join(token.text for token in tokens[1:]) not in DEFAULTS:
            yield Edit("return", start, end, "{}")


KINDS: dict[str, Callable[[Reading], Edits]] = {
    "comparison": _comparisons, "condition": _conditions, "operator": _operators,
    "constant": _constants, "statement": _drops, "arguments": _arguments, "string": _strings,
    "truth": _truths, "return": _returns,
}


def edits_of(text: str) -> list[Edit]:
    """Every edit of a file."""
    reading = read(text)
    frozen = [token.start for index, token in enumerate(reading.tokens) if index in reading.frozen]
    found = []
    for kind in KINDS.values():
        for edit in kind(reading):
            touched = any(edit.start <= start < edit.end for start in frozen)
            if not touched and spelling(text[edit.start: edit.end]) != spelling(edit.new):
                found.append(edit)
    return found
