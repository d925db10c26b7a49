"""What the plain recognizers share: tokens, forms of rules, the parser that runs them, and how trees are shown.

A dialect is a lexer, a row of rules, and its entry. Parsing is ordered choice over memoized rules. Error recovery is
not modelled: where the recognizers would report a parser error the tree is None, but where a dialect says more.
"""

import importlib
import json
import sys
import threading
from pathlib import Path

EOF = 'EOF'


def words(text):
    return text.split()


def quoted(names):
    """The tokens of literals: a token's name is its text in single quotes."""
    return ["'" + name + "'" for name in names]


# -------------------------------------------------------------------------------------------------------- tokens

CAPITALS = {ord('a') + i: ord('A') + i for i in range(26)}


class Token:
    __slots__ = ('type', 'text', 'hidden')

    def __init__(self, type_, text, hidden=False):
        self.type = type_
        self.text = text
        self.hidden = hidden

    def label(self):
        return EOF if self.type == EOF else '%s:"%s"' % (self.type, escape(from_units(self.text)))


def to_units(text):
    """The text with every UTF-16 code unit as one character, surrogates apart."""
    if all(ch < '\U00010000' for ch in text):
        return text
    raw = text.encode('utf-16-le', 'surrogatepass')
    return ''.join(chr(raw[i] | raw[i + 1] << 8) for i in range(0, len(raw), 2))


def from_units(text):
    return text.encode('utf-16-le', 'surrogatepass').decode('utf-16-le', 'surrogatepass')


def escape(text):
    for char, shown in (('\\', '\\\\'), ('"', '\\"'), ('\n', '\\n'), ('\r', '\\r'), ('\t', '\\t')):
        text = text.replace(char, shown)
    return text


def lexer_of(next_token):
    """The lexer that makes all tokens of a text, hidden ones included, EOF last.

    `next_token` gives the token at a position, or None for lost characters, and the position behind.
    """
    def lex(text):
        units = to_units(text)
        tokens = []
        at = 0
        while at < len(units):
            token, at = next_token(units, at)
            if token:
                tokens.append(token)
        return tokens + [Token(EOF, '')]
    return lex


def operator_token(operators, units, at):
    """The token of the first operator that stands there; a character that begins none is lost."""
    for text, name in operators:
        if units.startswith(text, at):
            return Token(name, text), at + len(text)
    return None, at + 1


def committed_token(literal, units, at):
    """A literal that its beginning has decided: a mismatch loses what has matched and one character more."""
    if units.startswith(literal, at):
        return Token("'" + literal + "'", literal), at + len(literal)
    matched = 0
    while units.startswith(literal[:matched + 1], at):
        matched += 1
    return None, at + matched + 1


def enclosed_token(enclosed, units, at):
    """A token between two characters: `enclosed` gives for an opening one the closing one, the token, and the token of
    the opening one at the end of the text. Without a closing character the whole rest of the text is lost.
    """
    closing, name, alone = enclosed[units[at]]
    if at + 1 == len(units):
        return Token(alone, units[at]), at + 1
    end = units.find(closing, at + 1)
    if end < 0:
        return None, len(units)
    return Token(name, units[at:end + 1]), end + 1


def token_lines(tokens):
    return [token.label() + (' @hidden' if token.hidden else '') for token in tokens if token.type != EOF]


# ------------------------------------------------------------------------------------------------- forms of rules
#
# A form is a function of parser and position. It returns None, or the position behind what it took and its steps:
# nodes to add (False, node), and nodes that become the root over all that stood before (True, node).

ADD, ROOT = False, True


class Node:
    __slots__ = ('label', 'children')

    def __init__(self, label, children=()):
        self.label = label
        self.children = list(children)


class Row:
    """An alternative with a guess of its own: once the guess has succeeded, the form must."""

    def __init__(self, guess, form):
        self.guess = to_form(guess)
        self.form = to_form(form)


def to_form(form):
    """A lower-case text is a rule, any other text a token to keep."""
    if not isinstance(form, str):
        return form
    if form[0].islower():
        return lambda parser, at: parser.rule(form, at)
    return token_form((form,), lambda token: [(ADD, Node(token.label()))])


def token_form(types, steps):
    types = frozenset(types)

    def run(parser, at):
        if parser.types[at] not in types:
            return None
        return at + 1, steps(parser.tokens[at])
    return run


def keep(*types):
    return token_form(types, lambda token: [(ADD, Node(token.label()))])


def keep_other_than(excluded):
    def run(parser, at):
        if parser.types[at] in (excluded, EOF):
            return None
        return at + 1, [(ADD, Node(parser.tokens[at].label()))]
    return run


def drop(*types):
    return token_form(types, lambda token: [])


def root(*types):
    return token_form(types, lambda token: [(ROOT, Node(token.label()))])


def imaginary_root(label, form):
    form = to_form(form)

    def run(parser, at):
        found = form(parser, at)
        return found and (found[0], [(ROOT, Node(label))])
    return run


def nothing(parser, at):
    return at, []


def seq(*forms):
    forms = [to_form(form) for form in forms]

    def run(parser, at):
        steps = []
        for form in forms:
            found = form(parser, at)
            if found is None:
                return None
            at = found[0]
            steps += found[1]
        return at, steps
    return run


def choice(*alternatives):
    """The first alternative that parses, or whose own guess does."""
    alternatives = [a if isinstance(a, Row) else to_form(a) for a in alternatives]

    def run(parser, at):
        for alternative in alternatives:
            if isinstance(alternative, Row):
                if alternative.guess(parser, at) is not None:
                    return alternative.form(parser, at)
            elif (found := alternative(parser, at)) is not None:
                return found
        return None
    return run


def opt(form):
    return choice(form, nothing)


def many(form):
    form = choice(form)

    def run(parser, at):
        steps = []
        while (found := form(parser, at)) is not None:
            at = found[0]
            steps += found[1]
        return at, steps
    return run


def some(form):
    return seq(form, many(form))


def before(types, form, otherwise=None):
    """`form` where the first token is one of the types, else `otherwise`, which without a value fails."""
    types = frozenset(types)
    form = to_form(form)

    def run(parser, at):
        if parser.types[at] in types:
            return form(parser, at)
        return otherwise and otherwise(parser, at)
    return run


def not_before(types, form):
    form = to_form(form)
    return lambda parser, at: None if parser.types[at] in types else form(parser, at)


def strict_opt(types, form):
    """An optional part at the end of a guess: its first token alone decides that it must follow."""
    return before(types, form, nothing)


def strict_many(types, form):
    form = to_form(form)

    def run(parser, at):
        while parser.types[at] in types:
            found = form(parser, at)
            if found is None:
                return None
            at = found[0]
        return at, []
    return run


def list_of(form):
    return seq(form, many(seq(drop('COMMA'), form)))


def enclosed(opening, closing):
    """A name in quotes: its outer pair goes, the quotes around what is joined on stay."""
    inner = many(keep_other_than(closing))
    return seq(drop(opening), inner, drop(closing), many(seq(closing, inner, closing)))


def fold(steps):
    """The nodes that a rule's steps make."""
    nodes = []
    rooted = False
    for kind, node in steps:
        if kind == ROOT:
            node.children = nodes
            nodes = [node]
            rooted = True
        elif rooted:
            nodes[0].children.append(node)
        else:
            nodes.append(node)
    return nodes

# -------------------------------------------------------------------------------------------------------- parser

class Parser:
    """The tokens that the rules see, and what every rule gave at every position, failures included.

    A rule of `nodes` puts the nodes of another rule under one imaginary node.
    """

    def __init__(self, rules, nodes, tokens):
        self.rules = rules
        self.nodes = nodes
        self.tokens = [token for token in tokens if not token.hidden]
        self.types = [token.type for token in self.tokens]
        self.memo = {}
        self.has_reported = False

    def rule(self, name, at):
        key = name, at
        if key not in self.memo:
            self.memo[key] = self.run(name, at)
        return self.memo[key]

    def run(self, name, at):
        if name in self.nodes:
            label, inner = self.nodes[name]
            found = self.rule(inner, at)
            return found and (found[0], [(ADD, Node(label, (node for _, node in found[1])))])
        found = self.rules[name](self, at)
        return found and (found[0], [(ADD, node) for node in fold(found[1])])


class Reading:
    """The sexpr of a text's tree, or None where it is not modelled, and what a check of the text says."""

    def __init__(self, tree, status):
        self.tree = tree
        self.status = status


class Dialect:
    """`entry` takes a parser and gives what a form gives; the tokens behind trail at the nil root. An entry that goes on
    after a parser error notes it in the parser."""

    def __init__(self, next_token, rules, nodes, entry):
        self.lex = lexer_of(next_token)
        self.rules = rules
        self.nodes = nodes
        self.entry = entry

    def read(self, text):
        parser = Parser(self.rules, self.nodes, self.lex(text))
        found = self.entry(parser)
        if found is None:
            return Reading(None, 'error')
        trailing = [Node(token.label()) for token in parser.tokens[found[0]:]]
        status = 'error' if parser.has_reported else 'trailing' if len(trailing) > 1 else 'clean'
        return Reading(sexpr(Node('nil', [node for _, node in found[1]] + trailing)), status)

    def parse(self, text):
        return self.read(text).tree

    def serve(self):
        """Newline-delimited {"id", "sql"} in, {"id", "tree", "status", "tokens"} out."""
        for line in sys.stdin:
            if line.strip():
                record = json.loads(line)
                reading = self.read(record['sql'])
                answer = {'id': record['id'], 'tree': reading.tree, 'status': reading.status,
                          'tokens': token_lines(self.lex(record['sql']))}
                print(json.dumps(answer), flush=True)


def dialects():
    """The names of all dialects that have an oracle."""
    oracles = Path(__file__).parent.glob('*_oracle.py')
    return sorted(path.stem.removesuffix('_oracle').replace('_', '-') for path in oracles if path.stem != 'test_oracle')


def oracle_of(dialect):
    return importlib.import_module(dialect.replace('-', '_') + '_oracle').DIALECT


def error_entry(parser, query_label):
    """A text that does not begin like a query: the query is an error node, and all tokens trail."""
    parser.has_reported = True
    return 0, [(ADD, Node(query_label, [Node('ERROR')]))]


def select_entry(query_label):
    """The entry of a query that may stand in parentheses: of two before SELECT the second is lost, with a report."""
    beginnings = (['SELECT_KEYWORD'], ['LEFT_PAREN', 'SELECT_KEYWORD'], ['LEFT_PAREN', 'LEFT_PAREN', 'SELECT_KEYWORD'])

    def entry(parser):
        for begin in beginnings:
            if parser.types[:len(begin)] == begin:
                parser.has_reported = len(begin) == 3
                return parser.rule('all_sql_query', max(0, len(begin) - 2))
        return error_entry(parser, query_label)
    return entry


def sexpr(node):
    parts = []
    pending = [node]
    while pending:
        item = pending.pop()
        if isinstance(item, str):
            parts.append(item)
        elif item.children:
            parts.append('(' + item.label)
            pending.append(')')
            for child in reversed(item.children):
                pending += [child, ' ']
        else:
            parts.append(item.label)
    return ''.join(parts)

def with_deep_stack(work):
    """Runs `work` where recursion may follow the nesting of a text."""
    sys.setrecursionlimit(10 ** 7)
    threading.stack_size(512 * 1024 * 1024)
    result = []
    thread = threading.Thread(target=lambda: result.append(work()))
    thread.start()
    thread.join()
    return result[0]
