"""Finds places of C++ sources that can be spoilt, and writes sources in which each of them can be, by a switch at run time.

A place becomes `(Mutant(17) ? (a <= b) : (a < b))`: all mutants are in one program, which is compiled once. Constants of tables
and whatever else is worked out at compile time are left alone.
"""
import bisect
import collections
import os
import re
import sys

sys.path.append("/usr/lib/python3/dist-packages")  # where Debian has it, for another Python than its own
from clang.cindex import Config, CursorKind, Index, TokenKind, TranslationUnit, TypeKind  # noqa: E402

Config.set_library_file("/usr/lib/llvm-14/lib/libclang-14.so.1")

COMPARISONS = {"<": ("<=", ">="), ">": (">=", "<="), "<=": ("<", ">"), ">=": (">", "<"), "==": ("!=",), "!=": ("==",)}
JUNCTIONS = {"&&": ("||",), "||": ("&&",)}
SIGNS = {"+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",)}
OPERATORS = COMPARISONS | JUNCTIONS | SIGNS

BODIES = (CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
          CursorKind.FUNCTION_TEMPLATE, CursorKind.CONVERSION_FUNCTION)
LOOPS = (CursorKind.FOR_STMT, CursorKind.CXX_FOR_RANGE_STMT, CursorKind.WHILE_STMT)
ADDED = (CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR)
NUMBERS = (TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG, TypeKind.SHORT,
           TypeKind.USHORT, TypeKind.DOUBLE, TypeKind.FLOAT)

NAMED_CONSTANT = re.compile(r"k[A-Z]\w*")
NO_EFFECT = ("reserve",)  # calls that only save time

Change = collections.namedtuple("Change", "start end kind shown text")  # offsets in bytes; `text` takes the place of what is there
Mutant = collections.namedtuple("Mutant", "number file line kind shown")


class Finder:
    """Collects the changes of one file, seen through one translation unit."""

    def __init__(self, unit, path):
        with open(path, "rb") as file:
            self.source = file.read()
        self.unit = unit
        self.path = path
        self.changes = set()
        self.tokens = [token for token in unit.get_tokens(extent=unit.get_extent(path, (0, len(self.source))))
                       if token.kind != TokenKind.COMMENT]
        self.starts = [token.extent.start.offset for token in self.tokens]

    def find(self):
        for cursor in self.unit.cursor.get_children():
            if self.is_here(cursor):
                self.visit(cursor, False)
        return self.changes

    def is_here(self, cursor):
        return cursor.location.file is not None and os.path.realpath(cursor.location.file.name) == self.path

    def words(self, start, end):
        """The tokens from offset `start` to `end`."""
        first = bisect.bisect_left(self.starts, start)
        last = bisect.bisect_left(self.starts, end)
        return self.tokens[first:last]

    def text(self, cursor):
        return self.source[cursor.extent.start.offset:cursor.extent.end.offset].decode()

    def add(self, cursor, kind, shown, text):
        if "//" in text or "#" in text:  # an alternative stands in one line
            return
        self.changes.add(Change(cursor.extent.start.offset, cursor.extent.end.offset, kind, shown, text))

    def visit(self, cursor, in_body):
        kind = cursor.kind
        if kind == CursorKind.STATIC_ASSERT:
            return
        if kind == CursorKind.VAR_DECL and self.is_constant(cursor):
            return
        if kind in BODIES:
            self.visit_function(cursor)
            return
        children = list(cursor.get_children())
        if kind == CursorKind.LAMBDA_EXPR:
            for child in children:
                if child.kind == CursorKind.COMPOUND_STMT:
                    self.visit(child, in_body)
            return
        if kind == CursorKind.CASE_STMT:
            children = children[1:]
        if in_body:
            self.change(cursor, kind, children)
        for child in children:
            self.visit(child, in_body)

    def is_constant(self, cursor):
        """Whether a variable is worked out at compile time."""
        name = next((word for word in self.words(cursor.extent.start.offset, cursor.extent.end.offset)
                     if word.spelling == cursor.spelling), None)
        end = name.extent.start.offset if name else cursor.extent.end.offset
        return any(word.spelling in ("constexpr", "constinit") for word in self.words(cursor.extent.start.offset, end))

    def visit_function(self, cursor):
        body = next((child for child in cursor.get_children() if child.kind == CursorKind.COMPOUND_STMT), None)
        if body is None:
            return
        head = {word.spelling for word in self.words(cursor.extent.start.offset, body.extent.start.offset)}
        if head & {"consteval", "constexpr"}:
            return
        for child in cursor.get_children():  # initialisers of members stand beside the body
            if child.kind.is_expression() or child.kind == CursorKind.COMPOUND_STMT:
                self.visit(child, True)

    def change(self, cursor, kind, children):
        if kind in ADDED and len(children) == 2:
            self.change_operator(cursor, children[0], children[1])
        elif kind == CursorKind.CALL_EXPR and cursor.spelling.startswith("operator") and len(children) == 3:
            self.change_operator(cursor, children[0], children[2])
        elif kind == CursorKind.UNEXPOSED_EXPR and len(children) == 2:  # an operator that the language writes anew
            self.change_operator(cursor, children[0], children[1])
        elif kind == CursorKind.UNARY_OPERATOR:
            self.change_unary(cursor)
        elif kind in (CursorKind.INTEGER_LITERAL, CursorKind.FLOATING_LITERAL):
            self.change_number(cursor)
        elif kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            word = self.text(cursor)
            self.add(cursor, "constant", f"{word} -> not", f"!{word}")
        elif kind == CursorKind.DECL_REF_EXPR:
            self.change_named_number(cursor)
        elif kind == CursorKind.IF_STMT:
            self.change_condition(children)
            self.delete_calls(children[1:])
        elif kind == CursorKind.CONDITIONAL_OPERATOR:
            self.change_condition(children)
        elif kind == CursorKind.COMPOUND_STMT:
            self.delete_calls(children)
        elif kind in LOOPS and children:
            self.delete_calls(children[-1:])

    def change_operator(self, cursor, left, right):
        between = self.words(left.extent.end.offset, right.extent.start.offset)
        word = next((word for word in between if word.spelling in OPERATORS), None)
        if word is None or word.extent.start.offset < left.extent.end.offset:
            return
        kind = ("comparison" if word.spelling in COMPARISONS else "junction" if word.spelling in JUNCTIONS else "sign")
        begin = self.source[cursor.extent.start.offset:word.extent.start.offset].decode()
        end = self.source[word.extent.end.offset:cursor.extent.end.offset].decode()
        for other in OPERATORS[word.spelling]:
            self.add(cursor, kind, f"{word.spelling} -> {other}", begin + other + end)

    def change_unary(self, cursor):
        text = self.text(cursor)
        if text.startswith("-") and not text.startswith("--"):
            self.add(cursor, "sign", "- -> +", "+" + text[1:])

    def change_number(self, cursor):
        text = self.text(cursor)
        if text and (text[0].isdigit() or text[0] == "."):
            self.add(cursor, "constant", f"{text} -> {text} + 1", f"{text} + 1")

    def change_named_number(self, cursor):
        named = cursor.referenced
        text = self.text(cursor)
        if named is None or named.kind != CursorKind.VAR_DECL or not NAMED_CONSTANT.fullmatch(text):
            return
        if named.type.get_canonical().kind in NUMBERS:
            for step in ("+ 1", "- 1"):
                self.add(cursor, "constant", f"{text} -> {text} {step}", f"{text} {step}")

    def change_condition(self, children):
        if not children or not children[0].kind.is_expression():
            return
        condition = children[0]
        # What can be compared the other way, or joined, is changed there.
        inner = {word.spelling for word in self.words(condition.extent.start.offset, condition.extent.end.offset)}
        if inner & (COMPARISONS.keys() | JUNCTIONS.keys()):
            return
        text = self.text(condition)
        self.add(condition, "condition", f"{text} -> !({text})", f"!({text})")

    def delete_calls(self, statements):
        for statement in statements:
            if not statement.kind.is_expression():
                continue
            call = statement
            while call.kind == CursorKind.UNEXPOSED_EXPR:
                inner = list(call.get_children())
                if len(inner) != 1:
                    break
                call = inner[0]
            if call.kind == CursorKind.CALL_EXPR and not call.spelling.startswith("operator") and call.spelling not in NO_EFFECT:
                self.add(statement, "call", f"{' '.join(self.text(statement).split())} -> nothing", "")


def parse(path, arguments):
    unit = Index.create().parse(path, args=arguments, options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
    for problem in unit.diagnostics:
        if problem.severity >= problem.Error:
            sys.exit(f"{path} can't be read: {problem}")
    return unit


def find_changes(sources, headers, arguments):
    """{file: changes}, of headers as the first source that has them in shows them."""
    found = {}
    left = set(headers)
    for source in sources:
        unit = parse(source, arguments)
        seen = {os.path.realpath(inclusion.include.name) for inclusion in unit.get_includes()} & left
        left -= seen
        for path in [source, *sorted(seen)]:
            found[path] = Finder(unit, path).find()
    return found


def written(source, changes, numbers):
    """The source with all changes behind switches. `numbers` has the number of each change; those without one are left out."""
    places = collections.defaultdict(list)
    for change in changes:
        if change in numbers:
            places[(change.start, -change.end)].append(change)
    order = sorted(places)
    at = 0

    def render(start, end):
        nonlocal at
        parts = []
        while at < len(order) and order[at][0] < end:
            place = order[at]
            at += 1
            parts.append(source[start:place[0]].decode())
            parts.append(switched(sorted(places[place]), place[0], -place[1]))
            start = -place[1]
        parts.append(source[start:end].decode())
        return "".join(parts)

    def switched(alternatives, start, end):
        kept = render(start, end)
        if alternatives[0].kind == "call" or alternatives[-1].kind == "call":
            kept = f"static_cast<void>({kept})"
        text = "("
        for change in alternatives:
            instead = "void()" if change.kind == "call" else one_line(change.text)
            text += f"::tradebill::Mutant({numbers[change]}) ? ({instead}) : "
        return text + f"({kept}))"

    return render(0, len(source)) if order else source.decode()



def one_line(text):
    """Lines of the written source are those of the source."""
    return " ".join(line.strip() for line in text.split("\n"))
