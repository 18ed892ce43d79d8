"""Finds the statements and function bodies of C++ text.

This is not a parser of C++. Brackets, keywords and the layout of clang-format are enough to tell a
body from an initialiser, and a call from a declaration. A wrong guess mostly leads to an edit that
does not compile, and such edits are not counted.
"""

from dataclasses import dataclass, field

from mutation.tokens import Token, tokens_of

CONTROL = {"if", "for", "while", "switch", "catch"}
LABELS = {"case", "default", "public", "private", "protected"}
SPECIFIERS = {"inline", "static", "constexpr", "consteval", "virtual", "explicit", "friend",
              "extern"}
CLASS_WORDS = {"class", "struct", "union"}
TYPE_SIGNS = {"::", "<", ">", ">>", ",", "&", "&&", "*", "->"}


@dataclass
class Routine:
    """A function or a lambda. `returns` is "void", "value" or "unknown"."""

    opening: int
    returns: str
    is_deduced: bool = False  # no return type is written; a later `return` may change `returns`


@dataclass
class Scope:
    """The kind of a bracket: "namespace", "class", "enum", "code", "list" or "group"."""

    kind: str
    opening: int
    begin: int  # the first token of the current statement
    routine: Routine | None = None
    is_lambda: bool = False
    is_controlled: bool = False  # whether that statement is the body of an `if`, a loop, …


@dataclass(frozen=True)
class Statement:
    """A statement in a body, from its first token to its semicolon."""

    first: int
    last: int
    routine: Routine
    is_controlled: bool


@dataclass
class Reading:
    """The tokens, functions and statements of a file."""

    text: str
    tokens: list[Token]
    partner: dict[int, int] = field(default_factory=dict)  # each bracket to its partner
    kinds: dict[int, str] = field(default_factory=dict)  # opening bracket to scope kind
    bodies: dict[int, Routine | None] = field(default_factory=dict)  # bracket to its function
    frozen: set[int] = field(default_factory=set)  # tokens that no edit touches
    statements: list[Statement] = field(default_factory=list)
    starts: list[tuple[int, Routine]] = field(default_factory=list)  # an edit may insert here

    def is_at(self, index: int, *texts: str) -> bool:
        return 0 <= index < len(self.tokens) and self.tokens[index].text in texts

    def angle_end(self, index: int) -> int:
        """The index of the `>` that closes the `<` at `index`; `index` if there is none."""
        depth = 0
        for at in range(index, min(index + 200, len(self.tokens))):
            text = self.tokens[at].text
            depth += {"<": 1, ">": -1, ">>": -2}.get(text, 0)
            if depth <= 0:
                return at
            if text in ("{", ";"):
                break
        return index


def read(text: str) -> Reading:
    """Reads a file."""
    reading = Reading(text, tokens_of(text))
    reader = _Reader(reading)
    for index in range(len(reading.tokens)):
        reader.take(index)
    return reading


class _Reader:
    """Visits the tokens once, with a stack of open brackets."""

    def __init__(self, reading: Reading):
        self._reading = reading
        self._tokens = reading.tokens
        self._stack = [Scope("namespace", -1, 0)]

    def take(self, index: int) -> None:
        token, top = self._tokens[index], self._stack[-1]
        if token.kind == "word":
            self._word(index, token.text, top)
        elif token.text in ("(", "["):
            self._push(Scope("group", index, index + 1, top.routine))
        elif token.text == "{":
            self._push(self._braced(index))
        elif token.text in (")", "]", "}"):
            self._close(index)
        elif token.text == ";" and top.kind != "group":
            self._end_statement(index, top)
        elif token.text == ":" and self._reading.is_at(top.begin, *LABELS):
            top.begin = index + 1

    def _push(self, scope: Scope) -> None:
        self._reading.kinds[scope.opening] = scope.kind
        self._reading.bodies[scope.opening] = self._stack[-1].routine
        self._stack.append(scope)

    def _word(self, index: int, word: str, top: Scope) -> None:
        if word == "template" and self._reading.is_at(index + 1, "<"):
            self._freeze(index, self._reading.angle_end(index + 1))
        elif word == "operator":
            self._freeze(index, index + 2)
        elif word == "extern":
            self._freeze(index, index + 1)
        if index != top.begin or top.kind != "code":
            return
        if word in ("else", "do", "try"):
            top.begin, top.is_controlled = index + 1, True
        elif word in CONTROL and not top.is_controlled:
            self._reading.starts.append((index, top.routine))

    def _freeze(self, first: int, last: int) -> None:
        self._reading.frozen.update(range(first, last + 1))

    def _close(self, index: int) -> None:
        if len(self._stack) == 1:
            return
        scope = self._stack.pop()
        self._reading.partner[scope.opening] = index
        self._reading.partner[index] = scope.opening
        top = self._stack[-1]
        before = scope.opening - 1
        if self._tokens[index].text == "}":
            if scope.kind in ("namespace", "code") and not scope.is_lambda:
                top.begin, top.is_controlled = index + 1, False
        elif self._reading.is_at(before, "[") and self._reading.is_at(index + 1, "]"):
            self._freeze(before, index + 1)
        elif self._reading.is_at(before, "__attribute__", "alignas", "decltype", "asm"):
            self._freeze(before, index)
        elif self._is_control_head(before, top):
            top.begin, top.is_controlled = index + 1, True

    def _is_control_head(self, before: int, top: Scope) -> bool:
        if self._reading.is_at(before, "constexpr"):
            before -= 1
        return before == top.begin and self._reading.is_at(before, *CONTROL)

    def _end_statement(self, index: int, top: Scope) -> None:
        first = top.begin
        texts = [token.text for token in self._tokens[first:index]]
        if texts and (texts[0] == "static_assert" or "concept" in texts):
            self._freeze(first, index)
        if texts[-2:] == ["=", "0"] and texts[-3] in (")", "const", "noexcept", "override"):
            self._freeze(index - 1, index)
        if texts and top.kind == "code":
            if texts[0] == "return" and len(texts) > 1 and top.routine.is_deduced:
                top.routine.returns = "unknown"
            statement = Statement(first, index, top.routine, top.is_controlled)
            self._reading.statements.append(statement)
            if not top.is_controlled:
                self._reading.starts.append((first, top.routine))
        top.begin, top.is_controlled = index + 1, False

    def _braced(self, index: int) -> Scope:
        """The scope that the brace at the index opens."""
        top = self._stack[-1]
        scope = Scope("list", index, index + 1, top.routine)
        lambda_returns = self._lambda_returns(index)
        if lambda_returns:
            scope.kind, scope.is_lambda = "code", True
            scope.routine = Routine(index, *lambda_returns)
        elif top.kind in ("namespace", "class"):
            self._outside(scope, top.begin)
        elif top.kind == "code":
            self._inside(scope, top)
        return scope

    def _inside(self, scope: Scope, top: Scope) -> None:
        """A brace in a body: a block, a local class or an initialiser."""
        if top.begin == scope.opening:
            scope.kind = "code"
        elif self._reading.is_at(top.begin, *CLASS_WORDS):
            scope.kind = "class"

    def _outside(self, scope: Scope, begin: int) -> None:
        """A brace outside of bodies: a namespace, a class, a body or an initialiser."""
        head = self._top_level(self._after_prefixes(begin), scope.opening)
        texts = [self._tokens[at].text for at in head]
        if not texts or "namespace" in texts[:2] or self._tokens[begin].text == "extern":
            scope.kind = "namespace"
        elif texts[0] == "enum":
            scope.kind = "enum"
        elif texts[0] in CLASS_WORDS or texts[0] == "requires" and CLASS_WORDS & set(texts):
            scope.kind = "class"
        elif "(" in texts and self._is_body(head, texts):
            scope.kind = "code"
            scope.routine = Routine(scope.opening, self._returns(head, texts))

    @staticmethod
    def _is_body(head: list[int], texts: list[str]) -> bool:
        parameters = texts.index("(")
        if "=" in texts and texts.index("=") < parameters and "operator" not in texts:
            return False
        initialised = ":" in texts[parameters:]
        # In an initialiser list, the name before the brace is a member.
        return not initialised or texts[-1] in ("(", "{")

    def _after_prefixes(self, begin: int) -> int:
        """The index of a function's return type, after templates, attributes and specifiers."""
        while True:
            if self._reading.is_at(begin, "template") and self._reading.is_at(begin + 1, "<"):
                begin = self._reading.angle_end(begin + 1) + 1
            elif self._reading.is_at(begin, "["):
                begin = self._reading.partner.get(begin, begin) + 1
            elif self._reading.is_at(begin, *SPECIFIERS):
                begin += 1
            else:
                return begin

    def _top_level(self, first: int, end: int) -> list[int]:
        """The indexes in [first, end), without closing brackets and what is inside brackets."""
        found = []
        while first < end:
            found.append(first)
            first = self._reading.partner.get(first, first) + 1
        return found

    def _returns(self, head: list[int], texts: list[str]) -> str:
        """The kind of result of the function with this head."""
        parameters = texts.index("(")
        kind = texts[: self._name_start(texts[:parameters])]
        if "->" in texts[parameters:]:
            kind = texts[texts.index("->", parameters) + 1:]
        if not kind:
            return "unknown" if "operator" in texts else "void"
        if kind == ["void"]:
            return "void"
        is_clear = kind[-1] not in ("&", "&&") and not {"auto", "decltype"} & set(kind)
        return "value" if is_clear else "unknown"

    @staticmethod
    def _name_start(texts: list[str]) -> int:
        """The index where the qualified name at the end of the texts begins."""
        at = texts.index("operator") if "operator" in texts else len(texts) - 1
        if texts[at - 1: at] == ["~"]:
            at -= 1
        while at >= 2 and texts[at - 1] == "::":
            at -= 2
            if texts[at] == ">":  # a class template with arguments
                at -= texts[at::-1].index("<") + 1
        return at

    def _lambda_returns(self, index: int) -> tuple[str, bool] | None:
        """The kind of result of the lambda with this body, and whether it is deduced."""
        at, has_arrow, words = index - 1, False, []
        while at >= 0 and (self._tokens[at].kind == "word" or self._tokens[at].text in TYPE_SIGNS):
            has_arrow = has_arrow or self._tokens[at].text == "->"
            words.append(self._tokens[at].text)
            at -= 1
        if not has_arrow and set(words) - {"mutable", "noexcept", "constexpr"}:
            return None
        if self._reading.is_at(at, ")"):
            at = self._reading.partner.get(at, 0) - 1
        if not self._reading.is_at(at, "]"):
            return None
        before = self._reading.partner.get(at, 0) - 1
        is_index = before >= 0 and (
            self._reading.is_at(before, ")", "]", "[")
            or self._tokens[before].kind == "word" and self._tokens[before].text != "return")
        if is_index:
            return None
        return ("value" if has_arrow and words[0] != "void" else "void"), not has_arrow
