# SPDX-License-Identifier: MIT
"""Reads C++ far enough to know what a token is for: tokens, frozen stretches, scopes and statements.

It relies on what clang-format does to every file here: an operator between two operands has white space on both sides,
the brackets of a template, a pointer's star and a reference's ampersand have not.
"""
import re
from dataclasses import dataclass, field

TOKEN = re.compile(
    r"""
    (?P<blank>\s+)
  | (?P<comment>//(?:\\\n|[^\n])*|/\*.*?\*/)
  | (?P<text>(?:u8|[uUL])?(?:R"(?P<mark>[^\s()\\]{0,16})\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"))
  | (?P<character>(?:u8|[uUL])?'(?:\\.|[^'\\\n])+')
  | (?P<number>\.?\d(?:[eEpP][+-]|'(?=\w)|[\w.])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<sign><=>|->\*|\.\.\.|<<=|>>=|::|->|\+\+|--|&&|\|\||[=!<>+\-*/%&|^]=|<<|>>|.)
    """,
    re.VERBOSE | re.DOTALL,
)
PREPROCESSOR = re.compile(r"[ \t]*#(?:\\\n|[^\n])*")

KEYWORDS = frozenset(
    """alignas asm auto bool break case catch char class const constexpr constinit continue decltype default delete do
    double else enum explicit extern float for friend goto if inline int long mutable namespace new noexcept operator
    private protected public requires return short signed sizeof static static_assert struct switch template thread_local
    throw try typedef typename union unsigned using virtual void volatile while co_await co_return co_yield
    static_cast const_cast reinterpret_cast dynamic_cast""".split()
)
TYPE_WORDS = frozenset("class struct union enum namespace".split())
# What stands in the parentheses behind these words is checked by the compiler or compiled away.
FROZEN_CALLS = frozenset("static_assert assert Q_ASSERT Q_ASSERT_X noexcept decltype alignas explicit asm".split())
FROZEN_STATEMENTS = frozenset("using typedef".split())
BODY_FOLLOWS = frozenset("const noexcept override final mutable else do try".split())
CLOSERS = {"(": ")", "[": "]", "{": "}"}


@dataclass
class Token:
    kind: str
    text: str
    start: int
    spaced: bool = False  # white space or a comment on both sides
    frozen: bool = False  # no change begins here
    partner: int = -1  # of an opening bracket: where it closes

    @property
    def end(self):
        return self.start + len(self.text)


@dataclass
class Scope:
    kind: str  # block, type (namespaces and the file too), init or paren
    opener: int
    start: int  # where the statement being read begins
    control: str = ""  # if, for, while, switch: whose body or parentheses this is
    is_lambda: bool = False


@dataclass
class Statement:
    first: int
    semicolon: int
    scope: Scope


@dataclass
class Source:
    """The tokens of a file and what stands where."""

    text: str
    tokens: list
    statements: list = field(default_factory=list)
    conditions: list = field(default_factory=list)  # opening parentheses of if and while
    calls: list = field(default_factory=list)  # opening parentheses behind a name, inside a function


def tokenize(text):
    """Every token but white space, comments and preprocessor lines."""
    tokens = []
    gap, line_start, at = True, True, 0
    while at < len(text):
        match = PREPROCESSOR.match(text, at) if line_start else None
        if match is None:
            match = TOKEN.match(text, at)
        kind = match.lastgroup if match.re is TOKEN else "preprocessor"
        kind = "text" if kind == "mark" else kind
        at = match.end()
        if kind in ("blank", "comment", "preprocessor"):
            gap = True
            line_start = kind != "comment" and (match.group().endswith("\n") or kind == "blank" and "\n" in match.group())
            continue
        line_start = False
        following = text[at : at + 2]
        spaced = gap and (not following or following[0].isspace() or following in ("//", "/*"))
        tokens.append(Token(kind, match.group(), match.start(), spaced))
        gap = False
    return tokens


def pair_brackets(tokens):
    open_ones = []
    for i, token in enumerate(tokens):
        if token.kind != "sign":
            continue
        if token.text in CLOSERS:
            open_ones.append(i)
        elif open_ones and token.text == CLOSERS[tokens[open_ones[-1]].text]:
            tokens[open_ones.pop()].partner = i


def freeze(tokens):
    """Marks the stretches in which nothing is changed."""
    for i, token in enumerate(tokens):
        following = tokens[i + 1] if i + 1 < len(tokens) else token
        if token.text in FROZEN_CALLS:
            _freeze(tokens, i, following.partner if following.text == "(" else i)
        elif token.text in FROZEN_STATEMENTS:
            end = i
            while end < len(tokens) and tokens[end].text != ";":
                end += 1
            _freeze(tokens, i, end)
        elif token.text == "operator" or (token.text == "extern" and following.kind == "text"):
            _freeze(tokens, i, i + 1)
        elif token.text == "[" and following.text == "[" and following.start == token.end:
            _freeze(tokens, i, token.partner)
    _freeze_template_brackets(tokens)


def _freeze(tokens, first, last):
    for token in tokens[first : last + 1]:
        token.frozen = True


def _freeze_template_brackets(tokens):
    opened = []
    for i, token in enumerate(tokens):
        if token.kind != "sign" or token.spaced:
            continue
        if token.text == "<" and not token.frozen and i > 0 and tokens[i - 1].kind == "word":
            opened.append(i)
        elif token.text in (">", ">>"):
            for _ in token.text:
                if opened:
                    _freeze(tokens, opened.pop(), i)
        elif token.text in (";", "{"):
            opened.clear()


class Reader:
    """One walk over the tokens that finds the scopes, and in them statements, conditions and calls."""

    def __init__(self, text):
        self.source = Source(text, tokenize(text))
        self.tokens = self.source.tokens
        pair_brackets(self.tokens)
        freeze(self.tokens)
        self.scopes = [Scope("type", -1, 0)]
        self.pending = ""  # the control word whose parentheses have just closed

    def read(self):
        for i, token in enumerate(self.tokens):
            if token.kind == "sign":
                self._sign(i, token.text)
            elif token.text in ("else", "do"):
                self.scopes[-1].start = i + 1
            if token.text != ")":
                self.pending = ""
        return self.source

    def _sign(self, i, text):
        top = self.scopes[-1]
        if text in "([":
            self._open_paren(i)
        elif text in ")]":
            self._close_paren(i)
        elif text == "{":
            kind, is_lambda = self._kind_of_brace(i)
            self.scopes.append(Scope(kind, i, i + 1, self.pending, is_lambda))
        elif text == "}":
            self._close_brace(i)
        elif text == ";" and top.kind in ("block", "type"):
            if top.kind == "block" and top.start < i:
                self.source.statements.append(Statement(top.start, i, top))
            top.start = i + 1
        elif text == ":" and top.kind in ("block", "type") and top.start < i:
            if self.tokens[top.start].text in ("case", "default", "public", "protected", "private"):
                top.start = i + 1

    def _open_paren(self, i):
        control = ""
        before = self._text(i - 1)
        if self.tokens[i].text == "(":
            if before in ("if", "while", "for", "switch"):
                control = before
            elif before == "constexpr" and self._text(i - 2) == "if":
                control = "if"
            if before in ("if", "while"):
                self.source.conditions.append(i)
            elif i > 0 and self.tokens[i - 1].kind == "word" and before not in KEYWORDS and self._in_function():
                self.source.calls.append(i)
        self.scopes.append(Scope("paren", i, i + 1, control))

    def _close_paren(self, i):
        if self.scopes[-1].kind != "paren":
            return
        closed = self.scopes.pop()
        self.pending = closed.control
        if closed.control:
            self.scopes[-1].start = i + 1

    def _close_brace(self, i):
        if len(self.scopes) == 1 or self.scopes[-1].kind == "paren":
            return
        closed = self.scopes.pop()
        if closed.kind != "init" and not closed.is_lambda:
            self.scopes[-1].start = i + 1

    def _in_function(self):
        return next(s.kind for s in reversed(self.scopes) if s.kind in ("block", "type")) == "block"

    def _text(self, i):
        return self.tokens[i].text if 0 <= i < len(self.tokens) else ""

    def _kind_of_brace(self, i):
        """The kind of scope that a brace opens, and whether it is the body of a lambda."""
        top, before = self.scopes[-1], self._text(i - 1)
        if self._opens_lambda(i):
            return "block", True
        if top.kind in ("paren", "init"):
            return "init", False
        head = self.tokens[top.start : i]
        words = {token.text for token in head if not token.frozen}
        if words & TYPE_WORDS and "(" not in words:
            return "type", False
        if "extern" in {token.text for token in head} and "(" not in words:
            return "type", False
        if not head:
            return top.kind, False
        follows_initializer = before == "}" and "(" in words and "=" not in words
        if before == ")" or before in BODY_FOLLOWS or follows_initializer or self._before_return_type(i) == ")":
            return "block", False
        return "init", False

    def _opens_lambda(self, i):
        at = i - 1
        arrow = self._before_return_type(i, want_index=True)
        at = arrow if arrow >= 0 else at
        while self._text(at) in ("mutable", "noexcept", "constexpr"):
            at -= 1
        if self._text(at) == ")":
            opener = self._opener_of(at)
            at = opener - 1
        return self._text(at) == "]" and not self._is_subscript(at)

    def _is_subscript(self, closer):
        """Whether a square bracket belongs to what stands before it, as in `kTable[]{1, 2}`."""
        before = self._opener_of(closer) - 1
        return before >= 0 and (self._text(before) in (")", "]") or (
            self.tokens[before].kind == "word" and self._text(before) not in KEYWORDS))

    def _opener_of(self, closer):
        return next((j for j in range(closer, -1, -1) if self.tokens[j].partner == closer), closer)

    def _before_return_type(self, i, want_index=False):
        """What stands before `-> Type` when that is what stands before the brace at `i`."""
        at = i - 1
        while at >= 0 and (self.tokens[at].kind == "word" or self.tokens[at].frozen or self._text(at) in ("::", "*", "&")):
            at -= 1
        found = self._text(at) == "->" and at + 1 < i
        if want_index:
            return at - 1 if found else -1
        return self._text(at - 1) if found else ""


def read(text):
    """A file's tokens with statements, conditions and calls found."""
    return Reader(text).read()
