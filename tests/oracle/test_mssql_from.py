#!/usr/bin/env python3
"""Trees and tokens of MS SQL source lists, written down by hand."""

import unittest

from engine import token_lines
from mssql_from_oracle import DIALECT, KEYWORDS, LITERALS, keyword_text
from trees import lit, node, op


def tok(name, text=None):
    """A keyword token with its usual text, or any token with the text given."""
    return '%s:"%s"' % (name, keyword_text(name) if text is None else text)


def ident(text):
    return tok('ID_', text)


def names(parts, labels):
    return [node(label, part if ':"' in part else ident(part)) for part, label in zip(parts, labels[-len(parts):])]


def col(*parts):
    return node('COLUMN_SPECIFICATION_', *names(parts, ['DB_NAME_', 'TABLE_NAME_', 'COLUMN_NAME_']))


def num(text):
    return node('NUMBER_LITERAL_', tok('INT_' if text.isdigit() else 'FLOAT_', text))


def source(*parts, alias=()):
    return node('ALIAS_', node('TABLE_SPECIFICATION_', *names(parts, ['DB_NAME_', 'TABLE_NAME_'])),
                *([tok('LITERAL_AS_'), node('NEW_NAME_', *alias)] if alias else []))


def eq(left, right):
    return op('EQ_', '=', left, right)


def cond(comparison):
    return node('SEARCH_CONDITION_', comparison)


def join(prefix, postfix, *nested):
    return node('JOIN_DEF_', node(tok('JOIN_KEYWORD_'), node('JOIN_PREFIX_', *prefix), node('JOIN_POSTFIX_', *postfix)),
                *nested)


def on(first, *further):
    return node(tok('ON_KEYWORD_'), cond(first), *further)


def nested(tree):
    return node('NESTED_JOIN_', tree)


def and_(comparison):
    return node('AND', cond(comparison))


OPEN = tok('LEFT_PAREN_', '(')
CLOSE = tok('RIGHT_PAREN_', ')')
COMMA = tok('COMMA_', ',')
DOT = tok('DOT_', '.')
MINUS = tok('MINUS_', '-')
BAR = tok('VERTBAR_', '|')
BRACKET = tok('RIGHT_COL_PAREN_', ']')
RETURN = r"'\r':" + r'"\r"'
LINE_FEED = r"'\n':" + r'"\n"'
INNER = tok('INNER_KEYWORD_')
A, B, X, Y, Z = (col(name) for name in 'abxyz')
ON_XY = on(eq(X, Y))
ON_YZ = on(eq(Y, Z))
A_JOIN_B = join([source('a')], [source('b'), ON_XY])
JOIN_BC = join([source('b')], [source('c'), ON_XY])

# The list's tree and what trails.
LISTS = {
    'a INNER JOIN b ON a.x = b.y': [join([source('a'), INNER], [source('b'), on(eq(col('a', 'x'), col('b', 'y')))])],
    'a JOIN b ON a.x = b.y AND a.z = 1': [join([source('a')], [
        source('b'), on(eq(col('a', 'x'), col('b', 'y')), and_(eq(col('a', 'z'), num('1'))))])],
    'a JOIN b\r\nON a.x = b.y': [join([source('a')], [source('b'), on(eq(col('a', 'x'), col('b', 'y')))])],
    'a JOIN b ON a.x = 1.5': [join([source('a')], [source('b'), on(eq(col('a', 'x'), num('1.5')))])],
    'a LEFT HASH JOIN b': [join([source('a'), tok('LEFT_KEYWORD_'), lit('HASH')], [source('b')])],
    'a left outer join b': [node('JOIN_DEF_', node(
        tok('JOIN_KEYWORD_', 'join'),
        node('JOIN_PREFIX_', source('a'), tok('LEFT_KEYWORD_', 'left'), tok('OUTER_KEYWORD_', 'outer')),
        node('JOIN_POSTFIX_', source('b'))))],
    'a CROSS JOIN b': [join([source('a'), tok('CROSS_KEYWORD_')], [source('b')])],
    # A lower-case hint is a table
    'a LEFT hash JOIN b': [join([source('a'), tok('LEFT_KEYWORD_'), source('hash')], [source('b')])],
    'a JOIN b\nON x = y': [join([source('a')], [source('b')]), LINE_FEED, tok('ON_KEYWORD_'), ident('x'),
                           tok('EQ_', '='), ident('y')],
    'a JOIN b\r': [join([source('a')], [source('b')]), RETURN],
    'a JOIN b, c': [join([source('a')], [source('b')]), COMMA, ident('c')],
    'JOIN b': [join([], [source('b')])],
    'a JOIN': [join([source('a')], [])],
    'a JOIN b ON x = y JOIN c ON y = z': [join([source('a')], [source('b'), ON_XY], join([], [source('c'), ON_YZ]))],
    'a JOIN b ON x = y\r\nINNER JOIN c ON y = z': [join([source('a')], [source('b'), ON_XY],
                                                        join([INNER], [source('c'), ON_YZ]))],
    'a JOIN b JOIN c ON x = y ON y = z': [join([source('a')], [nested(JOIN_BC), ON_YZ])],
    'a JOIN (b JOIN c ON x = y) ON y = z': [join([source('a')], [OPEN, nested(JOIN_BC), ON_YZ])],
    '((a JOIN b ON x = y)) c JOIN d': [join([OPEN, nested(A_JOIN_B), CLOSE, source('c')], [source('d')])],
    '(a JOIN b ON x = y) JOIN c ON y = z': [join([source('a')], [source('b'), ON_XY], join([], [source('c'), ON_YZ]))],
    '(a) JOIN b': [join([source('a')], [source('b')])],
    'a JOIN b ON x = y AND y = z OR a = b': [
        join([source('a')], [source('b'), on(eq(X, Y), and_(eq(Y, Z)))]), ident('OR'), ident('a'), tok('EQ_', '='),
        ident('b')],
    'a JOIN b AND x = y': [join([source('a')], [source('b'), and_(eq(X, Y))])],
    'a JOIN b ON x = y a = b': [join([source('a')], [source('b'), on(eq(X, Y), and_(eq(A, B)))])],
    'a JOIN b ON (x = y)': [join([source('a')], [source('b'), ON_XY])],
    'd.a AS x JOIN [my b] ON x = y': [join([source('d', 'a', alias=[ident('x')])], [
        node('ALIAS_', node('TABLE_SPECIFICATION_', node('TABLE_NAME_', ident('my'), ident('b')))), ON_XY])],
    'a AS [#x] JOIN b AS "q"': [join([source('a', alias=[lit('#'), ident('x')])], [source('b', alias=[ident('q')])])],
    'a JOIN b ON x = d.t.y': [join([source('a')], [source('b'), on(eq(X, col('d', 't', 'y')))])],
    'a JOIN b ON x + 1 - y * z = a / b': [join([source('a')], [source('b'), on(eq(
        node(MINUS, op('PLUS_', '+', X, num('1')), op('ASTERISK_', '*', Y, Z)), op('DIVIDE_', '/', A, B)))])],
    'a JOIN b ON x || y = z': [join([source('a')], [source('b'), on(eq(' '.join([X, BAR, BAR, Y]), Z))])],
    'a JOIN [b]]c] ON x = y': [join([source('a')], [node('ALIAS_', node('TABLE_SPECIFICATION_', node(
        'TABLE_NAME_', ident('b'), BRACKET, ident('c'), BRACKET))), ON_XY])],
}

# Without a join the parser reports, and the tree is not modelled.
NO_LISTS = ['a, b', 'a', '', 'a\r\nJOIN b', 'WHERE x = 1']

TOKENS = {
    'a-b': [ident('a'), MINUS, ident('b')],
    '1.5 1.5E3 .5 1E-5 1.': [tok('FLOAT_', text) for text in ('1.5', '1.5E3', '.5', '1E-5', '1.')],
    '42': [tok('INT_', '42')],
    'a.b': [ident('a'), DOT, ident('b')],
    '12abc': [tok('INT_', '12'), ident('abc')],
    '\r\n\t ': [RETURN, LINE_FEED],
    'LOOP loop HASH MERGE REMOTE': [lit('LOOP'), ident('loop'), lit('HASH'), lit('MERGE'), lit('REMOTE')],
    'JOINED a#': [ident('JOINED'), ident('a'), lit('#')],
    '##': [lit('##')],
    '<>!=<=>=*==*<>': [tok('NOT_EQ_', '<>'), tok('NOT_EQ_', '!='), tok('LE_', '<='), tok('GE_', '>='),
                       tok('LOJ_', '*='), tok('GOJ_', '=*'), tok('NOT_EQ_', '<>')],
    '= < > & | /': [tok('EQ_', '='), tok('L_T_', '<'), tok('GT_', '>'), tok('AMPERSAND_', '&'), BAR,
                    tok('DIVIDE_', '/')],
    "a?'b'{c}%`@$;ä": [ident('a'), ident('b'), ident('c')],
    # What has begun like an exponent or like != is lost up to the first character that differs
    '1E+x y': [ident('y')],
    '1.5Exy 2Ex': [ident('y')],
    '!xy !': [ident('y')],
}


class Trees(unittest.TestCase):
    maxDiff = None

    def test_lists(self):
        for text, (tree, *trailing) in LISTS.items():
            with self.subTest(text):
                self.assertEqual(DIALECT.parse(text), node('nil', node('FROM_DEF_', tree), *trailing, 'EOF'))

    def test_texts_without_a_join(self):
        for text in NO_LISTS:
            with self.subTest(text):
                self.assertIsNone(DIALECT.parse(text))


class Tokens(unittest.TestCase):
    def check(self, text, expected):
        with self.subTest(text):
            self.assertEqual(token_lines(DIALECT.lex(text)), expected)

    def test_texts(self):
        for text, expected in TOKENS.items():
            self.check(text, expected)

    def test_keywords_in_any_case(self):
        for text, name in KEYWORDS.items():
            for shown in (text.lower(), text.title(), text.upper()):
                self.check(shown, [tok(name, shown)])

    def test_literals_in_their_case_only(self):
        for text in LITERALS:
            self.check(text, [lit(text)])
            self.check(text.title(), [ident(text.title())])


if __name__ == '__main__':
    unittest.main()
