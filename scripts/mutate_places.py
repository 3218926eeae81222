"""Finds the places in a C++ source where mutate.py can change one token.

The sources pass check-format.sh, so the scan leans on clang-format's layout:
binary operators stand between spaces, template brackets and `T&&` do not,
functions start at column 0.
"""

import re
from dataclasses import dataclass


@dataclass(frozen=True)
class Mutant:
    path: str
    line: int  # 1-based
    start: int  # offset of the changed text in the file
    end: int
    replacement: str
    kind: str

    def apply(self, text):
        return text[: self.start] + self.replacement + text[self.end :]


def mask(text):
    """The text with comments, string and character literals and preprocessor
    lines blanked out; offsets and newlines stay where they were."""
    out = list(text)
    n = len(text)
    i = 0
    line_start = True

    def blank(a, b):
        for k in range(a, b):
            if out[k] != "\n":
                out[k] = " "

    while i < n:
        c = text[i]
        if c == "\n":
            line_start = True
            i += 1
            continue
        if c in " \t\r":
            i += 1
            continue
        if line_start and c == "#":
            j = i
            while j < n and (text[j] != "\n" or text[j - 1] == "\\"):
                j += 1
            blank(i, j)
            i = j
            continue
        line_start = False
        if text.startswith("//", i):
            j = text.find("\n", i)
            j = n if j < 0 else j
            blank(i, j)
            i = j
        elif text.startswith("/*", i):
            j = text.find("*/", i + 2)
            j = n if j < 0 else j + 2
            blank(i, j)
            i = j
        elif c == '"':
            i = _string_end(text, i, out, blank)
        elif c == "'" and not _digit_separator(text, i):
            j = i + 1
            while j < n and text[j] not in "'\n":
                j += 2 if text[j] == "\\" else 1
            blank(i + 1, j)
            i = j + 1 if j < n and text[j] == "'" else j
        else:
            i += 1
    return "".join(out)


def _string_end(text, i, out, blank):
    prefix = re.search(r"[A-Za-z0-9_]*$", text[max(0, i - 4) : i]).group()
    if prefix in ("R", "u8R", "uR", "UR", "LR"):
        paren = text.find("(", i)
        delim = text[i + 1 : paren]
        close = text.find(")" + delim + '"', paren)
        close = len(text) if close < 0 else close
        blank(i + 1, close + len(delim) + 1)
        return close + len(delim) + 2
    j = i + 1
    while j < len(text) and text[j] not in '"\n':
        j += 2 if text[j] == "\\" else 1
    blank(i + 1, j)
    return j + 1 if j < len(text) and text[j] == '"' else j


def _digit_separator(text, i):
    word = re.search(r"[A-Za-z0-9_.']*$", text[max(0, i - 40) : i]).group()
    return bool(word) and word[0].isdigit()


# Longest first, so `<=` is never read as `<` and `->` never as `>`.
_OPERATOR = re.compile(r"<=>|<<=|>>=|<<|>>|->|<=|>=|==|!=|&&|\|\||<|>|!")
_SWAPS = {
    "<": [(">=", "comparison flipped"), ("<=", "boundary moved")],
    ">": [("<=", "comparison flipped"), (">=", "boundary moved")],
    "<=": [(">", "comparison flipped"), ("<", "boundary moved")],
    ">=": [("<", "comparison flipped"), (">", "boundary moved")],
    "==": [("!=", "comparison flipped")],
    "!=": [("==", "comparison flipped")],
    "&&": [("||", "logical operator swapped")],
    "||": [("&&", "logical operator swapped")],
}
_NUMBER = re.compile(r"(?<![\w.])\.?\d(?:[eEpP][+-]|[\w.'])*")
_INTEGER = re.compile(r"(0|[1-9][\d']*)([uU]?[lL]{0,2}|[lL]{1,2}[uU])")
_BOOL = re.compile(r"\b(true|false)\b")
_RETURN = re.compile(r"^(\s*return\s+)(.+?)(\s*;)\s*$")
_CALL = re.compile(r"^\s*[A-Za-z_][\w]*(?:(?:::|\.|->)~?[A-Za-z_]\w*)*\(")
_KEYWORDS = {
    "return", "delete", "throw", "goto", "break", "continue", "case", "else", "do", "if",
    "for", "while", "switch", "sizeof", "static_assert", "co_return", "co_await", "emit",
}
_CONTROL = re.compile(r"^(if|else|for|while|do|switch|try|catch|case|default)\b")
_LAMBDA = re.compile(
    r"\]\s*(?:\([^;{}]*\))?\s*(?:mutable\s*)?(?:noexcept\s*)?(?:->\s*([\w:<>]+)\s*)?$"
)
_SPECIFIERS = {"static", "inline", "constexpr", "consteval", "virtual", "explicit", "friend"}


def places(path, text):
    """Every mutant of one file, in the order of the text."""
    code = mask(text)
    bool_returns = {code.count("\n", 0, p) + 1 for p in _bool_scopes(code)}
    data = _table_rows(text)
    mutants = []
    offset = 0
    lines = code.split("\n")
    previous = ""
    for number, line in enumerate(lines, 1):
        if number not in data:
            found = _operators(line) + _literals(line) + _calls(line, previous)
            if number in bool_returns:
                found += _returns(text[offset : offset + len(line)], line)
            for start, end, repl, kind in sorted(found):
                mutants.append(Mutant(path, number, offset + start, offset + end, repl, kind))
        if line.strip():
            previous = line.strip()
        offset += len(line) + 1
    return mutants


def _spaced(line, start, end):
    """Blank on both sides (or the line's edge): a binary operator, not `<T>` or `T&&`."""
    before, after = line[:start], line[end:]
    return (not before.strip() or before[-1] in " \t") and (not after or after[0] in " \t")


def _operators(line):
    found = []
    for m in _OPERATOR.finditer(line):
        op, start, end = m.group(), m.start(), m.end()
        if op == "!":
            if line[end : end + 1] not in ("", " ") and (start == 0 or line[start - 1] in " (\t"):
                found.append((start, end, "", "negation dropped"))
            continue
        if op not in _SWAPS or not _spaced(line, start, end):
            continue
        for repl, kind in _SWAPS[op]:
            found.append((start, end, repl, kind))
    return found


def _literals(line):
    found = []
    for m in _BOOL.finditer(line):
        repl = "false" if m.group() == "true" else "true"
        found.append((m.start(), m.end(), repl, "boolean flipped"))
    for m in _NUMBER.finditer(line):
        whole = _INTEGER.fullmatch(m.group())
        if not whole:
            continue
        value = int(whole.group(1).replace("'", ""))
        suffix = whole.group(2)
        found.append((m.start(), m.end(), f"{value + 1}{suffix}", "boundary moved"))
        if value > 0:
            found.append((m.start(), m.end(), f"{value - 1}{suffix}", "boundary moved"))
    return found


def _calls(line, previous):
    """A whole line that is one call statement, replaced by `;`."""
    stripped = line.strip()
    if not _CALL.match(line) or not stripped.endswith(");"):
        return []
    first = re.match(r"\w+", stripped).group()
    if first in _KEYWORDS or first.isupper():
        return []
    if previous and not (previous[-1] in ";{}):" or previous.endswith("else")):
        return []
    depths = _depths(stripped[:-1])
    if depths[-1] != 0 or min(depths) < 0:
        return []
    start = len(line) - len(line.lstrip())
    return [(start, start + len(stripped), ";", "call removed")]


def _returns(original, line):
    """`return x;` inverted, for functions and lambdas that return bool."""
    m = _RETURN.match(line)
    if not m or _depths(m.group(2))[-1] != 0 or min(_depths(m.group(2))) < 0:
        return []
    value = original[m.start(2) : m.end(2)]
    if value in ("true", "false"):
        return []  # the boolean flip covers it
    if value.startswith("!") and not _top_level_space(value):
        repl = value[1:]
    else:
        repl = f"!({value})"
    return [(m.start(2), m.end(2), repl, "bool return inverted")]


def _depths(s):
    """The bracket depth after each character of s."""
    depths, depth = [0], 0
    for c in s:
        depth += {"(": 1, ")": -1, "[": 1, "]": -1}.get(c, 0)
        depths.append(depth)
    return depths


def _top_level_space(s):
    return any(c == " " and d == 0 for c, d in zip(s, _depths(s)[1:]))


def _bool_scopes(code):
    """Offsets of the `return`s whose innermost function or lambda returns bool."""
    result = set()
    stack = []  # per open brace: (kind, returns_bool, paren depth outside it)
    parens = 0
    head_start = 0
    for m in re.finditer(r"[{}();]|\breturn\b", code):
        tok, i = m.group(), m.start()
        if tok == "(":
            parens += 1
        elif tok == ")":
            parens -= 1
        elif tok == ";":
            if parens == 0:
                head_start = i + 1
        elif tok == "{":
            kind, is_bool = _classify(code[head_start:i])
            stack.append((kind, is_bool, parens))
            parens = 0
            head_start = i + 1
        elif tok == "}":
            if stack:
                parens = stack.pop()[2]
            head_start = i + 1
        else:
            scope = next((s for s in reversed(stack) if s[0] == "function"), None)
            if scope and scope[1]:
                result.add(i)
    return result


def _classify(head):
    """What a `{` opens, from the text since the statement before it: a
    function or lambda (and whether it returns bool) or any other block."""
    head = " ".join(head.split())
    head = re.sub(r"^(public|private|protected)( slots)?:\s*", "", head)
    lam = _LAMBDA.search(head)
    if lam:
        return "function", lam.group(1) == "bool"
    if _CONTROL.match(head) or re.match(r"(namespace|class|struct|enum|union)\b", head):
        return "block", False
    head = re.sub(r"^template\s*<[^{}]*?>\s*", "", head)
    if not re.search(r"\)(\s*(const|noexcept|override|final))*(\s*->\s*[\w:]+)?\s*$", head):
        return "block", False
    paren = head.find("(")
    words = [w for w in head[:paren].split() if w not in _SPECIFIERS and w != "[[nodiscard]]"]
    if not words:
        return "block", False
    trailing = re.search(r"->\s*([\w:]+)\s*$", head)
    if trailing:
        return "function", trailing.group(1) == "bool"
    return "function", words[:-1] == ["bool"]


def _table_rows(text):
    """Line numbers of data rows inside `clang-format off` blocks."""
    rows = set()
    off = False
    for number, line in enumerate(text.split("\n"), 1):
        if "clang-format off" in line:
            off = True
        elif "clang-format on" in line:
            off = False
        elif off:
            s = line.strip()
            if s.startswith("{") or s.endswith(","):
                rows.add(number)
    return rows
