# SPDX-License-Identifier: MIT
"""What can be changed in a C++ text, and which of it a seed draws."""
import random
import re
from dataclasses import dataclass

from . import cpp

BINARY = {
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["/"],
    "==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
    "&&": ["||"], "||": ["&&"], "&": ["|"], "|": ["&"], "<<": [">>"], ">>": ["<<"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "|=": ["&="], "&=": ["|="],
}  # fmt: skip
UNARY = {"++": ["--"], "--": ["++"]}
WORDS = {"true": ["false"], "false": ["true"]}
INTEGER = re.compile(r"(0[xX][\da-fA-F']+|0[bB][01']+|\d[\d']*)([uUlLzZ]*)")
FLOATING = re.compile(r"((?:\d[\d']*)?\.?[\d']*)((?:[eE][+-]?\d+)?)([fFlL]?)")
TEXT_UNIT = re.compile(r"\\x[\da-fA-F]+|\\[0-7]{1,3}|\\u[\da-fA-F]{4}|\\U[\da-fA-F]{8}|\\.|[^\\]", re.DOTALL)
SYMMETRIC = frozenset(["max", "min", "swap"])
ESCAPES = {r"\n": r"\r", r"\r": r"\n", r"\t": " ", r"\0": "1"}
AFTER_NAME = frozenset(["(", ".", "->", "[", "=", "++", "--", "<<", "<<=", ">>=", "%=", "^=", "+=", "-=", "*=", "/=", "|=", "&="])


@dataclass(frozen=True)
class Site:
    """One stretch of a file and what may stand there instead."""

    path: str
    start: int
    end: int
    kind: str
    replacements: tuple


@dataclass(frozen=True)
class Change:
    """One change of one file; `number` is its place among all that a seed draws."""

    number: int
    path: str
    start: int
    end: int
    kind: str
    replacement: str

    def applied_to(self, text):
        return text[: self.start] + self.replacement + text[self.end :]

    def line_in(self, text):
        """The line number, 1-based."""
        return text.count("\n", 0, self.start) + 1

    def lines_in(self, text):
        """The lines the change touches, before and after, each as one line."""
        first = text.rfind("\n", 0, self.start) + 1
        last = text.find("\n", self.end)
        last = len(text) if last < 0 else last
        after = text[first : self.start] + self.replacement + text[self.end : last]
        return " ".join(text[first:last].split()), " ".join(after.split())


def changed_number(text):
    """The numbers to try instead of a literal, written as it is."""
    match = INTEGER.fullmatch(text)
    if match:
        return _changed_integer(*match.groups())
    match = FLOATING.fullmatch(text)
    return _changed_floating(*match.groups()) if match else []


def _changed_integer(digits, suffix):
    plain = digits.replace("'", "")
    prefix = plain[:2] if plain[:2].lower() in ("0x", "0b") else ""
    base = {"0x": 16, "0b": 2}.get(prefix.lower(), 8 if len(plain) > 1 and plain[0] == "0" else 10)
    value = int(plain, base)
    values = {value + 1: None, value - 1: None, 0: None}
    form = {16: "X" if plain == plain.upper().replace("X", "x") else "x", 2: "b", 8: "o", 10: "d"}[base]
    width = len(plain) - len(prefix) if base != 10 else 1
    return [
        f"{'-' if v < 0 else ''}{prefix}{format(abs(v), form).zfill(width)}{suffix}"
        for v in values
        if v != value and (v >= 0 or "u" not in suffix.lower())
    ]


def _changed_floating(mantissa, exponent, suffix):
    last = max(i for i, c in enumerate(mantissa) if c.isdigit())
    digit = "8" if mantissa[last] == "9" else str(int(mantissa[last]) + 1)
    near = mantissa[:last] + digit + mantissa[last + 1 :] + exponent + suffix
    zero = "0.0" + suffix
    return [near] if float(mantissa.replace("'", "")) == 0 else [near, zero]


def changed_text(text):
    """A text literal without one of its characters, each in turn."""
    opening = text.index('"')
    first, last = opening + 1, len(text) - 1
    if text[opening - 1 : opening] == "R":
        first = text.index("(") + 1
        last = text.rindex(")")
        pieces = list(text[first:last])
    else:
        pieces = TEXT_UNIT.findall(text[first:last])
    wholes = ["".join(pieces[:i] + pieces[i + 1 :]) for i in range(len(pieces))]
    return [text[:first] + whole + text[last:] for whole in dict.fromkeys(wholes)]


def changed_character(text):
    quote = text.index("'")
    inner = text[quote + 1 : -1]
    if inner in ESCAPES:
        return [f"{text[:quote]}'{ESCAPES[inner]}'"]
    if len(inner) != 1 or not " " <= inner < "~":
        return []
    following = chr(ord(inner) + 1)
    return [f"{text[:quote]}'{following if following not in chr(39) + chr(92) else chr(ord(inner) - 1)}'"]


def sites_of(path, text):
    """Everything that can be changed in one file, in the order of the text."""
    source = cpp.read(text)
    sites = [site for finder in (_token_sites, _condition_sites, _statement_sites, _call_sites) for site in finder(path, source)]
    return sorted(sites, key=lambda site: (site.start, site.end, site.kind))


def _token_sites(path, source):
    for i, token in enumerate(source.tokens):
        if token.frozen:
            continue
        kind, replacements = _token_changes(source.tokens, i)
        if replacements:
            yield Site(path, token.start, token.end, kind, tuple(replacements))


def _token_changes(tokens, i):
    token = tokens[i]
    if token.kind == "sign":
        return "operator", BINARY.get(token.text, []) if token.spaced else UNARY.get(token.text, [])
    if token.kind == "number":
        return "constant", [] if _is_pure_mark(tokens, i) else changed_number(token.text)
    if token.kind == "word":
        return "constant", WORDS.get(token.text, [])
    return (token.kind, changed_text(token.text)) if token.kind == "text" else ("constant", changed_character(token.text))


def _is_pure_mark(tokens, i):
    """The `= 0` of a function without a body."""
    return i > 1 and tokens[i - 1].text == "=" and tokens[i - 2].text in (")", "const", "noexcept", "override")


def _condition_sites(path, source):
    tokens = source.tokens
    for opener in source.conditions:
        closer = tokens[opener].partner
        if tokens[opener].frozen or closer < 0:
            continue
        first = opener + 1
        inside = list(_outermost(tokens, opener))
        for i in inside:
            first = i + 1 if tokens[i].text == ";" else first
        if first < closer and not any(tokens[i].text == "=" for i in inside if i >= first):
            start, end = tokens[first].start, tokens[closer - 1].end
            yield Site(path, start, end, "condition", (f"!({source.text[start:end]})",))


def _outermost(tokens, opener):
    """The tokens directly inside a bracket, the brackets in it closed."""
    i = opener + 1
    while i < tokens[opener].partner:
        yield i
        i = max(i, tokens[i].partner) + 1


def _statement_sites(path, source):
    for statement in source.statements:
        if _can_be_dropped(source.tokens, statement):
            start = source.tokens[statement.first].start
            yield Site(path, start, source.tokens[statement.semicolon].start, "statement", ("",))


def _can_be_dropped(tokens, statement):
    first, last = statement.first, statement.semicolon
    word = tokens[first].text
    if tokens[first].frozen:
        return False
    if word in ("break", "continue", "return"):
        # At the end of the switch, or of the loop, it changes nothing.
        at_end = last + 1 < len(tokens) and tokens[last + 1].text == "}" and last == statement.first + 1
        idle = {"break": ("switch",), "continue": ("for", "while"), "return": ()}[word]
        return last == first + 1 and not (at_end and statement.scope.control in idle)
    if word in ("throw", "++", "--", "*", "delete"):
        return True
    return word not in cpp.KEYWORDS and _is_expression(tokens, first)


def _is_expression(tokens, at):
    """Whether what follows the first name belongs to an expression; a declaration has another name there."""
    if tokens[at].text == "::":
        at += 1
    if tokens[at].kind != "word":
        return False
    at += 1
    while tokens[at].text == "::" or (tokens[at - 1].text == "::" and tokens[at].kind == "word") or tokens[at].frozen:
        at += 1
    return tokens[at].text in AFTER_NAME


def _call_sites(path, source):
    tokens = source.tokens
    for opener in source.calls:
        closer = tokens[opener].partner
        if tokens[opener].frozen or closer < 0 or tokens[opener - 1].text in SYMMETRIC:
            continue
        commas = [i for i in _outermost(tokens, opener) if tokens[i].text == "," and not tokens[i].frozen]
        bounds = [opener, *commas, closer]
        arguments = [(a + 1, b - 1) for a, b in zip(bounds, bounds[1:]) if a + 1 < b]
        start, end = tokens[opener].end, tokens[closer].start
        swaps = tuple(_swapped(source, start, end, a, b) for a, b in zip(arguments, arguments[1:]) if _alike(source, a, b))
        if swaps:
            yield Site(path, start, end, "arguments", swaps)


def _argument(source, bounds):
    return source.text[source.tokens[bounds[0]].start : source.tokens[bounds[1]].end]


def _alike(source, a, b):
    """Two arguments that differ, and of which not only one is a text."""
    is_text = [source.tokens[first].kind == "text" for first, _ in (a, b)]
    return _argument(source, a) != _argument(source, b) and is_text[0] == is_text[1]


def _swapped(source, start, end, a, b):
    tokens, text = source.tokens, source.text
    between = text[tokens[a[1]].end : tokens[b[0]].start]
    before, after = text[start : tokens[a[0]].start], text[tokens[b[1]].end : end]
    return before + _argument(source, b) + between + _argument(source, a) + after


def draw(texts, seed):
    """Every change in the order in which a seed draws them; no place twice.
    texts: what stands in each file, by its path."""
    sites = [site for path in sorted(texts) for site in sites_of(path, texts[path])]
    generator = random.Random(seed)
    generator.shuffle(sites)
    return [
        Change(number, site.path, site.start, site.end, site.kind, generator.choice(site.replacements))
        for number, site in enumerate(sites, 1)
    ]
