"""Finds the places of src/ that scripts/mutate can change, and their mutants."""
import re
from pathlib import Path
from typing import NamedTuple

CODE, TEXT, CHARACTER, COMMENT = 'c', 't', 'h', 'k'


class Mutant(NamedTuple):
    file: str  # 'src/acl/acl_util.cpp'
    line: int  # 1 is the first
    rule: str
    before: str  # the original line; two lines if they are swapped
    after: str


def classify(text):
    """Returns the kind of each character, as one letter. Quotation marks are code."""
    kinds = []
    i = 0
    while i < len(text):
        if text.startswith('//', i):
            end = text.find('\n', i)
            end = len(text) if end < 0 else end
            kinds += COMMENT * (end - i)
        elif text.startswith('/*', i):
            end = text.find('*/', i) + 2
            kinds += COMMENT * (end - i)
        elif text[i] == '"' or (text[i] == "'" and not (i > 0 and text[i - 1].isalnum())):
            end = i + 1
            while text[end] != text[i]:
                end += 2 if text[end] == '\\' else 1
            kind = TEXT if text[i] == '"' else CHARACTER
            kinds += CODE + kind * (end - i - 1) + CODE
            end += 1
        else:
            kinds.append(CODE)
            end = i + 1
        i = end
    return ''.join(kinds)


def lines_that_count(lines):
    """Yields the numbers of the lines that are not preprocessor lines and not for Windows only."""
    blocks = []  # one entry per open #if: whether its lines are for Windows only
    continues = False
    for number, line in enumerate(lines):
        directive = re.match(r'\s*#\s*(\w+)(.*)', line)
        if directive:
            name, condition = directive.groups()
            on_windows = '_WIN32' in condition
            if name.startswith('if'):
                blocks.append('other' if not on_windows else 'host' if name == 'ifndef' else 'windows')
            elif name == 'else' and blocks[-1] != 'other':
                blocks[-1] = 'host' if blocks[-1] == 'windows' else 'windows'
            elif name == 'endif':
                blocks.pop()
        if not directive and not continues and 'windows' not in blocks:
            yield number
        continues = (directive or continues) and line.endswith('\\')


NO_PLACE = re.compile(r'\s*(static_assert|using|namespace|template|friend|typedef|assert|'
                      r'COMMON_PRINTF_FORMAT)\b|.*\boperator\b|.*\)( const)?( noexcept)? = 0;')
COMPARISONS = {'==': '!=', '!=': '==', '<': '<=', '<=': '<', '>': '>=', '>=': '>'}
LOGIC = {'&&': '||', '||': '&&'}
# Changes that depend on the matched text only: rule, pattern, replacement.
IN_LINE = [
    ('comparison', r'(?<= )(==|!=|<=|>=|<|>)(?= |$)', lambda m: COMPARISONS[m[0]]),
    ('logic', r'(?<= )(&&|\|\|)(?= |$)', lambda m: LOGIC[m[0]]),
    ('constant', r"(?<![\w.'])(0[xX][\dA-Fa-f']+|\d[\d']*)(?=([uUlL]*|\.\d+)(?![\w.]))",
     lambda m: following(m[0])),
    ('constant', r'\b(true|false)\b', lambda m: 'false' if m[0] == 'true' else 'true'),
    ('negation', r'!(?=[\w:(*])', lambda m: ''),
    ('return', r'(?<=\breturn )[^;]+(?=;)', lambda m: '{}'),
]
CALLEE = r'\s*(::)?[\w:]+(<[^<>()]*>)?((\.|->)\w+)*\(.*\);'
LOCK = r'\s*const [\w:]*Scope \w+\(.*\);'
STATEMENT = re.compile(CALLEE + r'|\s*(\+\+|--)[\w.>-]+;|\s*[^\s(]+( [-+|&^]?= | << ).*;')
KEYWORD = re.compile(r'\s*(if|for|while|switch|return|else|case|default|do|delete|throw|co_\w+)\b')


def following(number):
    base = 16 if number[:2] in ('0x', '0X') else 10
    value = int(number.replace("'", ''), base) + 1
    return f'0x{value:0{len(number) - 2}X}' if base == 16 else str(value)


def another_letter(text, kinds):
    """Yields the line once per literal, with one letter of that literal changed."""
    for literal in re.finditer(r't+|h+', kinds):
        content = text[literal.start():literal.end()]
        # Letters of escape sequences and conversions are not changed.
        taken = re.sub(r'\\.|%[-+ #0-9.*]*(ll)?[a-zA-Z%]', lambda m: '\0' * len(m[0]), content)
        found = re.search(r'[A-Za-z]', taken)
        if found:
            at = literal.start() + found.start()
            letter = {'z': 'a', 'Z': 'A'}.get(text[at], chr(ord(text[at]) + 1))
            yield text[:at] + letter + text[at + 1:]


def is_statement(code):
    """Returns whether a line is one complete statement and not a declaration."""
    return (STATEMENT.fullmatch(code) and not KEYWORD.match(code)
            and code.count('(') == code.count(')') and code.count('{') == code.count('}'))


def are_independent(code, other):
    """Returns whether two statements are assignments that do not use each other's variables."""
    without_calls = r'\s*([\w.:>-]+) = ((?:[^()]|sizeof\([^()]*\))*);'
    first, second = re.fullmatch(without_calls, code), re.fullmatch(without_calls, other)
    return first and second and first[1] not in other and second[1] not in code


def mutants_of_line(file, number, lines, codes, kinds):
    line, code = lines[number], codes[number]

    def made(rule, after, before=line):
        return Mutant(file, number + 1, rule, before, after)

    for rule, pattern, replacement in IN_LINE:
        for match in re.finditer(pattern, code):
            at, end = match.span(0)
            if rule == 'return' and match[0] in ('{}', 'true', 'false'):
                continue
            yield made(rule, line[:at] + replacement(match) + line[end:])
    for after in another_letter(line, kinds[number]):
        yield made('text', after)
    indent = line[:len(line) - len(line.lstrip())]
    if re.fullmatch(CALLEE + '|' + LOCK, code) and (is_statement(code) or re.match(LOCK, code)):
        yield made('call', indent + ';')
    follows = codes[number + 1] if number + 1 < len(codes) else ''
    if (is_statement(code) and is_statement(follows) and follows == indent + follows.lstrip()
            and not are_independent(code, follows)):
        other = lines[number + 1]
        yield made('order', other + '\n' + line, line + '\n' + other)


def places(root, file):
    """Yields a list of mutants for each line that can be changed."""
    text = (Path(root) / file).read_text(encoding='utf-8')
    kinds = classify(text)
    codes = ''.join(c if kind == CODE or c == '\n' else '\0' if kind in (TEXT, CHARACTER) else ' '
                    for c, kind in zip(text, kinds))
    lines, codes = text.split('\n'), [line.rstrip(' ') for line in codes.split('\n')]
    kind_lines, at = [], 0
    for line in lines:
        kind_lines.append(kinds[at:at + len(line)])
        at += len(line) + 1
    for number in lines_that_count(lines):
        if NO_PLACE.match(codes[number]):
            continue
        # Different changes may result in the same line.
        found = {m.after: m for m in mutants_of_line(file, number, lines, codes, kind_lines)
                 if m.after != m.before}
        if found:
            yield list(found.values())


def spread(lines, count):
    """Chooses `count` mutants, evenly over the lines, and in turn over the changes of each line."""
    count = min(count, sum(map(len, lines)))
    chosen, rounds = [], 0
    while len(chosen) < count:
        # One mutant of every line before a second one of any line.
        left = [line[(index + rounds) % len(line)] for index, line in enumerate(lines)
                if rounds < len(line)]
        wanted = min(count - len(chosen), len(left))
        chosen += [left[(2 * k + 1) * len(left) // (2 * wanted)] for k in range(wanted)]
        rounds += 1
    return sorted(chosen)
