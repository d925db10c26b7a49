#!/usr/bin/env python3
"""Trees and tokens of MySQL texts, written down by hand."""

import time
import unittest

from engine import token_lines, with_deep_stack
from mysql_oracle import (CONFIGURATION_FUNCTION, DATA_TYPE, DATE_PART, DATETIME_FUNCTION, DIALECT, KEYWORDS,
                          LITERAL_WORDS, LITERALS, LITERALS_WITH_BLANK, NEGATED_KEYWORDS, NUMBER_FUNCTION, OPERATORS,
                          OTHER_FUNCTION, STRING_FUNCTION, SYSTEM_VARIABLES, keyword_text)
from trees import (CLOSE, COMMA, DOT, MINUS, OPEN, PLUS, STAR, bare_num, cond, digit, eq, from_, lit, nil, node, num,
                   op, params)


def tok(name, text=None):
    """A keyword token with its usual text, or any token with the text given."""
    return '%s:"%s"' % (name, keyword_text(name) if text is None else text)


def ident(text):
    return tok('IDENTIFICATOR', text)


def word_of(name):
    """A function's text and token."""
    text = keyword_text(name).strip("'")
    return text, lit(text) if name[0] == "'" else tok(name)


def names(parts, labels):
    return [node(label, *([part] if ':"' in part else map(ident, part.split())))
            for part, label in zip(parts, labels[-len(parts):])]


def col(*parts):
    return node('COLUMN_SPECIFICATION', *names(parts, ['DB_NAME', 'TABLE_NAME', 'COLUMN_NAME']))


def string(*parts):
    return node('SQL_LITERAL', node('SQL_STRING', *parts))


def date(*parts):
    return node('SQL_LITERAL', node('DATE', QUOTE, *parts, QUOTE))


def new_name(text):
    return node('NEW_NAME', ident(text))


def item(*parts, alias):
    return node('ALIAS', *parts, new_name(alias))


def source(*parts, alias=None):
    table = node('TABLE_SPECIFICATION', *names(parts, ['DB_NAME', 'TABLE_NAME']))
    return item(table, alias=alias) if alias else table


def select(items, *clauses, predicate=()):
    return node('SELECT_QUERY_MY', node('PREDICATE', *predicate), node('SELECT_LIST', *items), *clauses)


def query(items, *clauses, predicate=()):
    return nil(select(items, *clauses, predicate=predicate))


def no_query(*tokens):
    return nil(node('SELECT_QUERY_MY', 'ERROR'), *tokens)


def union(*parts):
    return node('UNION', *parts)


def eqc(left, right):
    return cond(eq(left, right))


def word(name, *children):
    return node(tok(name), *children)


def both(left, right):
    return word('AND_KEYWORD', left, right)


def either(left, right):
    return word('OR_KEYWORD', left, right)


def where(*parts):
    return node('WHERE_CONDITION', *parts)


def func(*parts):
    return node('FUNCTION_MY', *parts)


def call(name, *parts):
    return func(tok(name), params(*parts))


def user_func(name, *parts):
    return node('USER_FUNCTION', ident(name), params(*parts))


def arm(name, *parts):
    return func(tok(name), params(*parts))


def datatype(name, *sizes):
    return node('DATATYPE', tok(name), *sizes)


def cast(*parts):
    return call('CAST', node('AS', *parts))


def between(low_and_high, left=None, negated=()):
    return word('BETWEEN_KEYWORD', OPEN, left or A, *negated, low_and_high, CLOSE)


def join(prefix, postfix, *nested):
    return node('JOIN_DEF', node(tok('JOIN_KEYWORD'), node('JOIN_PREFIX', *prefix), node('JOIN_POSTFIX', *postfix)),
                *nested)


def on(*parts):
    return node(tok('ON_KEYWORD'), *parts)


SLASH = tok('DIVIDE', '/')
BAR = tok('VERTBAR', '|')
TICK = tok('MY_ONE_QUOTE', '`')
QUOTE = tok("'''", "'")
EQ = tok('EQ', '=')
NOT = tok('NOT')
NULL = tok('NULL_KEYWORD')
FROM = tok('FROM_KEYWORD')
SELECT = tok('SELECT_KEYWORD')
WHERE = tok('WHERE_KEYWORD')
UNION = tok('UNION_KEYWORD')
AND = tok('AND_KEYWORD')
INNER = tok('INNER_KEYWORD')
LEFT = tok('LEFT_KEYWORD')
NOT_IN = tok('NOT_IN_KEYWORD', 'NOT IN')
NOT_NULL = tok('NOT_NULL_KEYWORD', 'NOT NULL')

A, B, C, D, E, T, X, Y, Z = (col(name) for name in 'abcdetxyz')
ONE, TWO, THREE = num('1'), num('2'), num('3')
A1, B2, C3 = eqc(A, ONE), eqc(B, TWO), eqc(C, THREE)
LIMITS = both(ONE, TWO)
FROM_T = from_(source('t'))
SELECT_A, SELECT_B, SELECT_C = select([A]), select([B]), select([C])
SELECT_A_FROM_T = select([A], FROM_T)
SELECT_B_FROM_U = select([B], from_(source('u')))
SELECT_ONE = select([ONE])
ON_XY, ON_YZ = on(eqc(X, Y)), on(eqc(Y, Z))
JOIN_BC = join([source('b')], [source('c'), ON_XY])
TOP_5_PERCENT = word('TOP_KEYWORD', bare_num('5'), tok('PERCENT_KEYWORD'))

STATEMENTS = {
    'SELECT a, b AS c FROM t1 INNER JOIN t2 ON t1.x = t2.y WHERE a > 1 ORDER BY b DESC': query(
        [A, item(B, alias='c')],
        from_(join([source('t1'), INNER], [source('t2'), on(eqc(col('t1', 'x'), col('t2', 'y')))])),
        where(cond(op('GT', '>', A, ONE))), node('ORDER_BY', B, tok('DESC_KEYWORD'))),
    'SELECT 1': query([ONE]),
    'SELECT * FROM t': query([node('ASTERISK_', STAR)], FROM_T),
    'SELECT t.* FROM t': nil(select([T]), DOT, STAR, FROM, ident('t')),
    'SELECT d.t* FROM t': query([node('COLUMN_SPECIFICATION', *names(['d', 't'], ['DB_NAME', 'TABLE_NAME']),
                                      node('ASTERISK_', STAR))], FROM_T),
    'SELECT d.t*, a': query([node('COLUMN_SPECIFICATION', *names(['d', 't'], ['DB_NAME', 'TABLE_NAME']),
                                  node('ASTERISK_', STAR)), A]),
    'SELECT d.t * a': query([node(STAR, col('d', 't'), A)]),
    'SELECT d.t.a FROM d.t': query([col('d', 't', 'a')], from_(source('d', 't'))),
    'SELECT DISTINCTROW a FROM t': query([A], FROM_T, predicate=[tok('DISTINCTROW')]),
    'SELECT ALL a': query([A], predicate=[tok('ALL_KEYWORD')]),
    'SELECT TOP 5 PERCENT a FROM t': query([A], FROM_T, predicate=[TOP_5_PERCENT]),
    'SELECT DISTINCT TOP (5) WITHTIES a': query([A], predicate=[
        tok('DISTINCT_KEYWORD'), word('TOP_KEYWORD', bare_num('5'), tok('WITHTIES_KEYWORD'))]),
    'SELECT `a b` FROM `c`': query([col('a b')], from_(source('c'))),
    'SELECT `order date`': query([col(tok('ORDER_KEYWORD', 'order') + ' ' + tok('DATE', 'date'))]),
    'SELECT `` FROM t': query([node('COLUMN_SPECIFICATION', 'COLUMN_NAME')], FROM_T),
    'SELECT a FROM t x': query([A], from_(source('t', alias='x'))),
    'SELECT a FROM t GARBAGE HERE': nil(select([A], from_(source('t', alias='GARBAGE'))), ident('HERE')),
    'SELECT a b, c AS d': query([item(A, alias='b'), item(C, alias='d')]),
    'SELECT (a) b': query([item(A, alias='b')]),
    'SELECT a > 1 FROM t': query([op('GT', '>', A, ONE)], FROM_T),
    'SELECT IDENTIFYCOL, ROWGUIDCOL': query([lit('IDENTIFYCOL'), lit('ROWGUIDCOL')]),
    'SELECT (a + b) * c': nil(select([node(PLUS, A, B)]), STAR, ident('c')),
    'SELECT (a, b)': query([A, B]),
    # Unions
    'SELECT a UNION ALL SELECT b': query([A], union(tok('ALL_KEYWORD'), SELECT_B)),
    'SELECT a ORDER BY a UNION SELECT b UNION SELECT c': query(
        [A], node('ORDER_BY', A), union(select([B], union(SELECT_C)))),
    'SELECT a UNION (SELECT b)': query([A], union(SELECT_B)),
    'SELECT a UNION (SELECT b) UNION SELECT c': query([A], union(select([B], union(SELECT_C)))),
    '(SELECT a) UNION SELECT b': nil(SELECT_A, UNION, SELECT, ident('b')),
    '(SELECT a FROM t) UNION SELECT b': nil(SELECT_A_FROM_T, UNION, SELECT, ident('b')),
    "(SELECT ')') UNION SELECT b": nil(select([string(CLOSE)]), UNION, SELECT, ident('b')),
    '(SELECT a UNION SELECT b)': query([A], union(SELECT_B)),
    '((SELECT a) UNION SELECT b)': query([A], union(SELECT_B)),
    # Parentheses of a whole query
    '(SELECT a)': query([A]),
    '(SELECT a FROM t)))': query([A], FROM_T),
    'SELECT a ORDER BY a)': query([A], node('ORDER_BY', A)),
    'SELECT a ORDER BY a))': nil(select([A], node('ORDER_BY', A)), CLOSE),
    # Clauses
    'SELECT a FROM t LIMIT 5': query([A], FROM_T, node('LIMIT', num('5'))),
    'SELECT a FROM t LIMIT 5, 10': query([A], FROM_T, node('LIMIT', num('5'), num('10'))),
    'SELECT a FROM t LIMIT 5 OFFSET 10': nil(select([A], FROM_T, node('LIMIT', num('5'))), ident('OFFSET'),
                                             digit('10')),
    'SELECT a FROM t GROUP BY 1': nil(SELECT_A_FROM_T, tok('GROUP_KEYWORD'), tok('BY_KEYWORD'), digit('1')),
    'SELECT a FROM t GROUP BY a, 1': query([A], FROM_T, node('GROUP_BY', A, ONE)),
    'SELECT a FROM t GROUP BY a, b + 1': nil(select([A], FROM_T, node('GROUP_BY', A, B)), PLUS, digit('1')),
    'SELECT a FROM t GROUP BY ALL a WITH ROLLUP': nil(
        select([A], FROM_T, node('GROUP_BY', tok('ALL_KEYWORD'), A)), lit('WITH'), tok('ROLLUP_KEYWORD')),
    'SELECT a FROM t GROUP BY a with rollup HAVING COUNT(*) > 1': query(
        [A], FROM_T, node('GROUP_BY', A, tok('WITH_KEYWORD', 'with'), tok('ROLLUP_KEYWORD', 'rollup')),
        node('HAVING', cond(op('GT', '>', call('COUNT', STAR), ONE)))),
    'SELECT a ORDER BY a ASC, b, 1 DESC': query(
        [A], node('ORDER_BY', A, tok('ASC_KEYWORD'), B, ONE, tok('DESC_KEYWORD'))),
    'SELECT a FROM t COMPUTE SUM(a), AVG(b) BY a, b': query(
        [A], FROM_T, node('COMPUTE', call('SUM', A), call('AVG', B), node('BY', A, B))),
    'SELECT a FROM t FOR BROWSE': query([A], FROM_T, node('FOR', lit('BROWSE'))),
    'SELECT a FROM t FOR XML RAW.XMLDATA.ELEMENTS.BYNATY base64': query([A], FROM_T, node(
        'FOR', lit('XML'), lit('RAW'), DOT, lit('XMLDATA'), DOT, lit('ELEMENTS'), DOT, lit('BYNATY base64'))),
    'SELECT a FROM t FOR XML AUTO, ELEMENTS': nil(
        select([A], FROM_T, node('FOR', lit('XML'), lit('AUTO'))), COMMA, lit('ELEMENTS')),
    'SELECT a FROM t for xml raw': nil(SELECT_A_FROM_T, tok('FOR_KEYWORD', 'for'), ident('xml'), ident('raw')),
    'SELECT a OPTION HASH GROUP, CONCAT UNION, MAXDOP 2, FAST 1, FORCE ORDER, KEEP PLAN, EXPAND VIEWS': query(
        [A], node('OPTION', lit('HASH'), tok('GROUP_KEYWORD'), tok('CONCAT'), UNION, lit('MAXDOP'), bare_num('2'),
                  lit('FAST'), bare_num('1'), lit('FORCE'), tok('ORDER_KEYWORD'), lit('KEEP'), lit('PLAN'),
                  lit('EXPAND VIEWS'))),
    'SELECT a FROM t OPTION (MAXDOP 2)': nil(SELECT_A_FROM_T, tok('OPTION_KEYWORD'), OPEN, lit('MAXDOP'), digit('2'),
                                             CLOSE),
    'SELECT a; SELECT b': nil(SELECT_A, SELECT, ident('b')),
    'SELECT a FROM t WHERE': nil(SELECT_A_FROM_T, WHERE),
    # No SELECT at the beginning
    'INSERT INTO t': no_query(tok('INSERT'), lit('INTO'), ident('t')),
    'x SELECT a': no_query(ident('x'), SELECT, ident('a')),
    '(((SELECT a': no_query(OPEN, OPEN, OPEN, SELECT, ident('a')),
    '': no_query(),
    '   ': no_query(),
    # Errors that are reported, and whose trees are not modelled
    'SELECT': None,
    'SELECT FROM t': None,
    'SELECT @x': None,
    'SELECT CONVERT(a, CHAR)': None,
}

# What stands behind `SELECT a FROM`: the clause, or None where it fails, and the tokens that trail.
SOURCES = {
    't1, t2': [from_(source('t1'), source('t2'))],
    't,': [from_(source('t'))],
    '': [from_()],
    'SELECT b': [from_(), SELECT, ident('b')],
    '(t)': [None, FROM, OPEN, ident('t'), CLOSE],
    '`a': [None, FROM, TICK, ident('a')],
    't)))': [from_(source('t'))],
    't AS x': [from_(source('t', alias='x'))],
    '(SELECT a FROM t)': [from_(SELECT_A_FROM_T)],
    '(SELECT a FROM t) AS x': [from_(item(SELECT_A_FROM_T, alias='x'))],
    '(SELECT a FROM t) x, u': [from_(item(SELECT_A_FROM_T, alias='x'), source('u'))],
    '(SELECT a ORDER BY b)) x c, d': [from_(item(select([A], node('ORDER_BY', B)), alias='x'), C, D)],
    't1 STRAIGHT_JOIN t2': [from_(source('t1', alias='STRAIGHT_JOIN')), ident('t2')],
    't1 STRAIGHT JOIN t2': [from_(join([source('t1'), tok('STRAIGHT_KEYWORD')], [source('t2')]))],
    't1 NATURAL JOIN t2': [from_(source('t1')), tok('NATURAL_KEYWORD'), tok('JOIN_KEYWORD'), ident('t2')],
    't1 NATURAL LEFT OUTER JOIN t2': [from_(join(
        [source('t1'), tok('NATURAL_KEYWORD'), LEFT, tok('OUTER_KEYWORD')], [source('t2')]))],
    't1 FULL JOIN t2': [from_(source('t1')), tok('FULL_KEYWORD'), tok('JOIN_KEYWORD'), ident('t2')],
    't1 LOOP JOIN t2': [from_(source('t1')), lit('LOOP'), tok('JOIN_KEYWORD'), ident('t2')],
    'a x CROSS JOIN b AS y': [from_(join([source('a', alias='x'), tok('CROSS_KEYWORD')], [source('b', alias='y')]))],
    'JOIN b': [from_(join([], [source('b')]))],
    'a JOIN': [from_(join([source('a')], []))],
    'a JOIN b ON x = y LEFT JOIN c ON y = z': [from_(join([source('a')], [source('b'), ON_XY],
                                                          join([LEFT], [source('c'), ON_YZ])))],
    'a JOIN b JOIN c ON x = y ON y = z': [from_(join([source('a')], [JOIN_BC, ON_YZ]))],
    'a JOIN (b JOIN c ON x = y) ON y = z': [from_(join([source('a')], [JOIN_BC, ON_YZ]))],
    '(a JOIN b ON x = y) JOIN c ON y = z': [from_(join([source('a')], [source('b'), ON_XY],
                                                       join([], [source('c'), ON_YZ])))],
    'a JOIN b ON ((x = y)) AND y = z': [from_(join([source('a')], [source('b'), both(ON_XY, eqc(Y, Z))]))],
    'a JOIN b ON x = y AND y = z': [from_(join([source('a')], [source('b'), both(ON_XY, eqc(Y, Z))]))],
    'a JOIN b ON x AND y': [from_(join([source('a')], [source('b')])), tok('ON_KEYWORD'), ident('x'), AND, ident('y')],
    'a JOIN b ON @v = y': [from_(join([source('a')], [source('b'), on(eqc(lit('@') + ' ' + ident('v'), Y))]))],
    't WITH (NOLOCK)': [from_(source('t')), lit('WITH'), OPEN, lit('NOLOCK'), CLOSE],
    't WITH with (NOLOCK))': [from_(source('t')), lit('WITH'), tok('WITH_KEYWORD', 'with'), OPEN, lit('NOLOCK'), CLOSE,
                              CLOSE],
}

# What stands behind `SELECT a FROM t WHERE`: the condition, and the tokens that trail.
CONDITIONS = {
    'a = 1 AND b = 2 OR c = 3': [either(both(A1, B2), C3)],
    'a = 1 && b = 2 || c = 3': [op('OR_KEYWORD2', '||', op('AND_KEYWORD2', '&&', A1, B2), C3)],
    '(a = 1) AND (b = 2)': [both(A1, B2)],
    'b = 2 AND (c = 3 OR a = 1)': [both(B2, either(C3, A1))],
    'a = 1 AND (b = 2 OR c = 3) AND a = 1': [both(both(A1, either(B2, C3)), A1)],
    'a = 1 AND (b = 2 OR (c = 3 AND d))': [both(A1, either(B2, both(C3, D)))],
    'a = 1 AND (c || d) LIKE e': [op('OR_KEYWORD2', '||', both(A1, C), cond(word('LIKE_KEYWORD', D, E)))],
    '(a = 1 OR b = 2) AND c = 3': [both(either(A1, B2), C3)],
    '(a = 1 AND (b = 2 OR c = 3))': [both(A1, either(B2, C3))],
    '(c = 3 OR (a = 1)) AND b = 2': [both(either(C3, A1), B2)],
    'NOT\t(a = 1 OR b = 2)': [either(NOT + ' ' + A1, B2)],
    '(a BETWEEN 1 AND 2)': [between(LIMITS)],
    '((a BETWEEN 1 AND 2))': [between(LIMITS)],
    'a = 1 AND (a BETWEEN 1 AND 2)': [both(A1, between(LIMITS))],
    '(a NOT\tBETWEEN 1 || 2)': [between(op('OR_KEYWORD2', '||', ONE, TWO), negated=[NOT])],
    '(a BETWEEN 1)': [between(ONE)],
    'a BETWEEN 1 AND 2': [A, tok('BETWEEN_KEYWORD'), digit('1'), AND, digit('2')],
    'a IN (1, 2)': [cond(word('IN_KEYWORD', A, ONE, TWO))],
    'a IN (1, 2, 3)': [cond(word('IN_KEYWORD', A, ONE, TWO, THREE))],
    'a IN (SELECT b FROM u)': [cond(word('IN_KEYWORD', A, SELECT_B_FROM_U))],
    'a NOT IN (1)': [cond(node(NOT_IN, A, ONE))],
    'a IS NULL': [cond(word('IS_KEYWORD', A, num(NULL)))],
    'a IS NOT NULL': [cond(word('IS_KEYWORD', A, num(NOT_NULL)))],
    'a NOT\tb': [cond(node(NOT, A, B))],
    'NOT a = 1': [col('OT'), ident('a'), EQ, digit('1')],
    'NOT\ta = 1': [NOT + ' ' + A1],
    "a LIKE 'x%'": [cond(word('LIKE_KEYWORD', A, string(ident('x'), tok('MOD1', '%'))))],
    "a NOT LIKE 'x'": [A, ident('OT'), tok('LIKE_KEYWORD'), QUOTE, ident('x'), QUOTE],
    "a REGEXP 'x'": [A, tok('REGEXP'), QUOTE, ident('x'), QUOTE],
    "a RLIKE 'x'": [A, tok('RLIKE'), QUOTE, ident('x'), QUOTE],
    'a *= b': [cond(op('LOJ', '*=', A, B))],
    'a =* b': [cond(op('GOJ', '=*', A, B))],
    'a = @v': [cond(eq(A, lit('@') + ' ' + ident('v')))],
    'a, b = c': [cond(op('EQ', '=', A, B, C))],
    'a.x(+) = b': [cond(op('EQ', '=', col('a', 'x'), OPEN, PLUS, CLOSE, B))],
    'a': [A],
    'a = 1))))': [A1],
    'a = 1)))))': [A1, CLOSE],
}

# Conditions that fail, with the tokens that trail behind WHERE.
NO_CONDITIONS = {
    '@x': [lit('@'), ident('x')],
    '()': [OPEN, CLOSE],
    'AND a': [AND, ident('a')],
}

ITEMS = {
    '-5': num('-', '5'),
    'a - 5': node(MINUS, A, num('5')),
    'a * -1': node(STAR, A, num('-', '1')),
    'a + b * c - d': node(MINUS, node(PLUS, A, node(STAR, B, C)), D),
    'a % b & c': op('AMPERSAND', '&', op('MOD1', '%', A, B), C),
    'a | | b': A + ' ' + BAR + ' ' + BAR + ' ' + B,
    'a + (5)': node(PLUS, A, num('5')),
    '((1 + b) * 2)': node(STAR, node(PLUS, ONE, B), TWO),
    '(5)': num('5'),
    'a = (1, 2)': op('EQ', '=', A, OPEN, ONE, TWO, CLOSE),
    '(SELECT a FROM t)': SELECT_A_FROM_T,
    'SELECT 1': SELECT_ONE,
    'NULL': num(NULL),
    'NOT NULL': num(NOT_NULL),
    '1.5': num('1', '.', '5'),
    '.5': num('.', '5'),
    '1.5e+3': num('1', '.', '5', ident('e'), '+', '3'),
    '2 E - - 3': num('2', ident('E'), '-', '-', '3'),
    "'abc'": string(ident('abc')),
    "'a b'": string(ident('a'), ident('b')),
    "''": string(),
    "'1/2/2000'": date(digit('1'), SLASH, digit('2'), SLASH, digit('2000')),
    "'Jan 5, 2000'": date(ident('Jan'), digit('5'), COMMA, digit('2000')),
    "'Jan 5 2000'": date(ident('Jan'), digit('5'), digit('2000')),
    "'(1/NULL/.5'": date(digit('1'), SLASH, NULL, SLASH, DOT, digit('5')),
    'a(+)': ' '.join([A, OPEN, PLUS, CLOSE]),
    # Functions
    'COUNT(*)': call('COUNT', STAR),
    'COUNT(DISTINCT a)': call('COUNT', tok('DISTINCT_KEYWORD'), A),
    'max(a)': func(tok('MAX', 'max'), params(A)),
    'IFNULL(a, 0)': call('IFNULL', A, num('0')),
    'AES_DECRYPT(a, b)': call('AESDECRYPT', A, B),
    'MAX(int, a)': call('MAX', node('DATATYPE', tok('INT', 'int')), A),
    'COUNT(COUNT(a))': call('COUNT', call('COUNT', A)),
    'NOW': func(tok('NOW')),
    'NOW()': call('NOW'),
    'NOW(': call('NOW'),
    'ABS(a b)': call('ABS', A, B),
    '(ABS(a)': call('ABS', A),
    'LEFT(a, 1)': call('LEFT_KEYWORD', A, ONE),
    'PEDIOD_DIFF(a)': call('PEDIODDIFF', A),
    '{fn NOW()}': func(lit('fn'), tok('NOW'), params()),
    '{NOW()}': call('NOW'),
    'fn DATE(a)': func(lit('fn'), tok('DATE'), params(A)),
    'ABS(mi, a)': call('ABS', node('DATE_PART', lit('mi')), A),
    '@@VERSION': func(lit('@@VERSION')),
    'EXISTS (SELECT 1)': call('EXISTS', SELECT_ONE),
    'NOT EXISTS (SELECT 1)': func(tok('NOT_EXISTS', 'NOT EXISTS'), params(SELECT_ONE)),
    'CAST(a AS CHAR(10))': cast(A, datatype('CHAR', bare_num('10'))),
    'CAST(a AS DECIMAL(8, 2))': cast(A, datatype('DECIMAL', bare_num('8'), bare_num('2'))),
    'CAST(a AS CHAR(MAX))': cast(A, datatype('CHAR', bare_num(tok('MAX')))),
    'CAST(a AS CHAR 10))': cast(A, datatype('CHAR', bare_num('10'))),
    'CAST(a AS TIMESHTAMP)': cast(A, datatype('TIMESHTAMP')),
    'CONVERT(CHAR(10), a, 103)': func(lit('CONVERT'), params(datatype('CHAR', bare_num('10')), A,
                                                             node('STYLE', digit('103')))),
    'CONVERT(a AS CHAR)': func(lit('CONVERT'), params(node('AS', A, datatype('CHAR')))),
    '`f`(1)': user_func('f', ONE),
    '`f`(': user_func('f'),
    # CASE
    'CASE WHEN a = 1 THEN 2 ELSE 3 END': call('CASE', arm('WHEN', A1), arm('THEN', TWO), arm('ELSE', THREE),
                                              tok('END')),
    'CASE (a) WHEN 1 THEN b END)': call('CASE', A, arm('WHEN', ONE), arm('THEN', B), tok('END')),
    'CASE WHEN a = 1 AND b = 2 THEN c END': call('CASE', arm('WHEN', both(A1, B2)), arm('THEN', C), tok('END')),
    'CASE END': call('CASE', tok('END')),
}

# An item and the tokens that trail behind it: `SELECT text` is the whole text.
TRAILING_ITEMS = {
    'a,': [A, COMMA],
    '1e3': [item(ONE, alias='e3')],
    '1 x 3': [item(ONE, alias='x'), digit('3')],
    "'it''s'": [string(ident('it')), QUOTE, ident('s'), QUOTE],
    "'Jan 5, 2000 1'": [string(ident('Jan'), digit('5'), COMMA, digit('2000'), digit('1'))],
    'f(1)': [col('f'), OPEN, digit('1'), CLOSE],
    '`a`(+)': [user_func('a'), PLUS, CLOSE],
    'a || b': [A, tok('OR_KEYWORD2', '||'), ident('b')],
    'COUNT(a AS CHAR)': [call('COUNT', A), tok('LITERAL_AS'), tok('CHAR'), CLOSE],
    'PERIOD_DIFF(a)': [col('PERIOD_DIFF'), OPEN, ident('a'), CLOSE],
}

TOKENS = {
    'select SELECT SeLeCt': [tok('SELECT_KEYWORD', 'select'), SELECT, tok('SELECT_KEYWORD', 'SeLeCt')],
    'selectx NOT_X WITHx PLANET': [ident('selectx'), ident('NOT_X'), ident('WITHx'), ident('PLANET')],
    'WITH with With': [lit('WITH'), tok('WITH_KEYWORD', 'with'), tok('WITH_KEYWORD', 'With')],
    'WITHTIES WithTies': [tok('WITHTIES_KEYWORD'), tok('WITHTIES_KEYWORD', 'WithTies')],
    'CONVERT convert': [lit('CONVERT'), tok('CONVERT_KEYWORD', 'convert')],
    'DATE date': [tok('DATE'), tok('DATE', 'date')],
    'INTO Into mm MM': [lit('INTO'), ident('Into'), lit('mm'), ident('MM')],
    '12': [digit('12')],
    '1e3': [digit('1'), ident('e3')],
    '`order`': [TICK, tok('ORDER_KEYWORD', 'order'), TICK],
    '"abc"': [tok('MY_QUOTE', '\\"'), ident('abc'), tok('MY_QUOTE', '\\"')],
    'PERIOD_DIFF PEDIOD_DIFF': [ident('PERIOD_DIFF'), tok('PEDIODDIFF')],
    'MAKETIME MAKETME': [ident('MAKETIME'), tok('MAKETME')],
    '=* = *': [tok('GOJ', '=*'), EQ, STAR],
    '*= * =': [tok('LOJ', '*='), STAR, EQ],
    '||| | |': [tok('OR_KEYWORD2', '||'), BAR, BAR, BAR],
    '&&&': [tok('AND_KEYWORD2', '&&'), tok('AMPERSAND', '&')],
    '<=>=<><>!=': [tok('LE', '<='), tok('GE', '>='), tok('NOT_EQ', '<>'), tok('NOT_EQ', '<>'), tok('NOT_EQ', '!=')],
    '-- /*': [MINUS, MINUS, SLASH, STAR],
    'a:b;c#d?e^f\\g~h$i': [ident(letter) for letter in 'abcdefghi'],
    "'a b'": [QUOTE, ident('a'), ident('b'), QUOTE],
    'naïve': [ident('na'), ident('ve')],
    'a\U0001f600b': [ident('a'), ident('b')],
    # NOT
    'NOT': [NOT],
    'NOT\t': [NOT],
    'NOT ': [ident('OT')],
    'NOT(': [NOT, OPEN],
    'NOT (': [ident('OT'), OPEN],
    'NOT a': [ident('OT'), ident('a')],
    'Not LIKE': [ident('ot'), tok('LIKE_KEYWORD')],
    'NOT BETWEEN': [ident('OT'), tok('BETWEEN_KEYWORD')],
    'NOT\tIN': [NOT, tok('IN_KEYWORD')],
    'NOT\nIN': [NOT, tok('IN_KEYWORD')],
    'NOT IN': [NOT_IN],
    'not in': [tok('NOT_IN_KEYWORD', 'not in')],
    'Not In': [tok('NOT_IN_KEYWORD', 'Not In')],
    'NOT  IN': [ident('OT'), tok('IN_KEYWORD')],
    'not null not exists': [tok('NOT_NULL_KEYWORD', 'not null'), tok('NOT_EXISTS', 'not exists')],
    'NOT INNER': [NOT_IN, ident('NER')],
    'NOT ISNULL': [NULL],
    'NOT EXIT': [],
    'NOT EXITS': [ident('S')],
    'NOT Next': [ident('xt')],
    'NOT_LIKE NOT_REGEXP': [tok('NOTLIKE'), tok('NOTREGEXP')],
    'KNOT IN': [ident('KNOT'), tok('IN_KEYWORD')],
    # Literals with a blank
    'EXPAND VIEWS': [lit('EXPAND VIEWS')],
    'EXPAND VIEX a': [ident('a')],
    'EXPAND  VIEWS': [ident('VIEWS')],
    'EXPAND\tVIEWS': [ident('EXPAND'), ident('VIEWS')],
    'expand VIEWS': [ident('expand'), ident('VIEWS')],
    'BYNATY base64': [lit('BYNATY base64')],
    'BYNATY base6': [],
    # Signs that begin a longer one
    '!': [],
    '!a': [],
    '!ab': [ident('b')],
    '! =': [EQ],
    '@@VERSION': [lit('@@VERSION')],
    '@@VERSIONX': [lit('@@VERSION'), ident('X')],
    '@@version': [lit('@'), ident('version')],
    '@@LANG': [lit('@'), ident('LANG')],
    '@@@VERSION': [lit('@@VERSION')],
    '@@': [lit('@')],
    '': [],
    ' \t\r\n': [],
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
        for text, (clause, *trailing) in SOURCES.items():
            self.check('SELECT a FROM ' + text, nil(select([A], *([clause] if clause else [])), *trailing))

    def test_conditions(self):
        for text, (condition, *trailing) in CONDITIONS.items():
            self.check('SELECT a FROM t WHERE ' + text, nil(select([A], FROM_T, where(condition)), *trailing))

    def test_where_without_a_condition_trails(self):
        for text, trailing in NO_CONDITIONS.items():
            self.check('SELECT a FROM t WHERE ' + text, nil(SELECT_A_FROM_T, WHERE, *trailing))

    def test_items(self):
        for text, tree in ITEMS.items():
            self.check('SELECT ' + text, query([tree]))

    def test_items_with_trailing_text(self):
        for text, (tree, *trailing) in TRAILING_ITEMS.items():
            self.check('SELECT ' + text, nil(select([tree]), *trailing))

    def test_every_word_of_the_function_families_can_be_called(self):
        families = {7: OTHER_FUNCTION, 29: NUMBER_FUNCTION, 55: STRING_FUNCTION, 59: DATETIME_FUNCTION,
                    16: CONFIGURATION_FUNCTION}
        for count, family in families.items():
            self.assertEqual(len(family), count)
            for name in family:
                text, token = word_of(name)
                self.check('SELECT %s(a)' % text, query([func(token, params(A))]))

    def test_a_date_part_is_no_name(self):
        for name in DATE_PART:
            self.check('SELECT ' + name.strip("'"), None)

    def test_data_types(self):
        self.assertEqual(len(DATA_TYPE), 19)
        for name in DATA_TYPE:
            self.check('SELECT CAST(a AS %s)' % name, query([cast(A, datatype(name))]))
        self.check('SELECT CAST(a AS TIMESTAMP)', None)


class Checks(unittest.TestCase):
    def test_status(self):
        for status, texts in {'clean': ['SELECT a', 'SELECT a;', '(SELECT a)'],
                              'trailing': ['SELECT t.*', 'SELECT a FROM t WHERE', '(SELECT a) UNION SELECT b'],
                              'error': ['', 'x SELECT a', '((SELECT a))', 'SELECT', 'SELECT TOP']}.items():
            for sql in texts:
                with self.subTest(sql):
                    self.assertEqual(DIALECT.read(sql).status, status)


class Tokens(unittest.TestCase):
    def check(self, text, expected):
        with self.subTest(text):
            self.assertEqual(token_lines(DIALECT.lex(text)), expected)

    def test_texts(self):
        for text, expected in TOKENS.items():
            self.check(text, expected)

    def test_number_of_alternatives(self):
        lists = [LITERAL_WORDS, LITERALS_WITH_BLANK, SYSTEM_VARIABLES, KEYWORDS, NEGATED_KEYWORDS, OPERATORS]
        self.assertEqual(sum(map(len, lists)) + len(['IDENTIFICATOR', 'DIGIT']), 309)

    def test_keywords_in_any_case(self):
        for text, name in KEYWORDS.items():
            for shown in (text.lower(), text.title(), text.upper()):
                self.check(shown, [lit(shown) if shown in LITERALS else tok(name, shown)])
                self.check(shown + '_1', [ident(shown + '_1')])

    def test_literals_in_their_case_only(self):
        for text in LITERAL_WORDS:
            self.check(text, [lit(text)])
            other = text.swapcase()
            self.check(other, [tok(KEYWORDS.get(other.upper(), 'IDENTIFICATOR'), other)])

    def test_system_variables_cut_short(self):
        self.assertEqual(len(SYSTEM_VARIABLES), 16)
        for name in SYSTEM_VARIABLES:
            self.check(name, [lit(name)])
            for end in range(3, len(name)):
                shown = name[2:end]
                self.check(name[:end], [lit('@'), tok(KEYWORDS.get(shown, 'IDENTIFICATOR'), shown)])

    def test_not_before_each_sign_and_letter(self):
        for code in range(ord('"'), 0x7f):
            rest = token_lines(DIALECT.lex(chr(code)))
            if chr(code) in 'eEiInN':
                self.check('NOT ' + chr(code), [])
            else:
                self.check('NOT ' + chr(code), [ident('OT'), *rest])
            if not (chr(code).isalnum() or chr(code) == '_'):
                self.check('NOT' + chr(code), [NOT, *rest])
            self.check('NOT\t' + chr(code), [NOT, *rest])
            self.check('NOT  ' + chr(code), [ident('OT'), *rest])

    def test_characters_without_a_token_disappear(self):
        for code in [*range(0, 33), *map(ord, '#$:;?\\^~'), 0x7f, 0x80, 0xe4, 0xfffe, 0xffff]:
            self.check('a' + chr(code) + 'b', [ident('a'), ident('b')])


class Growth(unittest.TestCase):
    def test_unclosed_nesting_is_not_exponential(self):
        for text in ('SELECT ' + '(' * 300 + 'a FROM t', 'SELECT a FROM t WHERE ' + '(' * 300 + 'a = 1',
                     'SELECT a FROM t WHERE a' + ' AND (a OR b' * 60 + ')' * 60,
                     'SELECT a FROM ' + 'a JOIN ' * 100 + 'b'):
            start = time.monotonic()
            self.assertIsNotNone(with_deep_stack(lambda text=text: DIALECT.read(text)))
            self.assertLess(time.monotonic() - start, 10)


if __name__ == '__main__':
    unittest.main()
