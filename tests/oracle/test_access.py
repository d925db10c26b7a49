#!/usr/bin/env python3
"""Trees and tokens written down by hand for the oracle: every text has one known outcome."""

import json
import subprocess
import sys
import time
import unittest
from pathlib import Path

import access_oracle
from access_oracle import (CONFIGURATION_FUNCTION, DATA_TYPE, DATE_PART, DATETIME_FUNCTION, DIALECT, KEYWORDS,
                           LITERAL_WORDS, NUMBER_FUNCTION, OTHER_FUNCTION, STRING_FUNCTION, keyword_text)
from engine import token_lines, with_deep_stack
from trees import CLOSE, COMMA, DOT, MINUS, OPEN, PLUS, STAR, bare_num, eq, from_, lit, nil, node, num, op


def tok(name, text=None):
    """A keyword token with its usual text, or any token with the text given."""
    return '%s:"%s"' % (name, keyword_text(name) if text is None else text)


def ident(text):
    return tok('COL_PAREN_ATTRITION' if text[0] == '[' else 'IDENTIFICATOR', text)


def col(*names):
    labels = {1: ['COLUMN_NAME'], 2: ['TABLE_NAME', 'COLUMN_NAME'], 3: ['QUERY_NAME', 'TABLE_NAME', 'COLUMN_NAME'],
              4: ['QUERY_NAME', 'QUERY_NAME', 'TABLE_NAME', 'COLUMN_NAME']}[len(names)]
    parts = [STAR if name == '*' else name if ':"' in name else ident(name) for name in names]
    return node('COLUMN_SPECIFICATION', *(node(label, part) for label, part in zip(labels, parts)))


def string(text):
    return node('SQL_LITERAL', node('SQL_STRING', tok('QUOTE_ATTRITION' if text[0] == "'" else 'MY_QUOTE_ATTRITION',
                                                      text.replace('"', '\\"'))))


def table(name):
    return node('TABLE_SPECIFICATION', node('TABLE_NAME', ident(name)))


def source(name, alias=None):
    return node('ALIAS', table(name), *([new_name(alias)] if alias else []))


def new_name(name):
    return node('NEW_NAME', ident(name))


def items(*nodes):
    return node('SELECT_LIST', *nodes)


def select(*parts):
    return node('SELECT_QUERY', *parts)


def query(*parts):
    return nil(select(*parts))


def where(condition):
    """The tree of a text `SELECT a FROM t WHERE condition`."""
    return query(items(A), FROM_T, node('WHERE_CONDITION', condition))


def item_query(*nodes):
    """The tree of a text `SELECT nodes FROM t`."""
    return query(items(*nodes), FROM_T)


def cond(comparison):
    return node('SEARCH_CONDITION', comparison)


def word(name, *children):
    return node(tok(name), *children)


def func(name, *parameters):
    return node('FUNCTION', name, params(*parameters))


def user_func(name, *parameters):
    return node('USER_FUNCTION', ident(name), params(*parameters))


def params(*parameters):
    return node('FUNC_PARAM', node(OPEN, *parameters))


def join(prefix, postfix):
    return node(tok('JOIN_KEYWORD'), node('JOIN_PREFIX', *prefix), node('JOIN_POSTFIX', *postfix))


def join_type(*names):
    return node('JOIN_TYPE', *(tok(name) for name in names))


def on(condition):
    return node(tok('ON_KEYWORD'), condition)


HASH = lit('#')
BAR = tok('VERTBAR', '|')
NOT = tok('NOT_KEYWORD')
NULL = tok('NULL_KEYWORD')
FROM = tok('FROM_KEYWORD')
SELECT = tok('SELECT_KEYWORD')
INNER = join_type('INNER_KEYWORD')

A, B, C, D, X, Y, Z = (col(name) for name in 'abcDxyz')
D_WORD = col(lit('d'))
FROM_T = from_(source('t'))
SELECT_A_FROM_T = select(items(A), FROM_T)
ON_XY = on(cond(eq(X, Y)))
ON_YZ = on(cond(eq(Y, Z)))
JOIN_AB = join([table('a'), INNER], [source('b'), ON_XY])

STATEMENTS = {
    'SELECT 1': query(items(num('1'))),
    'SELECT a b FROM t': nil(select(items(A)), ident('b'), FROM, ident('t')),
    'SELECT DISTINCTROW TOP 5 PERCENT a FROM t': query(
        node('PREDICATE', tok('DISTINCTROW_KEYWORD'),
             word('TOP_KEYWORD', bare_num('5'), tok('PERCENT_KEYWORD'))), items(A), FROM_T),
    'SELECT TOP (5) WITHTIES a FROM t': query(
        node('PREDICATE', word('TOP_KEYWORD', bare_num('5'), tok('WITHTIES_KEYWORD'))), items(A), FROM_T),
    'SELECT a FROM t UNION ALL SELECT b FROM u': query(
        items(A), FROM_T, node('UNION', tok('ALL_KEYWORD'), select(items(B), from_(source('u'))))),
    'SELECT a FROM t UNION SELECT b FROM u UNION SELECT c FROM v': query(
        items(A), FROM_T, node('UNION', select(items(B), from_(source('u')),
                                               node('UNION', select(items(C), from_(source('v'))))))),
    'SELECT * FROM t': item_query(col('*')),
    'SELECT Tab.Col FROM t': item_query(col('Tab', 'Col')),
    'SELECT Tab!Col FROM t': item_query(col('Tab', 'Col')),
    'SELECT Tab.* FROM t': item_query(col('Tab', '*')),
    'SELECT [Tab].[Col] FROM t': item_query(col('[Tab]', '[Col]')),
    'SELECT a.b.c FROM t': item_query(col('a', 'b', 'c')),
    'SELECT a.b* FROM t': item_query(node('COLUMN_SPECIFICATION', node('QUERY_NAME', ident('a')),
                                            node('TABLE_NAME', ident('b')), node('ASTERISK_', STAR))),
    'SELECT a.b.c.e FROM t': item_query(col('a', 'b', 'c', 'e')),
    'SELECT a.b.c.e.f FROM t': nil(select(items(col('a', 'b', 'c', 'e'))), DOT, ident('f'), FROM, ident('t')),
    'SELECT t.a AS x FROM t': item_query(word('LITERAL_AS', col('t', 'a'), new_name('x'))),
    'SELECT Month FROM t': item_query(col(tok('MONTH', 'Month'))),
    'SELECT a AS FROM t': nil(select(items(A)), tok('LITERAL_AS'), FROM, ident('t')),
    'SELECT a, FROM t': nil(select(items(A)), COMMA, FROM, ident('t')),
    'SELECT a FROM t ORDER BY a DESC, b': query(
        items(A), FROM_T, node('ORDER_BY', A, tok('DESC_KEYWORD'), B)),
    'SELECT a FROM t GROUP BY a, b WITH x': nil(
        select(items(A), FROM_T, node('GROUP_BY', A, B)), lit('WITH'), ident('x')),
    'SELECT a FROM t GROUP BY ALL a with ROLLUP HAVING Count(*) > 1': query(
        items(A), FROM_T, node('GROUP_BY', tok('ALL_KEYWORD'), A, tok('WITH_KEYWORD', 'with'),
                               tok('ROLLUP_KEYWORD')),
        node('HAVING', cond(op('GT', '>', func(tok('COUNT', 'Count'), STAR), num('1'))))),
    'SELECT a FROM t COMPUTE Sum(a), Avg(b) BY a, b': query(
        items(A), FROM_T, node('COMPUTE', func(tok('SUM', 'Sum'), A), func(tok('AVG', 'Avg'), B), node('BY', A, B))),
    'SELECT a FROM t FOR BROWSE': query(items(A), FROM_T, node('FOR', lit('BROWSE'))),
    'SELECT a FROM t FOR XML RAW.ELEMENTS.BYNATY base64': query(
        items(A), FROM_T, node('FOR', lit('XML'), lit('RAW'), DOT, lit('ELEMENTS'), DOT, lit('BYNATY base64'))),
    'SELECT a FROM t FOR XML AUTO, ELEMENTS': nil(
        select(items(A), FROM_T, node('FOR', lit('XML'), lit('AUTO'))), COMMA, lit('ELEMENTS')),
    'SELECT a FROM t OPTION HASH GROUP, MERGE UNION, FAST 5, KEEP PLAN, EXPAND VIEWS': query(
        items(A), FROM_T, node('OPTION', lit('HASH'), tok('GROUP_KEYWORD'), lit('MERGE'), tok('UNION_KEYWORD'),
                               lit('FAST'), bare_num('5'), lit('KEEP'), lit('PLAN'), lit('EXPAND VIEWS'))),
    'SELECT a FROM t OPTION HASH UNION, FORCE ORDER, MAXDOP 2': query(
        items(A), FROM_T, node('OPTION', lit('HASH'), tok('UNION_KEYWORD'), lit('FORCE'), tok('ORDER_KEYWORD'),
                               lit('MAXDOP'), bare_num('2'))),
    'SELECT a FROM t OPTION (FAST 5)': nil(SELECT_A_FROM_T, tok('OPTION_KEYWORD'), OPEN, lit('FAST'),
                                           tok('DIGIT', '5'), CLOSE),
    'SELECT a FROM t ORDER BY a HAVING b = 1': nil(
        select(items(A), FROM_T, node('ORDER_BY', A)), tok('HAVING_KEYWORD'), ident('b'), tok('EQ', '='),
        tok('DIGIT', '1')),
    'SELECT a FROM t;': query(items(A), FROM_T),
    # No SELECT at the beginning
    '(SELECT a FROM t)': nil(select('ERROR'), OPEN, SELECT, ident('a'), FROM, ident('t'), CLOSE),
    'UPDATE t': nil(select('ERROR'), ident('UPDATE'), ident('t')),
    '': nil(select('ERROR')),
    # Errors that are reported, and whose trees are not modelled
    'SELECT': None,
    'SELECT TOP a FROM t': None,
    'SELECT (a AND b FROM t': None,
    'SELECT a BETWEEN FROM t': None,
    'SELECT Replace(a, b, c) FROM t': None,
}

SOURCES = {
    't': (source('t'),),
    't AS x': (source('t', 'x'),),
    'q.t': (node('ALIAS', node('TABLE_SPECIFICATION', node('QUERY_NAME', ident('q')),
                               node('TABLE_NAME', ident('t')))),),
    '[my table]': (source('[my table]'),),
    '1t': (node('ALIAS', node('TABLE_SPECIFICATION', node('TABLE_NAME', tok('DIGIT', '1'), ident('t')))),),
    't, u AS x': (source('t'), source('u', 'x')),
    't,': (source('t'),),
    ', t': (source('t'),),
    't, *': (source('t'), 'TRAILING', STAR),
    't, 1': (source('t'), 'TRAILING', COMMA, tok('DIGIT', '1')),
    't x': (source('t'), 'TRAILING', ident('x')),
    't LEFT': (source('t'), 'TRAILING', tok('LEFT_KEYWORD')),
    '(SELECT a FROM t) AS x': (node('ALIAS', SELECT_A_FROM_T, new_name('x')),),
    '(SELECT a FROM t) x': (node('ALIAS', SELECT_A_FROM_T), X),
    '(SELECT a FROM t) AS x, u': (node('ALIAS', SELECT_A_FROM_T, new_name('x')), source('u')),
    'a INNER JOIN b ON x = y': (node('JOIN_DEF', JOIN_AB),),
    'a JOIN b ON x = y': (node('JOIN_DEF', join([table('a')], [source('b'), ON_XY])),),
    'a AS p LEFT OUTER JOIN b AS q ON x = y': (
        node('JOIN_DEF', join([source('a', 'p'), join_type('LEFT_KEYWORD', 'OUTER_KEYWORD')],
                              [source('b', 'q'), ON_XY])),),
    'a NATURAL RIGHT JOIN b': (
        node('JOIN_DEF', join([table('a'), join_type('NATURAL_KEYWORD', 'RIGHT_KEYWORD')], [source('b')])),),
    'a FULL JOIN b ON x = y': (source('a'), 'TRAILING', tok('FULL_KEYWORD'), tok('JOIN_KEYWORD'), ident('b'),
                               tok('ON_KEYWORD'), ident('x'), tok('EQ', '='), ident('y')),
    'a JOIN b ON x = y AND y = z': (
        node('JOIN_DEF', join([table('a')], [source('b'), word('AND_KEYWORD', ON_XY, cond(eq(Y, Z)))])),),
    'a INNER JOIN b ON x = y INNER JOIN c ON y = z': (
        node('JOIN_DEF', JOIN_AB, node('JOIN_DEF', join([INNER], [source('c'), ON_YZ]))),),
    'a INNER JOIN b INNER JOIN c ON y = z ON x = y': (
        node('JOIN_DEF', join([table('a'), INNER], [
            node('JOIN_DEF', join([table('b'), INNER], [source('c'), ON_YZ])), ON_XY])),),
    '(a INNER JOIN b ON x = y) INNER JOIN c ON y = z': (
        node('JOIN_DEF', node(OPEN, JOIN_AB, CLOSE), node('JOIN_DEF', join([INNER], [source('c'), ON_YZ]))),),
    '((a INNER JOIN b ON x = y) INNER JOIN c ON y = z) LEFT JOIN e ON x = y': (
        node('JOIN_DEF',
             node(OPEN, node(OPEN, JOIN_AB, CLOSE), node('JOIN_DEF', join([INNER], [source('c'), ON_YZ])), CLOSE),
             node('JOIN_DEF', join([join_type('LEFT_KEYWORD')], [source('e'), ON_XY]))),),
    'c INNER JOIN (a INNER JOIN b ON x = y) ON y = z': (
        node('JOIN_DEF', join([table('c'), INNER], [node('JOIN_DEF', node(OPEN, JOIN_AB, CLOSE)), ON_YZ])),),
    '(SELECT a FROM t) AS p INNER JOIN b ON x = y': (
        node('JOIN_DEF', join([node('ALIAS', SELECT_A_FROM_T, new_name('p')), INNER], [source('b'), ON_XY])),),
    'a INNER JOIN (SELECT a FROM t) AS p ON x = y': (
        node('JOIN_DEF', join([table('a'), INNER], [node('ALIAS', SELECT_A_FROM_T, new_name('p')), ON_XY])),),
    'a JOIN b with (NOLOCK, INDEX 1 2) ON x = y': (
        node('JOIN_DEF', join([table('a')], [source('b'), node('TABLE_HINT', lit('NOLOCK'), lit('INDEX'),
                                                               bare_num('1'), bare_num('2')), ON_XY])),),
    'a JOIN': (node('JOIN_DEF', join([table('a')], [])),),
}

# FROM without a source it can take: FROM and all behind it trail.
NO_SOURCES = {
    'FROM order': [FROM, tok('ORDER_KEYWORD', 'order')],
    'FROM *': [FROM, STAR],
    'FROM SELECT b': [FROM, SELECT, ident('b')],
    'FROM': [FROM],
    'FROM ,': [FROM, COMMA],
    'FROM 1': [FROM, tok('DIGIT', '1')],
    'FROM (b)': [FROM, OPEN, ident('b'), CLOSE],
}

CONDITIONS = {
    'a = 1 OR b = 2 AND c = 3': word('AND_KEYWORD', word('OR_KEYWORD', cond(eq(A, num('1'))), cond(eq(B, num('2')))),
                                     cond(eq(C, num('3')))),
    'a OR b AND c': word('AND_KEYWORD', word('OR_KEYWORD', A, B), C),
    'a = 1 && b = 2 || c = 3': op('OR_KEYWORD2', '||', op('AND_KEYWORD2', '&&', cond(eq(A, num('1'))),
                                                          cond(eq(B, num('2')))), cond(eq(C, num('3')))),
    'NOT a = 1': node(NOT, cond(eq(A, num('1')))),
    'NOT a': node(NOT, A),
    'a BETWEEN 1 AND 2': word('BETWEEN_KEYWORD', A, word('AND_KEYWORD', num('1'), num('2'))),
    'a NOT BETWEEN 1 AND 2 AND b = 3': word(
        'AND_KEYWORD', word('BETWEEN_KEYWORD', A, NOT, word('AND_KEYWORD', num('1'), num('2'))),
        cond(eq(B, num('3')))),
    '(a BETWEEN 1 AND 2)': word('BETWEEN_KEYWORD', node(OPEN, A), word('AND_KEYWORD', num('1'), num('2')), CLOSE),
    'a IN (1)': cond(word('IN_KEYWORD', A, num('1'))),
    'a IN (1, 2)': cond(word('IN_KEYWORD', A, OPEN, num('1'), num('2'), CLOSE)),
    'x IN (1, 2)': cond(word('IN_KEYWORD', X, OPEN, num('1'), num('2'), CLOSE)),
    'a NOT IN (@p, 2)': cond(word('IN_KEYWORD', A, NOT, OPEN, lit('@'), ident('p'), num('2'), CLOSE)),
    'a = @p': cond(eq(A, lit('@') + ' ' + ident('p'))),
    'x IN (SELECT a FROM t)': cond(word('IN_KEYWORD', X, SELECT_A_FROM_T)),
    'x IN SELECT a FROM t': cond(word('IN_KEYWORD', X, SELECT_A_FROM_T)),
    'x NOT LIKE y': cond(word('LIKE_KEYWORD', X, NOT, Y)),
    'x IS NOT NULL': cond(word('IS_KEYWORD', X, node(NOT, num(NULL)))),
    'x IS NULL': cond(word('IS_KEYWORD', X, num(NULL))),
    'a NOT b': cond(node(NOT, A, B)),
    'a *= b': cond(op('LOJ', '*=', A, B)),
    'a =* b': cond(op('GOJ', '=*', A, B)),
    '(a = b)': cond(node(OPEN, eq(A, B), CLOSE)),
    '((a = b))': node(OPEN, cond(node(OPEN, eq(A, B), CLOSE)), CLOSE),
    '(a + b)': node(OPEN, node(PLUS, A, B), CLOSE),
    '(a + b) = 1': cond(eq(node(PLUS, A, B), num('1'))),
    '(a = b) = c': cond(eq(node(OPEN, cond(eq(A, B)), CLOSE), C)),
    '(a = b AND c = x)': node(OPEN, word('AND_KEYWORD', cond(eq(A, B)), cond(eq(C, X))), CLOSE),
    '(a = b AND c = x) = y': node(tok('EQ', '='), node(OPEN, word('AND_KEYWORD', cond(eq(A, B)), cond(eq(C, X))),
                                                       CLOSE), Y),
    '(a AND b) IS NOT NULL': word('IS_KEYWORD', node(OPEN, word('AND_KEYWORD', A, B), CLOSE), NOT, NULL),
    '(a AND b': node(OPEN, word('AND_KEYWORD', A, B)),
    'EXISTS SELECT a FROM t': node('FUNCTION', tok('EXISTS'), node('FUNC_PARAM', SELECT_A_FROM_T)),
    'a = (SELECT a FROM t)': cond(eq(A, SELECT_A_FROM_T)),
}

# Conditions that no guess takes: WHERE and what follows trail.
NO_CONDITIONS = {
    'EXISTS (SELECT a FROM t)': [tok('EXISTS'), OPEN, SELECT, ident('a'), FROM, ident('t'), CLOSE],
    '#1/2/2000 10:30:00#': [HASH, tok('DIGIT', '1'), tok('DIVIDE', '/'), tok('DIGIT', '2'), tok('DIVIDE', '/'),
                            tok('DIGIT', '2000'), tok('DIGIT', '10'), lit(':'), tok('DIGIT', '30'), lit(':'),
                            tok('DIGIT', '00'), HASH],
}

ITEMS = {
    '(a + b)': [node(PLUS, A, B)],
    '(a)': [A],
    '((a))': [A],
    '(a = b)': [cond(node(OPEN, eq(A, B), CLOSE))],
    '(x AND y)': [OPEN, word('AND_KEYWORD', X, Y), CLOSE],
    '(x AND y) OR z': [word('OR_KEYWORD', node(OPEN, word('AND_KEYWORD', X, Y), CLOSE), Z)],
    '(a BETWEEN 1 AND 2)': [word('BETWEEN_KEYWORD', node(OPEN, A), word('AND_KEYWORD', num('1'), num('2')), CLOSE)],
    'a BETWEEN 1': [word('BETWEEN_KEYWORD', A, num('1'))],
    'a BETWEEN 1 AND 2 AS x': [word('LITERAL_AS', word('BETWEEN_KEYWORD', A, word('AND_KEYWORD', num('1'), num('2'))),
                                    new_name('x'))],
    'NOT a = 1': [NOT, cond(eq(A, num('1')))],
    'NOT a': [node(NOT, A)],
    '(a = b': [OPEN, cond(eq(A, B))],
    '(IDENTIFYCOL)': [OPEN, lit('IDENTIFYCOL'), CLOSE],
    'ROWGUIDCOL': [lit('ROWGUIDCOL')],
    '(a, b)': [OPEN, A, B, CLOSE],
    '(SELECT a FROM t)': [SELECT_A_FROM_T],
    '((SELECT a FROM t))': [SELECT_A_FROM_T],
    'a & b': [op('AMPERSAND', '&', A, B)],
    'a * b ^ c': [op('MOD', '^', op('ASTERISK', '*', A, B), C)],
    'a MOD b % c': [op('MOD1', '%', word('MOD_KEYWORD', A, B), C)],
    'a + b * c - x': [node(MINUS, node(PLUS, A, op('ASTERISK', '*', B, C)), X)],
    'a | | b': [A, BAR, BAR, B],
    'a || b': [op('OR_KEYWORD2', '||', A, B)],
    '-1': [num('-', '1')],
    '-a + b': [node(PLUS, node(MINUS, A), B)],
    '-1 + b': [node(PLUS, num('-', '1'), B)],
    'a - 1': [node(MINUS, A, num('1'))],
    '-1a(2)': [node(MINUS, node('USER_FUNCTION', tok('DIGIT', '1'), ident('a'), params(num('2'))))],
    '1.5': [num('1', '.', '5')],
    '.5': [num('.', '5')],
    '1.5E+3': [num('1', '.', '5', ident('E'), '+', '3')],
    'TRUE': [num(tok('TRUE_KEYWORD'))],
    'FALSE': [num(tok('FALSE_KEYWORD'))],
    'NULL': [num(NULL)],
    "'x'": [string("'x'")],
    '"x"': [string('"x"')],
    '#1/2/2000#': [node('SQL_LITERAL', node('DATE', HASH, tok('DIGIT', '1'), tok('DIVIDE', '/'), tok('DIGIT', '2'),
                                            tok('DIVIDE', '/'), tok('DIGIT', '2000'), HASH))],
    '#1/2/2000 10:30#': [node('SQL_LITERAL', node('DATE', HASH, tok('DIGIT', '1'), tok('DIVIDE', '/'),
                                                  tok('DIGIT', '2'), tok('DIVIDE', '/'), tok('DIGIT', '2000'),
                                                  tok('DIGIT', '10'), lit(':'), tok('DIGIT', '30'), HASH))],
    '#Jan 1, 2000#': [node('SQL_LITERAL', node('DATE', HASH, ident('Jan'), tok('DIGIT', '1'), COMMA,
                                               tok('DIGIT', '2000'), HASH))],
    'a(+)': [A + ' ' + OPEN + ' ' + PLUS + ' ' + CLOSE],
    # Calls
    'Count(*)': [func(tok('COUNT', 'Count'), STAR)],
    'COUNT(*)': [func(tok('COUNT'), STAR)],
    'f(*)': [user_func('f', STAR)],
    'f(*, a)': [user_func('f', col('*'), A)],
    'Left$(a, 1)': [func(tok('LEFT_KEYWORD_DOLLAR', 'Left$'), A, num('1'))],
    'Left(a, 1)': [func(tok('LEFT_KEYWORD', 'Left'), A, num('1'))],
    'LEFT(a, 1)': [func(tok('LEFT_KEYWORD'), A, num('1'))],
    'DLookUp("a", "b")': [func(tok('DLOOKUP', 'DLookUp'), string('"a"'), string('"b"'))],
    'MyFunc(1, 2)': [user_func('MyFunc', num('1'), num('2'))],
    "DatePart('yyyy', d)": [func(tok('DATEPART', 'DatePart'), string("'yyyy'"), D_WORD)],
    'Now()': [func(tok('NOW', 'Now'))],
    'CAST(a AS INT)': [node('FUNCTION', tok('CAST'), node('FUNC_PARAM', node('AS', A, node('DATATYPE', tok('INT')))))],
    'CONVERT(VARCHAR(10), a, 3)': [
        node('FUNCTION', lit('CONVERT'), node('FUNC_PARAM', node('DATATYPE', tok('VARCHAR'), bare_num('10')), A,
                                              node('STYLE', tok('DIGIT', '3'))))],
    'CONVERT(VARCHAR(MAX), a)': [
        node('FUNCTION', lit('CONVERT'), node('FUNC_PARAM', node('DATATYPE', tok('VARCHAR'),
                                                                 node('NUMBER_LITERAL', tok('MAX_KEYWORD'))), A))],
    'IIF(a = 1, 2, 3)': [node('FUNCTION', tok('IIF'), node('FUNC_PARAM', cond(eq(A, num('1'))), COMMA, num('2'),
                                                           COMMA, num('3')))],
    'f(a = b)': [user_func('f', eq(A, B))],
    'f(a = b = c)': [user_func('f', eq(eq(A, B), C))],
    'f(x, a = b)': [user_func('f', X, cond(eq(A, B)))],
    'f(a = b AND c = x)': [user_func('f', word('AND_KEYWORD', cond(eq(A, B)), cond(eq(C, X))))],
    'f((a + b))': [user_func('f', node(PLUS, A, B))],
    'f((a = b))': [user_func('f', node(OPEN, cond(eq(A, B)), CLOSE))],
    'f(((a = b)))': [user_func('f', node(OPEN, cond(node(OPEN, eq(A, B), CLOSE)), CLOSE))],
    'f(a b)': [user_func('f', A, B)],
    'f(, a)': [user_func('f', A)],
}

# An item and the tokens that trail behind it: `SELECT text` is the whole text.
TRAILING_ITEMS = {
    'count(*)': ([col(lit('count'))], [OPEN, STAR, CLOSE]),
    "'it''s'": ([string("'it'")], [tok('QUOTE_ATTRITION', "'s'")]),
    'a NOT b IN c': ([cond(node(NOT, A, B))], [tok('IN_KEYWORD'), ident('c')]),
    'a = b = c': ([cond(eq(A, B))], [tok('EQ', '='), ident('c')]),
    'f(@x = 1)': ([col('f')], [OPEN, lit('@'), ident('x'), tok('EQ', '='), tok('DIGIT', '1'), CLOSE]),
    '{fn NOW()}': ([node('FUNCTION', lit('fn'), tok('NOW'), params())], [tok('RIGHT_BRACE', '}')]),
    '1a': ([num('1')], [ident('a')]),
    'a -- b': ([A], [MINUS, MINUS, ident('b')]),
    'a /* b': ([op('DIVIDE', '/', A, col('*'))], [ident('b')]),
    'abc$': ([col('abc')], [tok('DOLLAR', '$')]),
    'Left(a': ([col(tok('LEFT_KEYWORD', 'Left'))], [OPEN, ident('a')]),
    'a + b = ,': ([A], [PLUS, ident('b'), tok('EQ', '='), COMMA]),
}

TOKENS = {
    'SELECT': [tok('SELECT_KEYWORD')],
    'select': [tok('SELECT_KEYWORD', 'select')],
    'SeLeCt': [tok('SELECT_KEYWORD', 'SeLeCt')],
    'SELECTED': [ident('SELECTED')],
    'SELECT*': [tok('SELECT_KEYWORD'), STAR],
    'count(': [lit('count'), OPEN],
    'Count(': [tok('COUNT', 'Count'), OPEN],
    'COUNT(': [tok('COUNT'), OPEN],
    'd': [lit('d')],
    'D': [ident('D')],
    '[abc]': [ident('[abc]')],
    '[]': [ident('[]')],
    '[a\nb]': [tok('COL_PAREN_ATTRITION', '[a\\nb]')],
    'a[': [ident('a'), tok('LEFT_COL_PAREN', '[')],
    "a'": [ident('a'), tok('QUOTE', "'")],
    'a"': [ident('a'), tok('MY_QUOTE', '\\"')],
    'a[b c': [ident('a')],
    "a'b c": [ident('a')],
    'a"b c': [ident('a')],
    'a]`b': [ident('a'), tok('RIGHT_COL_PAREN', ']'), tok('MY_ONE_QUOTE', '`'), ident('b')],
    'LEFT$(': [tok('LEFT_KEYWORD_DOLLAR'), OPEN],
    'LEFT(': [tok('LEFT_KEYWORD'), OPEN],
    'LEFT$x': [tok('LEFT_KEYWORD_DOLLAR'), ident('x')],
    'abc$': [ident('abc'), tok('DOLLAR', '$')],
    'NOT NULL': [NOT, tok('WS', ' ') + ' @hidden', NULL],
    'NOTNULL': [tok('NOT_NULL_KEYWORD')],
    'WITHTIES': [tok('WITHTIES_KEYWORD')],
    '\r\n': [tok('WS', '\\r\\n') + ' @hidden'],
    '\n\n': [tok('WS', '\\n') + ' @hidden'] * 2,
    '\n\r': [tok('WS', '\\n') + ' @hidden', tok('WS', '\\r') + ' @hidden'],
    '1a': [tok('DIGIT', '1'), ident('a')],
    '.5': [DOT, tok('DIGIT', '5')],
    'Größe': [ident('Größe')],
    'a\U0001f600b': [ident('a\U0001f600b')],
    '\ufffe': [ident('\ufffe')],
    '\uffff': [],
    'a\x01;?\\~\x7fb': [ident('a'), ident('b')],
    'a\x00[\x00]': [ident('a'), ident('[\x00]')],
    "'it''s'": [tok('QUOTE_ATTRITION', "'it'"), tok('QUOTE_ATTRITION', "'s'")],
    '--': [MINUS, MINUS],
    '/*': [tok('DIVIDE', '/'), STAR],
    'a*=b': [ident('a'), tok('LOJ', '*='), ident('b')],
    'a=*b': [ident('a'), tok('GOJ', '=*'), ident('b')],
    '!=<><=>=&&||': [tok('NOT_EQ', '!='), tok('NOT_EQ', '<>'), tok('LE', '<='), tok('GE', '>='),
                     tok('AND_KEYWORD2', '&&'), tok('OR_KEYWORD2', '||')],
    '! & * < = > |': [token for pair in zip(
        [tok('EXCLAMATION_MARK', '!'), tok('AMPERSAND', '&'), STAR, tok('L_T', '<'), tok('EQ', '='), tok('GT', '>'),
         BAR], [tok('WS', ' ') + ' @hidden'] * 7) for token in pair][:-1],
    'EXPAND VIEWS': [lit('EXPAND VIEWS')],
    'BYNATY base64': [lit('BYNATY base64')],
    'EXPAND VIEWSX': [lit('EXPAND VIEWS'), ident('X')],
    'EXPAND foo': [ident('oo')],
    'EXPAND VIEXS a': [ident('S'), tok('WS', ' ') + ' @hidden', ident('a')],
    'EXPAND ': [],
    'EXPAND,': [ident('EXPAND'), COMMA],
    'EXPAND\t': [ident('EXPAND'), tok('WS', '\\t') + ' @hidden'],
    'Expand x': [ident('Expand'), tok('WS', ' ') + ' @hidden', ident('x')],
    'WITH': [lit('WITH')],
    'With': [tok('WITH_KEYWORD', 'With')],
    'CONVERT': [lit('CONVERT')],
    'Convert': [tok('CONVERT', 'Convert')],
    'Loop': [tok('LOOP', 'Loop')],
    'Day': [tok('DAY', 'Day')],
    'YYYY': [ident('YYYY')],
    'Nolock': [ident('Nolock')],
    'bynary_checksum': [tok('BYNARY_CHECKSUM', 'bynary_checksum')],
    'ident_current': [tok('IDENT_CURRENT', 'ident_current')],
    'Atn2': [tok('ATN2', 'Atn2')],
    'Log10': [tok('LOG10', 'Log10')],
    'as': [tok('LITERAL_AS', 'as')],
}


class Trees(unittest.TestCase):
    maxDiff = None

    def check(self, sql, expected):
        with self.subTest(sql):
            self.assertEqual(DIALECT.parse(sql), expected)

    def test_statements(self):
        for sql, tree in STATEMENTS.items():
            self.check(sql, tree)

    def test_sources(self):
        for text, parts in SOURCES.items():
            at = parts.index('TRAILING') if 'TRAILING' in parts else len(parts)
            self.check('SELECT a FROM ' + text, nil(select(items(A), from_(*parts[:at])), *parts[at + 1:]))

    def test_from_without_a_source_trails(self):
        for text, trailing in NO_SOURCES.items():
            self.check('SELECT a ' + text, nil(select(items(A)), *trailing))

    def test_conditions(self):
        for text, condition in CONDITIONS.items():
            self.check('SELECT a FROM t WHERE ' + text, where(condition))

    def test_where_without_a_condition_trails(self):
        for text, trailing in NO_CONDITIONS.items():
            self.check('SELECT a FROM t WHERE ' + text, nil(SELECT_A_FROM_T, tok('WHERE_KEYWORD'), *trailing))

    def test_group_by_keeps_parentheses(self):
        self.check('SELECT a FROM t GROUP BY (a)', query(items(A), FROM_T, node('GROUP_BY', node(OPEN, A, CLOSE))))

    def test_items(self):
        for text, nodes in ITEMS.items():
            self.check('SELECT %s FROM t' % text, item_query(*nodes))

    def test_items_with_trailing_text(self):
        for text, (nodes, trailing) in TRAILING_ITEMS.items():
            self.check('SELECT ' + text, nil(select(items(*nodes)), *trailing))

    def test_every_word_of_the_function_families_can_be_called(self):
        families = DATETIME_FUNCTION + NUMBER_FUNCTION + STRING_FUNCTION + OTHER_FUNCTION + CONFIGURATION_FUNCTION
        self.assertEqual(len(families), 24 + 29 + 41 + 41 + 13)
        for name in families:
            self.check('SELECT %s(a) FROM t' % keyword_text(name), item_query(func(tok(name), A)))

    def test_words_of_the_function_families_are_names(self):
        for name in DATETIME_FUNCTION + NUMBER_FUNCTION + STRING_FUNCTION + OTHER_FUNCTION:
            self.check('SELECT %s FROM t' % keyword_text(name), item_query(col(tok(name))))
        for name in DATE_PART:
            self.check('SELECT %s FROM t' % name.strip("'"), item_query(col(lit(name.strip("'")))))

    def test_words_without_a_family_cannot_be_called(self):
        for name in ['CASE', 'CONCAT', 'CHECKSUM', 'BYNARY_CHECKSUM', 'COUNT_BIG', 'GROUPING', 'STDEV', 'STDEVP', 'VAR',
                     'VARP', 'DATENAME', 'ASCII', 'CHARINDEX', 'COALESCE', 'LOWER', 'UPPER', 'NCHAR', 'PARINDEX',
                     'QUOTENAME', 'READTEXT', 'REPLACE', 'REPLICATE', 'REVERSE', 'SOUNDEX', 'STUFF', 'SUBSTRING',
                     'TEXTVALID', 'UNICODE', 'UPDATETEXT', 'WRITETEXT', 'IDENT_CURRENT', 'Convert']:
            self.check('SELECT %s(a) FROM t' % name, None)

    def test_data_types(self):
        self.assertEqual(len(DATA_TYPE), 19)
        for name in DATA_TYPE:
            self.check('SELECT CAST(a AS %s) FROM t' % name, item_query(
                node('FUNCTION', tok('CAST'), node('FUNC_PARAM', node('AS', A, node('DATATYPE', tok(name)))))))


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
                self.check(shown, [lit(shown) if shown in LITERAL_WORDS else tok(name, shown)])

    def test_literals_in_their_case_only(self):
        for text in LITERAL_WORDS:
            self.check(text, [lit(text)])
            other = text.swapcase()
            self.check(other, [tok(KEYWORDS.get(other.upper(), 'IDENTIFICATOR'), other)])

    def test_unknown_characters_disappear(self):
        for code in [*range(0, 9), 0x0b, 0x0c, *range(0x0e, 0x20), 0x7f, *map(ord, ';?\\~'), 0xffff]:
            self.check('a' + chr(code) + 'b', [ident('a'), ident('b')])


class Growth(unittest.TestCase):
    def test_unclosed_nesting_is_not_exponential(self):
        for text in ('SELECT ' + '(' * 500 + 'a FROM t', 'SELECT ' + 'IIF(a=1,2,' * 500 + '3'):
            start = time.monotonic()
            self.assertIsNone(with_deep_stack(lambda text=text: DIALECT.parse(text)))
            self.assertLess(time.monotonic() - start, 10)


class Protocol(unittest.TestCase):
    def test_one_record_a_line(self):
        records = [{'id': 7, 'sql': 'SELECT a'}, {'id': 'x', 'sql': 'SELECT TOP'}]
        run = subprocess.run([sys.executable, str(Path(access_oracle.__file__))], check=True, text=True,
                             input='\n'.join(map(json.dumps, records)), capture_output=True)
        first, second = map(json.loads, run.stdout.splitlines())
        self.assertEqual(first, {'id': 7, 'tree': query(items(A)), 'status': 'clean', 'tokens': [
            SELECT, tok('WS', ' ') + ' @hidden', ident('a')]})
        self.assertEqual((second['id'], second['tree'], second['status']), ('x', None, 'error'))


if __name__ == '__main__':
    unittest.main()
